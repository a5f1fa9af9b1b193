// The evaluation of a trial: every value passes on as the text on show, and its rounding decides the score.
#include <gtest/gtest.h>

#include <string>

#include "diagnosis/modHypotheses.h"
#include "forms/frmDiagnosis.h"
#include "forms/frmTavix.h"
#include "state/TrialEvaluation.h"
#include "state/TrialState.h"
#include "store/record/Options.h"
#include "tests/faults.h"
#include "tests/stage.h"
#include "trial/course/endings.h"
#include "trial/run/evaluation.h"

namespace {

/// Anna with the first of two diseases at the end of the trial, with the chances on show and no costs.
class Evaluation : public testing::Test {
protected:
    Stage stage;
    TrialEvaluation& e = trialEvaluation;
    TrialState& s = trialState;

    void SetUp() override {
        setScenario({50, 50});
        s.likelihoodTable.add({});
        s.likelihoodTable[0].diseaseChance.items = {0.85, 0.15};
        s.treatments.add({"Ambrol", {{80, 20}}, {{80, 20}}});
        Options.FeedbackDiseaseP.set(true);
        for (const OptionText* cost : {&Options.MaxBeliefCost, &Options.HealAward, &Options.TestCost})
            cost->set("0");
    }
    /// The dialog with this belief in the true disease, in its first row.
    static void believe(int belief) {
        designFrmDiagnosis();
        modHypotheses::ensureLoaded();
        setText(frmDiagnosis.cboHypothesis[0], "Aavo");
        setValue(frmDiagnosis.hsbBelief[0], belief);
    }
    /// The score that is left of this one.
    int scored(int score) {
        s.score = score;
        setCaption(frmTavix.lblScore, std::to_string(score));
        evaluation::evaluateTrial();
        EXPECT_EQ(e.newScoreText, std::to_string(s.score.raw));
        return s.score.raw;
    }
};

TEST_F(Evaluation, ThePenaltyIsTakenFromTheTextsOnShow) {
    struct Case {
        int belief;
        double chance;
        const char* cost;
        int score;
        const char* texts;  // the chance, the difference as it is and with two decimals, penalty and change
        int newScore;
    };
    for (const Case& c : {
             Case{60, 0.85, "50", 2000, "0.85 0.25 0.25 22 -22", 1978},    // 21.875
             Case{60, 0.845, "50", 2000, "0.85 0.25 0.25 22 -22", 1978},   // the half goes up: as above
             Case{60, 0.8449, "50", 2000, "0.84 0.24 0.24 21 -21", 1979},  // 21.12
             Case{100, 0.0049, "50", 2000, "0.00 1 1.00 50 -50", 1950},    // a total miss
             Case{99, 1.0, "50", 2000, "1.00 0.01 0.01 1 -1", 1999},       // 0.995
             Case{99, 1.0, "20", 2000, "1.00 0.01 0.01 0 0", 2000},        // 0.398 shows no digit
             Case{50, 1.0, "50", 2000, "1.00 0.5 0.50 38 -38", 1962},      // 37.5: down to the even score,
             Case{50, 1.0, "50", 2001, "1.00 0.5 0.50 38 -38", 1964},      // up to it from odd
             Case{50, 1.0, "6", 2000, "1.00 0.5 0.50 5 -5", 1996},         // 4.5, and the change takes the 5
             Case{7, 0.07, "50", -5, "0.07 0 0.00 0 0", -5},               // no floor at zero
             Case{50, 1.0, "-50.x", 0, "1.00 0.5 0.50 -38 38", 38},        // -37.5 pays out
             Case{50, 1.0, "", 7, "1.00 0.5 0.50 0 0", 7},                 // no number is 0
         }) {
        believe(c.belief);
        s.likelihoodTable[0].diseaseChance[0] = c.chance;
        Options.MaxBeliefCost.set(c.cost);
        EXPECT_EQ(scored(c.score), c.newScore) << c.texts;
        EXPECT_EQ(e.diseaseChanceText + " " + e.diffText + " " + e.diffScoreText + " " + e.penaltyText + " " +
                      e.scoreChangeText,
                  c.texts);
        EXPECT_EQ(e.penaltyCalcText, e.penaltyText);
        EXPECT_EQ(e.previousScoreText, std::to_string(c.score));
    }
    Options.MaxBeliefCost.set("-50");
    EXPECT_FAULT(scored(2147483647), FaultNumber::Overflow);
    // A chance that is no longer shown stays the one that is compared.
    Options.MaxBeliefCost.set("100");
    Options.FeedbackDiseaseP.set(false);
    believe(50);
    s.likelihoodTable[0].diseaseChance[0] = 0.5;
    EXPECT_EQ(scored(100), 25);
}

TEST_F(Evaluation, TestsAreChargedOnlyAtACostAboveZero) {
    struct Case {
        const char* cost;
        int tests;
        const char* texts;  // count, charge and change
        int newScore;
    };
    for (const Case& c : {
             Case{"25", 2, "2 -50 -50", 1950},
             Case{"0.35", 3, "3 -1.05 -1", 1999},  // 1.0499999999999998
             Case{"0.1", 3, "3 -0.3 0", 2000},
             Case{"2.5", 1, "1 -2.5 -2", 1998},  // to the even score
             Case{"3.5", 1, "1 -3.5 -4", 1996},
             Case{" 4tests", 0, "0 0 0", 2000},
             Case{"7", 1, "1 -7 -7", 1993},
             Case{"0", 6, "1 -7 -7", 2000},  // not charged: the texts stay
             Case{"-5", 6, "1 -7 -7", 2000},
             Case{"none", 6, "1 -7 -7", 2000},
         }) {
        believe(85);
        Options.TestCost.set(c.cost);
        s.testCount = c.tests;
        EXPECT_EQ(scored(2000), c.newScore) << c.cost;
        EXPECT_EQ(e.testCountText + " " + e.testScoreText + " " + e.scoreChangeText, c.texts);
    }
}

TEST_F(Evaluation, TheAwardIsASixteenBitNumber) {
    struct Case {
        int health;
        const char *award, *text;
        int newScore;
    };
    setCaption(frmTavix.lblHealth, "87.3 ");
    believe(85);
    s.patientSaved = true;
    for (const Case& c :
         {Case{873, "100", "8730", 10730}, Case{873, "0.5", "44", 2044}, Case{5, "5", "2", 2002},  // 2.5
          Case{15, "1", "2", 2002},                                                                // 1.5
          Case{1000, "327.67", "32767", 34767}, Case{1000, "-327.68", "-32768", -30768}}) {
        Options.HealAward.set(c.award);
        s.health = c.health;
        EXPECT_EQ(scored(2000), c.newScore) << c.award;
        EXPECT_EQ(e.endHealthText + e.healthScoreText + " " + e.scoreChangeText,
                  std::string("87.3 ") + c.text + " " + c.text);
    }
    Options.HealAward.set("327.68");
    EXPECT_FAULT(scored(0), FaultNumber::Overflow);
    s.patientSaved = false;
    EXPECT_EQ(scored(2000), 2000);
    EXPECT_EQ(e.scoreChangeText, "0") << "an award of a former patient does not count";
}

// The penalty, then the award, then the tests, with a rounding after each: any other order, or one rounding,
// gives another score in one of the two.
TEST_F(Evaluation, TheThreeMovesOfTheScoreHaveAFixedOrder) {
    believe(50);
    s.likelihoodTable[0].diseaseChance[0] = 1.0;
    s.patientSaved = true;
    s.health = 10;
    s.testCount = 1;
    Options.HealAward.set("1");
    Options.MaxBeliefCost.set("2");  // 1.5
    Options.TestCost.set("0.5");
    EXPECT_EQ(scored(2000), 1998);
    Options.MaxBeliefCost.set("4");  // 3
    EXPECT_EQ(scored(2000), 1998);

    // Broken off by the experimenter: the tests alone, and the texts of the rest as they were.
    Options.TestCost.set("25");
    s.patients[0].status = endings::aborted;
    s.health = 500;
    EXPECT_EQ(scored(2000), 1975);
    EXPECT_EQ(e.penaltyText + " " + e.healthScoreText + " " + e.previousScoreText, "3 1 2000");
    EXPECT_EQ(s.penalty, 3.0);
}

TEST_F(Evaluation, NormalizedBeliefsAreScoredWhereTheyAreUsed) {
    Options.MaxBeliefCost.set("100");
    s.likelihoodTable[0].diseaseChance[0] = 0;
    struct Case {
        bool use, alreadyNormal;
        const char* texts;  // the belief as it was and normalised
        int cost;
    };
    for (const Case& c : {Case{false, false, "0.50 0.50", 75}, Case{true, false, "0.50 1.00", 100},
                          Case{true, true, "0.50 0.50", 75}}) {
        believe(50);
        Options.UseNormalizeScore.set(c.use);
        Options.Normalize.set(c.alreadyNormal);
        EXPECT_EQ(scored(0), -c.cost) << c.texts;
        EXPECT_EQ(e.beliefText + " " + e.normalizedBeliefText, c.texts);
    }
    // No row names the disease: belief 0, and for the score the resting text of the first unused row.
    believe(60);
    setText(frmDiagnosis.cboHypothesis[0], "Brill");
    EXPECT_EQ(scored(0), -75);
    EXPECT_EQ(e.beliefText + " " + e.normalizedBeliefText, "0 0.50");
    frmDiagnosis.DiagnosisCount = 4;
    EXPECT_FAULT(scored(0), FaultNumber::SubscriptOutOfRange);
}

}  // namespace
