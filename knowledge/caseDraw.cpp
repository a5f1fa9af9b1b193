#include "knowledge/caseDraw.h"

#include <cmath>

#include "knowledge/modDisease.h"
#include "platform/host.h"
#include "platform/numberText.h"
#include "platform/randomSource.h"
#include "state/TrialState.h"

namespace modPatient {

namespace {

/// The symptoms beyond the model: none in use, so the pass finds nothing and leaves the mask alone.
void drawExtraFindings() {
    for (Int16 i = 0; i < trialState.extraFindingCount; ++i) {
        SymptomFinding& finding = trialState.symptomFindings[i];
        finding.present = static_cast<int>(std::floor(randomSource::draw() * 2.0)) % 2 == 0;
    }
}

}  // namespace

void drawDisease() {
    TrialState& s = trialState;
    randomSource::reseed(host().milliseconds());
    const Int16 drawn = randomSource::drawPercent() + 1;
    const ProbabilityRow& rates = modDisease::currentBaseRates();
    Int16 sum;
    for (Int16 j = 0; j < rates.count; ++j) {
        sum += rates.percents[j];
        if (sum < drawn) continue;
        s.diseaseIndex = j;
        break;
    }
    s.patients[s.currentPatient].disease = s.diseaseTerms[s.diseaseIndex].term;
}

void drawFindings() {
    TrialState& s = trialState;
    if (s.symptomTermCount < s.symptomCount) s.symptomTermCount = s.symptomCount;
    s.symptomFindings.renew(s.symptomTermCount);
    s.findingsMask = 0;
    int drawn = 0;
    for (Int16 i = 0; i < s.symptomCount; ++i) {
        // The last draw goes into the seed, so that two draws of one millisecond do not coincide.
        randomSource::reseed(std::uint64_t{host().milliseconds()} + static_cast<std::uint64_t>(drawn));
        drawn = randomSource::drawPercent();
        SymptomFinding& finding = s.symptomFindings[i];
        finding.name = s.symptomTerms[i].term;
        finding.index = i;
        finding.present = s.diseaseSymptom[i].percents[s.diseaseIndex] > drawn;
        finding.result = finding.present ? "Present" : "Absent";
        if (finding.present) s.findingsMask += round32(std::pow(2.0, (s.symptomCount - 1 - i).toFloat()));
    }
    s.extraFindingCount = 0;
    drawExtraFindings();
}

std::string findingsText() {
    const std::string digits = numberText::toBase(trialState.findingsMask, 2);
    const auto places = static_cast<std::size_t>(trialState.symptomTermCount.toInt());
    return digits.size() < places ? std::string(places - digits.size(), '0') + digits : digits;
}

}  // namespace modPatient
