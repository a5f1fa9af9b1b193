#include <fmt/format.h>

#include <algorithm>

#include "platform/numberText.h"
#include "study/checkRules.h"

namespace check {

namespace {

constexpr int whole100 = 100;  // percent

/// The sum of the first rates of a row; nothing if one of them is no number.
std::optional<double> sumOf(const Sheet& sheet, int row, int count) {
    double sum = 0;
    for (int j = 0; j < count; ++j) {
        const std::string text = sheet.text(row, diseaseColumn(j));
        if (!numberText::isNumeric(text)) return {};
        sum += numberText::toNumber(text);
    }
    return sum;
}

/// The count on which all symptoms of a scenario agree; 0 if they do not.
int countOfSymptoms(const Study& study, const Scenario& scenario) {
    const Sheet& sheet = study.sheet("tblDiseaseSymptom");
    int common = 0;
    for (const int row : scenario.symptoms) {
        const int count = numberText::nearestShort(sheet.text(row, "Count"));
        if (common != 0 && count != common) return 0;
        common = count;
    }
    return std::max(common, 0);
}

/// Whether the count alone is wrong: the symptoms agree on another, over which the rates make a whole.
bool symptomsKnowBetter(const Sheet& rates, int row, int count, int agreed) {
    return agreed > 0 && agreed != count && agreed <= diseaseColumns(rates) &&
           sumOf(rates, row, agreed) == whole100;
}

/// The sum of a row's percents, each within 0 to 100 as a load reads it; nothing where one is not.
std::optional<int> percents(Study& study, const Sheet& sheet, int row, int count) {
    std::optional<int> sum = 0;
    for (int j = 0; j < count; ++j) {
        const std::optional<int> percent = study.wholeWithin(sheet, row, diseaseColumn(j), 0, whole100,
                                                             Grade::Error, "patients are drawn wrong.");
        sum = sum && percent ? std::optional(*sum + *percent) : std::nullopt;
    }
    return sum;
}

void judgeSum(Study& study, const Sheet& rates, int row, int count, int sum) {
    if (sum == whole100) return;
    study.error(
        rates, row, diseaseColumn(0),
        fmt::format("The rates D1 to D{} add up to {} and not to 100: {}", count, sum,
                    sum < whole100 ? "the other patients get the disease of the patient before."
                                   : "the last diseases are drawn more rarely than their rates say."));
}

/// A column that all of a scenario's counts ask for: told once for the table.
void missColumn(Study& study, const Sheet& sheet, int columns, int count) {
    const std::string column = diseaseColumn(columns);
    const bool told = std::ranges::any_of(study.findings, [&](const Finding& finding) {
        return finding.table == sheet.name && finding.column == column && finding.row == 0;
    });
    if (told) return;
    study.error(
        sheet, noRow, column,
        fmt::format("The column is missing: a scenario with {} diseases ends at the sign-in.", count));
}

/// The count of one row, and the diseases that the rest of the scenario's tables are held against; 0 if
/// that cannot be said.
int diseasesOf(Study& study, const Sheet& rates, int row, int agreed) {
    const std::optional<int> count = study.whole(rates, row, "Count");
    const int most = diseaseColumns(rates);
    if (!count) return agreed;
    if (*count < 1) {
        study.error(rates, row, "Count", "A scenario needs a disease: the program ends at the sign-in.");
    } else if (symptomsKnowBetter(rates, row, *count, agreed)) {
        study.error(
            rates, row, "Count",
            fmt::format("{} diseases, where the symptoms have {} and the rates D1 to D{} add up to 100: "
                        "the program ends, or draws patients wrong.",
                        *count, agreed, agreed));
    } else if (*count > most && *count == agreed && *count <= mostDiseases) {
        missColumn(study, rates, most, *count);
        study.badRates.insert(row);
        return agreed;
    } else if (*count > most) {
        study.error(rates, row, "Count",
                    fmt::format("{} diseases, where the table has columns up to D{}: the program ends at the "
                                "sign-in, in every scenario.",
                                *count, most));
    } else {
        if (*count > mostDiseases)
            study.error(
                rates, row, "Count",
                fmt::format("{} diseases, and no more than {} ever come into play: the program ends at "
                            "the sign-in.",
                            *count, mostDiseases));
        if (*count == 1) study.warn(rates, row, "Count", "A single disease: every patient has it.");
        const std::optional<int> sum = percents(study, rates, row, std::min(*count, most));
        if (sum) judgeSum(study, rates, row, *count, *sum);
        if (!sum) study.badRates.insert(row);
        return *count;
    }
    study.badRates.insert(row);
    return agreed;
}

void judgeNumberOfSymptoms(Study& study, const Scenario& scenario) {
    const Sheet& sheet = study.sheet("tblDiseaseSymptom");
    const Sheet& options = study.sheet("tblAppDefault");
    const int count = static_cast<int>(scenario.symptoms.size());
    if (count > mostSymptoms) {
        study.error(
            sheet, scenario.symptoms[mostSymptoms], "Setting",
            fmt::format("\"{}\" has {} symptoms, and the screen has {} tests: the program ends at the "
                        "sign-in.",
                        scenario.name, count, mostSymptoms));
    } else if (count > mostDiseases && options.isTrue(scenario.row, "DiagnoseAllDiseases")) {
        study.error(
            sheet, scenario.symptoms[mostDiseases], "Setting",
            fmt::format("\"{}\" judges all diseases at once and has {} symptoms. The state at the start "
                        "is recorded with {} at most: the program ends at the first patient.",
                        scenario.name, count, mostDiseases));
        study.note(options, scenario.row, "DiagnoseAllDiseases",
                   fmt::format("With all diseases at once a scenario bears {} symptoms; this one has {}.",
                               mostDiseases, count));
    }
}

/// False if the columns behind it should not be looked at.
bool judgeCount(Study& study, const Scenario& scenario, int row, int count) {
    const Sheet& sheet = study.sheet("tblDiseaseSymptom");
    const int columns = diseaseColumns(sheet);
    const int diseases = scenario.diseases;
    if (count > columns && count == diseases) {
        if (count <= mostDiseases) missColumn(study, sheet, columns, count);
        return false;
    }
    if (count < 1 || count > columns) {
        study.error(sheet, row, "Count",
                    fmt::format("{} is not within 1 and the {} columns of the table: the program ends at the "
                                "sign-in.",
                                count, columns));
        return false;
    }
    if (diseases == 0 || count == diseases) return true;
    if (count < diseases) {
        study.error(
            sheet, row, "Count",
            fmt::format("{} diseases, where the base rates have {}: the program ends when it reckons the "
                        "chances.",
                        count, diseases));
        return true;
    }
    const bool whole = sumOf(sheet, row, count).has_value();
    const bool leads = row == scenario.symptoms.front() && !scenario.treatments.empty();
    study.add(!whole || leads ? Grade::Error : Grade::Warning, sheet, row, "Count",
              fmt::format("{} diseases, where the base rates have {}: {}", count, diseases,
                          !whole  ? "the program ends at an empty chance."
                          : leads ? "the list of treatments needs a word for each, and the program ends."
                                  : "the table shows columns that have no disease."));
    return true;
}

}  // namespace

void baseRates(Study& study) {
    const Sheet& rates = study.sheet("tblBaseRates");
    if (!rates.there || !rates.has("Count")) return;
    for (int row = 0; row < rates.size(); ++row) {
        const auto owner =
            std::ranges::find_if(study.scenarios, [&](const Scenario& s) { return s.rates == row; });
        const bool owned = owner != study.scenarios.end();
        const int diseases = diseasesOf(study, rates, row, owned ? countOfSymptoms(study, *owner) : 0);
        if (owned) owner->diseases = diseases;
    }
}

void symptoms(Study& study) {
    const Sheet& sheet = study.sheet("tblDiseaseSymptom");
    if (!sheet.there || !sheet.has("Setting") || study.scenarios.empty()) return;
    if (sheet.size() == 0)
        return study.error(sheet, noRow, "Setting",
                           "The table is empty: the program ends after the sign-in.");
    for (const Scenario& scenario : study.scenarios) {
        if (scenario.symptoms.empty() && !scenario.treatments.empty() && scenario.usable)
            study.error(sheet, noRow, "Setting",
                        fmt::format("\"{}\" has no symptoms: the program ends before its first patient.",
                                    scenario.name));
        judgeNumberOfSymptoms(study, scenario);
        for (const int row : scenario.symptoms) {
            study.truth(sheet, row, "InitVisible");
            const std::optional<int> count = study.whole(sheet, row, "Count");
            const int shared =
                scenario.diseases == 0 || !count ? count.value_or(0) : std::min(*count, scenario.diseases);
            if (count && judgeCount(study, scenario, row, *count)) percents(study, sheet, row, shared);
        }
    }
}

}  // namespace check
