#include "knowledge/modLikely.h"

#include <cmath>

#include "knowledge/modDisease.h"
#include "state/TrialState.h"

namespace modLikely {

namespace {

/// Chance of exactly this pattern given each disease.
void fillSymptomChances(LikelihoodRow& row, const std::vector<bool>& present, Int16 diseases) {
    for (Int16 j = 0; j < diseases; ++j) {
        double chance = 1.0;
        for (Int16 s = 0; s < trialState.symptomCount; ++s) {
            const double percent = trialState.diseaseSymptom[s].percents[j].toFloat();
            chance = (present[static_cast<std::size_t>(s.raw)] ? percent : 100 - percent) * chance / 100.0;
        }
        row.symptomChance[j] = chance;
    }
}

void fillDiseaseChances(LikelihoodRow& row, const ProbabilityRow& rates) {
    double best = 0.0;
    for (Int16 j = 0; j < rates.count; ++j) {
        // The rate of disease j weighs the others too, so that it cancels out of the quotient.
        const double rate = rates.percents[j].toFloat();
        double other = 0.0;
        for (Int16 k = 0; k < rates.count; ++k) {
            if (k != j) other += rate * row.symptomChance[k] / 100.0;
        }
        row.otherChance[j] = other;
        double chance = rate * row.symptomChance[j] / 100.0;
        const double total = other + chance;
        chance = total == 0.0 ? 0.0 : chance / total;
        row.diseaseChance[j] = chance;
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
    s.likelihoodRows = std::pow(2.0, s.symptomCount.toFloat());
    s.likelihoodTable.renew(round32(s.likelihoodRows));
    for (Int32 p = 0; p < s.likelihoodTable.size(); ++p) {
        LikelihoodRow& row = s.likelihoodTable[p];
        row.symptomChance.renew(s.diseaseCount);
        row.otherChance.renew(s.diseaseCount);
        row.diseaseChance.renew(s.diseaseCount);
        fillSymptomChances(row, patternBits(p.toFloat(), s.symptomCount), rates.count);
        fillDiseaseChances(row, rates);
    }
}

}  // namespace modLikely
