// How long the table of chances takes to build, up to the 15 symptoms that the model bears, beside a bare
// loop over the same products.
#include <fmt/format.h>

#include <array>
#include <cmath>
#include <ctime>
#include <iostream>
#include <vector>

#include "bench/medians.h"
#include "knowledge/modLikely.h"
#include "state/TrialState.h"

namespace {

constexpr int runs = 101;
constexpr std::size_t diseases = 4;
constexpr std::array<int, diseases> rates{10, 27, 44, 61};

int percentOf(std::size_t symptom, std::size_t disease) {
    return static_cast<int>((7 * symptom + 17 * disease + 3) % 100);
}

void setScenario(std::size_t symptoms) {
    trialState = {};
    trialState.settingIndex = 0;
    trialState.diseaseCount = diseases;
    trialState.symptomCount = symptoms;
    ProbabilityRow base{"", diseases, false, {}};
    for (const int rate : rates) base.percents.add(rate);
    trialState.baseRates.add(base);
    for (std::size_t s = 0; s < symptoms; ++s) {
        ProbabilityRow row{"", diseases, false, {}};
        for (std::size_t j = 0; j < diseases; ++j) row.percents.add(percentOf(s, j));
        trialState.diseaseSymptom.add(row);
    }
}

struct BareRow {
    int best = 0;
    std::array<double, diseases> symptom{}, other{}, disease{};
};

/// Every product of every pattern on plain numbers, one after the other.
void bareLoop(std::size_t symptoms, const std::vector<std::array<double, diseases>>& percents,
              std::vector<BareRow>& table) {
    for (std::size_t p = 0; p < table.size(); ++p) {
        BareRow& row = table[p];
        for (std::size_t j = 0; j < diseases; ++j) {
            double chance = 1.0;
            for (std::size_t s = 0; s < symptoms; ++s) {
                const bool present = ((p >> (symptoms - 1 - s)) & 1U) != 0;
                chance = (present ? percents[s][j] : 100 - percents[s][j]) * chance / 100.0;
            }
            row.symptom[j] = chance;
        }
        double best = 0.0;
        for (std::size_t j = 0; j < diseases; ++j) {
            double other = 0.0;
            for (std::size_t k = 0; k < diseases; ++k) {
                if (k != j) other += rates[j] * row.symptom[k] / 100.0;
            }
            row.other[j] = other;
            double chance = rates[j] * row.symptom[j] / 100.0;
            const double total = other + chance;
            chance = total == 0.0 ? 0.0 : chance / total;
            row.disease[j] = chance;
            if (chance > best) {
                best = chance;
                row.best = static_cast<int>(j);
            }
        }
    }
}

bool isSame(const std::vector<BareRow>& bare) {
    for (std::size_t p = 0; p < bare.size(); ++p) {
        const LikelihoodRow& row = trialState.likelihoodTable[p];
        bool same = row.bestDisease == bare[p].best;
        for (std::size_t j = 0; j < diseases; ++j) {
            same = same && row.symptomChance[j] == bare[p].symptom[j] &&
                   row.otherChance[j] == bare[p].other[j] && row.diseaseChance[j] == bare[p].disease[j];
        }
        if (!same) return false;
    }
    return true;
}

}  // namespace

int main() {
    for (const std::size_t symptoms : std::array<std::size_t, 3>{6, 10, 15}) {
        setScenario(symptoms);
        std::vector<std::array<double, diseases>> percents(symptoms);
        for (std::size_t s = 0; s < symptoms; ++s) {
            for (std::size_t j = 0; j < diseases; ++j) percents[s][j] = percentOf(s, j);
        }
        std::vector<double> built;
        std::vector<double> ratios;
        for (int run = 0; run < runs; ++run) {
            // As at the start of a session, into nothing.
            trialState.likelihoodTable = {};
            const double table = medians::seconds(modLikely::buildLikelihoodTable);
            std::vector<BareRow> bare;
            const double alone = medians::seconds([&] {
                bare.resize(std::size_t{1} << symptoms);
                bareLoop(symptoms, percents, bare);
            });
            if (!isSame(bare)) {
                std::cerr << "the bare loop has other chances than the table\n";
                return 1;
            }
            built.push_back(1e6 * table);
            ratios.push_back(table / alone);
        }
        std::cout << fmt::format(
            "ROW\te\ttable of chances, {} symptoms\t{:.1f}\tus\t{:.2f}\t"
            "bare loop over the same products\t\t{:.1f}\n",
            symptoms, medians::median(built), medians::median(ratios), medians::greatest(built));
    }
}
