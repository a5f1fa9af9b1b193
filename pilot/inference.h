// What follows from the results of tests: the chances of the diseases, how much a test would tell, and what
// the score has to expect of it. Two chances are kept apart. The computed chance is what the score compares a
// belief with: symptoms count as independent given the disease, and base rates cancel out. The posterior is
// how often such a patient has the disease: it weighs by the base rates, by which patients are drawn.
#pragma once

#include <span>
#include <vector>

#include "pilot/policy.h"

namespace inference {

/// By test; Result::None where none is known.
using Results = std::vector<Result>;

/// As the results stand on the screen.
Results resultsOf(const Sight& sight);

/// Fractions 0 to 1 by disease, from the symptoms with a result alone; without any all diseases are alike. A
/// disease with a base rate of 0 has no chance, and the others do not rise to make up for it. All are 0 where
/// the tables say that these results cannot be.
std::vector<double> computedChances(const Tables& tables, const Results& results);

/// Fractions 0 to 1 by disease, with a sum of 1, or all 0 as above.
std::vector<double> posterior(const Tables& tables, const Results& results);

/// The chance that a test says "Present", if the diseases have these chances. They need not add up to 1.
double presence(const Tables& tables, std::span<const double> chances, std::size_t test);

/// Mutual information in bits of disease and result of a test, at the computed chances; never below 0.
double information(const Tables& tables, const Results& results, std::size_t test);

/// The open test with the most information, the first of equal ones; -1 if all have a result.
int mostInformative(const Tables& tables, const Results& results);

/// Mean penalty, in score, of a subject who believes as the computed chances say: over the patients with
/// these results, as they are drawn. Beliefs and chances count with two decimals, as on the screen.
double expectedPenalty(const Task& task, const Tables& tables, const Results& results);

/// How far the result of one more test lowers the expected penalty, in score; its cost is not in it. Below 0
/// where the result on the average leads the belief away from what all symptoms would say.
double expectedFall(const Task& task, const Tables& tables, const Results& results, std::size_t test);

struct Choice {
    int treatment = -1;  ///< -1 if there is none
    double heal = 0;     ///< fractions 0 to 1
    double harm = 0;     ///< 0 where treatments cannot harm
};

/// The treatment that is likeliest to heal, less its chance to harm; the first of equal ones. A help and a
/// harm weigh alike: neither moves the score but for the help that ends a patient, and there is no harm then.
Choice bestTreatment(const Task& task, const Tables& tables, std::span<const double> chances);

/// The same where it is likelier to heal than to harm; -1 where none is.
int treatmentThatHelps(const Task& task, const Tables& tables, std::span<const double> chances);

}  // namespace inference
