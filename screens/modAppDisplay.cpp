#include "screens/modAppDisplay.h"

#include "forms/frmTavix.h"
#include "knowledge/modDisease.h"
#include "knowledge/modTreatments.h"
#include "platform/numberText.h"
#include "state/TrialState.h"
#include "store/record/Options.h"

namespace modAppDisplay {

namespace {

FrmTavix& f = frmTavix;

constexpr float tallList = 5130;  // twips; the notes have the whole column during a trial
constexpr float tallFrame = 6375;

void clearTestSlots() {
    for (Int16 i = 0; i < trialState.testTypeCount; ++i) {
        setValue(f.optTest[i], 0);
        setEnabled(f.optTest[i], true);
        setCaption(f.lblTestResult[i], {});
        setCaption(f.lblETA[i], {});
    }
    for (Int16 i = trialState.testTypeCount; i < Elements<6>::count(); ++i) {
        for (Control* part :
             {&f.optTest[i], &f.lblTestTime[i], &f.chartETA[i], &f.lblETA[i], &f.lblTestResult[i]}) {
            setVisible(*part, false);
        }
    }
}

void enableActions() {
    for (Control* button :
         {&f.cmdDiagnosis, &f.cmdEvidence, &f.cmdIssue, &f.cmdNoteSymptom, &f.cboTreatment}) {
        setEnabled(*button, true);
    }
    setText(f.cboTreatment, {});
    for (Control* control : {&f.lstTreatments, &f.cmdPrescribe, &f.cmdRemove}) setEnabled(*control, true);
}

/// The header stands over either table and is shown with either.
void showTables() {
    setVisible(f.lblSvD, false);
    if (Options.ViewBaseRates) {
        setCaption(f.lblBaseRates, modDisease::baseRateText());
        setVisible(f.lblBaseRates, true);
        setVisible(f.lblSvD, true);
    } else {
        setVisible(f.lblBaseRates, false);
    }
    setText(f.txtSvD, modDisease::symptomDiseaseText());
    if (Options.ViewSymptomDisease) {
        setVisible(f.lblSvD, true);
        setVisible(f.txtSvD, true);
    } else {
        setVisible(f.txtSvD, false);
    }
}

void resetHypotheses() {
    for (Int16 i = 0; i < trialState.diseaseCount; ++i) {
        const bool toRates = static_cast<bool>(Options.InitToBaseRates);
        setValue(f.hsbBelief[i], toRates ? modDisease::currentBaseRates().percents[i] : Int16(0));
        setCaption(f.lblBelief[i], numberText::padded(f.hsbBelief[i].value, 2) + "%");
        setCaption(f.lblHypothesis[i], {});
        setVisible(f.fraHypothesis[i], false);
    }
}

/// The factors of the options in force, as the score frame will show them.
void showFactors() {
    const std::string& most = Options.MaxBeliefCost.text();
    setCaption(f.lblHealthFactor, "x " + Options.HealAward.text() + " =");
    setCaption(f.lblTestFactor, "x -" + Options.TestCost.text());
    setCaption(f.tagPenaltyCalc, most + " - [" + most + " * (1- diff) ²]");
}

}  // namespace

void prepareForSignIn() { setCaption(f.lblHealthBorder, {}); }

void showTrialFrames() {
    setVisible(f.fraStatus, true);
    setVisible(f.tabTavix, true);
    setVisible(f.fraSymptoms, true);
    setCaption(f.lblHealthBorder, "Health Monitor");
}

void setupPatientDisplay() {
    setValue(f.tabTavix, 0);
    setCaption(f.lblScore, numberText::whole(trialState.score));
    setEnabled(f.tmrClock, true);
    clearItems(f.lstSymptoms);
    select(f.txtIntro, 0, 0);  // what was marked belongs to the last patient, also where the text is the same
    for (Control* sign : {&f.lblTemp, &f.lblPulse, &f.lblBP, &f.lblRR}) setCaption(*sign, {});
    setText(f.txtReasoning, {});
    clearTestSlots();
    setCaption(f.lblDAnswer, "Show Disease");
    enableActions();
    setEnabled(f.tmrHealthMonitor, true);
    setCaption(f.lblCurrentHypothesis, "No Hypothesis Made");
    setEnabled(f.cmdChange, true);
    showTables();
    resetHypotheses();
    modTreatments::displayTreatments();
    setVisible(f.lblHelpHeader, static_cast<bool>(Options.ViewTreatmentDisease));
    setVisible(f.fraTreatment, false);
    setVisible(f.fraFeedback, false);
    showFactors();
    setVisible(f.fraScore, false);
    setVisible(f.cmdNextPatient, false);
    setHeight(f.lstSymptoms, tallList);
    setHeight(f.fraSymptoms, tallFrame);
    setCaption(f.form, "Medical Task with Doctor " + trialState.subjectName + " on Patient ID #" +
                           numberText::whole(trialState.trialNumber));
}

}  // namespace modAppDisplay
