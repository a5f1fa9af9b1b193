#include "qt/names.h"

#include <map>

#include "qt/faces.h"

namespace names {

namespace {

struct Spoken {
    const char* name;
    const char* description = "";
};

/// Controls whose captions do not say what they are. A # stands for the element's number from 1.
const Spoken* spokenOf(const Control& control) {
    static const std::map<std::string, Spoken> table{
        {"frmLogin.txtName", {"Name", "The name by which you take part"}},
        {"frmLogin.cboType", {"Scenario"}},
        {"frmNewSubject.boxMajor", {"Major", "Your field of study"}},
        {"frmNewSubject.txtAge", {"Age", "In years"}},
        {"frmNewSubject.txtHistory", {"Familiarity with the medical field", "At most 250 characters"}},
        {"frmTavix.tabTavix", {"Pages of the patient's record"}},
        {"frmTavix.imgPatient", {"Picture of the patient"}},
        {"frmTavix.txtIntro", {"Introduction of the patient", "Select text here to note it as a symptom"}},
        {"frmTavix.txtReasoning", {"Comment or reasoning", "At most 50 characters, Enter takes it down"}},
        {"frmTavix.cmdEvidence", {"Add Symptom", "Notes the text selected in the introduction"}},
        {"frmTavix.cmdNoteSymptom", {"Take Down Note", "Notes the comment above"}},
        {"frmTavix.lblWelcome", {"Welcome"}},
        {"frmTavix.optTest", {"Test #"}},
        {"frmTavix.chartETA", {"Progress of test #", "Minutes gone of the minutes that the test takes"}},
        {"frmTavix.lblTestTime", {"Minutes of test #"}},
        {"frmTavix.lblETA", {"Time of the result of test #"}},
        {"frmTavix.lblTestResult", {"Result of test #"}},
        {"frmTavix.txtSvD", {"Symptom to disease table"}},
        {"frmTavix.lblSvD", {"Diseases of the tables"}},
        {"frmTavix.lblBaseRates", {"Base rates of the diseases"}},
        {"frmTavix.lstTreatments", {"Treatments and their probabilities", "Double click prescribes"}},
        {"frmTavix.cboTreatment", {"Treatment to prescribe"}},
        {"frmTavix.hsbBelief", {"Belief in hypothesis #"}},
        {"frmTavix.lblBelief", {"Belief in hypothesis #"}},
        {"frmTavix.lblHypothesis", {"Hypothesis #"}},
        {"frmTavix.lblHealthScreen", {"Health monitor", "The patient's health from the start until now"}},
        {"frmTavix.lblHealthScale", {"Health"}},
        {"frmTavix.lblX", {"Time at the mark #"}},
        {"frmTavix.lblEndHealth", {"End health"}},
        {"frmTavix.lblHealthFactor", {"Award for health"}},
        {"frmTavix.lblTestCount", {"Number of tests"}},
        {"frmTavix.lblTestFactor", {"Cost of a test"}},
        {"frmTavix.tagPenaltyCalc", {"How the penalty is reckoned"}},
        {"frmTavix.lblAllTests", {"Tests of this patient"}},
        {"frmTavix.lblTestResults", {"Results of these tests"}},
        {"frmTavix.lblEndSvD", {"Chances of these symptoms in each disease"}},
        {"frmTavix.lstSymptoms", {"Symptom notes"}},
        {"frmTavix.cmdNextPatient", {"Next Patient", "Goes on to the next patient"}},
        {"frmTavix.cboT", {"Scenario"}},
        {"frmDiagnosis.cboHypothesis", {"Disease of hypothesis #"}},
        {"frmDiagnosis.hsbBelief", {"Belief in hypothesis # in percent"}},
        {"frmDiagnosis.lblBelief", {"Belief in hypothesis #"}},
        {"frmDiagnosis.lblError", {"What is wrong"}},
        {"frmOptions.hsbLength", {"Actual Time Per Patient in minutes"}},
        {"frmOptions.hsbRate", {"Simulation Hours per Minute"}},
        {"frmOptions.txtTime", {"Starting time", "First box the hour, second the minute"}},
        {"frmOptions.txtInitScore", {"Initial Score"}},
        {"frmOptions.txtTestBuffer", {"Patients before applying Test Costs"}},
        {"frmOptions.txtBeliefBuffer", {"Patients before applying Belief Costs"}},
        {"frmOptions.txtTestCost", {"Test Cost"}},
        {"frmOptions.txtBeliefCost", {"Maximum Belief Cost"}},
        {"frmOptions.txtHealAward", {"Heal Award"}},
    };
    const auto found = table.find(control.form + "." + control.name);
    return found == table.end() ? nullptr : &found->second;
}

QString numbered(const char* text, const Control& control) {
    return QString(text).replace("#", QString::number(control.element + 1));
}

bool isValueLabel(const Control& control) { return control.kind == Kind::Label && !control.look.framed; }

QString captionOf(const Control& control) { return faces::toQt(control.caption).remove('&').simplified(); }

QString withoutColon(const QString& tag) { return tag.endsWith(':') ? tag.chopped(1) : tag; }

}  // namespace

QString accessibleName(const Control& control) {
    const QString caption = captionOf(control);
    if (control.kind == Kind::OptionButton && !caption.isEmpty()) return caption;
    if (control.head != nullptr) {
        return withoutColon(captionOf(*control.tag)) + ", " + captionOf(*control.head) + ": " + caption;
    }
    if (const Spoken* spoken = spokenOf(control)) {
        const QString name = numbered(spoken->name, control);
        return isValueLabel(control) && !caption.isEmpty() ? name + ": " + caption : name;
    }
    if (control.tag != nullptr) return (withoutColon(captionOf(*control.tag)) + ": " + caption).simplified();
    if (!caption.isEmpty()) return caption;
    return control.kind == Kind::Frame ? QStringLiteral("Group") : QString();
}

void describe(QWidget& widget, const Control& control) {
    widget.setObjectName(faces::toQt(fullName(control)));
    widget.setAccessibleName(accessibleName(control));
    if (const Spoken* spoken = spokenOf(control)) {
        // A combo box speaks its choice as its name, so that what is chosen there goes to the description.
        const bool speaksItself = control.kind == Kind::ComboBox && *spoken->description == 0;
        widget.setAccessibleDescription(speaksItself ? accessibleName(control)
                                                     : QString(spoken->description));
    }
    if (control.kind == Kind::Label && control.on.doubleClick) {
        widget.setAccessibleDescription("Press Enter or double click to measure");
    }
}

}  // namespace names
