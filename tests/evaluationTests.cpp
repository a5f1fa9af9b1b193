// The evaluation of a trial: every value passes on as the text on show, and its rounding decides the score.
#include "diagnosis/modHypotheses.h"
#include "forms/frmDiagnosis.h"
#include "forms/frmTavix.h"
#include "state/TrialEvaluation.h"
#include "store/record/Options.h"
#include "tests/stage.h"
#include "trial/course/endings.h"
#include "trial/run/evaluation.h"

namespace {

/// Anna with the first of two diseases at the end of the trial, with the chances on show and no costs.
class Evaluation : public Logic {
protected:
    TrialEvaluation& e = trialEvaluation;

    Evaluation() {
        setScenario({50, 50});
        s.likelihoodTable.add({0, {}, {}, {{0, 0}}});
        s.treatments.add({"Ambrol", {{80, 20}}, {{80, 20}}});
        Options.FeedbackDiseaseP.set(true);
        costs("0", "0", "0");
    }
    static void costs(const char* belief, const char* award, const char* test) {
        Options.MaxBeliefCost.set(belief);
        Options.HealAward.set(award);
        Options.TestCost.set(test);
    }
    /// The dialog with this belief in the true disease, in its first row, beside its computed chance.
    void believe(int belief, double chance) {
        designFrmDiagnosis();
        modHypotheses::ensureLoaded();
        setText(frmDiagnosis.cboHypothesis[0], "Aavo");
        setValue(frmDiagnosis.hsbBelief[0], belief);
        s.likelihoodTable[0].diseaseChance[0] = chance;
    }
    /// What is left of this score, and the change on show.
    std::string scored(int score) {
        s.score = score;
        evaluation::evaluateTrial();
        EXPECT_EQ(e.newScoreText, std::to_string(s.score.raw));
        return e.newScoreText + " by " + e.scoreChangeText;
    }
};

TEST_F(Evaluation, ThePenaltyIsTakenFromTheTextsOnShow) {
    const auto penalty = [this](int belief, double chance, const char* cost, int score = 2000) {
        believe(belief, chance);
        costs(cost, "0", "0");
        const std::string result = scored(score);
        return e.diseaseChanceText + " " + e.diffText + " " + e.diffScoreText + " " + e.penaltyText + ": " +
               result;
    };
    EXPECT_EQ(penalty(60, 0.85, "50"), "0.85 0.25 0.25 22: 1978 by -22");    // 21.875
    EXPECT_EQ(penalty(60, 0.845, "50"), "0.85 0.25 0.25 22: 1978 by -22");   // the half goes up: as above
    EXPECT_EQ(penalty(99, 1, "20"), "1.00 0.01 0.01 0: 2000 by 0");          // 0.398 shows no digit
    EXPECT_EQ(penalty(50, 1, "50"), "1.00 0.5 0.50 38: 1962 by -38");        // 37.5: down to the even score,
    EXPECT_EQ(penalty(50, 1, "50", 2001), "1.00 0.5 0.50 38: 1964 by -38");  // up to it from odd
    EXPECT_EQ(penalty(50, 1, "6"), "1.00 0.5 0.50 5: 1996 by -5");         // 4.5, and the change takes the 5
    EXPECT_EQ(penalty(7, 0.07, "50", -5), "0.07 0 0.00 0: -5 by 0");       // no floor at zero
    EXPECT_EQ(penalty(50, 1, "-50.x", 0), "1.00 0.5 0.50 -38: 38 by 38");  // -37.5 pays out
    EXPECT_FAULT(penalty(50, 1, "-50", 2147483647), Overflow);
}

TEST_F(Evaluation, TestsAreChargedOnlyAtACostAboveZero) {
    believe(85, 0.85);
    const auto charged = [this](const char* cost, int tests) {
        costs("0", "0", cost);
        s.testCount = tests;
        const std::string result = scored(2000);
        return e.testCountText + " " + e.testScoreText + ": " + result;
    };
    EXPECT_EQ(charged("25", 2), "2 -50: 1950 by -50");
    EXPECT_EQ(charged("0.35", 3), "3 -1.05: 1999 by -1");
    EXPECT_EQ(charged("2.5", 1), "1 -2.5: 1998 by -2");  // halves to even
    EXPECT_EQ(charged("7", 1), "1 -7: 1993 by -7");
    EXPECT_EQ(charged("0", 6), "1 -7: 2000 by -7") << "not charged: the texts stay";
    EXPECT_EQ(charged("-5", 6), "1 -7: 2000 by -7");
}

TEST_F(Evaluation, TheAwardIsASixteenBitNumber) {
    believe(85, 0.85);
    s.patientSaved = true;
    const auto paid = [this](int health, const char* award) {
        costs("0", award, "0");
        s.health = health;
        setCaption(frmTavix.lblHealth, "as shown ");
        const std::string result = scored(2000);
        return e.endHealthText + e.healthScoreText + ": " + result;
    };
    EXPECT_EQ(paid(873, "100"), "as shown 8730: 10730 by 8730");
    EXPECT_EQ(paid(5, "5"), "as shown 2: 2002 by 2");   // 2.5
    EXPECT_EQ(paid(15, "1"), "as shown 2: 2002 by 2");  // 1.5
    EXPECT_EQ(paid(1000, "-327.68"), "as shown -32768: -30768 by -32768");
    EXPECT_FAULT(paid(1000, "327.68"), Overflow);
}

// The penalty, then the award, then the tests, with a rounding after each: any other order, or one rounding,
// gives another score in one of the two.
TEST_F(Evaluation, TheThreeMovesOfTheScoreHaveAFixedOrder) {
    believe(50, 1);
    s.patientSaved = true;
    s.health = 10;
    s.testCount = 1;
    costs("2", "1", "0.5");  // 1.5, 1 and 0.5
    EXPECT_EQ(scored(2000), "1998 by -1");
    costs("4", "1", "0.5");  // 3, 1 and 0.5
    EXPECT_EQ(scored(2000), "1998 by -3");
    costs("4", "1", "1e999");
    EXPECT_FAULT(scored(2000), Overflow);

    // Broken off by the experimenter: the tests alone, and the texts of the rest as they were.
    costs("4", "1", "25");
    s.patients[0].status = endings::aborted;
    s.health = 500;
    EXPECT_EQ(scored(2000), "1975 by -27");
    EXPECT_EQ(s.penalty, 3.0);
}

TEST_F(Evaluation, NormalizedBeliefsAreScoredWhereTheyAreUsed) {
    const auto beliefs = [this](bool use, bool alreadyNormal, const char* named = "Aavo") {
        believe(50, 0);
        costs("100", "0", "0");
        setText(frmDiagnosis.cboHypothesis[0], named);
        Options.UseNormalizeScore.set(use);
        Options.Normalize.set(alreadyNormal);
        const std::string result = scored(0);
        return e.beliefText + " " + e.normalizedBeliefText + ": " + result;
    };
    EXPECT_EQ(beliefs(false, false), "0.50 0.50: -75 by -75");
    EXPECT_EQ(beliefs(true, false), "0.50 1.00: -100 by -100");
    EXPECT_EQ(beliefs(true, true), "0.50 0.50: -75 by -75");
    // No row names the disease: belief 0, and for the score the resting text of the first unused row.
    EXPECT_EQ(beliefs(true, true, "Brill"), "0 0.50: -75 by -75");
}

}  // namespace
