#include <fmt/format.h>

#include <algorithm>

#include "store/layer/schema.h"
#include "study/checkRules.h"

namespace check {

namespace {

/// No table knows the scenario: its name is what is wrong, and not the rows of the others.
bool isBare(const Scenario& scenario) { return scenario.symptoms.empty() && scenario.treatments.empty(); }

bool hasNames(const Sheet& sheet) { return sheet.there && sheet.has("Setting"); }

const Scenario* scenarioOf(const Study& study, std::string_view name) {
    const auto found =
        std::ranges::find_if(study.scenarios, [&](const Scenario& s) { return sameName(s.name, name); });
    return found == study.scenarios.end() ? nullptr : &*found;
}

/// Both tables in the order of their names, and what in one has no partner in the other.
struct Pairing {
    std::vector<const Scenario*> listed = {};
    std::vector<int> ranked = {};
    std::vector<const Scenario*> missing = {};
    std::vector<int> surplus = {};  ///< places in `ranked`
};

Pairing pair(const Study& study) {
    const Sheet& rates = study.sheet("tblBaseRates");
    Pairing pairing;
    pairing.ranked = sortedByName(rates);
    for (const int row : sortedByName(study.sheet("tblAppDefault")))
        pairing.listed.push_back(scenarioOf(study, study.sheet("tblAppDefault").text(row, "Setting")));
    std::set<const Scenario*> taken;
    for (int place = 0; place < static_cast<int>(pairing.ranked.size()); ++place) {
        const int row = pairing.ranked[static_cast<std::size_t>(place)];
        const Scenario* scenario = scenarioOf(study, rates.text(row, "Setting"));
        if (scenario == nullptr || !taken.insert(scenario).second) pairing.surplus.push_back(place);
    }
    std::ranges::copy_if(pairing.listed, std::back_inserter(pairing.missing),
                         [&](const Scenario* scenario) { return !taken.contains(scenario); });
    return pairing;
}

bool contains(const auto& list, const auto& value) { return std::ranges::find(list, value) != list.end(); }

/// Whether every scenario still finds its rates by the place, whatever their name.
bool standsInPlace(const Study& study, const Pairing& pairing) {
    if (pairing.listed.size() != pairing.ranked.size()) return false;
    for (std::size_t place = 0; place < pairing.listed.size(); ++place) {
        const std::string name = study.sheet("tblBaseRates").text(pairing.ranked[place], "Setting");
        const bool bothOdd = contains(pairing.missing, pairing.listed[place]) &&
                             contains(pairing.surplus, static_cast<int>(place));
        if (!bothOdd && !sameName(name, pairing.listed[place]->name)) return false;
    }
    return true;
}

void judgeMissing(Study& study, const Pairing& pairing) {
    if (!pairing.surplus.empty()) return;  // told at the row that has another name
    for (const Scenario* scenario : pairing.missing) {
        if (isBare(*scenario)) continue;
        study.error(
            study.sheet("tblBaseRates"), noRow, "Setting",
            fmt::format("There is no row for the scenario \"{}\". Rows are matched by their place in the "
                        "order of names: this scenario and those behind it draw by the rates of others, "
                        "or the program ends.",
                        scenario->name));
    }
}

void judgeSurplus(Study& study, const Pairing& pairing, bool nameIsToBlame) {
    const Sheet& rates = study.sheet("tblBaseRates");
    const bool inPlace = standsInPlace(study, pairing);
    for (const int place : pairing.surplus) {
        const int row = pairing.ranked[static_cast<std::size_t>(place)];
        const std::string name = rates.text(row, "Setting");
        if (inPlace || nameIsToBlame || place >= static_cast<int>(pairing.listed.size())) {
            study.warn(
                rates, row, "Setting",
                fmt::format("\"{}\" belongs to no scenario, or to one that has a row already. {}", name,
                            inPlace ? "By its place the row still serves the scenario that lacks one."
                                    : "No session reads it."));
        } else {
            study.error(
                rates, row, "Setting",
                fmt::format("\"{}\" belongs to no scenario, or to one that has a row already. Rows are "
                            "matched by their place in the order of names: scenarios behind it draw "
                            "patients by the rates of others.",
                            name));
        }
    }
}

void strangersOf(Study& study, std::string_view table) {
    const Sheet& sheet = study.sheet(table);
    if (!hasNames(sheet)) return;
    for (int row = 0; row < sheet.size(); ++row) {
        const std::string name = sheet.text(row, "Setting");
        if (!sheet.isEmpty(row, "Setting") && scenarioOf(study, name) != nullptr) continue;
        study.warn(sheet, row, "Setting",
                   fmt::format("There is no scenario \"{}\": no session reads the row.", name));
    }
}

void strangersOfTests(Study& study) {
    const Sheet& tests = study.sheet("tblTests");
    const Sheet& options = study.sheet("tblAppDefault");
    if (!options.has("TestLengthSetting")) return;
    std::set<std::string> broken;
    for (int row = 0; row < tests.size(); ++row) {
        const std::string name = tests.text(row, "SETTING");
        const bool used =
            !tests.isEmpty(row, "SETTING") && std::ranges::any_of(study.scenarios, [&](const Scenario& s) {
                return sameName(options.text(s.row, "TestLengthSetting"), name);
            });
        if (used) continue;
        if (hasApostrophe(name) && broken.insert(name).second) {
            study.error(
                tests, row, "SETTING",
                fmt::format("\"{}\" holds an apostrophe: a scenario that names it cannot be loaded.", name));
        } else {
            study.warn(tests, row, "SETTING",
                       fmt::format("No scenario names \"{}\" in TestLengthSetting: no session reads the row.",
                                   name));
        }
    }
}

}  // namespace

void columns(Study& study) {
    for (const schema::Table& table : schema::tables()) {
        const Sheet& sheet = study.sheet(table.name);
        if (!sheet.there) {
            study.error(sheet, noRow, {},
                        "The table is missing: the program cannot go on where it opens it.");
            continue;
        }
        const auto need = [&](const std::string& column) {
            if (!sheet.has(column))
                study.error(sheet, noRow, column,
                            "The column is missing: the program ends where it reads or writes it.");
        };
        for (const schema::Column& column : table.columns) need(std::string(column.name));
        if (table.name == "dataHypothesisState") {
            for (int i = 1; i <= mostDiseases; ++i) need(fmt::format("H{}", i));
        }
    }
}

void scenarioNames(Study& study) {
    const Sheet& options = study.sheet("tblAppDefault");
    if (!hasNames(options)) return;
    if (options.size() == 0)
        study.error(options, noRow, "Setting", "There is no scenario: nobody can get past the sign-in.");
    for (int row = 0; row < options.size(); ++row) {
        if (!study.needsText(options, row, "Setting")) continue;
        const std::string name = options.text(row, "Setting");
        const Scenario& scenario = *scenarioOf(study, name);
        if (scenario.row != row) {
            study.error(
                options, row, "Setting",
                fmt::format("Row {} is a scenario \"{}\" too: this row is never used, and the rates of "
                            "the scenarios behind it can shift.",
                            scenario.row + 1, scenario.name));
        } else if (hasApostrophe(name)) {
            study.error(
                options, row, "Setting",
                fmt::format("\"{}\" holds an apostrophe: its questions to the store are broken, and the "
                            "program stops at the sign-in with a box of the store.",
                            name));
        } else if (isBare(scenario) && study.sheet("tblDiseaseSymptom").size() > 0) {
            study.error(options, row, "Setting",
                        fmt::format("No table has symptoms or treatments for \"{}\": the program ends before "
                                    "its first patient.",
                                    name));
        }
    }
}

void pairing(Study& study) {
    const Sheet& rates = study.sheet("tblBaseRates");
    if (!hasNames(rates) || study.scenarios.empty()) return;
    if (rates.size() == 0)
        return study.error(rates, noRow, "Setting",
                           "The table is empty: the program ends after the sign-in.");
    bool named = true;
    for (int row = 0; row < rates.size(); ++row) named = study.needsText(rates, row, "Setting") && named;
    if (!named) return;
    const bool oneOfEach = static_cast<int>(study.scenarios.size()) == study.sheet("tblAppDefault").size();
    const Pairing pairing = pair(study);
    const bool nameIsToBlame =
        !oneOfEach || std::ranges::any_of(pairing.missing, [](const Scenario* scenario) {
            return isBare(*scenario) || !scenario->usable;
        });
    if (!nameIsToBlame) judgeMissing(study, pairing);
    judgeSurplus(study, pairing, nameIsToBlame);
}

void strangers(Study& study) {
    if (study.scenarios.empty()) return;
    strangersOf(study, "tblDiseaseSymptom");
    strangersOf(study, "tblTreatments");
    strangersOfTests(study);
}

}  // namespace check
