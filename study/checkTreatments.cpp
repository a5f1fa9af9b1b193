#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "platform/numberText.h"
#include "platform/text.h"
#include "study/checkRules.h"

namespace check {

namespace {

constexpr int longestName = 18;
constexpr std::array suffixes{"+", "-"};

void judgeName(Study& study, const Scenario& scenario, int row) {
    const Sheet& sheet = study.sheet("tblTreatments");
    if (!study.needsText(sheet, row, "Type")) return;
    const std::string name = sheet.text(row, "Type");
    if (name.empty())
        study.warn(sheet, row, "Type", "The name is empty: an empty choice prescribes this treatment.");
    if (text::length(name) > longestName)
        study.warn(sheet, row, "Type",
                   fmt::format("\"{}\" has more than {} characters: its line in the list is out of step.",
                               name, longestName));
    const auto twin = std::ranges::find_if(scenario.treatments,
                                           [&](int other) { return sheet.text(other, "Type") == name; });
    if (*twin != row)
        study.warn(
            sheet, row, "Type",
            fmt::format("\"{}\" stands in row {} too: this row can never be prescribed.", name, *twin + 1));
}

void judgeChances(Study& study, int row, int diseases) {
    const Sheet& sheet = study.sheet("tblTreatments");
    for (const char* suffix : suffixes) {
        for (int j = 0; j < diseases; ++j) {
            if (sheet.has(diseaseColumn(j, suffix)))
                study.wholeWithin(sheet, row, diseaseColumn(j, suffix), 0, 100, Grade::Error,
                                  "it is no chance that a draw or the feedback can go by.");
        }
    }
}

/// A session reads a column for each disease of its scenario.
void judgeColumns(Study& study, int diseases) {
    const Sheet& sheet = study.sheet("tblTreatments");
    for (const char* suffix : suffixes) {
        for (int j = 0; j < diseases; ++j) {
            const std::string column = diseaseColumn(j, suffix);
            if (!sheet.has(column))
                study.error(
                    sheet, noRow, column,
                    fmt::format("The column is missing: a scenario with {} diseases ends at the sign-in.",
                                diseases));
        }
    }
}

/// Chances that no session of this scenario reads.
void judgeHarms(Study& study, const Scenario& scenario) {
    constexpr int risky = -1;
    const Sheet& sheet = study.sheet("tblTreatments");
    const std::string property = study.sheet("tblAppDefault").text(scenario.row, "TreatmentProperty");
    if (numberText::toNumber(property) == risky) return;
    for (const int row : scenario.treatments) {
        for (int j = 0; j < std::min(scenario.diseases, mostDiseases); ++j) {
            const std::string column = diseaseColumn(j, "-");
            if (!sheet.has(column) || numberText::toNumber(sheet.text(row, column)) <= 0) continue;
            return study.note(
                sheet, row, column,
                fmt::format("Treatments harm nobody in \"{}\": TreatmentProperty is {}, and only "
                            "with -1, \"Apply Risk Factor\", can they.",
                            scenario.name, property));
        }
    }
}

}  // namespace

void treatments(Study& study) {
    const Sheet& sheet = study.sheet("tblTreatments");
    if (!sheet.there || !sheet.has("Setting") || study.scenarios.empty()) return;
    if (sheet.size() == 0)
        return study.error(sheet, noRow, "Setting",
                           "The table is empty: the program ends with the first patient.");
    int most = 0;
    for (const Scenario& scenario : study.scenarios) {
        const int diseases = std::min(scenario.diseases, mostDiseases);
        if (!scenario.treatments.empty()) most = std::max(most, diseases);
        if (scenario.treatments.empty() && !scenario.symptoms.empty() && scenario.usable)
            study.error(
                sheet, noRow, "Setting",
                fmt::format("\"{}\" has no treatments. The feedback reads them also where none can be "
                            "prescribed: the program ends at the end of the first patient.",
                            scenario.name));
        for (const int row : scenario.treatments) {
            judgeName(study, scenario, row);
            judgeChances(study, row, diseases);
        }
        judgeHarms(study, scenario);
    }
    judgeColumns(study, most);
}

}  // namespace check
