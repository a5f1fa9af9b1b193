// How long the table of chances takes to build, up to the 15 symptoms that the model bears.
#include <benchmark/benchmark.h>

#include "knowledge/modLikely.h"
#include "state/TrialState.h"

namespace {

void buildTable(benchmark::State& state) {
    constexpr int diseases = 4;
    trialState = {};
    trialState.settingIndex = 0;
    trialState.diseaseCount = diseases;
    trialState.symptomCount = state.range(0);
    const auto row = [](int first) {
        ProbabilityRow percents;
        percents.count = diseases;
        for (int j = 0; j < diseases; ++j) percents.percents.add((first + 17 * j) % 100);
        return percents;
    };
    trialState.baseRates.add(row(10));
    for (int i = 0; i < state.range(0); ++i) trialState.diseaseSymptom.add(row(7 * i));
    for ([[maybe_unused]] auto _ : state) modLikely::buildLikelihoodTable();
    state.counters["rows"] = trialState.likelihoodRows;
}

}  // namespace

BENCHMARK(buildTable)->Arg(3)->Arg(6)->Arg(15)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
