// What the findings of a scenario can come to: each pattern of present and absent symptoms with how often it
// comes and what it says of the diseases, and how often the likeliest disease is the right one.
#pragma once

#include <vector>

#include "pilot/inference.h"

namespace patterns {

struct Pattern {
    inference::Results results;   ///< none is open
    double share = 0;             ///< of the patients as they are drawn, 0 to 1
    std::vector<double> chances;  ///< computed, by disease; all 0 where no disease has these findings
};

/// All of them, the first symptom slowest and absent before present.
std::vector<Pattern> of(const Tables& tables);

/// Share of patients whose disease is the likeliest one by the posterior.
struct Right {
    double without;  ///< any result
    double with;     ///< all of them
};

Right rightOf(const Tables& tables, const std::vector<Pattern>& patterns);

}  // namespace patterns
