#include "study/mergeStores.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>
#include <stdexcept>

#include "platform/files.h"
#include "platform/onLeave.h"
#include "platform/text.h"
#include "store/layer/database.h"
#include "store/layer/dialect.h"
#include "store/layer/engine.h"
#include "study/draft.h"
#include "study/readStore.h"
#include "study/simulated.h"
#include "study/subjectRows.h"

namespace mergeStores {

namespace fs = std::filesystem;

namespace {

using subjectRows::Holding;
using Progress = std::function<void(double)>;

struct Source {
    std::string file;  ///< as it was named
    std::string copy;  ///< from which it is read
    std::set<std::string> added = {};
};

/// The store that grows, and what is known of it.
struct Target {
    std::string file;
    engine::Connection& database;
    Holding holding;
    std::map<std::string, std::size_t> configuration;  ///< fingerprints by table
    std::map<std::string, std::string> origins;        ///< by owner: the file whose rows they are
    bool takesAll;                                     ///< simulated subjects beside people
};

/// Every table that holds no results, those that an update has put aside too: they say under which
/// configuration the rows came about.
std::map<std::string, std::size_t> configurationOf(engine::Connection& database) {
    std::map<std::string, std::size_t> prints;
    const char* all = "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite%'";
    for (const auto& row : readStore::select(database, all).rows) {
        const std::string name = readStore::textOf(row[0]);
        if (simulated::isMark(name)) continue;
        const schema::Table* known = schema::find(name);
        if (known == nullptr || known->isConfiguration())
            prints[known == nullptr ? name : std::string(known->name)] =
                subjectRows::printOf(readStore::table(database, name));
    }
    return prints;
}

void compareConfiguration(const Target& target, engine::Connection& database, const Source& source,
                          std::vector<std::string>& problems) {
    std::set<std::string> differing;
    const auto differences = [&](const auto& a, const auto& b) {
        for (const auto& [table, print] : a) {
            const auto other = b.find(table);
            if (other == b.end() || other->second != print) differing.insert(table);
        }
    };
    const std::map<std::string, std::size_t> own = configurationOf(database);
    differences(own, target.configuration);
    differences(target.configuration, own);
    if (!differing.empty())
        problems.push_back(fmt::format("{}: differs from {} in the tables {}", source.file, target.file,
                                       fmt::join(differing, ", ")));
}

/// Whoever counts the rows must know whether people are among them.
void compareMarks(const Target& target, engine::Connection& database, const Source& source,
                  std::vector<std::string>& problems) {
    const bool own = simulated::isMarked(database);
    if (target.takesAll || own == simulated::isMarked(target.database)) return;
    problems.push_back(fmt::format("{}: holds {}, and {} does not; --simulated-too makes them one store",
                                   own ? source.file : target.file, simulated::called,
                                   own ? target.file : source.file));
}

std::vector<std::string> columnsOf(engine::Connection& database, std::string_view table) {
    return engine::columnsOf(database, "SELECT * FROM " + dialect::quoted(std::string(table)));
}

void compareColumns(const Target& target, engine::Connection& database, const Source& source,
                    std::vector<std::string>& problems) {
    for (const schema::Table& table : schema::tables()) {
        if (table.kind != schema::Kind::Result) continue;
        const engine::Rows there{columnsOf(target.database, table.name), {}};
        for (const std::string& column : columnsOf(database, table.name)) {
            if (readStore::columnOf(there, column) < 0)
                problems.push_back(fmt::format("{}: {} has no column for {}.{}", source.file, target.file,
                                               table.name, column));
        }
    }
}

/// Two subjects whose names differ by a number at the end can come to one identifier: kim1 in trial 12, kim
/// in trial 112.
void compareIdentifiers(const Target& target, const Holding& own, const Source& source,
                        std::vector<std::string>& problems) {
    std::set<std::pair<std::string, std::string>> told;
    for (const auto& [beginning, owner] : own.owners) {
        const auto other = target.holding.owners.find(beginning);
        if (other == target.holding.owners.end() || other->second == owner) continue;
        if (!told.emplace(owner, other->second).second) continue;
        problems.push_back(fmt::format("{}: {} and {} of {} have the same identifiers {}...", source.file,
                                       own.names.at(owner), target.holding.names.at(other->second),
                                       target.origins.at(other->second), beginning));
    }
}

/// Enters what the source adds, unless something is against it.
void compare(Target& target, Source& source, Outcome& outcome) {
    const engine::Database database = readStore::open(source.copy);
    compareMarks(target, *database, source, outcome.problems);
    compareConfiguration(target, *database, source, outcome.problems);
    compareColumns(target, *database, source, outcome.problems);
    Holding own = subjectRows::read(*database);
    compareIdentifiers(target, own, source, outcome.problems);
    for (const auto& [owner, name] : own.names) {
        const auto there = target.holding.prints.find(owner);
        if (there == target.holding.prints.end()) {
            source.added.insert(owner);
            target.origins[owner] = source.file;
        } else if (there->second != own.prints[owner]) {
            outcome.problems.push_back(fmt::format("{}: subject {} stands in {} too, with other rows",
                                                   source.file, name, target.origins[owner]));
        }
    }
    outcome.notes.push_back(fmt::format("{}: {} added, {} there already", source.file, source.added.size(),
                                        own.names.size() - source.added.size()));
    target.holding.names.merge(own.names);
    target.holding.prints.merge(own.prints);
    target.holding.owners.merge(own.owners);
}

void copyRows(const Source& source, engine::Connection& target) {
    const engine::Database database = readStore::open(source.copy);
    Holding own;
    subjectRows::each(
        *database, own, [&](const schema::Table& table, const engine::Rows& slice, auto owners) {
            std::vector<std::vector<engine::Value>> rows;
            for (std::size_t i = 0; i < owners.size(); ++i) {
                if (source.added.contains(owners[i]))
                    rows.emplace_back(slice.rows[i].begin() + 1, slice.rows[i].end());
            }
            const std::vector<std::string> columns(slice.columns.begin() + 1, slice.columns.end());
            engine::executeAll(target, dialect::insertion(std::string(table.name), columns), rows);
        });
    simulated::unite(*database, target);
}

/// `path` is the file that grows, `file` its name for the messages.
Outcome mergeInto(const std::string& path, const std::string& file, std::vector<Source>& sources,
                  bool simulatedToo, const Progress& progress) {
    const engine::Database database = engine::open(path, store::password, engine::Access::Write);
    engine::execute(*database, "BEGIN IMMEDIATE");
    Target target{file, *database,   subjectRows::read(*database), configurationOf(*database),
                  {},   simulatedToo};
    for (const auto& [owner, name] : target.holding.names) target.origins[owner] = file;
    const double steps = 2.0 * static_cast<double>(sources.size()) + 1;
    double step = 0;
    Outcome outcome;
    for (Source& source : sources) {
        progress(++step / steps);
        try {
            compare(target, source, outcome);
        } catch (const engine::Error& error) {
            throw std::runtime_error(fmt::format("{}: {}", source.file, error.text));
        }
    }
    if (!outcome.problems.empty()) return {outcome.problems, {}};  // the end of the connection takes all back
    for (const Source& source : sources) {
        progress(++step / steps);
        copyRows(source, *database);
    }
    engine::execute(*database, "COMMIT");
    return outcome;
}

}  // namespace

Outcome merge(const std::vector<std::string>& files, const std::string& into, bool simulatedToo,
              const Progress& progress) {
    std::error_code failed;
    const bool fresh = !fs::exists(into, failed);
    const std::string place = fresh ? draft::freshPlace(into) : fs::canonical(into).string();
    const OnLeave unlocked = files::lockFolder(fs::path(place).parent_path().string());
    if (fresh) draft::freshPlace(into);  // another program may have had the folder until now
    std::vector<std::string> drafts;
    const OnLeave cleared([&] { std::ranges::for_each(drafts, draft::remove); });
    const auto copied = [&](const std::string& file, const std::string& name) {
        drafts.push_back(draft::of(name));
        draft::remove(drafts.back());
        draft::copyStore(file, drafts.back());
        return drafts.back();
    };
    // A new store is the first one's copy, which so has been merged.
    const std::string path = fresh ? copied(files.front(), place) : place;
    std::vector<Source> sources;
    for (auto file = files.begin() + (fresh ? 1 : 0); file != files.end(); ++file)
        sources.push_back({*file, copied(*file, fmt::format("{}.{}", place, sources.size() + 1))});
    try {
        Outcome outcome = mergeInto(path, fresh ? files.front() : into, sources, simulatedToo, progress);
        if (!fresh || !outcome.problems.empty()) return outcome;
        outcome.notes.insert(outcome.notes.begin(), files.front() + ": the new store begins as its copy");
        files::moveIntoPlace(path, place);
        return outcome;
    } catch (const engine::Error& error) {
        throw std::runtime_error(fmt::format("{}: {}", into, error.text));
    }
}

}  // namespace mergeStores
