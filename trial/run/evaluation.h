// The evaluation of a trial: a chain of small integer and text steps. Every value passes on as the text that
// the subject sees, so it enters the next step already rounded to what the screen shows; that decides the
// last digit of the score. A text that a trial does not assign keeps what an earlier trial left.
#pragma once

namespace evaluation {

/// Compares the belief in the true disease with its computed chance, charges the difference, pays for a
/// saved patient, charges tests, and moves `score`. Fills `trialEvaluation`, which the feedback shows.
/// An award or change beyond 16 bits, or a score beyond 32, faults with Overflow; four hypotheses none of
/// which is the true disease fault with Subscript out of range. False if the score asks for rescaled beliefs
/// and a meter refused its part: then the beliefs are scored as they stand.
bool evaluateTrial();

/// The penalty of a belief that stands `difference` (0 to 1) away from the chance; `cost` is that of 1.
double penaltyFor(double cost, double difference);

}  // namespace evaluation
