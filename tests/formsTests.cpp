// The controls as records, and the windows in front of each other.
#include "forms/frmDiagnosis.h"
#include "forms/frmLogin.h"
#include "forms/frmNewSubject.h"
#include "forms/frmTavix.h"
#include "forms/registry.h"
#include "forms/windows.h"
#include "platform/host.h"
#include "tests/faults.h"

namespace {

/// Forms at their design, without handlers or watchers of an earlier test.
class Forms : public testing::Test {
protected:
    std::string told;  ///< what happened, in its order

    Forms() {
        registry::designForms();
        for (Control* control : allControls()) control->on = {};
        forgetWatchers();
    }
    /// A handler that leaves its name.
    std::function<void()> tell(const std::string& name) {
        return [this, name] { told += name + " "; };
    }
};

TEST_F(Forms, ControlsAreFoundByTheirFullNames) {
    EXPECT_EQ(registry::find("frmTavix.fraDiagnose(1)"), &frmTavix.fraDiagnose1);
    EXPECT_EQ(registry::find("frmTavix.optTest(6)"), nullptr);
    EXPECT_FAULT(frmTavix.hsbBelief[4], SubscriptOutOfRange);
    for (Control* control : allControls()) EXPECT_EQ(registry::find(fullName(*control)), control);
}

TEST_F(Forms, AChangeRunsItsHandlerInsideTheAssignment) {
    Control& meter = frmDiagnosis.hsbBelief[0];
    Control& second = frmDiagnosis.hsbBelief[1];
    watchControls([this](Control& control, Property property) {
        if (property == Property::Value) told += std::to_string(control.element) + " told ";
    });
    meter.on.change = [&] {
        setValue(second, 1);
        tell("0 done")();
    };
    second.on.change = tell("1 runs");
    for (int i = 0; i < 2; ++i) setValue(meter, 60);
    EXPECT_EQ(told, "0 told 1 told 1 runs 0 done ");
    // A scroll bar refuses what lies outside its limits, and goes along with a limit that moves.
    told.clear();
    EXPECT_FAULT(setValue(meter, 0), InvalidPropertyValue);
    EXPECT_FAULT(setValue(meter, 101), InvalidPropertyValue);
    setMin(meter, 0);
    setMax(meter, 60);
    EXPECT_EQ(told, "");
    setMax(meter, 59);
    EXPECT_EQ(meter.value, 59);
    EXPECT_EQ(told, "0 told 0 done ");
}

TEST_F(Forms, OptionButtonsListsAndComboBoxesBehaveLikeThemselves) {
    setValue(frmNewSubject.optMale, 1);
    EXPECT_EQ(frmNewSubject.optFemale.value, 0);
    setValue(frmTavix.optTest[1], 1);
    EXPECT_EQ(frmNewSubject.optMale.value, 1) << "another container's buttons are not concerned";
    Control& combo = frmDiagnosis.cboHypothesis[0];
    combo.on.change = tell("change");
    combo.on.click = tell("click");
    addItem(combo, "Aavo");
    setListIndex(combo, 0);
    EXPECT_EQ(told + combo.text, "click Aavo") << "an item that is taken is no change of the text";
    clearItems(combo);
    EXPECT_EQ(told + combo.text, "click change ");
    EXPECT_FAULT(setListIndex(combo, 0), InvalidPropertyValue);
    Control& list = frmTavix.lstSymptoms;
    for (const char* item : {"a", "b", "c"}) addItem(list, item);
    selectItems(list, {1, 2});
    removeItem(list, 1);
    EXPECT_EQ(firstSelected(list), 1) << "a line that goes takes its own selection with it";
}

TEST_F(Forms, UnloadingPutsTheDesignBackAndKeepsTheHandlers) {
    frmDiagnosis.cmdTests.on.click = tell("click");
    setCaption(frmDiagnosis.lblBelief[1], "0.07");
    frmDiagnosis.DiagnosisCount = 3;
    designFrmDiagnosis();
    EXPECT_EQ(frmDiagnosis.lblBelief[1].caption, "0.50");
    EXPECT_EQ(frmDiagnosis.DiagnosisCount, 0);
    frmDiagnosis.cmdTests.on.click();
    EXPECT_EQ(told, "click ");
}

TEST_F(Forms, WhatStandsInFrontTakesTheInput) {
    Control& prescribe = frmTavix.cmdPrescribe;
    windows::show(frmTavix.form);
    setVisible(frmTavix.tabTavix, true);
    EXPECT_EQ(windows::refusal(prescribe), "frmTavix.cmdPrescribe is hidden");
    setVisible(frmTavix.fraTreatment, true);
    setEnabled(frmTavix.fraTreatment, false);
    EXPECT_EQ(windows::refusal(prescribe), "frmTavix.cmdPrescribe is disabled");
    windows::setFocus(frmTavix.cmdIssue);
    for (Control* without : {&prescribe, &frmLogin.txtName, &frmTavix.fraTests}) {
        windows::setFocus(*without);
        EXPECT_TRUE(windows::hasFocus(frmTavix.cmdIssue)) << fullName(*without) << " cannot take the focus";
    }
    host().waitWhile = [](const std::function<bool()>& open) {
        EXPECT_EQ(windows::refusal(frmTavix.cmdIssue), "frmTavix.cmdIssue stands behind frmLogin");
        EXPECT_TRUE(windows::hasFocus(frmLogin.txtName)) << "a form comes up with its first control";
        windows::openBox();
        EXPECT_EQ(windows::refusal(frmLogin.txtName), "frmLogin.txtName stands behind a message box");
        windows::closeBox();
        windows::setFocus(frmLogin.cboType);
        EXPECT_TRUE(open());
        windows::hide(frmLogin.form);
        EXPECT_FALSE(open());
        EXPECT_EQ(windows::refusal(frmTavix.cmdIssue), "") << "what is hidden is modal no more, at once";
    };
    windows::showModal(frmLogin.form);
    EXPECT_TRUE(windows::hasFocus(frmTavix.cmdIssue));
    windows::show(frmLogin.form);
    EXPECT_TRUE(windows::hasFocus(frmLogin.cboType)) << "a form comes up again where it was left";
}

}  // namespace
