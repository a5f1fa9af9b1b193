// What can be said of a scenario before anybody plays it, from its tables alone: whether a patient can be
// saved, whether the time limit can come, whether a test can pay. For a run's report, and for whoever makes a
// study and wants to know before it is saved.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "study/checkStudy.h"

namespace prospects {

enum class Kind {
    NotReckoned,  ///< the tables do not fit together, or are too large
    CannotBeWon,
    NoTreatmentHeals,  ///< at least one of the diseases
    CannotEndByTime,
    TestsNeverPay,
};

struct Warning {
    Kind kind;
    std::string text;  ///< a whole sentence or more, with the figures
};

/// The best first test: its result lowers the expected penalty most.
struct FirstTest {
    int number;   ///< from 1, as on the screen
    double bits;  ///< expected information
    double fall;  ///< of the expected penalty, in score
    double heal;  ///< chance that the best treatment heals, once the result is known
};

/// Expectations are means over patients as they are drawn, of a subject who believes the computed chances and
/// prescribes what heals most of such patients.
struct Prospect {
    std::string scenario;
    double penalty = 0;                    ///< expected without any test, in score
    double testCost = 0;                   ///< in score; 0 where tests are not charged
    double heal = 0;                       ///< chance that the best treatment heals, without any test
    double healKnowing = 0;                ///< the same with all results
    std::optional<FirstTest> test = {};    ///< nothing without a symptom
    double luck = 0;                       ///< greatest chance of the healthiest person to recover unaided
    double longestLife = 0;                ///< simulated minutes that hardly a patient outlives
    std::optional<double> timeLimit = {};  ///< simulated minutes; nothing where it never comes
    std::vector<Warning> warnings = {};

    /// Whether the best first test lowers the expected penalty by more than it costs.
    [[nodiscard]] bool testPays() const { return test && test->fall > testCost; }
};

/// A scenario each, in the order of tblAppDefault.
std::vector<Prospect> of(const check::Study& study);

}  // namespace prospects
