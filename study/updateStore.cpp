#include "study/updateStore.h"

#include <fmt/format.h>

#include <filesystem>

#include "store/layer/database.h"
#include "study/keptTables.h"
#include "study/openSessions.h"
#include "study/readTables.h"
#include "study/storedWords.h"
#include "study/writeTables.h"

namespace updateStore {

namespace {

storeTable::Content inForce(engine::Connection& database, const schema::Table& table) {
    std::vector<std::string> others;
    return storeTable::read(database, table, std::string(table.name), others);
}

/// The new tables have to fit those that stay.
std::vector<std::string> problemsWithTheRest(engine::Connection& database, readTables::Tables files) {
    for (const schema::Table& table : schema::tables()) {
        if (table.isConfiguration() && !files.contents.contains(table.name))
            files.contents[table.name] = inForce(database, table);
    }
    readTables::checkColumns(files);
    return files.problems;
}

std::string putIn(engine::Connection& database, const schema::Table& table, const readTables::Tables& files,
                  const std::string& date) {
    const std::string name(table.name);
    const storeTable::Content& content = files.contents.at(table.name);
    std::string kept;
    if (!table.isConfiguration() && storeTable::exists(database, name)) {
        storeTable::widen(database, table, content);
        return name + ": columns that were missing are there";
    }
    if (storeTable::exists(database, name)) {
        if (writeTables::bytesOf(inForce(database, table)) == writeTables::bytesOf(content))
            return name + ": the same already";
        kept = fmt::format("; the old one is kept as {}", keptTables::keep(database, name, date).name);
    }
    storeTable::make(database, table, files.mostDiseases);
    storeTable::widen(database, table, content);
    storeTable::fill(database, table, content);
    return fmt::format("{}: replaced ({} rows){}", name, content.rows.size(), kept);
}

void change(engine::Connection& database, const readTables::Tables& files, const Judge& judge, Wish wish,
            Outcome& outcome) {
    engine::lock(database);
    if (!wish.closed) {
        for (const std::string& line : openSessions::young(database)) outcome.problems.push_back(line);
        outcome.inUse = !outcome.problems.empty();
        if (outcome.inUse)
            outcome.problems.push_back(fmt::format("who has rows of the last {} minutes may be at work",
                                                   openSessions::youngMinutes));
    }
    for (std::string& problem : judge(database)) outcome.problems.push_back(problem);
    if (!outcome.problems.empty()) return;
    const std::string date = openSessions::moment(0);
    for (const schema::Table& table : schema::tables()) {
        if (files.contents.contains(table.name)) outcome.done.push_back(putIn(database, table, files, date));
    }
    outcome.misfits = storedWords::misfits(database);
    if (!wish.dryRun) engine::execute(database, "COMMIT");
}

}  // namespace

readTables::Tables filesOf(const std::string& folder) {
    readTables::Tables files = readTables::readFiles(folder);
    for (const auto& [name, content] : files.contents) {
        if (!schema::find(name)->isConfiguration())
            files.problems.push_back(
                fmt::format("{}.csv: results stay as they are; take the file away", name));
    }
    if (files.problems.empty() && files.contents.empty())
        files.problems.push_back(fmt::format("{}: holds no table", folder));
    return files;
}

Outcome replace(const std::string& file, const readTables::Tables& tables, const Judge& judge, Wish wish) {
    Outcome outcome;
    outcome.notes = tables.notes;
    std::error_code failed;
    if (!std::filesystem::exists(file, failed)) {
        outcome.problems.push_back(fmt::format("{}: there is no such file", file));
        return outcome;
    }
    try {
        const engine::Database database = engine::open(file, store::password, engine::Access::Write);
        change(*database, tables, judge, wish, outcome);
    } catch (const engine::Error& error) {
        const bool locked =
            error.number == engine::couldNotLockFile || error.number == engine::lockedByAnother;
        outcome.problems.push_back(fmt::format("{}: {}", file, locked ? "is in use" : error.text));
    }
    return outcome;
}

Outcome update(const std::string& file, const std::string& folder, Wish wish) {
    const readTables::Tables files = filesOf(folder);
    if (!files.problems.empty()) return {.problems = files.problems, .notes = files.notes};
    return replace(
        file, files, [&](engine::Connection& database) { return problemsWithTheRest(database, files); },
        wish);
}

}  // namespace updateStore
