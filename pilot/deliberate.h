// The course that the policies which think have in common: gather results until there are enough, state
// beliefs, prescribe. What they differ in is three answers: what to believe, what to test next, how to treat.
#pragma once

#include <functional>
#include <span>
#include <vector>

#include "pilot/inference.h"

namespace deliberate {

struct Answers {
    /// Belief by disease, fractions 0 to 1 that add up to 1 at most.
    std::function<std::vector<double>(const inference::Results&)> belief;
    /// The test to issue; -1 where no further one is wanted.
    std::function<int(const Sight&, const inference::Results&)> nextTest;
    /// The treatment to prescribe; -1 for none.
    std::function<int(const inference::Results&)> treatment;
};

/// A mind that goes by these answers. Where a prescription does not end the patient it is repeated a few
/// times, and a treatment that can harm is left out where the harm would kill.
Mind mindOf(const Task& task, Answers answers);

/// The test of a subject who weighs the cost of a test against what it may bring (pilot/foresight).
int testThatPays(const Task& task, const Tables& tables, const Sight& sight,
                 const inference::Results& results);

/// Beliefs in whole percents that every dialog takes: they add up to what the chances do, so that nothing is
/// pushed or rescaled, and keep within the limits of the meters.
std::vector<Belief> beliefsOf(const Task& task, std::span<const double> chances);

}  // namespace deliberate
