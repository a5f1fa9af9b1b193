#include "qt/names.h"

#include <map>

#include "forms/frmTavix.h"
#include "forms/registry.h"
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

/// The label that stands before a value, by their names: tagScore and lblScore.
const Control* tagOf(const Control& control) {
    static const std::map<std::string, std::string> tags{
        {"lblPatientName", "tagPatient"},
        {"lblScore", "tagScore"},
        {"lblClock", "tagClock"},
        {"lblHealth", "tagHealth"},
        {"lblAge", "tagAge"},
        {"lblHeight", "tagHeight"},
        {"lblWeight", "tagWeight"},
        {"lblTemp", "tagTemp"},
        {"lblPulse", "tagPulse"},
        {"lblBP", "tagBP"},
        {"lblRR", "tagRR"},
        {"lblCurrentHypothesis", "tagCurrent"},
        {"lblPrevious", "tagPrevious"},
        {"lblHealthScore", "tagRemain"},
        {"lblTestScore", "tagTestScore"},
        {"lblDiffScore", "tagBeliefDiff"},
        {"lblPenaltyCalc", "tagPenaltyScore"},
        {"lblScoreChange", "tagScoreChange"},
        {"lblNewScore", "tagNewScore"},
        {"lblDiff", "tagDiff"},
        {"lblPenalty", "tagPenalty"},
    };
    if (control.form == frmTavix.form.form && control.name == "lblGender") return &frmTavix.tagGender;
    const auto found = tags.find(control.name);
    return found == tags.end() ? nullptr : registry::find(control.form + "." + found->second);
}

QString numbered(const char* text, const Control& control) {
    return QString(text).replace("#", QString::number(control.element + 1));
}

bool isValueLabel(const Control& control) { return control.kind == Kind::Label && !control.look.framed; }

}  // namespace

QString accessibleName(const Control& control) {
    const QString caption = faces::toQt(control.caption).remove('&').simplified();
    if (const Spoken* spoken = spokenOf(control)) {
        const QString name = numbered(spoken->name, control);
        return isValueLabel(control) && !caption.isEmpty() ? name + ": " + caption : name;
    }
    if (const Control* tag = tagOf(control)) {
        QString name = faces::toQt(tag->caption);
        if (!name.endsWith(':')) name += ':';
        return (name + " " + caption).simplified();
    }
    if (!caption.isEmpty()) return caption;
    return control.kind == Kind::Frame ? QStringLiteral("Group") : QString();
}

void describe(QWidget& widget, const Control& control) {
    widget.setObjectName(faces::toQt(fullName(control)));
    widget.setAccessibleName(accessibleName(control));
    if (const Spoken* spoken = spokenOf(control)) widget.setAccessibleDescription(spoken->description);
    if (control.kind == Kind::Label && control.on.doubleClick) {
        widget.setAccessibleDescription("Press Enter or double click to measure");
    }
}

}  // namespace names
