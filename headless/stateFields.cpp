#include "headless/stateFields.h"

#include "forms/frmDiagnosis.h"
#include "forms/frmLogin.h"
#include "forms/frmNewSubject.h"
#include "forms/frmTavix.h"
#include "state/TrialEvaluation.h"
#include "state/TrialState.h"

using Json = ScriptValue;

// One name, found by the library, for each record that a script may look into.
template <class T>
void to_json(Json& json, const Checked<T>& value) {
    json = value.raw;
}

template <class T>
void to_json(Json& json, const List<T>& list) {
    json = list.items;
}

#define FIELD(name) \
    { #name, r.name }

static void to_json(Json& json, const Disease& disease) { json = disease.term; }
static void to_json(Json& json, const Symptom& symptom) { json = symptom.term; }
static void to_json(Json& json, const ProbabilityRow& r) {
    json = {FIELD(setting), FIELD(count), FIELD(initVisible), FIELD(percents)};
}
static void to_json(Json& json, const LikelihoodRow& r) {
    json = {FIELD(bestDisease), FIELD(symptomChance), FIELD(otherChance), FIELD(diseaseChance)};
}
static void to_json(Json& json, const Patient& r) {
    json = {FIELD(name),  FIELD(age),     FIELD(male),    FIELD(height),        FIELD(weight), FIELD(health),
            FIELD(intro), FIELD(picture), FIELD(disease), FIELD(bestTreatment), FIELD(guess),  FIELD(status)};
}
static void to_json(Json& json, const SymptomFinding& r) {
    json = {FIELD(name), FIELD(index), FIELD(present), FIELD(result)};
}
static void to_json(Json& json, const Test& r) {
    json = {FIELD(name),        FIELD(issued),  FIELD(pastTwelve), FIELD(completed), FIELD(startHour),
            FIELD(startMinute), FIELD(etaHour), FIELD(etaMinute),  FIELD(result)};
}
static void to_json(Json& json, const Treatment& r) { json = {FIELD(type), FIELD(heal), FIELD(hurt)}; }
static void to_json(Json& json, const PlotSegment& r) {
    json = {FIELD(x1), FIELD(y1), FIELD(x2), FIELD(y2), FIELD(visible)};
}

namespace stateFields {

namespace {

Json flowFields() {
    const TrialState& r = trialState;
    return {FIELD(subjectName),      FIELD(settingName),
            FIELD(settingIndex),     FIELD(testLengthSetting),
            FIELD(trialNumber),      FIELD(score),
            FIELD(trialKey),         FIELD(diagnosisStateId),
            FIELD(patientSaved),     FIELD(actualTimeText),
            FIELD(simTimeText),      FIELD(eventCount),
            FIELD(noteSymptomCount), FIELD(evidenceCount),
            FIELD(removeCount),      FIELD(testCount),
            FIELD(diagnosisCount),   FIELD(treatmentCount),
            FIELD(elapsedHours),     FIELD(elapsedMinutes),
            FIELD(clockHour),        FIELD(clockMinute),
            FIELD(endHour),          FIELD(endMinute),
            FIELD(endPasses),        FIELD(trialHours),
            FIELD(trialMinutes),     FIELD(trialStartTick),
            FIELD(health),           FIELD(healthTrend),
            FIELD(healPending),      FIELD(hurtPending),
            FIELD(monitorSegments),  FIELD(monitorIndex),
            FIELD(monitorX),         FIELD(monitorDepth),
            FIELD(harmed),           FIELD(lastTreatmentIndex),
            FIELD(guessRow),         FIELD(guessDiseaseIndex),
            FIELD(guessBelief),      FIELD(penalty)};
}

Json caseFields() {
    const TrialState& r = trialState;
    return {FIELD(diseaseTerms),       FIELD(diseaseCount),
            FIELD(symptomTerms),       FIELD(symptomTermCount),
            FIELD(baseRates),          FIELD(baseRateRows),
            FIELD(diseaseSymptom),     FIELD(symptomCount),
            FIELD(tableDiseaseCount),  FIELD(likelihoodTable),
            FIELD(likelihoodRows),     FIELD(patients),
            FIELD(patientCount),       FIELD(patientsSeen),
            FIELD(currentPatient),     FIELD(diseaseIndex),
            FIELD(symptomFindings),    FIELD(findingsMask),
            FIELD(extraFindingCount),  FIELD(symptomNotes),
            FIELD(symptomNoteCount),   FIELD(tests),
            FIELD(testTypeCount),      FIELD(treatments),
            FIELD(treatmentTypeCount), FIELD(treatmentMaxDisease)};
}

Json evaluationFields() {
    const TrialEvaluation& r = trialEvaluation;
    return {FIELD(beliefText),        FIELD(normalizedBeliefText),
            FIELD(diseaseChanceText), FIELD(guessChanceText),
            FIELD(diffText),          FIELD(diffScoreText),
            FIELD(penaltyText),       FIELD(penaltyCalcText),
            FIELD(previousScoreText), FIELD(endHealthText),
            FIELD(healthScoreText),   FIELD(healthShown),
            FIELD(testCountText),     FIELD(testScoreText),
            FIELD(scoreChangeText),   FIELD(newScoreText)};
}

Json dialogFields() {
    const FrmDiagnosis& r = frmDiagnosis;
    return {FIELD(DiagnosisCount), FIELD(FirstTime),  FIELD(isLoading),   FIELD(isLoaded),
            FIELD(savedCount),     FIELD(savedNames), FIELD(savedBeliefs)};
}

Json formFields() {
    return {{"IsNew", frmLogin.IsNew},
            {"QuitMe", frmLogin.QuitMe},
            {"Cleared", frmNewSubject.Cleared},
            {"optionsRequested", frmTavix.optionsRequested},
            {"linHealth", frmTavix.linHealth}};
}

/// "patients(0).status" as "/patients/0/status".
std::string pointerOf(const std::string& path) {
    std::string pointer = "/";
    for (const char c : path) {
        switch (c) {
            case '(':
            case '.': pointer += '/'; break;
            case ')': break;
            case '~': pointer += "~0"; break;
            case '/': pointer += "~1"; break;
            default: pointer += c;
        }
    }
    return pointer;
}

}  // namespace

std::optional<ScriptValue> read(const std::string& path) {
    const Json::json_pointer pointer(pointerOf(path));
    for (const auto& group : {flowFields, dialogFields, evaluationFields, formFields, caseFields}) {
        const Json fields = group();
        try {
            return fields.at(pointer);
        } catch (const Json::exception&) {
            continue;  // not in this group
        }
    }
    return std::nullopt;
}

}  // namespace stateFields
