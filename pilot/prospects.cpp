#include "pilot/prospects.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "pilot/foresight.h"
#include "pilot/inference.h"
#include "pilot/studyTables.h"
#include "study/timeLimit.h"

namespace prospects {

using inference::Results;
using studyTables::Reading;

namespace {

constexpr double never = 0.001;  // what fewer than one patient in a thousand comes to

// ---- Health as a walk: a tick adds -5 to +4 tenths of a point, each alike likely, four ticks a minute.

constexpr int leastStep = -5;
constexpr int mostStep = 4;
constexpr double fullHealth = 100;

/// Greatest chance to ever reach full health from here, whatever the time (Lundberg's inequality for a walk
/// that drifts downward): e to the minus theta a, with the theta > 0 at which the mean of e^(theta step)
/// is 1.
double luckFrom(double health) {
    const auto meanOf = [](double theta) {
        double sum = 0;
        for (int step = leastStep; step <= mostStep; ++step) sum += std::exp(theta * step);
        return sum / (mostStep - leastStep + 1);
    };
    double low = 0.01;
    double high = 1;
    for (int i = 0; i < 60; ++i) {
        const double middle = (low + high) / 2;
        (meanOf(middle) < 1 ? low : high) = middle;
    }
    return std::min(1.0, std::exp(-low * 10 * (fullHealth - health)));
}

/// Four standard deviations over the mean life of someone who starts with this health, in simulated minutes.
double longestLifeFrom(double health) {
    constexpr double ticksInMinute = 4;
    constexpr double drift = 0.5;      // tenths a tick, downward
    constexpr double variance = 8.25;  // of a step
    const double tenths = 10 * health;
    const double deviation = std::sqrt(tenths * variance / (drift * drift * drift)) / ticksInMinute;
    return health / foresight::healthLostPerMinute + 4 * deviation;
}

// ---- Tests and treatments

/// The chance to heal of a subject who will know the results of these tests and prescribes by the posterior.
double healChance(const Reading& reading, Results results, std::span<const std::size_t> tests) {
    const Tables& tables = reading.tables;
    const std::vector<double> chances = inference::posterior(tables, results);
    if (tests.empty()) return inference::bestTreatment(reading.task, tables, chances).heal;
    const std::size_t test = tests.front();
    const double present = inference::presence(tables, chances, test);
    results[test] = Result::Present;
    double heal = present * healChance(reading, results, tests.subspan(1));
    results[test] = Result::Absent;
    heal += (1 - present) * healChance(reading, results, tests.subspan(1));
    return heal;
}

std::optional<FirstTest> bestFirstTest(const Reading& reading, const Results& none) {
    std::optional<FirstTest> best;
    for (std::size_t test = 0; test < none.size(); ++test) {
        const double fall = inference::expectedFall(reading.task, reading.tables, none, test);
        if (best && fall <= best->fall) continue;
        best = FirstTest{.number = static_cast<int>(test) + 1,
                         .bits = inference::information(reading.tables, none, test),
                         .fall = fall,
                         .heal = healChance(reading, none, std::array{test})};
    }
    return best;
}

std::optional<double> timeLimitOf(const Reading& reading) {
    const int hours = reading.task.minutesPerPatient * reading.task.simulatedHoursPerMinute;
    const std::optional<int> limit = timeLimit::hoursUntil(reading.startHour, hours);
    if (!limit) return {};
    return 60.0 * *limit;
}

Prospect reckon(const Reading& reading) {
    const Results none(reading.tables.symptomChances.size(), Result::None);
    std::vector<std::size_t> tests;
    for (std::size_t test = 0; test < none.size(); ++test) tests.push_back(test);
    Prospect prospect;
    prospect.penalty = inference::expectedPenalty(reading.task, reading.tables, none);
    prospect.testCost = std::max(reading.task.testCost, 0.0);
    prospect.heal = healChance(reading, none, {});
    prospect.healKnowing = healChance(reading, none, tests);
    prospect.test = bestFirstTest(reading, none);
    prospect.luck = luckFrom(reading.healthiest);
    prospect.longestLife = longestLifeFrom(reading.healthiest);
    prospect.timeLimit = timeLimitOf(reading);
    return prospect;
}

// ---- Warnings

bool prescriptionSaves(const Reading& reading) {
    return reading.task.hasTreatments && reading.task.oneTreatment;
}

void judgeWinning(Prospect& prospect, const Reading& reading) {
    if (prospect.luck >= never || (prescriptionSaves(reading) && prospect.healKnowing > 0)) return;
    const char* why = "No treatment heals any disease.";
    if (!reading.task.hasTreatments) {
        why = "The first diagnosis ends the patient, and none counts as saved.";
    } else if (!reading.task.oneTreatment) {
        why = "A treatment that helps is recorded, but it neither ends the patient nor raises the health.";
    }
    prospect.warnings.push_back(
        {Kind::CannotBeWon,
         fmt::format(
             "Cannot be won: {} Luck alone saves fewer than one patient in a thousand (the healthiest "
             "starts at {:g}), so the award is out of reach and the score can only fall.",
             why, reading.healthiest)});
}

/// A treatment that heals nobody matters where treatments are prescribed.
void judgeTreatments(Prospect& prospect, const Reading& reading) {
    if (!reading.task.hasTreatments) return;
    for (std::size_t j = 0; j < reading.tables.baseRates.size(); ++j) {
        const int rate = reading.tables.baseRates[j];
        const bool healed = std::ranges::any_of(reading.tables.healChances,
                                                [j](const std::vector<int>& heal) { return heal[j] > 0; });
        if (healed || rate == 0) continue;
        prospect.warnings.push_back(
            {Kind::NoTreatmentHeals,
             fmt::format("No treatment heals disease {}, which {} of 100 patients have.",
                         reading.task.diseases[j], rate)});
    }
}

void judgeTime(Prospect& prospect, const Reading& reading) {
    if (reading.healthiest <= 0) return;  // a roster that is still empty
    if (prospect.timeLimit && *prospect.timeLimit <= prospect.longestLife) return;
    const std::string life =
        fmt::format("the healthiest patient (start {:g}) hardly lives longer than {:.0f}", reading.healthiest,
                    prospect.longestLife);
    prospect.warnings.push_back(
        {Kind::CannotEndByTime,
         prospect.timeLimit
             ? fmt::format("Cannot end by time: the limit comes after {:.0f} simulated minutes, and {}.",
                           *prospect.timeLimit, life)
             : fmt::format(
                   "Cannot end by time: from {}:00 a length of {} hours meets no hour of the dial; {} "
                   "minutes.",
                   reading.startHour, reading.task.minutesPerPatient * reading.task.simulatedHoursPerMinute,
                   life)});
}

void judgeTests(Prospect& prospect, const Reading& reading) {
    if (!prospect.test || prospect.testPays()) return;
    const FirstTest& test = *prospect.test;
    std::string text = fmt::format(
        "No first test pays by the belief: the best one, test {} ({:.2f} bits), lowers the expected penalty "
        "from {:.1f} by {:.1f} and costs {:g}.",
        test.number, test.bits, prospect.penalty, test.fall, prospect.testCost);
    const std::size_t tests = reading.tables.symptomChances.size();
    if (reading.task.comparesChance && tests > 1)
        text += fmt::format(" All {} lower it to 0 and cost {:g}.", tests,
                            prospect.testCost * static_cast<double>(tests));
    if (prescriptionSaves(reading))
        text += fmt::format(
            " A test can still pay by the treatment: the best one heals {:.0f} of 100 patients without a "
            "test, {:.0f} with this one and {:.0f} with all.",
            100 * prospect.heal, 100 * test.heal, 100 * prospect.healKnowing);
    prospect.warnings.push_back({Kind::TestsNeverPay, std::move(text)});
}

Prospect judged(const Reading& reading) {
    Prospect prospect = reckon(reading);
    for (const auto& rule : {judgeWinning, judgeTreatments, judgeTime, judgeTests}) rule(prospect, reading);
    return prospect;
}

Prospect notReckoned() {
    Prospect prospect;
    prospect.warnings.push_back(
        {Kind::NotReckoned,
         "Nothing can be said of this scenario: its rates, symptoms and treatments do "
         "not fit together, or are too many. `tavixdb check` tells where."});
    return prospect;
}

}  // namespace

std::vector<Prospect> of(const check::Study& study) {
    std::vector<Prospect> list;
    for (const check::Scenario& scenario : study.scenarios) {
        const std::optional<Reading> reading = studyTables::of(study, scenario);
        list.push_back(reading ? judged(*reading) : notReckoned());
        list.back().scenario = scenario.name;
    }
    return list;
}

}  // namespace prospects
