// Trials a second without a store: silent patients from `startTrial` to death, through the real screens in
// virtual time. What the trial writes is replaced below by functions that do nothing. Beside it a bare loop
// that draws the same random numbers and moves the same counters.
#include <fmt/format.h>

#include <array>
#include <atomic>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <new>
#include <vector>

#include "bench/medians.h"
#include "bench/silentPatients.h"
#include "forms/frmTavix.h"
#include "forms/person.h"
#include "platform/randomSource.h"
#include "stage/virtualTime.h"
#include "state/TrialState.h"
#include "store/record/modAppRecord.h"

namespace modAppRecord {

std::string trialStem() { return {}; }
std::string stateId() { return {}; }
std::string recordTrialStart(const std::string&) { return {}; }
void recordInitialHypothesisState() {}
std::string recordEvent(const std::string&, Int16, const std::string&, bool) { return {}; }
void recordTrialEnd() {}

}  // namespace modAppRecord

namespace {

std::atomic<long> allocations{0};

/// What a trial without forms would be: the same draws in the same order, and the counters of the same ticks.
struct BareTask {
    std::vector<bool> seen;
    int seenCount = 0;
    std::uint32_t now = 0;
    int symptoms = 0;
    std::array<std::uint32_t, 3> intervals{};  ///< of health, clock and monitor
    long ticks = 0;
    int minute = 0, hour = 0, segment = 0;
    volatile int shown = 0;  ///< what the screen would show

    void choosePatient() {
        if (seenCount == static_cast<int>(seen.size())) {
            seen.assign(seen.size(), false);
            seenCount = 0;
        }
        while (true) {
            randomSource::reseed(now);
            const auto who =
                static_cast<std::size_t>(randomSource::draw() * static_cast<double>(seen.size()));
            if (seen[who]) continue;
            seen[who] = true;
            ++seenCount;
            return;
        }
    }

    void drawCase() const {
        randomSource::reseed(now);
        randomSource::drawPercent();
        int drawn = 0;
        for (int i = 0; i < symptoms; ++i) {
            randomSource::reseed(std::uint64_t{now} + static_cast<std::uint64_t>(drawn));
            drawn = randomSource::drawPercent();
        }
    }

    void live() {
        int health = silentPatients::startHealth * 10;
        std::array<std::uint32_t, 3> due{};
        for (std::size_t i = 0; i < due.size(); ++i) due[i] = now + intervals[i];
        while (health > 0) {
            std::size_t next = 0;
            for (std::size_t i = 1; i < due.size(); ++i) {
                if (due[i] < due[next]) next = i;
            }
            now = due[next];
            due[next] += intervals[next];
            ++ticks;
            if (next == 0) {
                randomSource::reseed(now);
                health += static_cast<int>(std::floor(randomSource::draw() * 10.0)) - 5;
                if (health > 1000) return;
                shown = health;
            } else if (next == 1) {
                if (++minute == 60) {
                    minute = 0;
                    ++hour;
                }
                shown = minute;
            } else {
                shown = ++segment;
            }
        }
    }

    void play(int count) {
        for (int i = 0; i < count; ++i) {
            choosePatient();
            drawCase();
            live();
        }
    }
};

/// A bare task that stands where the program stands now.
BareTask bareTask() {
    BareTask bare;
    for (const Patient& patient : trialState.patients) bare.seen.push_back(patient.status != "Untreated");
    bare.seenCount = trialState.patientsSeen.toInt();
    bare.now = virtualTime::milliseconds();
    bare.symptoms = trialState.symptomCount.toInt();
    const auto every = [](const Control& timer) {
        return static_cast<std::uint32_t>(timer.interval.toInt());
    };
    bare.intervals = {every(frmTavix.tmrHealth), every(frmTavix.tmrClock), every(frmTavix.tmrHealthMonitor)};
    return bare;
}

}  // namespace

void* operator new(std::size_t size) {
    allocations.fetch_add(1, std::memory_order_relaxed);
    if (void* place = std::malloc(size)) return place;
    throw std::bad_alloc();
}
void operator delete(void* place) noexcept { std::free(place); }
void operator delete(void* place, std::size_t) noexcept { std::free(place); }

int main() {
    constexpr int runs = 7;
    constexpr int trials = 2000;
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "tavixTrialBench";
    silentPatients::makeStudy(folder.string());
    silentPatients::begin(folder.string());
    std::vector<double> rates;
    std::vector<double> ratios;
    long ticks = 0;
    for (int run = 0; run < runs; ++run) {
        const auto seed = static_cast<std::uint64_t>(run);
        BareTask bare = bareTask();
        randomSource::fixState(seed);
        const double played = medians::seconds([] { silentPatients::play(trials); });
        const double next = randomSource::draw();
        randomSource::fixState(seed);
        const double alone = medians::seconds([&] { bare.play(trials); });
        if (randomSource::draw() != next || bare.now != virtualTime::milliseconds()) {
            std::cerr << "the bare loop has drawn other numbers than the trials\n";
            return 1;
        }
        rates.push_back(trials / played);
        ratios.push_back(played / alone);
        ticks += bare.ticks;
    }
    const double rate = medians::median(rates);
    std::cout << fmt::format("a trial has {} ticks, {:.0f} ns each with all that it does\n",
                             ticks / runs / trials, 1e9 / rate / static_cast<double>(ticks) * runs * trials);
    person::press(frmTavix.cmdNextPatient);
    const long before = allocations;
    virtualTime::pass(10000, [] { return false; });
    std::cout << fmt::format("allocations in 10 s of a trial: {}\n", allocations - before);
    std::cout << fmt::format(
        "ROW\tb\tsilent trials, no store\t{:.0f}\ttrials/s a core\t{:.1f}\t"
        "bare loop, same draws and counters\t\t\n",
        rate, medians::median(ratios));
    std::filesystem::remove_all(folder);
}
