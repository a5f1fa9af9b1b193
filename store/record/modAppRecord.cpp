#include "store/record/modAppRecord.h"

#include "forms/frmTavix.h"
#include "platform/host.h"
#include "platform/numberText.h"
#include "state/TrialEvaluation.h"
#include "state/TrialState.h"
#include "store/layer/openTable.h"
#include "store/record/Options.h"

namespace modAppRecord {

std::string trialStem() {
    return trialState.subjectName + numberText::padded(trialState.trialNumber, 2) + "_";
}

std::string stateId() { return trialStem() + numberText::padded(trialState.diagnosisCount, 2); }

namespace {

void addTrial(const std::string& findings) {
    const TrialState& s = trialState;
    RecordSet trial = openTable("dataTrial", false, "Recording pre-trial information");
    trial.AddNew();
    trial.Fields("Subject") = s.subjectName;
    trial.Fields("Setting") = s.settingName;
    trial.Fields("Date") = host().today();
    trial.Fields("StartTime") = host().timeOfDay();
    trial.Fields("Trial") = s.trialNumber;
    trial.Fields("PatientID") = s.currentPatient + 1;
    trial.Fields("TestResults") = findings;
    trial.Fields("Disease") = s.patients[s.currentPatient].disease;
    trial.Fields("Score") = s.score;
    trial.Update();
}

}  // namespace

std::string recordTrialStart(const std::string& findings) {
    addTrial(findings);
    const std::string trialKey = trialStem();
    if (Options.DiagnoseAllDiseases) recordInitialHypothesisState();
    return trialKey;
}

void recordInitialHypothesisState() {
    RecordSet state = openTable("dataHypothesisState", false, "Saving initial diagnosis state id");
    state.AddNew();
    state.Fields("StateID") = trialState.diagnosisStateId;
    for (Int16 i = 0; i < trialState.symptomCount; ++i) {
        state.Fields("H" + numberText::whole(i + 1)) = frmTavix.hsbBelief[i].value;
    }
    state.Update();
}

std::string recordEvent(const std::string& action, Int16 actionNum, const std::string& input, bool output) {
    TrialState& s = trialState;
    ++s.eventCount;
    // Before the store is opened: while it is waited for, a dialog that a timer brings up can record an
    // event.
    const std::string eventId = trialStem() + numberText::padded(s.eventCount, 3);
    RecordSet events = openTable("dataEvents", false, "Recording event " + action);
    events.AddNew();
    events.Fields("EventID") = eventId;
    events.Fields("Subject") = s.subjectName;
    events.Fields("Trial") = s.trialNumber;
    events.Fields("Date") = host().today();
    events.Fields("Time") = host().timeOfDay();
    events.Fields("SimTime") = frmTavix.lblClock.caption;
    events.Fields("Health") = frmTavix.lblHealth.caption;
    events.Fields("Action") = action;
    events.Fields("ActionNum") = actionNum;
    events.Fields("Input") = input;
    events.Fields("Output") = output;
    events.Fields("DiagnosisID") = s.diagnosisStateId;
    events.Update();
    return eventId;
}

namespace {

/// The columns that hold what the subject was shown, also what a feedback option left from an earlier trial.
void recordFeedback(RecordSet& trial) {
    const FrmTavix& f = frmTavix;
    trial.Fields("GuessBelief") = f.lblDiagnosisBelief.caption;
    trial.Fields("DiseaseBelief") = trialEvaluation.beliefText;
    trial.Fields("pGuess") = trialEvaluation.guessChanceText;
    trial.Fields("pDisease") = trialEvaluation.diseaseChanceText;
    trial.Fields("LastTreatment") = f.lblYourTreatment.caption;
    trial.Fields("CorrectTreatment") = f.lblBestTreatment.caption;
    trial.Fields("pLastHeal") = f.lblYourHeal.caption;
    trial.Fields("pCorrectHeal") = f.lblActualHeal.caption;
    if (!Options.Risk) return;
    trial.Fields("pLastHarm") = f.lblYourHurt.caption;
    trial.Fields("pCorrectHarm") = f.lblActualHurt.caption;
}

/// False if the row that the start wrote has gone from the store.
bool completeTrial() {
    const TrialState& s = trialState;
    const Patient& patient = s.patients[s.currentPatient];
    RecordSet trial =
        openTable(std::string("SELECT * FROM [dataTrial] ") + "WHERE [dataTrial.Subject]='" + s.subjectName +
                      "' AND " + "[dataTrial.Trial]=" + numberText::whole(s.trialNumber),
                  false, "Recording end of trial information");
    if (trial.isEOF()) return false;
    trial.Edit();
    trial.Fields("EndTime") = host().timeOfDay();
    trial.Fields("SimTime") = s.simTimeText;
    trial.Fields("ActualTime") = s.actualTimeText;
    trial.Fields("EndHealth") = s.health.toFloat() / 10.0;
    trial.Fields("Tests") = s.testCount;
    trial.Fields("Diagnoses") = s.diagnosisCount;
    trial.Fields("Treatments") = s.treatmentCount;
    trial.Fields("Guess") = patient.guess;
    recordFeedback(trial);
    trial.Fields("Penalty") = s.penalty;
    trial.Fields("Score") = s.score;
    trial.Fields("Result") = patient.status;
    if (s.patientSaved) trial.Fields("Saved") = 1;
    trial.Update();
    return true;
}

}  // namespace

void recordTrialEnd() {
    if (completeTrial()) return;
    tell("Trial start index somehow was not stored", "Error post-recording trial");
    endProgram();
}

}  // namespace modAppRecord
