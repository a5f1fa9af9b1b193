#include "pilot/pilotRun.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <memory>
#include <stdexcept>

#include "pilot/outputStore.h"
#include "platform/interruption.h"
#include "platform/progressLine.h"
#include "platform/workers.h"
#include "store/layer/database.h"

namespace pilotRun {

namespace {

using engine::Value;

constexpr const char* program = "tavix-pilot 1.0";
constexpr std::size_t mostAtOnce = 500;  // subjects in a transaction
constexpr std::chrono::milliseconds longestWait{1000};

/// Subjects of one scenario and one policy, who follow each other.
struct Cell {
    int scenario;  ///< place in the list of the sign-in, from 1
    std::string setting;
    const Policy* policy;
};

struct Plan {
    const Run& run;
    std::vector<Cell> cells;
    int width;

    [[nodiscard]] std::int64_t all() const { return static_cast<std::int64_t>(cells.size()) * run.subjects; }
    /// The first of a shard, whose last is the one before the next shard's first.
    [[nodiscard]] std::int64_t firstOf(int shard) const { return all() * (shard - 1) / run.shards; }
    [[nodiscard]] const Cell& cellOf(std::int64_t place) const {
        return cells[static_cast<std::size_t>(place / run.subjects)];
    }
    [[nodiscard]] Subject subjectAt(std::int64_t place) const {
        const Cell& cell = cellOf(place);
        const int number = static_cast<int>(place % run.subjects) + 1;
        return {cell.policy, cell.scenario, number,
                fmt::format("{}-{}-{:0{}}p", cell.policy->name, cell.scenario, number, width)};
    }
};

Plan planOf(const Run& run, const std::vector<std::string>& scenarios) {
    Plan plan{run, {}, std::max(numberWidth, static_cast<int>(std::to_string(run.subjects).size()))};
    for (std::size_t i = 0; i < scenarios.size(); ++i) {
        if (run.scenario != "all" && run.scenario != scenarios[i]) continue;
        for (const Policy* policy : run.policies)
            plan.cells.push_back({static_cast<int>(i) + 1, scenarios[i], policy});
    }
    if (plan.cells.empty())
        throw std::runtime_error(fmt::format("--scenario {}: the store has the scenarios {}", run.scenario,
                                             fmt::join(scenarios, ", ")));
    return plan;
}

std::string parametersOf(const Setup& setup) {
    return fmt::format("now={} limit={} mu={} sigma={} tau={} share={} threshold={}", setup.now, setup.limit,
                       setup.times.mu, setup.times.sigma, setup.times.tau, setup.parameters.share,
                       setup.parameters.threshold);
}

std::vector<Value> rowOf(const Run& run) {
    std::string policies;
    for (const Policy* policy : run.policies) policies += (policies.empty() ? "" : ",") + policy->name;
    const auto now = std::chrono::time_point_cast<std::chrono::seconds>(std::chrono::system_clock::now());
    return {std::string(program),
            policies,
            run.scenario,
            static_cast<std::int64_t>(run.setup.seed),
            std::int64_t{run.subjects},
            std::int64_t{run.setup.trials},
            parametersOf(run.setup),
            fmt::format("{}/{}", run.shard, run.shards),
            fmt::format("{:%Y-%m-%d %H:%M:%S}", now)};
}

/// What a worker does: one subject in a transaction that is taken back once its rows are known, so that the
/// next one finds the store empty again.
std::string playOne(const Plan& plan, engine::Connection& database, std::int64_t place) {
    const Subject subject = plan.subjectAt(place);
    engine::execute(database, "BEGIN");
    const std::string ended = session::play(plan.run.setup, subject);
    const std::string rows = outputStore::rowsOf(
        database, {subject.name, subject.policy->name, plan.cellOf(place).setting,
                   static_cast<std::int64_t>(plan.run.setup.seed), std::int64_t{subject.number}, ended});
    engine::execute(database, "ROLLBACK");
    return rows;
}

workers::Job jobOf(const Plan& plan, const emptyStore::Layout& layout) {
    // The store in memory is made by each worker for itself, at its first subject.
    return [&, database = std::shared_ptr<engine::Connection>(),
            used = std::shared_ptr<OnLeave>()](std::int64_t place) mutable {
        if (!database) {
            database = engine::createInMemory();
            emptyStore::make(*database, layout);
            used.reset(new OnLeave(store::playInMemory(database)));
        }
        return playOne(plan, *database, place);
    };
}

}  // namespace

Outcome play(const Run& run) {
    interruption::watch();
    const emptyStore::Layout layout = emptyStore::read(run.setup.folder + "/data/TavixData.mdb");
    const Plan plan = planOf(run, emptyStore::scenarios(layout));
    const std::int64_t first = plan.firstOf(run.shard);
    const std::int64_t end = plan.firstOf(run.shard + 1);
    const std::vector<Value> row = rowOf(run);
    const bool begins = !run.resume || !std::filesystem::exists(run.file);
    if (begins) outputStore::make(run.file, layout, row);
    std::int64_t done = begins ? 0 : outputStore::subjectsIn(run.file, layout, row);

    const engine::Database database = engine::open(run.file, store::password, engine::Access::Write);
    const auto tell = progressLine::count("subjects", done, end - first);
    std::vector<std::string> waiting;
    auto written = std::chrono::steady_clock::now();
    const auto write = [&] {
        outputStore::add(*database, waiting, done);
        done += static_cast<std::int64_t>(waiting.size());
        waiting.clear();
        written = std::chrono::steady_clock::now();
    };
    workers::run(
        run.jobs, first + done, end, jobOf(plan, layout),
        [&](std::int64_t, std::string rows) {
            waiting.push_back(std::move(rows));
            const bool late = std::chrono::steady_clock::now() - written > longestWait;
            if (late || waiting.size() >= mostAtOnce) write();
            tell(done + static_cast<std::int64_t>(waiting.size()));
        },
        [] { return !interruption::came(); });
    if (!waiting.empty()) write();
    return {done == end - first, done, end - first};
}

}  // namespace pilotRun
