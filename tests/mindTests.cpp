// What simulated subjects think: chances and information against sums over the whole joint table, what the
// policies do on the way to a treatment, and what is said of the sample before anybody plays it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "knowledge/modLikely.h"
#include "pilot/inference.h"
#include "pilot/policies.h"
#include "pilot/prospects.h"
#include "study/createStore.h"
#include "tests/stage.h"

namespace {

using inference::Results;
constexpr auto none = Result::None;
constexpr auto present = Result::Present;
constexpr auto absent = Result::Absent;

class Minds : public Logic {};

/// Diseases with these chances of a pattern, summed over all patterns that agree with the results.
std::vector<double> summed(const Tables& tables, const Results& results, bool weighed) {
    const std::size_t diseases = tables.baseRates.size();
    std::vector<double> sums(diseases, 0.0);
    double all = 0;
    for (unsigned pattern = 0; pattern < 1U << results.size(); ++pattern) {
        for (std::size_t j = 0; j < diseases; ++j) {
            double joint = weighed ? tables.baseRates[j] : 1.0;
            for (std::size_t i = 0; i < results.size(); ++i) {
                const bool there = (pattern >> i & 1U) != 0;
                if (results[i] != none && there != (results[i] == present)) joint = 0;
                joint *= (there ? tables.symptomChances[i][j] : 100 - tables.symptomChances[i][j]) / 100.0;
            }
            sums[j] += joint;
            all += joint;
        }
    }
    for (std::size_t j = 0; j < diseases; ++j) sums[j] = tables.baseRates[j] == 0 ? 0 : sums[j] / all;
    return sums;
}

TEST_F(Minds, ChancesAreThoseOfTheJointTable) {
    for (const std::vector<int>& rates : {std::vector{50, 30, 20}, std::vector{0, 60, 40}}) {
        const Tables tables{rates, {{80, 20, 10}, {30, 70, 0}, {10, 50, 90}}, {}, {}};
        setScenario(rates, tables.symptomChances);
        modLikely::buildLikelihoodTable();
        for (int code = 0; code < 27; ++code) {
            const Results results{Result(code % 3), Result(code / 3 % 3), Result(code / 9)};
            const auto chances = inference::computedChances(tables, results);
            const auto expected = summed(tables, results, false);
            const auto weighed = summed(tables, results, true);
            for (std::size_t j = 0; j < 3; ++j) {
                EXPECT_NEAR(chances[j], expected[j], 1e-12);
                EXPECT_NEAR(inference::posterior(tables, results)[j], weighed[j], 1e-12);
            }
            int mask = 0;
            for (const Result result : results) mask = 2 * mask + (result == present ? 1 : 0);
            if (std::ranges::find(results, none) == results.end()) {
                EXPECT_NEAR(chances[1], s.likelihoodTable[mask].diseaseChance[1], 1e-12)
                    << "as the task has it";
            }
            for (std::size_t test = 0; test < 3; ++test)
                EXPECT_GE(inference::information(tables, results, test), 0.0);
        }
    }
}

// Belief 0.5 is 0.3 away from either chance, 0.8 and 0.2: 100 - 100 x 0.7 x 0.7 = 51. A result leaves
// nothing.
TEST_F(Minds, AnExampleReckonedByHand) {
    Task task;
    task.mostPenalty = 100;
    const Tables tables{{70, 30}, {{80, 20}}, {{90, 10}, {20, 85}}, {{0, 0}, {0, 60}}};
    EXPECT_NEAR(inference::information(tables, {none}, 0), 1 + 0.8 * std::log2(0.8) + 0.2 * std::log2(0.2),
                1e-12);
    EXPECT_NEAR(inference::expectedPenalty(task, tables, {none}), 51, 1e-9);
    EXPECT_NEAR(inference::expectedFall(task, tables, {none}, 0), 51, 1e-9);
    const std::vector even{0.5, 0.5};
    EXPECT_EQ(inference::bestTreatment(task, tables, even).treatment, 1);
    task.risk = true;
    EXPECT_EQ(inference::bestTreatment(task, tables, even).treatment, 0) << "0.50 against 0.525 - 0.30";
}

/// What a policy does with one patient, as letters: T and P with their number, D with the beliefs.
std::string course(const char* policy, const Task& task, const Tables& tables, const Results& truth) {
    Mind mind = policies::find(policy)->mindOf({task, tables, {}, {}});
    Sight sight;
    sight.patient = 1;
    sight.health = 75;
    sight.canDiagnose = true;
    for (std::size_t i = 0; i < truth.size(); ++i) sight.tests.push_back({"", 10, true, false, none});
    std::string done;
    for (int i = 0; i < 12; ++i) {
        const Act act = mind(sight);
        const auto index = static_cast<std::size_t>(act.index);
        if (act.kind == Act::Kind::Wait) break;
        if (act.kind == Act::Kind::Issue) {
            done += "T" + std::to_string(index + 1);
            sight.tests[index] = {"", 10, false, false, truth[index]};
        } else if (act.kind == Act::Kind::Diagnose) {
            done += "D";
            for (const Belief& belief : act.beliefs) done += std::to_string(belief.percent) + ",";
            sight.beliefs = act.beliefs;
            sight.canPrescribe = task.hasTreatments;
        } else {
            done += "P" + std::to_string(index + 1);
            ++sight.timesPrescribed;
            if (task.oneTreatment) break;
        }
    }
    return done;
}

TEST_F(Minds, PoliciesOnTheirWayToATreatment) {
    const Tables tables{{70, 30}, {{55, 45}, {80, 20}}, {{90, 10}, {20, 85}}, {{0, 0}, {0, 0}}};
    Task task;
    task.diseases = {"A", "B"};
    task.testCost = 40;
    task.mostPenalty = 100;
    task.healAward = 20;
    task.minutesPerPatient = task.simulatedHoursPerMinute = 4;
    EXPECT_EQ(course("bayes", task, tables, {present, present}), "T2D80,20,") << "test 1 tells too little";
    task.testCost = 60;
    EXPECT_EQ(course("bayes", task, tables, {present, present}), "D50,50,");
    task.hasTreatments = task.oneTreatment = true;
    EXPECT_EQ(course("bayes", task, tables, {present, absent}), "T2D20,80,P2")
        << "the award pays for the test";
    EXPECT_EQ(course("anchored", task, tables, {present, absent}), "T2D45,55,P2");
    task.showsSymptoms = true;
    EXPECT_EQ(course("satisficer", task, tables, {present, absent}), "T1T2D23,77,P1")
        << "sees no treatment's chances";
    task.showsSymptoms = false;
    EXPECT_EQ(course("satisficer", task, tables, {absent, absent}), "T1T2D50,50,P1") << "sees no table";
    task.oneTreatment = false;
    EXPECT_EQ(course("satisficer", task, tables, {absent, absent}), "T1T2D50,50,P1P1P1");
    const Tables sure{{1, 1, 98}, {{100, 0, 0}}, {}, {}};
    task = {};
    task.diseases = {"A", "B", "C"};
    task.mostPenalty = 100;
    task.minutesPerPatient = task.simulatedHoursPerMinute = 4;
    task.yoked = task.allDiseases = true;
    EXPECT_EQ(course("bayes", task, sure, {present}), "T1D98,1,1,") << "as far as the meters go";
    EXPECT_EQ(course("bayes", task, sure, {absent}), "T1D0,50,50,");
}

TEST_F(Minds, TheSampleBeforeAnybodyPlaysIt) {
    createStore::create(TAVIX_TESTS "/../sample/tables", study.storePath(), true);
    std::string said;
    for (const prospects::Prospect& prospect : prospects::of(check::read(study.storePath(), {}))) {
        said += prospect.scenario.substr(0, 1) + (prospect.testPays() ? "+" : "");
        for (const prospects::Warning& warning : prospect.warnings) said += "?WHTN"[int(warning.kind)];
        said += " ";
    }
    EXPECT_EQ(said, "1+W 2+WT 3TN 4WN 5TN 6+T 7N 8+ ");
}

}  // namespace
