#include "diagnosis/diagnosisRecord.h"

#include <string>

#include "forms/frmDiagnosis.h"
#include "platform/numberText.h"
#include "state/TrialState.h"
#include "store/layer/openTable.h"
#include "store/record/modAppRecord.h"

namespace diagnosisRecord {

namespace {

void recordHypotheses(const std::string& eventId) {
    RecordSet rows = openTable("dataHypotheses", false, "Recording Hypothesis");
    for (Int16 i = 0; i < frmDiagnosis.DiagnosisCount; ++i) {
        rows.AddNew();
        rows.Fields("EventID") = eventId;
        rows.Fields("Number") = trialState.diagnosisCount;
        rows.Fields("Order") = i + 1;
        rows.Fields("Total") = frmDiagnosis.DiagnosisCount;
        rows.Fields("Guess") = frmDiagnosis.cboHypothesis[i].text;
        rows.Fields("Belief") = frmDiagnosis.hsbBelief[i].value;
        rows.Update();
    }
}

void recordBeliefs() {
    RecordSet state = openTable("dataHypothesisState", false, "Recording Hypothesis State");
    state.AddNew();
    for (Int16 i = 0; i < frmDiagnosis.DiagnosisCount; ++i) {
        state.Fields("H" + numberText::whole(i + 1)) = frmDiagnosis.hsbBelief[i].value;
    }
    state.Fields("StateID") = trialState.diagnosisStateId;
    state.Update();
}

}  // namespace

void recordHypothesisState() {
    ++trialState.diagnosisCount;
    trialState.diagnosisStateId = modAppRecord::stateId();
    const std::string input = "HypothesisPosition" + numberText::padded(trialState.guessRow + 1, 2);
    recordHypotheses(modAppRecord::recordEvent("Diagnose", trialState.diagnosisCount, input, false));
    recordBeliefs();
}

}  // namespace diagnosisRecord
