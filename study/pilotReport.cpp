#include "study/pilotReport.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <stdexcept>

#include "study/pageFile.h"
#include "study/pageParts.h"
#include "study/readStore.h"

namespace pilotReport {

namespace {

using pageFile::Json;
using pageFile::ofBins;
using pageFile::ofSpread;
using pageFile::orNull;
using pilotFigures::Outcome;

constexpr int mostSteps = 400;           ///< of a curve of survival: more than a plot has room for
constexpr std::size_t mostPlaces = 200;  ///< of a curve of the score

Json ofSurvival(const std::vector<survival::Step>& steps) {
    Json all = Json::array();
    for (const survival::Step& step : survival::thinned(steps, mostSteps))
        all.push_back({step.minute, step.left, pageFile::rounded(step.alive)});
    return all;
}

/// Evenly chosen places of the row of patients, the last one among them.
Json ofScores(const std::vector<figures::Spread>& scores) {
    Json all = Json::array();
    const std::size_t stride = (scores.size() + mostPlaces - 1) / mostPlaces;
    for (std::size_t i = 0; i < scores.size(); ++i) {
        const figures::Spread& spread = scores[i];
        if (spread.count == 0 || (scores.size() - 1 - i) % stride != 0) continue;
        all.push_back({i + 1, spread.count, spread.marks[1], spread.marks[2], spread.marks[3]});
    }
    return all;
}

/// The place of a name in a list, at whose end a new one is entered.
std::size_t placeOf(std::vector<std::string>& names, const std::string& name) {
    const auto found = std::ranges::find(names, name);
    const std::size_t place = static_cast<std::size_t>(found - names.begin());
    if (found == names.end()) names.push_back(name);
    return place;
}

Json ofOutcome(const Outcome& each, std::size_t scenario, std::size_t policy) {
    const figures::Figures& found = each.figures;
    Json change;
    if (each.change) change = {pageFile::rounded(each.change->value), orNull(each.change->error)};
    return {{"scenario", scenario},
            {"policy", policy},
            {"subjects", each.subjects},
            {"brokenOff", each.brokenOff},
            {"patients", found.patients},
            {"finished", found.finished},
            {"saved", found.saved},
            {"ends", found.ends},
            {"life", ofSpread(each.life)},
            {"meanLife", each.meanLife},
            {"survival", ofSurvival(each.survival)},
            {"startScore", each.startScore},
            {"score", ofSpread(found.score)},
            {"scores", ofScores(found.scores)},
            {"change", change},
            {"tests", each.tests},
            {"belief", each.belief},
            {"meanChance", each.chance},
            {"distance", orNull(found.distance)},
            {"chance", ofBins(found.chance)},
            {"calibration", ofBins(found.calibration)},
            {"miscalibration", orNull(each.miscalibration)}};
}

}  // namespace

void refuseOther(const std::string& page) { pageFile::refuseOther(page, pageParts::pilotFrame); }

void write(const std::string& page, const std::string& store, std::span<const Outcome> outcomes,
           const Warnings& warnings) {
    std::vector<std::string> scenarios;
    std::vector<std::string> policies;
    Json plays = Json::array();
    bool people = false;
    for (const Outcome& each : outcomes) {
        plays.push_back(ofOutcome(each, placeOf(scenarios, each.scenario), placeOf(policies, each.policy)));
        people = people || each.policy == pilotFigures::people;
    }
    const Json data{{"store", std::filesystem::path(store).filename().string()},
                    {"people", people},
                    {"scenarios", scenarios},
                    {"policies", policies},
                    {"warnings", orNull(warnings)},
                    {"plays", plays}};
    pageFile::write(page, pageParts::pilotFrame, pageParts::pilotScript,
                    [&](std::ostream& out) { out << pageFile::scriptText(data); });
}

void write(const std::string& page, const std::string& store, const Warnings& warnings) {
    refuseOther(page);
    const engine::Database database = readStore::open(store);
    try {
        write(page, store, pilotFigures::of(*database), warnings);
    } catch (const engine::Error& error) {
        throw std::runtime_error(fmt::format("{}: {}", store, error.text));
    }
}

}  // namespace pilotReport
