// The task's statement of the truth: for every pattern of present and absent symptoms the chance of each
// disease, worked out once ahead of time. Symptoms count as independent given the disease.
#pragma once

#include <vector>

#include "platform/checkedInteger.h"

namespace modLikely {

/// Replaces the table by the one of the current scenario: 2^n rows for n symptoms. The base rates cancel out
/// but for a rate of 0, whose disease has no chance; that is the task's definition of the true chance. A
/// base-rate row with more diseases than there are words faults with Subscript out of range.
void buildLikelihoodTable();

/// A pattern as truth values, symptom 0 in the highest of `count` bits.
std::vector<bool> patternBits(double pattern, Int16 count);

}  // namespace modLikely
