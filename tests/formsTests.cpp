#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "forms/frmDiagnosis.h"
#include "forms/frmLogin.h"
#include "forms/frmNewSubject.h"
#include "forms/frmOptions.h"
#include "forms/frmTavix.h"
#include "forms/person.h"
#include "forms/registry.h"
#include "forms/windows.h"
#include "platform/text.h"
#include "tests/faults.h"

namespace {

/// Forms at their design, without handlers or watchers of an earlier test.
class Forms : public testing::Test {
protected:
    void SetUp() override {
        registry::designForms();
        for (Control* control : allControls()) control->on = {};
        forgetWatchers();
    }
};

TEST_F(Forms, ControlsAreFoundByTheirFullNames) {
    EXPECT_EQ(registry::find("frmDiagnosis.hsbBelief(2)"), &frmDiagnosis.hsbBelief.items[2]);
    EXPECT_EQ(registry::find("frmTavix.fraDiagnose(1)"), &frmTavix.fraDiagnose1);
    EXPECT_EQ(registry::find("frmOptions"), &frmOptions.form);
    EXPECT_EQ(registry::find("frmTavix.optTest(6)"), nullptr);
    EXPECT_FAULT(frmTavix.hsbBelief[4], FaultNumber::SubscriptOutOfRange);
    std::vector<std::string> names;
    for (const Control* control : allControls()) names.push_back(fullName(*control));
    std::sort(names.begin(), names.end());
    EXPECT_EQ(std::adjacent_find(names.begin(), names.end()), names.end()) << "a name stands twice";
}

TEST_F(Forms, AChangeRunsItsHandlerInsideTheAssignment) {
    Control& first = frmDiagnosis.hsbBelief[0];
    Control& second = frmDiagnosis.hsbBelief[1];
    std::vector<std::string> order;
    watchControls([&](Control& control, Property property) {
        if (property == Property::Value) order.push_back("told " + fullName(control));
    });
    first.on.change = [&] {
        setValue(second, 1);
        order.emplace_back("first done");
    };
    second.on.change = [&] { order.emplace_back("second runs"); };
    setValue(first, 60);
    setValue(first, 60);
    const std::vector<std::string> wanted{"told frmDiagnosis.hsbBelief(0)", "told frmDiagnosis.hsbBelief(1)",
                                          "second runs", "first done"};
    EXPECT_EQ(order, wanted);
}

TEST_F(Forms, AScrollBarKeepsToItsLimits) {
    Control& meter = frmDiagnosis.hsbBelief[0];
    int changes = 0;
    meter.on.change = [&] { ++changes; };
    EXPECT_FAULT(setValue(meter, 0), FaultNumber::InvalidPropertyValue);
    EXPECT_FAULT(setValue(meter, 101), FaultNumber::InvalidPropertyValue);
    EXPECT_EQ(changes, 0);
    setMax(meter, 98);
    EXPECT_EQ(meter.value.raw, 98);
    EXPECT_EQ(changes, 1);
    setMin(meter, 0);
    EXPECT_EQ(changes, 1);
}

TEST_F(Forms, OptionButtonsAndComboBoxesBehaveLikeThemselves) {
    setValue(frmNewSubject.optMale, 1);
    EXPECT_EQ(frmNewSubject.optFemale.value.raw, 0);
    // Another container's buttons are not concerned.
    setValue(frmTavix.optTest[1], 1);
    EXPECT_EQ(frmNewSubject.optMale.value.raw, 1);

    Control& combo = frmDiagnosis.cboHypothesis[0];
    int changes = 0;
    int clicks = 0;
    combo.on.change = [&] { ++changes; };
    combo.on.click = [&] { ++clicks; };
    addItem(combo, "Aavo");
    EXPECT_EQ(combo.text, "Unknown");
    // An item that is taken is a click; only text that goes otherwise is a change.
    setListIndex(combo, 0);
    EXPECT_EQ(combo.text, "Aavo");
    clearItems(combo);
    EXPECT_EQ(combo.text, "");
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(clicks, 1);
}

TEST_F(Forms, UnloadingPutsTheDesignBackAndKeepsTheHandlers) {
    int clicks = 0;
    frmDiagnosis.cmdTests.on.click = [&] { ++clicks; };
    setCaption(frmDiagnosis.lblBelief[1], "0.07");
    frmDiagnosis.DiagnosisCount = 3;
    designFrmDiagnosis();
    EXPECT_EQ(frmDiagnosis.lblBelief[1].caption, "0.50");
    EXPECT_EQ(frmDiagnosis.DiagnosisCount.raw, 0);
    frmDiagnosis.cmdTests.on.click();
    EXPECT_EQ(clicks, 1);
}

TEST_F(Forms, FocusAndReach) {
    windows::show(frmTavix.form);
    EXPECT_EQ(windows::refusal(frmTavix.cmdPrescribe), "frmTavix.cmdPrescribe is hidden");
    setVisible(frmTavix.tabTavix, true);
    setVisible(frmTavix.fraTreatment, true);
    EXPECT_EQ(windows::refusal(frmTavix.cmdPrescribe), "");
    setEnabled(frmTavix.fraTreatment, false);
    EXPECT_EQ(windows::refusal(frmTavix.cmdPrescribe), "frmTavix.cmdPrescribe is disabled");
    windows::setFocus(frmTavix.cmdIssue);
    for (Control* without : {&frmTavix.cmdPrescribe, &frmLogin.txtName, &frmTavix.fraTests}) {
        windows::setFocus(*without);
        EXPECT_TRUE(windows::hasFocus(frmTavix.cmdIssue)) << fullName(*without) << " cannot take the focus";
    }
}

TEST_F(Forms, TypingGoesThroughTheKeyRuleOfTheBox) {
    windows::show(frmLogin.form);
    Control& box = frmLogin.txtName;
    box.on.key = [](int code) { return code != 'x'; };
    person::type(box, "axb\xC3\xA4");
    EXPECT_EQ(box.text, "ab\xC3\xA4");
    person::key(box, 8);
    EXPECT_EQ(box.text, "ab");
    person::mark(box, 0, 1);
    person::key(box, 'Q');
    EXPECT_EQ(box.text, "Qb");
    EXPECT_EQ(box.selStart, 1);
    person::paste(box, "xx");
    EXPECT_EQ(box.text, "xx");
    person::type(box, "");
    EXPECT_EQ(box.text, "");
    EXPECT_THROW(person::press(frmLogin.cmdOk), Refused);
}

TEST_F(Forms, APersonTurnsToThePageOfAControl) {
    windows::show(frmTavix.form);
    setVisible(frmTavix.tabTavix, true);
    person::press(frmTavix.cmdDiagnosis);
    EXPECT_EQ(frmTavix.tabTavix.value.raw, 1);
    EXPECT_THROW(person::turnTo(frmTavix.tabTavix, 3), Refused);
    EXPECT_THROW(person::slide(frmTavix.hsbBelief[0], 5), Refused);
}

}  // namespace
