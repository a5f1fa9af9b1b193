#include "diagnosis/modDiagnosis.h"

#include <string>

#include "diagnosis/diagnosisRecord.h"
#include "diagnosis/modBeliefs.h"
#include "diagnosis/modHypotheses.h"
#include "forms/frmDiagnosis.h"
#include "forms/frmTavix.h"
#include "forms/windows.h"
#include "platform/numberText.h"
#include "state/TrialState.h"
#include "store/record/Options.h"
#include "trial/course/endings.h"

namespace modDiagnosis {

namespace {

bool trialHasEnded() { return frmTavix.cmdNextPatient.visible; }

void enableTime(bool enabled) {
    setEnabled(frmTavix.tmrClock, enabled);
    setEnabled(frmTavix.tmrHealth, enabled);
    setEnabled(frmTavix.tmrHealthMonitor, enabled);
}

void focusLastName() {
    if (!Options.DiagnoseAllDiseases)
        windows::setFocus(frmDiagnosis.cboHypothesis[frmDiagnosis.DiagnosisCount - 1]);
}

void showOnMainScreen(Int16 row) {
    if (trialHasEnded()) return;
    setCaption(frmTavix.lblHypothesis[row], frmDiagnosis.cboHypothesis[row].text);
    setValue(frmTavix.hsbBelief[row], frmDiagnosis.hsbBelief[row].value);
    setCaption(frmTavix.lblBelief[row], frmDiagnosis.lblBelief[row].caption);
    setVisible(frmTavix.fraHypothesis[row], true);
}

struct Guess {
    Int16 belief;
    std::string text;
};

/// The disease or diseases with the highest belief, and that belief; the first of equal rows is the guess.
Guess takeGuess() {
    Guess guess;
    for (Int16 row = 0; row < frmDiagnosis.DiagnosisCount; ++row) {
        const Int16 belief = frmDiagnosis.hsbBelief[row].value;
        const std::string named =
            frmDiagnosis.cboHypothesis[row].text + " " + numberText::whole(belief) + "%";
        if (belief > guess.belief) {
            guess = {belief, named};
            trialState.guessRow = row;
        } else if (belief == guess.belief) {
            guess.text += ",  " + named;
        }
        showOnMainScreen(row);
    }
    return guess;
}

/// Finds the guess among the words. A guess text ends in a percent sign, so none is ever equal and the
/// index keeps its start value.
void findGuess(const std::string& guess) {
    for (Int32 j = 0; j < trialState.diseaseTerms.size(); ++j) {
        if (trialState.diseaseTerms[j].term != guess) continue;
        trialState.guessDiseaseIndex = j;
        return;
    }
}

/// Without a treatment stage the diagnosis is the end of the patient.
void endByDiagnosis(const std::string& guess) {
    setInterval(frmTavix.tmrHealth, 1);
    const bool right = trialState.diseaseTerms[trialState.diseaseIndex].term == guess;
    endings::endPatient(right ? EndCause::RightDiagnosis : EndCause::WrongDiagnosis);
}

}  // namespace

void makeDiagnosis() {
    if (Options.TimeStopDiagnosis) enableTime(false);
    setValue(frmTavix.tabTavix, testsPage);
    modHypotheses::ensureLoaded();
    windows::showModal(frmDiagnosis.form);
}

void forceDiagnosis() {
    setEnabled(frmTavix.tmrForceDiagnosisAfterTest, false);
    // An end that waits in a box of the store has frozen the controls, and "Next Patient" is still to come.
    if (trialHasEnded() || !frmTavix.cmdDiagnosis.enabled) return;
    modHypotheses::ensureLoaded();
    setVisible(frmDiagnosis.cmdCancel, false);
    if (!frmDiagnosis.form.visible) makeDiagnosis();
}

void commitDiagnosis(Int16 page) {
    if (trialHasEnded()) {
        windows::hide(frmDiagnosis.form);
        return;
    }
    if (!modHypotheses::validateHypotheses(frmDiagnosis.DiagnosisCount - 1)) return;
    if (Options.Normalize && !modBeliefs::normalizeBeliefs()) {
        setCaption(frmDiagnosis.lblError, modBeliefs::cannotRescale);
        return;
    }
    modHypotheses::saveHypotheses();
    const Guess guess = takeGuess();
    focusLastName();
    setCaption(frmDiagnosis.lblError, {});
    trialState.patients[trialState.currentPatient].guess = guess.text;
    findGuess(guess.text);
    trialState.guessBelief = guess.belief;
    diagnosisRecord::recordHypothesisState();
    setCaption(frmTavix.lblCurrentHypothesis, guess.text);
    for (Int16 row = frmDiagnosis.DiagnosisCount; row < trialState.diseaseCount; ++row) {
        setVisible(frmTavix.fraHypothesis[row], false);
    }
    if (Options.DoTreatments) {
        setVisible(frmTavix.fraTreatment, true);
    } else {
        endByDiagnosis(guess.text);
    }
    setValue(frmTavix.tabTavix, page);
    if (Options.TimeStopDiagnosis && !trialHasEnded()) enableTime(true);
    windows::hide(frmDiagnosis.form);
    setVisible(frmDiagnosis.cmdCancel, true);
    setVisible(frmDiagnosis.cmdTests, true);
}

void cancelDiagnosis() {
    if (!trialHasEnded()) {
        modHypotheses::restoreHypotheses();
        focusLastName();
        setCaption(frmDiagnosis.lblError, {});
        if (Options.DiagnoseAllDiseases) enableTime(true);
    }
    windows::hide(frmDiagnosis.form);
}

void viewNormalized() {
    modHypotheses::ensureLoaded();
    if (!frmDiagnosis.form.visible) windows::show(frmDiagnosis.form);
}

}  // namespace modDiagnosis
