#include "screens/mainScreen.h"

#include "diagnosis/modDiagnosis.h"
#include "diagnosis/modHypotheses.h"
#include "forms/frmDiagnosis.h"
#include "forms/frmTavix.h"
#include "knowledge/modSymptom.h"
#include "knowledge/modTests.h"
#include "knowledge/modTreatments.h"
#include "screens/keys.h"
#include "state/TrialState.h"
#include "store/loading/modAppLoad.h"
#include "trial/course/modClock.h"
#include "trial/course/modHealth.h"
#include "trial/run/run.h"

namespace mainScreen {

namespace {

FrmTavix& f = frmTavix;

void clockTick() {
    setCaption(f.lblClock, modClock::tickClock());
    modHealth::plotHealthHour();
    modTests::checkTests();
}

void healthTick() {
    modHealth::updateHealth();
    modHealth::showHealth();
}

/// A double click asks for a vital sign; all patients show the same normal values.
void showOnRequest(Control& sign, const char* value) {
    sign.on.doubleClick = [&sign, value] {
        if (sign.caption.empty()) setCaption(sign, value);
    };
}

void turnAnswer() {
    const bool hidden = f.lblDAnswer.caption == "Show Disease";
    setCaption(f.lblDAnswer, hidden ? trialState.diseaseTerms[trialState.diseaseIndex].term : "Show Disease");
}

/// The experimenter's key; every other key passes.
std::function<bool(int)> onOptionsKey(void (*action)()) {
    return [action](int code) {
        if (code == keys::options) action();
        return true;
    };
}

void wireTimers() {
    f.tmrClock.on.timer = clockTick;
    f.tmrHealth.on.timer = healthTick;
    f.tmrHealthMonitor.on.timer = modHealth::plotHealth;
    f.tmrTestMessage.on.timer = modTests::clearTestMessage;
    f.tmrForceDiagnosisAfterTest.on.timer = modDiagnosis::forceDiagnosis;
}

void wireTests() {
    for (int i = 0; i < Elements<6>::count(); ++i) {
        f.optTest[i].on.doubleClick = [i] { modTests::issueByDoubleClick(i); };
    }
    f.cmdIssue.on.click = modTests::issueSelected;
    showOnRequest(f.lblTemp, "36.5");
    showOnRequest(f.lblPulse, "76");
    showOnRequest(f.lblBP, "120/80");
    showOnRequest(f.lblRR, "18");
}

void wireNotes() {
    f.cmdEvidence.on.click = modSymptom::noteEvidence;
    f.cmdNoteSymptom.on.click = modSymptom::noteReasoning;
    f.txtReasoning.on.key = modSymptom::keyInReasoning;
    f.cmdRemove.on.click = modSymptom::removeSelectedNotes;
    f.cmdRemove.on.key = onOptionsKey(run::abortForOptionsDuringTrial);
}

void wireTreatments() {
    f.lstTreatments.on.click = modTreatments::takeSelectedTreatment;
    f.lstTreatments.on.doubleClick = [] {
        modTreatments::takeSelectedTreatment();
        modTreatments::prescribe();
    };
    f.cmdPrescribe.on.click = modTreatments::prescribe;
}

void wireDiagnosis() {
    f.cmdDiagnosis.on.click = modDiagnosis::makeDiagnosis;
    f.cmdChange.on.click = modDiagnosis::makeDiagnosis;
    f.cmdViewNorm.on.click = modDiagnosis::viewNormalized;
    frmDiagnosis.cmdTests.on.click = [] { modDiagnosis::commitDiagnosis(modDiagnosis::testsPage); };
    frmDiagnosis.cmdDiagnose.on.click = [] { modDiagnosis::commitDiagnosis(modDiagnosis::treatmentsPage); };
    frmDiagnosis.cmdCancel.on.click = modDiagnosis::cancelDiagnosis;
    modHypotheses::wire();
}

void wireDevelopment() {
    f.lblDAnswer.on.doubleClick = turnAnswer;
    f.cmdHeal.on.click = [] { trialState.healPending = true; };
    f.cmdHurt.on.click = [] { trialState.hurtPending = true; };
    f.cboT.on.change = modAppLoad::changeSetting;
    f.cboT.on.click = modAppLoad::changeSetting;
}

}  // namespace

void wire() {
    wireTimers();
    wireTests();
    wireNotes();
    wireTreatments();
    wireDiagnosis();
    wireDevelopment();
    f.cmdNextPatient.on.click = run::startTrial;
    f.cmdNextPatient.on.key = onOptionsKey(run::abortForOptionsAfterTrial);
    f.form.on.close = run::closeApplication;
}

}  // namespace mainScreen
