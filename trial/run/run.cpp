#include "trial/run/run.h"

#include <cmath>

#include "diagnosis/modHypotheses.h"
#include "forms/frmDiagnosis.h"
#include "forms/frmLogin.h"
#include "forms/frmOptions.h"
#include "forms/frmSplash.h"
#include "forms/frmTavix.h"
#include "forms/registry.h"
#include "forms/windows.h"
#include "knowledge/caseDraw.h"
#include "knowledge/modLikely.h"
#include "knowledge/modPatient.h"
#include "knowledge/modSymptom.h"
#include "knowledge/modTests.h"
#include "platform/host.h"
#include "platform/numberText.h"
#include "platform/randomSource.h"
#include "platform/text.h"
#include "state/TrialEvaluation.h"
#include "state/TrialState.h"
#include "store/loading/modAppLoad.h"
#include "store/record/Options.h"
#include "store/record/modAppRecord.h"
#include "trial/course/endings.h"
#include "trial/course/modClock.h"
#include "trial/course/modHealth.h"
#include "trial/course/runHooks.h"
#include "trial/run/evaluation.h"

namespace run {

namespace {

constexpr double splashRounds = 1000000.0;

void showSplash() {
    windows::show(frmSplash.form);
    host().yield();
    double round = 1.0;
    while (round <= splashRounds) {
        host().yield();
        round += 1.0;
    }
    windows::hide(frmSplash.form);
}

void quitAtSignIn() {
    windows::hide(frmLogin.form);
    windows::hide(frmTavix.form);
    endProgram();
}

void unloadDiagnosis() {
    windows::hide(frmDiagnosis.form);
    designFrmDiagnosis();
}

void showOptionsOrStart() {
    if (!Options.ShowOptions) {
        modClock::startOptions();
        return;
    }
    if (frmTavix.optionsRequested) {
        // Cleared before the dialog shows, so that a request for one time does not repeat.
        Options.ShowOptions.set(false);
        frmTavix.optionsRequested = false;
    }
    windows::showModal(frmOptions.form);
}

void resetCounters() {
    TrialState& s = trialState;
    s.eventCount = 0;
    s.noteSymptomCount = 0;
    s.evidenceCount = 0;
    s.removeCount = 0;
    s.testCount = 0;
    s.diagnosisCount = 0;
    s.treatmentCount = 0;
    s.elapsedHours = 0;
    s.elapsedMinutes = 0;
    s.patientSaved = false;
}

void freezeControls() {
    FrmTavix& f = frmTavix;
    for (Control* control : {&f.cmdDiagnosis, &f.cmdEvidence, &f.cmdIssue, &f.cmdNoteSymptom, &f.cboTreatment,
                             &f.cmdPrescribe, &f.cmdRemove, &f.tmrHealthMonitor}) {
        setEnabled(*control, false);
    }
    for (Int16 i = 0; i < trialState.testTypeCount; ++i) setEnabled(f.optTest[i], false);
}

void freezeDiagnosis() {
    for (Control& frame : frmDiagnosis.fraHypothesis) setEnabled(frame, false);
    for (Control& button : frmDiagnosis.cmdAdd) setVisible(button, false);
}

void takeElapsedTimes() {
    TrialState& s = trialState;
    const std::uint32_t now = host().milliseconds();
    if (now < s.trialStartTick) raiseFault(FaultNumber::Overflow, "the millisecond counter went back");
    const Int32 seconds = round32((now - s.trialStartTick) / 1000.0);
    s.actualTimeText =
        numberText::whole(floor32(seconds.toFloat() / 60)) + ":" + numberText::padded(seconds % 60, 2);
    s.simTimeText =
        numberText::padded(s.elapsedHours, 2) + ":" + numberText::padded(s.elapsedMinutes % 60, 2);
}

/// The next trial shows the options dialog once.
void requestOptions() {
    Options.ShowOptions.set(true);
    frmTavix.optionsRequested = true;
}

}  // namespace

void startApplication() {
    showSplash();
    startAtSignIn();
}

void startAtSignIn() {
    modAppLoad::listSettings();
    windows::show(frmTavix.form);
    runHook(runHooks().prepareForSignIn);
    windows::showModal(frmLogin.form);
    runHook(runHooks().showTrialFrames);
    frmTavix.optionsRequested = true;
    if (frmLogin.QuitMe) quitAtSignIn();
    trialState.subjectName = text::trim(frmLogin.txtName.text);
    setCaption(frmTavix.lblWelcome, "Hello Dr. " + trialState.subjectName);
    modAppLoad::loadOptions();
    modAppLoad::loadCaseData();
    modLikely::buildLikelihoodTable();
    modHealth::initHealthMonitor();
    startTrial();
}

void startTrial() {
    TrialState& s = trialState;
    setEnabled(frmTavix.tmrClock, false);
    setEnabled(frmTavix.tmrHealth, false);
    unloadDiagnosis();
    showOptionsOrStart();
    modSymptom::resetSymptomNotes();
    modPatient::nextPatient();
    modHealth::resetHealth();
    modTests::resetTests();
    runHook(runHooks().setupPatientDisplay);
    resetCounters();
    s.diagnosisStateId = s.subjectName + numberText::padded(s.trialNumber, 2) + "_00";
    s.trialKey = modAppRecord::recordTrialStart(modPatient::findingsText());
}

void endTrial(bool record) {
    setEnabled(frmTavix.tmrHealth, false);
    setEnabled(frmTavix.tmrClock, false);
    setCaption(frmTavix.lblClock, modClock::tickClock());
    freezeControls();
    modHypotheses::ensureLoaded();
    if (frmDiagnosis.form.visible) windows::hide(frmDiagnosis.form);
    setEnabled(frmTavix.cmdChange, false);
    setEnabled(frmTavix.lstTreatments, false);
    const bool rescaled = evaluation::evaluateTrial();
    runHook(runHooks().showFeedback);
    freezeDiagnosis();
    takeElapsedTimes();
    Options.InitScore.set(numberText::whole(trialState.score));
    if (record) modAppRecord::recordTrialEnd();
    setVisible(frmTavix.cmdNextPatient, true);
    windows::setFocus(frmTavix.cmdNextPatient);
    // An aborted patient is scored without beliefs.
    const bool scoresBeliefs = trialState.patients[trialState.currentPatient].status != endings::aborted;
    if (scoresBeliefs && !rescaled)
        tell("Beliefs could not be rescaled and were scored as they stand", "Results");
}

void abortForOptionsDuringTrial() {
    if (!ask("End current patient and bring up options menu?", "Open Options")) return;
    endings::endPatient(EndCause::AbortedByOptions);
    Options.InitScore.set(numberText::whole(trialState.score));
    requestOptions();
    startTrial();
}

void abortForOptionsAfterTrial() {
    ++trialState.trialNumber;
    trialState.trialKey = modAppRecord::recordTrialStart(modPatient::findingsText());
    trialState.patients[trialState.currentPatient].status = endings::aborted;
    modAppRecord::recordTrialEnd();
    requestOptions();
    startTrial();
}

void closeApplication() { endProgram(); }

void reset() {
    registry::reset();
    runHooks() = {};
    host() = {};
    randomSource::clearQueue();
    trialState = {};
    trialEvaluation = {};
}

}  // namespace run
