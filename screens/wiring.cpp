#include "screens/wiring.h"

#include "diagnosis/modBeliefs.h"
#include "diagnosis/modDiagnosis.h"
#include "diagnosis/modHypotheses.h"
#include "forms/frmDiagnosis.h"
#include "forms/frmLogin.h"
#include "forms/frmNewSubject.h"
#include "forms/frmOptions.h"
#include "forms/frmTavix.h"
#include "forms/keys.h"
#include "knowledge/modSymptom.h"
#include "knowledge/modTests.h"
#include "knowledge/modTreatments.h"
#include "screens/feedback.h"
#include "screens/mainScreen.h"
#include "screens/modAppDisplay.h"
#include "screens/optionsDialog.h"
#include "screens/signIn.h"
#include "state/TrialState.h"
#include "store/loading/modAppLoad.h"
#include "trial/course/modClock.h"
#include "trial/course/modHealth.h"
#include "trial/course/runHooks.h"
#include "trial/run/run.h"

namespace wiring {

namespace {

void wireRun() {
    RunHooks& hooks = runHooks();
    hooks.loadOptionsForm.action = optionsDialog::load;
    hooks.prepareForSignIn.action = modAppDisplay::prepareForSignIn;
    hooks.showTrialFrames.action = modAppDisplay::showTrialFrames;
    hooks.setupPatientDisplay.action = modAppDisplay::setupPatientDisplay;
    hooks.endTrial.action = [] { run::endTrial(true); };
    hooks.showFeedback.action = feedback::show;
}

void wireSignIn() {
    FrmLogin& f = frmLogin;
    f.cboType.on.change = signIn::judgeEntries;
    f.cboType.on.click = signIn::judgeEntries;
    f.cboType.on.key = keys::passing(signIn::judgeEntries);
    f.txtName.on.change = signIn::judgeName;
    f.txtName.on.key = keys::onEnter(signIn::acceptValidEntries);
    f.cmdOk.on.click = signIn::acceptSignIn;
    f.cmdQuit.on.click = signIn::quitSignIn;
    f.form.on.close = signIn::quitSignIn;
}

void wireQuestionnaire() {
    FrmNewSubject& f = frmNewSubject;
    f.txtAge.on.key = keys::onEnter(signIn::beginStudy);
    f.txtHistory.on.key = signIn::keyInHistory;
    f.btnBegin.on.click = signIn::beginStudy;
    f.btnCancel.on.click = signIn::cancelQuestionnaire;
    f.form.on.close = signIn::cancelQuestionnaire;
}

void wireOptions() {
    FrmOptions& f = frmOptions;
    f.hsbLength.on.change = optionsDialog::showLength;
    f.hsbRate.on.change = optionsDialog::showRate;
    for (Control& box : f.txtTime) {
        box.on.key = [&box](int code) { return optionsDialog::keyInTime(box, code); };
    }
    f.chkOneTreatment.on.click = optionsDialog::oneTreatmentClicked;
    f.chkRisk.on.click = optionsDialog::riskClicked;
    f.chkTreatments.on.click = optionsDialog::treatmentsClicked;
    f.cmdStart.on.click = modClock::startOptions;
}

void wireMainScreen() {
    FrmTavix& f = frmTavix;
    f.tmrClock.on.timer = mainScreen::clockTick;
    f.tmrHealth.on.timer = mainScreen::healthTick;
    f.tmrHealthMonitor.on.timer = modHealth::plotHealth;
    f.cmdNextPatient.on.click = run::startTrial;
    f.cmdNextPatient.on.key = keys::onOptions(run::abortForOptionsAfterTrial);
    f.form.on.close = run::closeApplication;
}

void wirePatientPage() {
    FrmTavix& f = frmTavix;
    f.cmdEvidence.on.click = modSymptom::noteEvidence;
    f.cmdNoteSymptom.on.click = modSymptom::noteReasoning;
    f.txtReasoning.on.key = modSymptom::keyInReasoning;
    f.cmdRemove.on.click = modSymptom::removeSelectedNotes;
    f.cmdRemove.on.key = keys::onOptions(run::abortForOptionsDuringTrial);
}

void wireTestsPage() {
    FrmTavix& f = frmTavix;
    for (int i = 0; i < Elements<6>::count(); ++i) {
        f.optTest[i].on.doubleClick = [i] { modTests::issueByDoubleClick(i); };
    }
    f.cmdIssue.on.click = modTests::issueSelected;
    f.tmrTestMessage.on.timer = modTests::clearTestMessage;
    f.tmrForceDiagnosisAfterTest.on.timer = modDiagnosis::forceDiagnosis;
    f.lblTemp.on.doubleClick = [] { mainScreen::showSign(frmTavix.lblTemp, "36.5"); };
    f.lblPulse.on.doubleClick = [] { mainScreen::showSign(frmTavix.lblPulse, "76"); };
    f.lblBP.on.doubleClick = [] { mainScreen::showSign(frmTavix.lblBP, "120/80"); };
    f.lblRR.on.doubleClick = [] { mainScreen::showSign(frmTavix.lblRR, "18"); };
    f.cmdDiagnosis.on.click = modDiagnosis::makeDiagnosis;
}

void wireTreatmentsPage() {
    FrmTavix& f = frmTavix;
    f.cmdChange.on.click = modDiagnosis::makeDiagnosis;
    f.lstTreatments.on.click = modTreatments::takeSelectedTreatment;
    f.lstTreatments.on.doubleClick = modTreatments::prescribeSelected;
    f.cmdPrescribe.on.click = modTreatments::prescribe;
    f.cmdViewNorm.on.click = modDiagnosis::viewNormalized;
}

void wireDiagnosis() {
    FrmDiagnosis& f = frmDiagnosis;
    for (int i = 0; i < Elements<4>::count(); ++i) {
        f.cboHypothesis[i].on.change = [i] { modHypotheses::checkHypothesisName(i); };
        f.cboHypothesis[i].on.click = [i] { modHypotheses::checkHypothesisName(i); };
        f.hsbBelief[i].on.change = [i] { modBeliefs::meterMoved(i); };
    }
    for (int i = 0; i < Elements<3>::count(); ++i) {
        f.cmdAdd[i].on.click = [i] { modHypotheses::addOrRemove(i); };
    }
    f.cmdTests.on.click = [] { modDiagnosis::commitDiagnosis(modDiagnosis::testsPage); };
    f.cmdDiagnose.on.click = [] { modDiagnosis::commitDiagnosis(modDiagnosis::treatmentsPage); };
    f.cmdCancel.on.click = modDiagnosis::cancelDiagnosis;
}

void wireDevelopment() {
    FrmTavix& f = frmTavix;
    f.lblDAnswer.on.doubleClick = mainScreen::turnAnswer;
    f.cmdHeal.on.click = [] { trialState.healPending = true; };
    f.cmdHurt.on.click = [] { trialState.hurtPending = true; };
    f.cboT.on.change = modAppLoad::changeSetting;
    f.cboT.on.click = modAppLoad::changeSetting;
}

}  // namespace

void wireForms() {
    run::reset();
    wireRun();
    wireSignIn();
    wireQuestionnaire();
    wireOptions();
    wireMainScreen();
    wirePatientPage();
    wireTestsPage();
    wireTreatmentsPage();
    wireDiagnosis();
    wireDevelopment();
}

}  // namespace wiring
