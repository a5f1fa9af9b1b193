#include <fmt/format.h>

#include <algorithm>

#include "platform/text.h"
#include "study/checkRules.h"

namespace check {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// Whose identifiers can be those of `name`. Name and trial stand in them with no sign between: kim1 in
/// trial 12 and kim in trial 112 are one. Nobody if there is none such.
std::string doubleOf(const std::string& name, const std::set<std::string>& names) {
    for (std::size_t cut = name.size(); cut > 1 && isDigit(name[cut - 1]); --cut) {
        const std::string stem = name.substr(0, cut - 1);
        if (name[cut - 1] != '0' && names.contains(stem)) return stem;
    }
    return {};
}

void judgeNames(Study& study) {
    const Sheet& sheet = study.sheet("SubjectInfo");
    std::set<std::string> names;
    for (int row = 0; row < sheet.size(); ++row) names.insert(text::folded(sheet.text(row, "Subject")));
    for (int row = 0; row < sheet.size(); ++row) {
        const std::string name = sheet.text(row, "Subject");
        if (hasApostrophe(name))
            study.warn(
                sheet, row, "Subject",
                fmt::format("\"{}\" holds an apostrophe: a sign-in by this name stops with a box of the "
                            "store.",
                            name));
        const std::string other = doubleOf(text::folded(name), names);
        if (!other.empty())
            study.warn(sheet, row, "Subject",
                       fmt::format("The identifiers of \"{}\" can be those of \"{}\" from trial 100 on.",
                                   name, other));
    }
}

int termsIn(const std::string& list) { return 1 + static_cast<int>(std::ranges::count(list, ',')); }

/// Words stored for a subject are not dealt again; with fewer of them than the tables need a session ends.
void judgeOrders(Study& study) {
    const Sheet& sheet = study.sheet("SubjectSettings");
    for (int row = 0; row < sheet.size(); ++row) {
        const auto scenario = std::ranges::find_if(
            study.scenarios, [&](const Scenario& s) { return sameName(s.name, sheet.text(row, "Setting")); });
        if (scenario == study.scenarios.end()) continue;
        const auto judge = [&](const char* column, int needed, int most) {
            if (needed > most || !study.needsText(sheet, row, column)) return;
            if (termsIn(sheet.text(row, column)) >= needed) return;
            study.error(
                sheet, row, column,
                fmt::format(
                    "\"{}\" has fewer words here than the {} that \"{}\" needs: the program ends when "
                    "the subject comes back.",
                    sheet.text(row, "Subject"), needed, scenario->name));
        };
        judge("DiseaseOrder", scenario->diseases, mostDiseases);
        judge("TestOrder", static_cast<int>(scenario->symptoms.size()), mostSymptoms);
    }
}

}  // namespace

void subjects(Study& study) {
    judgeNames(study);
    judgeOrders(study);
}

}  // namespace check
