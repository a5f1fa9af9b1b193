// bayes: the ideal observer. Its beliefs are updated by Bayes' rule from the results alone, which is the very
// chance that the score compares them with; tests come by their expected information (optimal experimental
// design, Lindley 1956) and are stopped by their expected worth (sequential decision, Wald); the treatment is
// the one of highest expected utility under the posterior that the base rates give. It knows the tables,
// shown or not. What it reaches is the mark by which a scenario's difficulty for people can be told.
#include "pilot/deliberate.h"
#include "pilot/policies.h"

namespace policies {

using inference::Results;

Mind bayes(const Briefing& briefing) {
    const Task& task = briefing.task;
    const Tables& tables = briefing.tables;
    return deliberate::mindOf(
        task, {.belief = [=](const Results& results) { return inference::computedChances(tables, results); },
               .nextTest =
                   [=](const Sight& sight, const Results& results) {
                       return deliberate::testThatPays(task, tables, sight, results);
                   },
               .treatment =
                   [=](const Results& results) {
                       return inference::treatmentThatHelps(task, tables,
                                                            inference::posterior(tables, results));
                   }});
}

}  // namespace policies
