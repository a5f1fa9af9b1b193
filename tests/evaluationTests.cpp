#include <gtest/gtest.h>

#include <string>

#include "diagnosis/modHypotheses.h"
#include "forms/frmDiagnosis.h"
#include "forms/frmOptions.h"
#include "forms/frmTavix.h"
#include "state/TrialEvaluation.h"
#include "state/TrialState.h"
#include "tests/faults.h"
#include "tests/stage.h"
#include "trial/run/evaluation.h"

namespace {

/// A patient with the first of two diseases, at the end of the trial, with the options as they are designed
/// (50 for the belief, 100 for health, 25 for a test) and the chances on show.
class Evaluation : public testing::Test {
protected:
    Stage stage;
    TrialEvaluation& e = trialEvaluation;

    void SetUp() override {
        TrialState& s = trialState;
        s.diseaseTerms.items = {{"Aavo"}, {"Brill"}};
        s.diseaseCount = 2;
        s.patients.add({});
        s.likelihoodTable.add({});
        s.likelihoodTable[0].diseaseChance.items = {0.85, 0.15};
        Treatment treatment{"Ambrol", {}, {}};
        treatment.heal.items = treatment.hurt.items = {80, 20};
        s.treatments.add(treatment);
        setValue(frmOptions.chkDiseaseProbability, 1);
        setValue(frmOptions.chkUseNormalize, 0);
    }

    /// The dialog with the true disease in its first row.
    static void believe(int belief) {
        designFrmDiagnosis();
        modHypotheses::ensureLoaded();
        setText(frmDiagnosis.cboHypothesis[0], "Aavo");
        setValue(frmDiagnosis.hsbBelief[0], belief);
    }

    static void evaluate(int score) {
        trialState.score = score;
        setCaption(frmTavix.lblScore, std::to_string(score));
        evaluation::evaluateTrial();
    }
};

TEST_F(Evaluation, ThePenaltyIsTakenFromTheTextsOnShow) {
    struct Case {
        int belief;
        double chance;
        const char* cost;
        int score;
        const char *chanceText, *diff, *diffScore, *penalty;
        int newScore;
    };
    setText(frmOptions.txtTestCost, "0");
    for (const Case& c : {
             Case{60, 0.85, "50", 2000, "0.85", "0.25", "0.25", "22", 1978},    // 21.875
             Case{60, 0.845, "50", 2000, "0.85", "0.25", "0.25", "22", 1978},   // the half goes up: as above
             Case{60, 0.8449, "50", 2000, "0.84", "0.24", "0.24", "21", 1979},  // 21.12
             Case{100, 0.0049, "50", 2000, "0.00", "1", "1.00", "50", 1950},    // a total miss
             Case{99, 1.0, "50", 2000, "1.00", "0.01", "0.01", "1", 1999},      // 0.995
             Case{99, 1.0, "20", 2000, "1.00", "0.01", "0.01", "0", 2000},      // 0.398 shows no digit
             Case{50, 1.0, "50", 2000, "1.00", "0.5", "0.50", "38", 1962},  // 37.5: down to the even score,
             Case{50, 1.0, "50", 2001, "1.00", "0.5", "0.50", "38", 1964},  // up to it from odd
             Case{7, 0.07, "50", -5, "0.07", "0", "0.00", "0", -5},         // no floor at zero
             Case{50, 1.0, "-50.x", 0, "1.00", "0.5", "0.50", "-38", 38},   // -37.5 pays out
             Case{50, 1.0, "", 7, "1.00", "0.5", "0.50", "0", 7},           // no number is 0
         }) {
        believe(c.belief);
        trialState.likelihoodTable[0].diseaseChance[0] = c.chance;
        setText(frmOptions.txtBeliefCost, c.cost);
        evaluate(c.score);
        EXPECT_EQ(e.diseaseChanceText, c.chanceText);
        EXPECT_EQ(e.diffText, c.diff) << c.chance;
        EXPECT_EQ(e.diffScoreText, c.diffScore);
        EXPECT_EQ(e.penaltyText, c.penalty);
        EXPECT_EQ(e.penaltyCalcText, c.penalty);
        EXPECT_EQ(trialState.score.raw, c.newScore) << c.penalty;
        EXPECT_EQ(e.newScoreText, std::to_string(c.newScore));
        EXPECT_EQ(e.previousScoreText, std::to_string(c.score));
    }
    trialState.score = 2147483647;
    setText(frmOptions.txtBeliefCost, "-50");
    EXPECT_FAULT(evaluation::evaluateTrial(), FaultNumber::Overflow);
}

TEST_F(Evaluation, TestsAreChargedOnlyAtACostAboveZero) {
    struct Case {
        const char* cost;
        int tests;
        const char *count, *score, *change;
        int newScore;
    };
    setText(frmOptions.txtBeliefCost, "0");
    for (const Case& c : {
             Case{"25", 2, "2", "-50", "-50", 1950},
             Case{"0.35", 3, "3", "-1.05", "-1", 1999},  // 3 * 0.35 is 1.0499999999999998 in binary
             Case{"0.1", 3, "3", "-0.3", "0", 2000},
             Case{"2.5", 1, "1", "-2.5", "-2", 1998},  // 1997.5 to the even score
             Case{"3.5", 1, "1", "-3.5", "-4", 1996},
             Case{" 4tests", 0, "0", "0", "0", 2000},
             Case{"7", 1, "1", "-7", "-7", 1993},
             Case{"0", 6, "1", "-7", "-7", 2000},  // not charged: the last texts stay
             Case{"-5", 6, "1", "-7", "-7", 2000},
             Case{"none", 6, "1", "-7", "-7", 2000},
         }) {
        believe(85);
        setText(frmOptions.txtTestCost, c.cost);
        trialState.testCount = c.tests;
        evaluate(2000);
        EXPECT_EQ(e.testCountText, c.count) << c.cost;
        EXPECT_EQ(e.testScoreText, c.score);
        EXPECT_EQ(e.scoreChangeText, c.change) << c.cost;
        EXPECT_EQ(trialState.score.raw, c.newScore) << c.cost;
    }
}

TEST_F(Evaluation, TheAwardIsASixteenBitNumber) {
    struct Case {
        int health;
        const char *award, *text;
        int newScore;
    };
    setText(frmOptions.txtBeliefCost, "0");
    setText(frmOptions.txtTestCost, "0");
    setCaption(frmTavix.lblHealth, "87.3 ");
    believe(85);
    trialState.patientSaved = true;
    for (const Case& c :
         {Case{873, "100", "8730", 10730}, Case{873, "0.5", "44", 2044}, Case{5, "5", "2", 2002},  // 2.5
          Case{15, "1", "2", 2002},                                                                // 1.5
          Case{1000, "327.67", "32767", 34767}, Case{1000, "-327.68", "-32768", -30768}}) {
        setText(frmOptions.txtHealAward, c.award);
        trialState.health = c.health;
        evaluate(2000);
        EXPECT_EQ(e.endHealthText, "87.3 ");
        EXPECT_EQ(e.healthScoreText, c.text);
        EXPECT_EQ(e.scoreChangeText, c.text);
        EXPECT_EQ(trialState.score.raw, c.newScore) << c.award;
    }
    setText(frmOptions.txtHealAward, "327.68");
    EXPECT_FAULT(evaluation::evaluateTrial(), FaultNumber::Overflow);
}

}  // namespace
