#include "pilot/deliberate.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

#include "pilot/foresight.h"

namespace deliberate {

using inference::Results;

namespace {

constexpr int mostPrescriptions = 3;
constexpr double pointsOfHarm = 20;
/// From one act to the next, on the wall: to see it, to decide, and the presses that it takes.
constexpr double secondsToAct = 2;
constexpr double minutesInHour = 60;

struct Memory {
    int patient = 0;
    Results stated = {};  ///< the results that the beliefs were last stated by
};

Act state(const Task& task, const Answers& answers, Memory& memory, const Results& results) {
    memory.stated = results;
    return act::diagnose(beliefsOf(task, answers.belief(results)));
}

bool mayPrescribe(const Task& task, const Sight& sight) {
    if (!sight.canPrescribe || (task.risk && sight.health <= pointsOfHarm)) return false;
    return task.oneTreatment || sight.timesPrescribed < mostPrescriptions;
}

Act next(const Task& task, const Answers& answers, Memory& memory, const Sight& sight) {
    if (sight.patient != memory.patient) memory = {sight.patient};
    const Results results = inference::resultsOf(sight);
    if (sight.mustDiagnose) return state(task, answers, memory, results);
    if (std::ranges::any_of(sight.tests, &ShownTest::underWay)) return act::wait();
    const int test = answers.nextTest(sight, results);
    if (test >= 0 && sight.tests[static_cast<std::size_t>(test)].canIssue) return act::issue(test);
    const bool isStated = !sight.beliefs.empty() && memory.stated == results;
    if (sight.canDiagnose && !isStated) return state(task, answers, memory, results);
    if (mayPrescribe(task, sight)) {
        const int treatment = answers.treatment(results);
        if (treatment >= 0) return act::prescribe(treatment);
    }
    return act::wait();
}

}  // namespace

Mind mindOf(const Task& task, Answers answers) {
    return [task, answers = std::move(answers), memory = Memory{}](const Sight& sight) mutable {
        return next(task, answers, memory, sight);
    };
}

int testThatPays(const Task& task, const Tables& tables, const Sight& sight, const Results& results) {
    const double minutesInSecond = task.simulatedHoursPerMinute;  // an hour a minute is a minute a second
    foresight::Moment moment{.health = sight.health};
    moment.minutesLeft = minutesInHour * task.minutesPerPatient * task.simulatedHoursPerMinute -
                         minutesInSecond * sight.millisecondsOnPatient / 1000.0;
    moment.minutesToAct = minutesInSecond * secondsToAct;
    for (const ShownTest& test : sight.tests) moment.lengths.push_back(test.minutes);
    return foresight::nextTest(task, tables, results, moment);
}

std::vector<Belief> beliefsOf(const Task& task, std::span<const double> chances) {
    constexpr int whole = 100;
    const int count = static_cast<int>(chances.size());
    const int least = task.allDiseases ? 0 : 1;
    const int most = task.yoked && count > 1 ? whole + 1 - count : whole;
    std::vector<Belief> beliefs;
    std::vector<double> lacking;  // what rounding down has taken away
    for (std::size_t j = 0; j < chances.size(); ++j) {
        const int percent = static_cast<int>(std::floor(chances[j] * whole));
        beliefs.push_back({task.diseases[j], std::clamp(percent, least, most)});
        lacking.push_back(chances[j] * whole - beliefs.back().percent);
    }
    const double sum = std::accumulate(chances.begin(), chances.end(), 0.0);
    int left = std::max(static_cast<int>(std::lround(sum * whole)), 1);
    for (const Belief& belief : beliefs) left -= belief.percent;
    // One percent at a time, to or from the row that rounding has wronged most.
    for (; left != 0; left += left > 0 ? -1 : 1) {
        const int step = left > 0 ? 1 : -1;
        int row = -1;
        for (int j = 0; j < count; ++j) {
            const auto k = static_cast<std::size_t>(j);
            const int moved = beliefs[k].percent + step;
            if (moved < least || moved > most) continue;
            if (row < 0 || step * lacking[k] > step * lacking[static_cast<std::size_t>(row)]) row = j;
        }
        if (row < 0) break;
        beliefs[static_cast<std::size_t>(row)].percent += step;
        lacking[static_cast<std::size_t>(row)] -= step;
    }
    return beliefs;
}

}  // namespace deliberate
