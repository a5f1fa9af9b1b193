// satisficer: bounded rationality (Simon 1956). It looks for no best test and no best treatment: it takes the
// tests as they stand on the screen, and as soon as one belief passes its aspiration level, or no test is
// left, it treats the disease believed in most with what helps best against that disease. It knows no more
// than the screen shows: where a table is hidden everything in it looks alike.
#include <algorithm>

#include "pilot/deliberate.h"
#include "pilot/policies.h"

namespace policies {

using inference::Results;

namespace {

void makeAlike(std::vector<std::vector<int>>& rows) {
    for (std::vector<int>& row : rows) std::ranges::fill(row, 50);
}

Tables asShown(const Task& task, Tables tables) {
    if (!task.showsBaseRates) std::ranges::fill(tables.baseRates, 1);
    if (!task.showsSymptoms) makeAlike(tables.symptomChances);
    if (!task.showsTreatments) {
        makeAlike(tables.healChances);
        makeAlike(tables.harmChances);
    }
    return tables;
}

int firstOpen(const Results& results) {
    const auto open = std::ranges::find(results, Result::None);
    return open == results.end() ? -1 : static_cast<int>(open - results.begin());
}

}  // namespace

Mind satisficer(const Briefing& briefing) {
    const Task& task = briefing.task;
    const Tables tables = asShown(task, briefing.tables);
    const double level = briefing.parameters.threshold / 100.0;
    return deliberate::mindOf(
        task, {.belief = [=](const Results& results) { return inference::computedChances(tables, results); },
               .nextTest =
                   [=](const Sight&, const Results& results) {
                       const std::vector<double> belief = inference::computedChances(tables, results);
                       const bool enough = std::ranges::any_of(belief, [&](double b) { return b >= level; });
                       return enough ? -1 : firstOpen(results);
                   },
               .treatment =
                   [=](const Results& results) {
                       std::vector<double> belief = inference::computedChances(tables, results);
                       const auto top = std::ranges::max_element(belief) - belief.begin();
                       std::ranges::fill(belief, 0.0);
                       if (!belief.empty()) belief[static_cast<std::size_t>(top)] = 1.0;
                       return inference::bestTreatment(task, tables, belief).treatment;
                   }});
}

}  // namespace policies
