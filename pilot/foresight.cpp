#include "pilot/foresight.h"

#include <algorithm>

namespace foresight {

namespace {

using inference::Results;

struct Case {
    const Task& task;
    const Tables& tables;
    const Moment& moment;
};

/// Stopping pays the prescription that heals best: a help ends the patient with the health that is left.
double worthOfStopping(const Case& at, const Results& results, double elapsed) {
    const double worth = -inference::expectedPenalty(at.task, at.tables, results);
    if (!at.task.hasTreatments || !at.task.oneTreatment) return worth;
    const double health = at.moment.health -
                          healthLostPerMinute * (elapsed + 2 * at.moment.minutesToAct);  // beliefs, treatment
    const auto choice =
        inference::bestTreatment(at.task, at.tables, inference::posterior(at.tables, results));
    return worth + at.task.healAward * std::max(health, 0.0) * choice.heal;
}

/// Whether a result that comes then finds the patient alive, as far as the mean course tells.
bool comesInTime(const Moment& moment, double elapsed) {
    return elapsed < moment.minutesLeft && healthLostPerMinute * elapsed < moment.health;
}

double worth(const Case& at, const Results& results, double elapsed);

/// What may be hoped for from issuing this test now.
double worthOfTest(const Case& at, const Results& results, double elapsed, int test) {
    const auto index = static_cast<std::size_t>(test);
    const double present = inference::presence(at.tables, inference::posterior(at.tables, results), index);
    const double due = elapsed + at.moment.lengths[index] + at.moment.minutesToAct;
    double sum = -std::max(at.task.testCost, 0.0);
    for (const Result result : {Result::Present, Result::Absent}) {
        const double chance = result == Result::Present ? present : 1 - present;
        if (chance <= 0) continue;
        Results known = results;
        known[index] = result;
        // Where a result forces the diagnosis and that ends the patient, nothing comes after it.
        const bool last = at.task.diagnoseAfterTests && !at.task.hasTreatments;
        sum += chance * (last ? worthOfStopping(at, known, due) : worth(at, known, due));
    }
    return sum;
}

int testInTime(const Case& at, const Results& results, double elapsed) {
    const int test = inference::mostInformative(at.tables, results);
    if (test < 0) return -1;
    const double due = elapsed + at.moment.minutesToAct + at.moment.lengths[static_cast<std::size_t>(test)];
    return comesInTime(at.moment, due) ? test : -1;
}

double worth(const Case& at, const Results& results, double elapsed) {
    const double stopping = worthOfStopping(at, results, elapsed);
    const int test = testInTime(at, results, elapsed);
    return test < 0 ? stopping : std::max(stopping, worthOfTest(at, results, elapsed, test));
}

}  // namespace

int nextTest(const Task& task, const Tables& tables, const Results& results, const Moment& moment) {
    const Case at{task, tables, moment};
    const int test = testInTime(at, results, 0);
    if (test < 0 || worthOfTest(at, results, 0, test) <= worthOfStopping(at, results, 0)) return -1;
    return test;
}

}  // namespace foresight
