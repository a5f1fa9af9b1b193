#include "pilot/inference.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>

#include "trial/run/evaluation.h"

namespace inference {

namespace {

using Numbers = std::vector<double>;

constexpr double percent = 100.0;

double sumOf(std::span<const double> numbers) { return std::accumulate(numbers.begin(), numbers.end(), 0.0); }

/// What stands on the screen: two decimals.
double shown(double chance) { return std::round(chance * percent) / percent; }

/// The likelihoods by disease, with one more symptom.
Numbers with(const Tables& tables, Numbers likelihoods, std::size_t test, bool present) {
    for (std::size_t j = 0; j < likelihoods.size(); ++j) {
        const double chance = tables.symptomChances[test][j] / percent;
        likelihoods[j] *= present ? chance : 1.0 - chance;
    }
    return likelihoods;
}

/// How likely exactly these results are with each disease.
Numbers likelihoodsOf(const Tables& tables, const Results& results) {
    Numbers likelihoods(tables.baseRates.size(), 1.0);
    for (std::size_t test = 0; test < results.size(); ++test) {
        if (results[test] != Result::None)
            likelihoods = with(tables, std::move(likelihoods), test, results[test] == Result::Present);
    }
    return likelihoods;
}

Numbers chancesOf(const Tables& tables, Numbers likelihoods) {
    const double all = sumOf(likelihoods);
    for (std::size_t j = 0; j < likelihoods.size(); ++j)
        likelihoods[j] = all > 0 && tables.baseRates[j] > 0 ? likelihoods[j] / all : 0.0;
    return likelihoods;
}

using Visit = std::function<void(const Numbers& likelihoods)>;

/// All patterns of findings that these results leave open, with their likelihoods.
void eachPattern(const Tables& tables, const Results& results, std::size_t test, const Numbers& likelihoods,
                 const Visit& visit) {
    if (test == results.size()) return visit(likelihoods);
    for (const Result result : {Result::Present, Result::Absent}) {
        if (results[test] == Result::None || results[test] == result)
            eachPattern(tables, results, test + 1, with(tables, likelihoods, test, result == Result::Present),
                        visit);
    }
}

double information(const Tables& tables, std::span<const double> chances, std::size_t test) {
    const double all = sumOf(chances);
    if (all <= 0) return 0.0;
    const double mean = presence(tables, chances, test);
    double bits = 0;
    for (std::size_t j = 0; j < chances.size(); ++j) {
        if (chances[j] <= 0) continue;
        const double own = tables.symptomChances[test][j] / percent;
        if (own > 0) bits += chances[j] / all * own * std::log2(own / mean);
        if (own < 1) bits += chances[j] / all * (1 - own) * std::log2((1 - own) / (1 - mean));
    }
    return std::max(bits, 0.0);
}

double mean(std::span<const double> chances, const std::vector<int>& percents) {
    return std::inner_product(chances.begin(), chances.end(), percents.begin(), 0.0) / percent;
}

}  // namespace

Results resultsOf(const Sight& sight) {
    Results results;
    for (const ShownTest& test : sight.tests) results.push_back(test.result);
    return results;
}

std::vector<double> computedChances(const Tables& tables, const Results& results) {
    return chancesOf(tables, likelihoodsOf(tables, results));
}

std::vector<double> posterior(const Tables& tables, const Results& results) {
    Numbers weights = likelihoodsOf(tables, results);
    for (std::size_t j = 0; j < weights.size(); ++j) weights[j] *= tables.baseRates[j];
    const double all = sumOf(weights);
    for (double& weight : weights) weight = all > 0 ? weight / all : 0.0;
    return weights;
}

double presence(const Tables& tables, std::span<const double> chances, std::size_t test) {
    const double all = sumOf(chances);
    return all > 0 ? mean(chances, tables.symptomChances[test]) / all : 0.0;
}

double information(const Tables& tables, const Results& results, std::size_t test) {
    return information(tables, computedChances(tables, results), test);
}

int mostInformative(const Tables& tables, const Results& results) {
    const Numbers chances = computedChances(tables, results);
    int best = -1;
    double most = -1;
    for (std::size_t test = 0; test < results.size(); ++test) {
        if (results[test] != Result::None) continue;
        const double bits = information(tables, chances, test);
        if (bits <= most) continue;
        most = bits;
        best = static_cast<int>(test);
    }
    return best;
}

double expectedPenalty(const Task& task, const Tables& tables, const Results& results) {
    const Numbers beliefs = computedChances(tables, results);
    double total = 0;
    double weights = 0;
    eachPattern(tables, results, 0, Numbers(tables.baseRates.size(), 1.0), [&](const Numbers& likelihoods) {
        const Numbers chances = chancesOf(tables, likelihoods);
        for (std::size_t j = 0; j < likelihoods.size(); ++j) {
            const double target = task.comparesChance ? shown(chances[j]) : 0.0;
            const double weight = likelihoods[j] * tables.baseRates[j];
            const double difference = std::fabs(shown(beliefs[j]) - target);
            total += weight * evaluation::penaltyFor(task.mostPenalty, difference);
            weights += weight;
        }
    });
    return weights > 0 ? total / weights : 0.0;
}

double expectedFall(const Task& task, const Tables& tables, const Results& results, std::size_t test) {
    const double present = presence(tables, posterior(tables, results), test);
    double after = 0;
    for (const Result result : {Result::Present, Result::Absent}) {
        Results known = results;
        known[test] = result;
        after += (result == Result::Present ? present : 1 - present) * expectedPenalty(task, tables, known);
    }
    return expectedPenalty(task, tables, results) - after;
}

Choice bestTreatment(const Task& task, const Tables& tables, std::span<const double> chances) {
    Choice best;
    for (std::size_t i = 0; i < tables.healChances.size(); ++i) {
        const double heal = mean(chances, tables.healChances[i]);
        const double harm = task.risk ? mean(chances, tables.harmChances[i]) : 0.0;
        if (best.treatment >= 0 && heal - harm <= best.heal - best.harm) continue;
        best = {static_cast<int>(i), heal, harm};
    }
    return best;
}

int treatmentThatHelps(const Task& task, const Tables& tables, std::span<const double> chances) {
    const Choice best = bestTreatment(task, tables, chances);
    return best.heal > best.harm ? best.treatment : -1;
}

}  // namespace inference
