#include "knowledge/modLikely.h"

#include <algorithm>
#include <cmath>

#include "knowledge/modDisease.h"
#include "state/TrialState.h"

namespace modLikely {

namespace {

/// Percents as plain numbers, by symptom and disease: what the products are made of. A list that is too short
/// faults.
struct Factors {
    std::size_t diseases;
    std::vector<double> ofPresent;
    std::vector<double> ofAbsent;
};

Factors factorsOf(const List<ProbabilityRow>& symptoms, Int16 count, Int16 diseases) {
    Factors factors{static_cast<std::size_t>(diseases.toInt()), {}, {}};
    const std::size_t all = static_cast<std::size_t>(count.toInt()) * factors.diseases;
    factors.ofPresent.reserve(all);
    factors.ofAbsent.reserve(all);
    for (Int16 s = 0; s < count; ++s) {
        for (Int16 j = 0; j < diseases; ++j) {
            const double percent = symptoms[s].percents[j].toFloat();
            factors.ofPresent.push_back(percent);
            factors.ofAbsent.push_back(100 - percent);
        }
    }
    return factors;
}

/// The chances of a pattern's symptoms given each disease. `products` has a row for each number of symptoms,
/// from none to all of them: a product begins with symptom 0, so that the rows up to the first symptom that
/// is new stay as they are.
void multiplyFrom(std::size_t first, const std::vector<bool>& present, const Factors& factors,
                  std::vector<double>& products) {
    for (std::size_t s = first; s < present.size(); ++s) {
        const double* factor =
            (present[s] ? factors.ofPresent : factors.ofAbsent).data() + s * factors.diseases;
        const double* before = products.data() + s * factors.diseases;
        double* product = products.data() + (s + 1) * factors.diseases;
        for (std::size_t j = 0; j < factors.diseases; ++j) product[j] = factor[j] * before[j] / 100.0;
    }
}

/// The next pattern in counting order; gives the first symptom that has changed.
std::size_t countOn(std::vector<bool>& present) {
    std::size_t at = present.size() - 1;
    for (; present[at]; --at) present[at] = false;
    present[at] = true;
    return at;
}

void fillDiseaseChances(LikelihoodRow& row, const std::vector<double>& rates) {
    const double* chances = row.symptomChance.items.data();
    double best = 0.0;
    for (std::size_t j = 0; j < rates.size(); ++j) {
        // The rate of disease j weighs the others too, so that it cancels out of the quotient.
        double other = 0.0;
        for (std::size_t k = 0; k < rates.size(); ++k) {
            if (k != j) other += rates[j] * chances[k] / 100.0;
        }
        row.otherChance.items[j] = other;
        double chance = rates[j] * chances[j] / 100.0;
        const double total = other + chance;
        chance = total == 0.0 ? 0.0 : chance / total;
        row.diseaseChance.items[j] = chance;
        if (chance > best) {
            best = chance;
            row.bestDisease = j;
        }
    }
}

}  // namespace

std::vector<bool> patternBits(double pattern, Int16 count) {
    std::vector<bool> bits(static_cast<std::size_t>(count.toInt()));
    double rest = pattern;
    for (Int16 i = 0; i < count; ++i) {
        const bool odd = std::fmod(std::nearbyint(rest), 2.0) != 0.0;
        bits[static_cast<std::size_t>((count - 1 - i).toInt())] = odd;
        if (odd) rest -= 1.0;
        rest /= 2.0;
    }
    return bits;
}

void buildLikelihoodTable() {
    TrialState& s = trialState;
    const ProbabilityRow& rates = modDisease::currentBaseRates();
    const Factors factors = factorsOf(s.diseaseSymptom, s.symptomCount, rates.count);
    if (rates.count > s.diseaseCount) raiseFault(FaultNumber::SubscriptOutOfRange);
    std::vector<double> percents;
    for (Int16 j = 0; j < rates.count; ++j) percents.push_back(rates.percents[j].toFloat());

    s.likelihoodRows = std::pow(2.0, s.symptomCount.toFloat());
    s.likelihoodTable.renew(round32(s.likelihoodRows));
    std::vector<bool> present = patternBits(0.0, s.symptomCount);
    std::vector<double> products(factors.diseases * (present.size() + 1), 1.0);
    std::size_t changed = 0;
    const std::vector<double> none(static_cast<std::size_t>(s.diseaseCount.toInt()));
    for (LikelihoodRow& row : s.likelihoodTable) {
        multiplyFrom(changed, present, factors, products);
        row.symptomChance.items = none;
        row.otherChance.items = none;
        row.diseaseChance.items = none;
        std::copy(products.end() - rates.count.toInt(), products.end(), row.symptomChance.begin());
        fillDiseaseChances(row, percents);
        if (&row != &s.likelihoodTable.items.back()) changed = countOn(present);
    }
}

}  // namespace modLikely
