#include "screens/feedback.h"

#include <initializer_list>

#include "forms/frmDiagnosis.h"
#include "forms/frmTavix.h"
#include "knowledge/modDisease.h"
#include "knowledge/modTests.h"
#include "platform/numberText.h"
#include "state/TrialEvaluation.h"
#include "state/TrialState.h"
#include "store/record/Options.h"
#include "trial/course/endings.h"

namespace feedback {

namespace {

FrmTavix& f = frmTavix;
const TrialEvaluation& e = trialEvaluation;

constexpr float shortList = 2400;  // twips; the notes draw back to make room for the score
constexpr float shortFrame = 3615;
constexpr float beliefRowY = 1200;
constexpr float chanceRowY = 1800;
constexpr float normalizedRowY = 2160;

const Patient& patient() { return trialState.patients[trialState.currentPatient]; }

void showAll(std::initializer_list<Control*> controls, bool visible) {
    for (Control* control : controls) setVisible(*control, visible);
}

std::string chanceText(Int16 percent) { return numberText::twoDecimals(percent.toFloat() / 100.0); }

void showDiagnosis() {
    setCaption(f.lblFinalDiagnosis, patient().guess);
    setCaption(f.lblAnswer, trialState.diseaseTerms[trialState.diseaseIndex].term);
    setCaption(f.lblDiagnosisBelief, chanceText(trialState.guessBelief));
    setCaption(f.lblDiseaseBelief, e.beliefText);

    const bool chances = static_cast<bool>(Options.FeedbackDiseaseP);
    if (chances) {
        setCaption(f.lblDiagChance, e.guessChanceText);
        setCaption(f.lblDiseaseChance, e.diseaseChanceText);
    }
    showAll({&f.lblDiagChance, &f.lblDiseaseChance, &f.tagDiseaseProbability}, chances);

    const bool normalized = static_cast<bool>(Options.UseNormalizeScore);
    if (normalized) {
        setCaption(f.lblDiagNormalized, frmDiagnosis.lblBelief[trialState.guessRow].caption);
        setCaption(f.lblDiseaseNormalized, e.normalizedBeliefText);
    }
    showAll({&f.lblDiagNormalized, &f.lblDiseaseNormalized, &f.tagNormalized}, normalized);
    setVisible(f.cmdViewNorm, static_cast<bool>(Options.ShowNormalize));
}

/// Also without a treatment stage, and without a prescription: then the last treatment is the one of an
/// earlier patient, or the first of the table.
void showTreatments() {
    setCaption(f.tagTreatment, Options.OneTreatment ? "Treatment:" : "Last Treatment:");
    setCaption(f.lblYourTreatment, f.cboTreatment.text);
    const bool best = static_cast<bool>(Options.BestTreatment);
    if (best) setCaption(f.lblBestTreatment, trialState.treatments[patient().bestTreatment].type);
    setVisible(f.lblBestTreatment, best);

    const Treatment& last = trialState.treatments[trialState.lastTreatmentIndex];
    const Treatment& right = trialState.treatments[patient().bestTreatment];
    setCaption(f.lblYourHeal, chanceText(last.heal[trialState.diseaseIndex]));
    setCaption(f.lblActualHeal, chanceText(right.heal[trialState.diseaseIndex]));
    const bool risk = static_cast<bool>(Options.Risk);
    if (risk) {
        setCaption(f.lblYourHurt, chanceText(last.hurt[trialState.diseaseIndex]));
        setCaption(f.lblActualHurt, chanceText(right.hurt[trialState.diseaseIndex]));
    }
    showAll({&f.lblYourHurt, &f.lblActualHurt, &f.tagTreatmentHurt}, risk);
}

/// Names and results match line by line, each starting one line down.
void showFindings() {
    const bool results = static_cast<bool>(Options.FeedbackTestsResults);
    if (results) {
        std::string findings;
        for (Int16 i = 0; i < trialState.testTypeCount; ++i)
            findings += trialState.symptomFindings[i].result + "\r\n";
        setCaption(f.lblAllTests, "\r\n" + modTests::allTestNames());
        setCaption(f.lblTestResults, "\r\n" + findings);
    }
    showAll({&f.lblTestResults, &f.tagTestResults, &f.lblAllTests}, results);

    const bool symptoms = static_cast<bool>(Options.FeedbackSymptomsP);
    if (symptoms) setCaption(f.lblEndSvD, modDisease::symptomDiseaseSummary());
    showAll({&f.lblEndSvD, &f.lblSymptomology}, symptoms);
}

/// The bracket joins the subject's belief with what the score compares it to.
void placeBracket() {
    const float low = Options.UseNormalizeScore ? normalizedRowY : chanceRowY;
    setHeight(f.Line1, low - beliefRowY);
    Place foot = f.Line2.place;
    foot.top = low;
    setPlace(f.Line2, foot);
}

void showPenaltyAndHealth() {
    setHeight(f.lstSymptoms, shortList);
    setHeight(f.fraSymptoms, shortFrame);
    placeBracket();
    setCaption(f.lblDiff, e.diffText);
    setCaption(f.lblPenalty, e.penaltyText);
    setCaption(f.lblPrevious, e.previousScoreText);
    if (trialState.patientSaved) {
        setCaption(f.lblEndHealth, e.endHealthText);
        setCaption(f.lblHealthScore, e.healthScoreText);
    }
    showAll({&f.tagRemain, &f.lblEndHealth, &f.lblHealthFactor, &f.lblHealthScore}, trialState.patientSaved);
}

void showSum() {
    const bool charged = Options.TestCost.number() > 0;
    if (charged) {
        setCaption(f.lblTestCount, e.testCountText);
        setCaption(f.lblTestScore, e.testScoreText);
    }
    showAll({&f.tagTestScore, &f.lblTestCount, &f.lblTestFactor, &f.lblTestScore, &f.lblFirstEqual}, charged);
    setCaption(f.lblDiffScore, e.diffScoreText);
    setCaption(f.lblPenaltyCalc, f.lblPenalty.caption);
    setCaption(f.lblScoreChange, e.scoreChangeText);
    setCaption(f.lblNewScore, e.newScoreText);
}

}  // namespace

void show() {
    showDiagnosis();
    showTreatments();
    showFindings();
    if (patient().status != endings::aborted) showPenaltyAndHealth();
    showSum();
    showAll({&f.fraScore, &f.fraFeedback}, true);
}

}  // namespace feedback
