#include "pilot/runReport.h"

#include <fmt/format.h>

#include <algorithm>
#include <vector>

#include "pilot/prospects.h"
#include "pilot/summary.h"
#include "study/check.h"
#include "study/pilotReport.h"
#include "study/readStore.h"

namespace runReport {

namespace {

/// Of the scenarios that were played.
std::vector<std::string> warningsOf(const std::string& store, const std::string& folder,
                                    const std::vector<pilotFigures::Outcome>& outcomes) {
    std::vector<std::string> warnings;
    for (const prospects::Prospect& prospect : prospects::of(check::read(store, folder))) {
        if (std::ranges::find(outcomes, prospect.scenario, &pilotFigures::Outcome::scenario) ==
            outcomes.end())
            continue;
        for (const prospects::Warning& warning : prospect.warnings)
            warnings.push_back(fmt::format("{}: {}", prospect.scenario, warning.text));
    }
    return warnings;
}

}  // namespace

void tell(std::ostream& out, const std::string& store, const std::string& folder, const std::string& page) {
    const engine::Database database = readStore::open(store);
    const std::vector<pilotFigures::Outcome> outcomes = pilotFigures::of(*database);
    const std::vector<std::string> warnings = warningsOf(store, folder, outcomes);
    out << '\n' << summary::textOf(outcomes, warnings);
    if (!page.empty()) pilotReport::write(page, store, outcomes, warnings);
}

}  // namespace runReport
