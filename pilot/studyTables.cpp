#include "pilot/studyTables.h"

#include <algorithm>
#include <string_view>

#include "platform/numberText.h"

namespace studyTables {

using check::Scenario;
using check::Sheet;
using check::Study;

namespace {

double numberAt(const Sheet& sheet, int row, std::string_view column) {
    return numberText::toNumber(sheet.text(row, column));
}

int wholeAt(const Sheet& sheet, int row, std::string_view column) {
    return numberText::nearestShort(sheet.text(row, column));
}

std::vector<int> percentsAt(const Sheet& sheet, int row, int diseases, std::string_view suffix = {}) {
    std::vector<int> percents;
    percents.reserve(static_cast<std::size_t>(diseases));
    for (int j = 0; j < diseases; ++j)
        percents.push_back(wholeAt(sheet, row, check::diseaseColumn(j, suffix)));
    return percents;
}

bool areChances(const std::vector<int>& percents) {
    return std::ranges::all_of(percents, [](int p) { return p >= 0 && p <= 100; });
}

bool areChances(const std::vector<std::vector<int>>& rows) {
    return std::ranges::all_of(rows, [](const std::vector<int>& row) { return areChances(row); });
}

bool isSound(const Tables& tables) {
    int sum = 0;
    for (const int rate : tables.baseRates) sum += rate;
    return areChances(tables.baseRates) && sum > 0 && areChances(tables.symptomChances) &&
           areChances(tables.healChances) && areChances(tables.harmChances);
}

Task taskOf(const Sheet& options, int row) {
    const auto number = [&](const char* column) { return numberAt(options, row, column); };
    const auto on = [&](const char* column) { return options.isTrue(row, column); };
    Task task;
    task.testCost = number("TestCost");
    task.mostPenalty = number("MaxBeliefCost");
    task.healAward = number("HealAward");
    task.minutesPerPatient = wholeAt(options, row, "Time");
    task.simulatedHoursPerMinute = wholeAt(options, row, "SimRate");
    task.hasTreatments = on("DoTreatments");
    const bool isEmpty = options.isEmpty(row, "TreatmentProperty");  // then DoTreatments allows one
    task.oneTreatment = isEmpty ? task.hasTreatments : number("TreatmentProperty") == 1;
    task.risk = number("TreatmentProperty") == -1;
    task.allDiseases = on("DiagnoseAllDiseases");
    task.yoked = on("YokeBeliefMeters");
    task.normalized = on("Normalize");
    task.diagnoseAfterTests = on("DiagnoseAfterTests");
    task.stopsTime = on("TimeStopDiagnosis");
    task.comparesChance = on("FeedbackDiseaseP");
    task.showsBaseRates = on("ViewBaseRates");
    task.showsSymptoms = on("ViewSymptomDisease");
    task.showsTreatments = on("ViewTreatmentDisease");
    return task;
}

double healthiestOf(const Sheet& people) {
    double most = 0;
    for (int row = 0; row < people.size(); ++row) most = std::max(most, numberAt(people, row, "Health"));
    return most;
}

}  // namespace

std::optional<Reading> of(const Study& study, const Scenario& scenario) {
    const Sheet& options = study.sheet("tblAppDefault");
    const Sheet& rates = study.sheet("tblBaseRates");
    const Sheet& symptoms = study.sheet("tblDiseaseSymptom");
    const Sheet& treatments = study.sheet("tblTreatments");
    if (scenario.rates == check::noRow) return {};
    const int diseases = wholeAt(rates, scenario.rates, "Count");
    const int columns = std::min({check::diseaseColumns(rates), check::diseaseColumns(symptoms),
                                  static_cast<int>(check::mostDiseases)});
    if (diseases < 1 || diseases > columns || std::ssize(scenario.symptoms) > check::mostSymptoms) return {};

    Reading reading{.task = taskOf(options, scenario.row)};
    Tables& tables = reading.tables;
    tables.baseRates = percentsAt(rates, scenario.rates, diseases);
    for (const int row : scenario.symptoms)
        tables.symptomChances.push_back(percentsAt(symptoms, row, diseases));
    for (const int row : scenario.treatments) {
        tables.healChances.push_back(percentsAt(treatments, row, diseases, "+"));
        tables.harmChances.push_back(percentsAt(treatments, row, diseases, "-"));
    }
    if (!isSound(tables)) return {};
    for (int j = 0; j < diseases; ++j) reading.task.diseases.push_back(check::diseaseColumn(j));
    reading.healthiest = healthiestOf(study.sheet("tblPatients"));
    reading.startHour = wholeAt(options, scenario.row, "StartHour");
    return reading;
}

}  // namespace studyTables
