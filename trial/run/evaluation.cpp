#include "trial/run/evaluation.h"

#include <cmath>

#include "diagnosis/modBeliefs.h"
#include "forms/frmDiagnosis.h"
#include "forms/frmTavix.h"
#include "platform/fault.h"
#include "platform/numberText.h"
#include "state/TrialEvaluation.h"
#include "state/TrialState.h"
#include "store/record/Options.h"
#include "trial/course/endings.h"

namespace evaluation {

using numberText::toNumber;
using numberText::twoDecimals;

namespace {

/// Row of the dialog that names the true disease; one past the last row if none does.
Int16 rowOfTrueDisease() {
    const std::string& truth = trialState.diseaseTerms[trialState.diseaseIndex].term;
    Int16 row = 0;
    while (row < frmDiagnosis.DiagnosisCount && frmDiagnosis.cboHypothesis[row].text != truth) ++row;
    return row;
}

/// False if the beliefs could not be rescaled and are taken as they stand.
bool takeBeliefs() {
    TrialEvaluation& e = trialEvaluation;
    const Int16 row = rowOfTrueDisease();
    e.beliefText = row < frmDiagnosis.DiagnosisCount ? frmDiagnosis.lblBelief[row].caption : "0";
    // Beliefs that the commits did not normalise are normalised now, for the score.
    const bool rescales = Options.UseNormalizeScore && !Options.Normalize;
    const bool rescaled = !rescales || modBeliefs::normalizeBeliefs();
    // Without a row for the true disease this is the resting text of the first unused row.
    e.normalizedBeliefText = frmDiagnosis.lblBelief[row].caption;
    return rescaled;
}

void takeChances() {
    if (!Options.FeedbackDiseaseP) return;
    const LikelihoodRow& chances = trialState.likelihoodTable[trialState.findingsMask];
    trialEvaluation.guessChanceText = twoDecimals(chances.diseaseChance[trialState.guessDiseaseIndex]);
    trialEvaluation.diseaseChanceText = twoDecimals(chances.diseaseChance[trialState.diseaseIndex]);
}

void chargeBelief() {
    TrialEvaluation& e = trialEvaluation;
    const double belief = toNumber(Options.UseNormalizeScore ? e.normalizedBeliefText : e.beliefText);
    const double diff = std::fabs(belief - toNumber(e.diseaseChanceText));
    e.diffText = numberText::general(diff);
    trialState.penalty = penaltyFor(Options.MaxBeliefCost.number(), diff);
    trialState.score = round32(trialState.score.toFloat() - trialState.penalty);
    e.penaltyText = numberText::digitsOnly(trialState.penalty);
    if (e.penaltyText.empty()) e.penaltyText = "0";
    e.previousScoreText = frmTavix.lblScore.caption;
}

void payForHealth() {
    TrialEvaluation& e = trialEvaluation;
    e.healthShown = trialState.patientSaved;
    if (!e.healthShown) return;
    e.endHealthText = frmTavix.lblHealth.caption;
    const Int16 award = round16(trialState.health.toFloat() * Options.HealAward.number() / 10.0);
    e.healthScoreText = numberText::whole(award);
    trialState.score = round32(trialState.score.toFloat() + toNumber(e.healthScoreText));
}

void chargeTests() {
    const double cost = Options.TestCost.number();
    if (cost <= 0) return;
    trialEvaluation.testCountText = numberText::whole(trialState.testCount);
    const double charge = -trialState.testCount.toFloat() * cost;
    if (!std::isfinite(charge)) raiseFault(FaultNumber::Overflow, "what the tests cost has no end");
    trialEvaluation.testScoreText = numberText::general(charge);
    trialState.score = round32(trialState.score.toFloat() + toNumber(trialEvaluation.testScoreText));
}

/// The change as the subject can add it up from the texts on show: it uses the whole-number penalty and can
/// differ by one from what the score really moved.
void sumUp() {
    TrialEvaluation& e = trialEvaluation;
    e.diffScoreText = twoDecimals(toNumber(e.diffText));
    e.penaltyCalcText = e.penaltyText;
    Int16 change = round16(toNumber(e.testScoreText) - toNumber(e.penaltyCalcText));
    if (e.healthShown) change = round16(change.toFloat() + toNumber(e.healthScoreText));
    e.scoreChangeText = numberText::whole(change);
    e.newScoreText = numberText::whole(trialState.score);
}

}  // namespace

double penaltyFor(double cost, double difference) { return cost - cost * std::pow(1.0 - difference, 2.0); }

bool evaluateTrial() {
    const bool rescaled = takeBeliefs();
    takeChances();
    if (trialState.patients[trialState.currentPatient].status != endings::aborted) {
        chargeBelief();
        payForHealth();
    }
    chargeTests();
    sumUp();
    return rescaled;
}

}  // namespace evaluation
