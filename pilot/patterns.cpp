#include "pilot/patterns.h"

#include <algorithm>

namespace patterns {

using inference::Results;

namespace {

void add(std::vector<Pattern>& list, const Tables& tables, Results results, std::size_t test, double share) {
    if (test == results.size()) {
        list.push_back({results, share, inference::computedChances(tables, results)});
        return;
    }
    const double present = inference::presence(tables, inference::posterior(tables, results), test);
    results[test] = Result::Absent;
    add(list, tables, results, test + 1, share * (1 - present));
    results[test] = Result::Present;
    add(list, tables, results, test + 1, share * present);
}

double likeliest(const Tables& tables, const Results& results) {
    const std::vector<double> chances = inference::posterior(tables, results);
    return chances.empty() ? 0 : *std::ranges::max_element(chances);
}

}  // namespace

std::vector<Pattern> of(const Tables& tables) {
    std::vector<Pattern> list;
    add(list, tables, Results(tables.symptomChances.size(), Result::None), 0, 1);
    return list;
}

Right rightOf(const Tables& tables, const std::vector<Pattern>& patterns) {
    Right right{likeliest(tables, Results(tables.symptomChances.size(), Result::None)), 0};
    for (const Pattern& pattern : patterns) right.with += pattern.share * likeliest(tables, pattern.results);
    return right;
}

}  // namespace patterns
