// Beliefs: what yoked meters take from each other, how they are rescaled, and which names may stand.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "diagnosis/modHypotheses.h"
#include "forms/frmDiagnosis.h"
#include "forms/windows.h"
#include "state/TrialState.h"
#include "store/record/Options.h"
#include "tests/stage.h"

namespace {

FrmDiagnosis& f = frmDiagnosis;

class Hypotheses : public testing::Test {
protected:
    Stage stage;

    void SetUp() override { setScenario({40, 30, 20, 10}); }

    /// The dialog anew, a row for each belief.
    static void open(const std::vector<int>& beliefs, bool yoked) {
        designFrmDiagnosis();
        Options.YokeBeliefMeters.set(yoked);
        modHypotheses::ensureLoaded();
        windows::show(f.form);
        for (int i = 0; i < static_cast<int>(beliefs.size()); ++i) {
            if (i > 0) modHypotheses::addOrRemove(i - 1);
            setText(f.cboHypothesis[i], trialState.diseaseTerms[i].term);
        }
        for (const bool toOne : {true, false}) {
            for (std::size_t i = 0; i < beliefs.size(); ++i)
                setValue(f.hsbBelief.items[i], toOne ? 1 : beliefs[i]);
        }
    }
    /// What the meters hold, and what stands beside each that has moved since the design.
    static std::string beliefs() {
        std::string all;
        for (int i = 0; i < f.DiagnosisCount.toInt(); ++i) {
            const int belief = f.hsbBelief[i].value.toInt();
            EXPECT_NEAR(std::stod(f.lblBelief[i].caption) * 100, belief, 1e-9);
            EXPECT_EQ(f.lblBelief[i].caption.size(), 4U);
            all += (i == 0 ? "" : " ") + std::to_string(belief);
        }
        return all;
    }
};

TEST_F(Hypotheses, ARaisedMeterTakesFromTheNextRowsFirst) {
    struct Case {
        std::vector<int> before;
        int row, to;
        const char* after;
    };
    for (const Case& c : {
             Case{{60, 40}, 0, 70, "70 30"},
             Case{{60, 40}, 0, 20, "20 40"},  // what is lowered raises nothing
             Case{{50, 40}, 0, 60, "60 40"},  // up to 100 nothing is taken
             Case{{10, 20, 30, 40}, 2, 50, "10 20 50 20"}, Case{{10, 20, 30, 40}, 1, 30, "10 30 20 40"},
             Case{{40, 20, 40}, 2, 50, "30 20 50"},    // around the end
             Case{{40, 5, 50}, 0, 60, "60 1 28"},      // row 1 gives 4, and 11 are taken twice
             Case{{40, 10, 50}, 0, 50, "50 1 48"},     // exactly the excess: 1 passes on, twice
             Case{{50, 1, 48}, 0, 60, "60 1 39"},      // at 1 already: nothing is taken twice
             Case{{2, 2, 2, 94}, 0, 10, "10 1 1 75"},  // two rows inside each other: 6, 6 and 7
         }) {
        open(c.before, true);
        setValue(f.hsbBelief[c.row], c.to);
        EXPECT_EQ(beliefs(), c.after);
        open(c.before, false);
        setValue(f.hsbBelief[c.row], c.to);
        for (std::size_t i = 0; i < c.before.size(); ++i) {
            EXPECT_EQ(f.hsbBelief.items[i].value.toInt(), static_cast<int>(i) == c.row ? c.to : c.before[i]);
        }
    }
}

TEST_F(Hypotheses, YokedMetersLeaveRoomForOneInEveryOtherRow) {
    const auto limits = [] {
        std::string all;
        for (const Control& meter : f.hsbBelief) all += std::to_string(meter.max.toInt()) + " ";
        return all;
    };
    open({100}, true);
    EXPECT_EQ(limits(), "100 100 100 100 ");
    modHypotheses::addOrRemove(0);
    EXPECT_EQ(limits() + beliefs(), "99 99 100 100 99 1");
    setText(f.cboHypothesis[1], "Brill");
    modHypotheses::addOrRemove(1);
    EXPECT_EQ(limits() + beliefs(), "98 98 98 100 98 1 1");
    modHypotheses::addOrRemove(1);
    EXPECT_EQ(limits() + beliefs(), "99 99 99 100 98 1")
        << "the removed row's limit moves too, and no belief";
    modHypotheses::addOrRemove(0);
    setValue(f.hsbBelief[0], 100);
    EXPECT_EQ(beliefs(), "100");
}

TEST_F(Hypotheses, BeliefsAreRescaledBelow90AndAbove100) {
    struct Case {
        std::vector<int> before;
        const char* after;
    };
    for (const Case& c :
         {Case{{90}, "90"}, Case{{89}, "100"}, Case{{1}, "100"}, Case{{50, 50}, "50 50"},
          Case{{45, 45}, "45 45"}, Case{{45, 44}, "50 49"}, Case{{99, 2}, "98 1"}, Case{{40, 40}, "50 50"},
          Case{{1, 1, 1}, "33 33 33"}, Case{{60, 41}, "59 40"}, Case{{100, 100, 100, 50}, "28 28 28 14"}}) {
        open(c.before, false);
        modHypotheses::normalizeBeliefs();
        EXPECT_EQ(beliefs(), c.after);
    }
}

TEST_F(Hypotheses, NamesAreJudgedRowByRow) {
    const auto refusal = [](int last) {
        return modHypotheses::validateHypotheses(last) ? "stands" : f.lblError.caption;
    };
    const std::string invalid = "Error: Invalid disease, please choose from selection";
    const std::string duplicate = "Error: Duplicate hypotheses, please choose from selection";
    open({1}, false);
    for (const char* name : {"", "Unknown", "aavo", "Aavo "}) {
        setText(f.cboHypothesis[0], name);
        EXPECT_EQ(refusal(0), invalid) << name;
        EXPECT_FALSE(f.hsbBelief[0].visible);
    }
    open({1, 1, 1}, false);
    EXPECT_EQ(refusal(2), "stands");
    EXPECT_EQ(f.lblError.caption, "");
    EXPECT_EQ(f.cboHypothesis[2].items, (std::vector<std::string>{"Corvex", "Dunnit"}));
    // The earlier of two equal names is meant; locked, it leaves the focus where it is.
    windows::setFocus(f.cmdTests);
    setText(f.cboHypothesis[0], "Corvex");
    EXPECT_EQ(refusal(2), duplicate);
    EXPECT_TRUE(windows::hasFocus(f.cmdTests));
    setEnabled(f.cboHypothesis[0], true);
    EXPECT_EQ(refusal(2), duplicate);
    EXPECT_TRUE(windows::hasFocus(f.cboHypothesis[0]));
    setText(f.cboHypothesis[0], "Aavo");
    setText(f.cboHypothesis[1], "Aavo");
    EXPECT_EQ(refusal(1), invalid) << "the name above is not on the list of the next row";
    EXPECT_EQ(refusal(0), "stands");
}

TEST_F(Hypotheses, AllDiseasesAtOnceBeginAtNothingOrAtTheirRates) {
    Options.DiagnoseAllDiseases.set(true);
    for (const bool toRates : {true, false}) {
        Options.InitToBaseRates.set(toRates);
        designFrmDiagnosis();
        modHypotheses::ensureLoaded();
        EXPECT_EQ(f.DiagnosisCount.raw, 4);
        EXPECT_EQ(beliefs(), toRates ? "40 30 20 10" : "0 0 0 0");
        EXPECT_EQ(f.cboHypothesis[3].text, "Dunnit");
        EXPECT_EQ(modHypotheses::validateHypotheses(3), toRates);
    }
    EXPECT_EQ(f.lblError.caption, "Error: No judgment given");
    setValue(f.hsbBelief[3], 1);
    EXPECT_TRUE(modHypotheses::validateHypotheses(3));
    setValue(f.hsbBelief[3], 0);
    modHypotheses::normalizeBeliefs();
    EXPECT_EQ(beliefs(), "0 0 0 0");
}

TEST_F(Hypotheses, ACancelPutsTheSavedRowsBack) {
    for (const bool yoked : {false, true}) {
        open({60, 30, 10}, yoked);
        modHypotheses::saveHypotheses();
        modHypotheses::addOrRemove(1);
        modHypotheses::addOrRemove(0);
        setText(f.cboHypothesis[0], "Dunnit");
        setValue(f.hsbBelief[0], 70);
        modHypotheses::restoreHypotheses();
        EXPECT_EQ(beliefs(), "60 30 10");
        EXPECT_EQ(f.cboHypothesis[0].text + f.cboHypothesis[2].text, "AavoCorvex");
        EXPECT_TRUE(f.cmdAdd[1].enabled && !f.cmdAdd[0].enabled && f.hsbBelief[2].visible);
        modHypotheses::addOrRemove(2);
        modHypotheses::restoreHypotheses();
        EXPECT_FALSE(f.fraHypothesis[3].visible);
        EXPECT_EQ(f.cmdAdd[2].caption, "Add Hypothesis");
    }
}

}  // namespace
