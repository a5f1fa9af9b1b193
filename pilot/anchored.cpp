// anchored: anchoring and insufficient adjustment (Tversky & Kahneman 1974), in the form of conservatism in
// belief revision (Edwards 1968). The belief starts at the base rate and moves only a share of the way to the
// computed chance: belief = rate + share x (chance - rate). A share of 1 believes as bayes does. It tests as
// bayes does and treats by what it believes.
#include "pilot/deliberate.h"
#include "pilot/policies.h"

namespace policies {

using inference::Results;

namespace {

std::vector<double> adjusted(const Tables& tables, double share, const Results& results) {
    std::vector<double> belief = inference::computedChances(tables, results);
    for (std::size_t j = 0; j < belief.size(); ++j) {
        const double anchor = tables.baseRates[j] / 100.0;
        belief[j] = anchor + share * (belief[j] - anchor);
    }
    return belief;
}

}  // namespace

Mind anchored(const Briefing& briefing) {
    const Task& task = briefing.task;
    const Tables& tables = briefing.tables;
    const double share = briefing.parameters.share;
    return deliberate::mindOf(
        task, {.belief = [=](const Results& results) { return adjusted(tables, share, results); },
               .nextTest =
                   [=](const Sight& sight, const Results& results) {
                       return deliberate::testThatPays(task, tables, sight, results);
                   },
               .treatment =
                   [=](const Results& results) {
                       return inference::treatmentThatHelps(task, tables, adjusted(tables, share, results));
                   }});
}

}  // namespace policies
