#include "study/survival.h"

#include <algorithm>
#include <array>

namespace survival {

namespace {

/// Length of the stretches that parts `minutes` into at most `most`.
int stretch(int minutes, int most) {
    for (const int each : std::array{1, 2, 5, 10, 15, 30}) {
        if (minutes / each <= most) return each;
    }
    int length = 60;
    while (minutes / length > most) length *= 2;
    return length;
}

}  // namespace

std::vector<Step> of(std::vector<Life> lives) {
    std::ranges::sort(lives, {}, &Life::minutes);
    std::vector<Step> steps;
    double alive = 1;
    for (std::size_t i = 0; i < lives.size();) {
        const std::size_t begin = i;
        int deaths = 0;
        for (; i < lives.size() && lives[i].minutes == lives[begin].minutes; ++i) deaths += lives[i].died;
        const auto atRisk = static_cast<double>(lives.size() - begin);
        alive *= 1 - deaths / atRisk;
        steps.push_back({lives[begin].minutes, static_cast<int>(lives.size() - i), alive});
    }
    return steps;
}

std::vector<Step> thinned(std::span<const Step> steps, int most) {
    std::vector<Step> kept;
    if (steps.empty()) return kept;
    const int length = stretch(steps.back().minute, most);
    const auto of = [length](const Step& step) { return (step.minute + length - 1) / length; };
    for (std::size_t i = 0; i < steps.size(); ++i) {
        if (i + 1 == steps.size() || of(steps[i + 1]) != of(steps[i])) kept.push_back(steps[i]);
    }
    return kept;
}

}  // namespace survival
