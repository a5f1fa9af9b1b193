// Trials a second with the store: silent patients from `startTrial` to death as the real program plays them,
// each with a row that is added and completed under full synchronisation, beside as many bare appends with
// fsync; and with the store in memory, as simulated subjects are played.
#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iostream>
#include <memory>
#include <vector>

#include "bench/medians.h"
#include "bench/silentPatients.h"
#include "pilot/emptyStore.h"
#include "platform/onLeave.h"
#include "store/layer/database.h"
#include "store/layer/engine.h"

namespace {

constexpr int runs = 5;
constexpr int writesOfTrial = 2;

double elapsed(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

const std::filesystem::path folder = std::filesystem::temp_directory_path() / "tavixStoredTrialBench";

/// Seconds for one trial.
double playTrials(int trials) {
    silentPatients::begin(folder.string());
    return elapsed([trials] { silentPatients::play(trials); }) / trials;
}

double playOnDisk(int trials) {
    silentPatients::makeStudy(folder.string());
    return playTrials(trials);
}

double playInMemory(int trials) {
    silentPatients::makeStudy(folder.string());
    const std::shared_ptr<engine::Connection> database = engine::createInMemory();
    emptyStore::make(*database, emptyStore::read((folder / "data/TavixData.mdb").string()));
    const OnLeave used = store::playInMemory(database);
    engine::execute(*database, "BEGIN");
    return playTrials(trials);
}

/// Seconds for as many appends of a page as a trial has writes.
double appendAlone(const std::filesystem::path& path, int trials) {
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
    static constexpr std::array<char, 4096> page{};
    const double taken = elapsed([&] {
        for (int i = 0; i < trials * writesOfTrial; ++i) {
            if (::write(file, page.data(), page.size()) < 0 || ::fsync(file) != 0) std::_Exit(1);
        }
    });
    ::close(file);
    std::filesystem::remove(path);
    return taken / trials;
}

void row(const std::string& what, const std::vector<double>& seconds, const std::vector<double>& limits,
         const std::string& limit) {
    std::vector<double> ratios;
    for (std::size_t i = 0; i < seconds.size(); ++i) ratios.push_back(seconds[i] / limits[i]);
    std::cout << fmt::format("ROW\tc\t{}\t{:.1f}\ttrials/s\t{:.2f}\t{}\t\t\n", what,
                             1 / medians::median(seconds), medians::median(ratios), limit);
}

}  // namespace

int main() {
    std::vector<double> onDisk;
    std::vector<double> alone;
    std::vector<double> inMemory;
    for (int run = 0; run < runs; ++run) {
        onDisk.push_back(playOnDisk(50));
        alone.push_back(appendAlone(folder / "page", 50));
        inMemory.push_back(playInMemory(500));
    }
    row("silent trials, store on disk", onDisk, alone, "two appends of 4 KiB with fsync");
    row("silent trials, store in memory", inMemory, onDisk, "store on disk");
    std::filesystem::remove_all(folder);
}
