#include "study/figures.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace figures {

namespace {

using courses::Action;
using courses::Patient;
using courses::State;

/// Between the neighbours at the place `share` of the way from the first value to the last.
double quantile(const std::vector<double>& sorted, double share) {
    const double place = share * static_cast<double>(sorted.size() - 1);
    const auto below = static_cast<std::size_t>(std::floor(place));
    const std::size_t above = std::min(below + 1, sorted.size() - 1);
    return sorted[below] + (place - std::floor(place)) * (sorted[above] - sorted[below]);
}

void addTime(std::vector<double>& times, std::optional<int> second) {
    if (second) times.push_back(*second);
}

void takeScores(Figures& all, std::span<const Patient* const> patients) {
    std::map<int, std::vector<double>> byPlace;
    std::map<std::size_t, double> last;
    for (const Patient* patient : patients) {
        if (patient->state == State::Open || !patient->score) continue;
        byPlace[patient->place].push_back(*patient->score);
        last[patient->subject] = *patient->score;
    }
    // A place that nobody reached with a score leaves no gap in the row, but a spread of no values.
    const int places = byPlace.empty() ? 0 : byPlace.rbegin()->first;
    for (int place = 1; place <= places; ++place)
        all.scores.push_back(spreadOf(byPlace[place]).value_or(Spread{0, {}}));
    std::vector<double> lasts;
    lasts.reserve(last.size());
    for (const auto& [subject, score] : last) lasts.push_back(score);
    all.score = spreadOf(lasts);
}

}  // namespace

std::optional<Spread> spreadOf(std::vector<double> values) {
    if (values.empty()) return {};
    std::ranges::sort(values);
    Spread spread{static_cast<int>(values.size()), {}};
    for (std::size_t i = 0; i < spread.marks.size(); ++i)
        spread.marks[i] = quantile(values, static_cast<double>(i) / 4);
    return spread;
}

Bins binned(std::span<const std::pair<double, double>> pairs) {
    Bins bins{};
    for (const auto& [across, up] : pairs) {
        // Beliefs and chances have two decimals: 0.29 * 10 may not fall below 0.29's own interval.
        const double hundredths = std::clamp(std::round(across * 100), 0.0, 100.0);
        Bin& bin = bins[std::min<std::size_t>(9, static_cast<std::size_t>(hundredths) / 10)];
        ++bin.count;
        bin.across += across;
        bin.up += up;
    }
    for (Bin& bin : bins) {
        if (bin.count == 0) continue;
        bin.across /= bin.count;
        bin.up /= bin.count;
    }
    return bins;
}

Figures of(std::span<const Patient* const> patients) {
    Figures all;
    std::map<std::string, int> ends;
    std::vector<double> tests;
    std::vector<double> diagnoses;
    std::vector<std::pair<double, double>> chances;
    std::vector<std::pair<double, double>> stated;
    std::vector<const Patient*> counted;
    for (const Patient* patient : patients) {
        if (patient->state == State::Repeated) continue;
        counted.push_back(patient);
        ++all.patients;
        ++ends[patient->result];
        if (patient->state != State::Finished) continue;
        ++all.finished;
        if (patient->saved) ++all.saved;
        addTime(tests, firstOf(*patient, Action::Testing));
        addTime(diagnoses, firstOf(*patient, Action::Diagnose));
        if (patient->belief && patient->chance) chances.emplace_back(*patient->chance, *patient->belief);
        for (const courses::Hypothesis& each : lastBeliefs(*patient))
            stated.emplace_back(each.belief / 100.0, each.disease == patient->disease ? 1 : 0);
    }
    all.ends.assign(ends.begin(), ends.end());
    takeScores(all, counted);
    all.firstTest = spreadOf(std::move(tests));
    all.firstDiagnosis = spreadOf(std::move(diagnoses));
    all.chance = binned(chances);
    all.calibration = binned(stated);
    if (!chances.empty()) {
        double sum = 0;
        for (const auto& [chance, belief] : chances) sum += std::abs(belief - chance);
        all.distance = sum / static_cast<double>(chances.size());
    }
    return all;
}

}  // namespace figures
