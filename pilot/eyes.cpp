#include "pilot/eyes.h"

#include "forms/frmDiagnosis.h"
#include "forms/frmTavix.h"
#include "forms/windows.h"
#include "knowledge/modDisease.h"
#include "platform/numberText.h"
#include "state/TrialState.h"
#include "store/record/Options.h"

namespace eyes {

namespace {

FrmTavix& f = frmTavix;

Result resultOf(const std::string& shown) {
    if (shown == "Present") return Result::Present;
    return shown == "Absent" ? Result::Absent : Result::None;
}

std::vector<ShownTest> tests() {
    std::vector<ShownTest> list;
    for (int i = 0; i < Elements<6>::count(); ++i) {
        const Control& option = f.optTest[i];
        if (!option.visible) continue;
        ShownTest& test = list.emplace_back();
        test.symptom = option.caption;
        test.minutes = numberText::nearestShort(f.lblTestTime[i].caption);
        test.canIssue = windows::isUsable(option) && windows::isUsable(f.cmdIssue);
        test.result = resultOf(f.lblTestResult[i].caption);
        test.underWay = test.result == Result::None && !f.lblETA[i].caption.empty();
    }
    return list;
}

std::vector<Belief> statedBeliefs() {
    std::vector<Belief> list;
    for (int i = 0; i < Elements<4>::count(); ++i) {
        if (f.fraHypothesis[i].visible)
            list.push_back({f.lblHypothesis[i].caption, f.hsbBelief[i].value.toInt()});
    }
    return list;
}

std::vector<int> numbers(const List<Int16>& percents, int count) {
    std::vector<int> list;
    list.reserve(static_cast<std::size_t>(count));
    for (int j = 0; j < count; ++j) list.push_back(j < percents.size() ? percents[j].toInt() : 0);
    return list;
}

}  // namespace

Sight look() {
    Sight sight;
    const bool over = windows::isUsable(f.cmdNextPatient);
    const bool dialog = frmDiagnosis.form.visible;
    sight.name = f.lblPatientName.caption;
    sight.introduction = f.txtIntro.text;
    sight.notes = f.lstSymptoms.items;
    sight.clock = f.lblClock.caption;
    sight.health = numberText::toNumber(f.lblHealth.caption);
    sight.score = static_cast<long>(numberText::toNumber(f.lblScore.caption));
    sight.tests = tests();
    for (const std::string& name : f.cboTreatment.items) sight.treatments.push_back({name});
    sight.beliefs = statedBeliefs();
    sight.canDiagnose = !over && (dialog || windows::isUsable(f.cmdDiagnosis));
    sight.mustDiagnose = dialog && !windows::isUsable(frmDiagnosis.cmdCancel);
    sight.canPrescribe = windows::isUsable(f.cmdPrescribe);
    return sight;
}

Task readTask() {
    Task task;
    for (const Disease& disease : trialState.diseaseTerms) task.diseases.push_back(disease.term);
    task.testCost = Options.TestCost.number();
    task.mostPenalty = Options.MaxBeliefCost.number();
    task.healAward = Options.HealAward.number();
    task.minutesPerPatient = Options.Time.value().toInt();
    task.simulatedHoursPerMinute = Options.SimRate.value().toInt();
    task.hasTreatments = static_cast<bool>(Options.DoTreatments);
    task.oneTreatment = static_cast<bool>(Options.OneTreatment);
    task.risk = static_cast<bool>(Options.Risk);
    task.allDiseases = static_cast<bool>(Options.DiagnoseAllDiseases);
    task.yoked = static_cast<bool>(Options.YokeBeliefMeters);
    task.normalized = static_cast<bool>(Options.Normalize);
    task.diagnoseAfterTests = static_cast<bool>(Options.DiagnoseAfterTests);
    task.stopsTime = static_cast<bool>(Options.TimeStopDiagnosis);
    task.comparesChance = static_cast<bool>(Options.FeedbackDiseaseP);
    task.showsBaseRates = static_cast<bool>(Options.ViewBaseRates);
    task.showsSymptoms = static_cast<bool>(Options.ViewSymptomDisease);
    task.showsTreatments = static_cast<bool>(Options.ViewTreatmentDisease);
    return task;
}

Tables readTables() {
    const TrialState& s = trialState;
    const int diseases = s.diseaseCount.toInt();
    Tables tables;
    tables.baseRates = numbers(modDisease::currentBaseRates().percents, diseases);
    for (const ProbabilityRow& row : s.diseaseSymptom)
        tables.symptomChances.push_back(numbers(row.percents, diseases));
    for (const Treatment& treatment : s.treatments) {
        tables.healChances.push_back(numbers(treatment.heal, diseases));
        tables.harmChances.push_back(numbers(treatment.hurt, diseases));
    }
    return tables;
}

}  // namespace eyes
