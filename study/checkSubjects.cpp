#include <fmt/format.h>

#include <algorithm>

#include "platform/text.h"
#include "study/checkRules.h"

namespace check {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// Name and trial make the identifiers, with no sign between: kim1 in trial 12 and kim in trial 112 are one.
bool canCollide(const std::string& shorter, const std::string& longer) {
    if (longer.size() <= shorter.size() || !longer.starts_with(shorter)) return false;
    const std::string rest = longer.substr(shorter.size());
    return rest.front() != '0' && std::ranges::all_of(rest, isDigit);
}

void judgeNames(Study& study) {
    const Sheet& sheet = study.sheet("SubjectInfo");
    for (int row = 0; row < sheet.size(); ++row) {
        const std::string name = text::folded(sheet.text(row, "Subject"));
        if (hasApostrophe(name))
            study.warn(
                sheet, row, "Subject",
                fmt::format(
                    "\"{}\" holds an apostrophe: a sign-in by this name stops with a box of the store.",
                    name));
        for (int other = 0; other < sheet.size(); ++other) {
            const std::string otherName = text::folded(sheet.text(other, "Subject"));
            if (sheet.isEmpty(other, "Subject") || !canCollide(otherName, name)) continue;
            study.warn(sheet, row, "Subject",
                       fmt::format("The identifiers of \"{}\" can be those of \"{}\" from trial 100 on.",
                                   name, otherName));
        }
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
