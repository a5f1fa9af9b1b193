// Beliefs: what yoked meters take from each other, how they are rescaled, and which names may stand.
#include <fmt/format.h>

#include "diagnosis/modBeliefs.h"
#include "diagnosis/modHypotheses.h"
#include "forms/frmDiagnosis.h"
#include "forms/windows.h"
#include "store/record/Options.h"
#include "tests/stage.h"

namespace {

class Hypotheses : public Logic {
protected:
    FrmDiagnosis& f = frmDiagnosis;

    Hypotheses() { setScenario({40, 30, 20, 10}); }

    /// The dialog anew, a row for each belief.
    void open(const std::vector<int>& beliefs, bool yoked) {
        designFrmDiagnosis();
        Options.YokeBeliefMeters.set(yoked);
        modHypotheses::ensureLoaded();
        windows::show(f.form);
        const int count = static_cast<int>(beliefs.size());
        for (int i = 0; i < count; ++i) {
            if (i > 0) modHypotheses::addOrRemove(i - 1);
            setText(f.cboHypothesis[i], s.diseaseTerms[i].term);
        }
        for (int i = 0; i < count; ++i) setValue(f.hsbBelief[i], 1);
        for (int i = 0; i < count; ++i) setValue(f.hsbBelief[i], beliefs[static_cast<std::size_t>(i)]);
    }
    /// What the captions beside the meters say, and it is what the meters hold.
    std::string beliefs() {
        std::string all;
        for (int i = 0; i < f.DiagnosisCount.toInt(); ++i) {
            EXPECT_NEAR(std::stod(f.lblBelief[i].caption) * 100, f.hsbBelief[i].value.toInt(), 1e-9);
            all += (i == 0 ? "" : " ") + f.lblBelief[i].caption;
        }
        return all;
    }
    /// Everything on the dialog but lblError.
    std::string dialog() {
        std::string all = fmt::format("{} {}", f.DiagnosisCount.raw, f.FirstTime);
        for (const Control* c : allControls()) {
            if (c->form != f.form.form || c == &f.lblError) continue;
            all +=
                fmt::format("\n{} {} {} {} {} {} {} {} {}", fullName(*c), c->visible, c->enabled, c->caption,
                            c->text, c->min.raw, c->value.raw, c->max.raw, fmt::join(c->items, "|"));
        }
        return all;
    }
};

TEST_F(Hypotheses, ARaisedMeterTakesFromTheNextRowsFirst) {
    const auto moved = [this](const std::vector<int>& before, int row, int to, bool yoked = true) {
        open(before, yoked);
        setValue(f.hsbBelief[row], to);
        return beliefs();
    };
    EXPECT_EQ(moved({60, 40}, 0, 70), "0.70 0.30");
    EXPECT_EQ(moved({60, 40}, 0, 70, false), "0.70 0.40");
    EXPECT_EQ(moved({60, 40}, 0, 20), "0.20 0.40");  // what is lowered raises nothing
    EXPECT_EQ(moved({50, 40}, 0, 60), "0.60 0.40");  // up to 100 nothing is taken
    EXPECT_EQ(moved({10, 20, 30, 40}, 2, 50), "0.10 0.20 0.50 0.20");
    EXPECT_EQ(moved({40, 20, 40}, 2, 50), "0.30 0.20 0.50");        // around the end
    EXPECT_EQ(moved({40, 5, 50}, 0, 60), "0.60 0.01 0.28");         // 4 given, 11 taken twice
    EXPECT_EQ(moved({40, 10, 50}, 0, 50), "0.50 0.01 0.48");        // exactly the excess: 1, twice
    EXPECT_EQ(moved({50, 1, 48}, 0, 60), "0.60 0.01 0.39");         // at 1 already: taken once
    EXPECT_EQ(moved({2, 2, 2, 94}, 0, 10), "0.10 0.01 0.01 0.75");  // 6, 6 and 7
}

TEST_F(Hypotheses, YokedMetersLeaveRoomForOneInEveryOtherRow) {
    const auto limits = [this] {
        std::string all;
        for (const Control& meter : f.hsbBelief) all += std::to_string(meter.max.toInt()) + " ";
        return all + beliefs();
    };
    open({99}, true);
    setValue(f.hsbBelief[0], 100);
    EXPECT_EQ(limits(), "100 100 100 100 1.00");
    modHypotheses::addOrRemove(0);
    EXPECT_EQ(limits(), "99 99 100 100 0.99 0.01");
    setText(f.cboHypothesis[1], "Brill");
    modHypotheses::addOrRemove(1);
    EXPECT_EQ(limits(), "98 98 98 100 0.98 0.01 0.01");
    modHypotheses::addOrRemove(1);
    EXPECT_EQ(limits(), "99 99 99 100 0.98 0.01") << "the removed row's limit moves too, and no belief";
}

TEST_F(Hypotheses, BeliefsAreRescaledBelow90AndAbove100) {
    const auto rescaled = [this](const std::vector<int>& before) {
        open(before, false);
        modBeliefs::normalizeBeliefs();
        return beliefs();
    };
    EXPECT_EQ(rescaled({90}), "0.90");
    EXPECT_EQ(rescaled({89}), "1.00");
    EXPECT_EQ(rescaled({50, 50}), "0.50 0.50");
    EXPECT_EQ(rescaled({99, 2}), "0.98 0.01");
    EXPECT_EQ(rescaled({1, 1, 1}), "0.33 0.33 0.33");
    EXPECT_EQ(rescaled({100, 100, 100, 50}), "0.28 0.28 0.28 0.14");
}

TEST_F(Hypotheses, WhatAMeterRefusesIsUndoneAsAWhole) {
    const std::string tooLarge = "Error: Step too large, please move in smaller steps";
    open({75, 5, 20}, true);
    std::string before = dialog();
    setValue(f.hsbBelief[0], 95);
    EXPECT_EQ(dialog() + f.lblError.caption, before + tooLarge);
    open({98, 19, 72}, false);
    Options.YokeBeliefMeters.set(true);
    before = dialog();
    modHypotheses::addOrRemove(2);
    EXPECT_EQ(dialog() + f.lblError.caption, before + tooLarge);
    open({100, 1}, false);
    before = dialog();
    EXPECT_FALSE(modBeliefs::normalizeBeliefs());
    EXPECT_EQ(dialog(), before);
    Options.DiagnoseAllDiseases.set(true);
    Options.InitToBaseRates.set(true);
    s.baseRates[0].percents.items = {100, 100, 100, 100};
    EXPECT_FAULT(open({}, true), InvalidPropertyValue);
}

TEST_F(Hypotheses, NamesAreJudgedRowByRow) {
    const auto judged = [this](int last) {
        return modHypotheses::validateHypotheses(last) ? "stands" : f.lblError.caption;
    };
    const std::string duplicate = "Error: Duplicate hypotheses, please choose from selection";
    open({1, 1, 1}, false);
    EXPECT_EQ(judged(2) + f.lblError.caption, "stands");
    // The earlier of two equal names is meant; locked, it leaves the focus where it is.
    windows::setFocus(f.cmdTests);
    setText(f.cboHypothesis[0], "Corvex");
    EXPECT_EQ(judged(2), duplicate);
    EXPECT_TRUE(windows::hasFocus(f.cmdTests));
    setEnabled(f.cboHypothesis[0], true);
    EXPECT_EQ(judged(2), duplicate);
    EXPECT_TRUE(windows::hasFocus(f.cboHypothesis[0]));
    for (const char* name : {"", "Unknown", "corvex", "Aavo"}) {
        setText(f.cboHypothesis[2], name);
        EXPECT_EQ(judged(2), "Error: Invalid disease, please choose from selection") << name;
        EXPECT_EQ(judged(1), "stands");
        EXPECT_FALSE(f.hsbBelief[2].visible);
    }
}

}  // namespace
