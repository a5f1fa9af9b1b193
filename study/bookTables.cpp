#include "study/bookTables.h"

#include <fmt/format.h>

#include <filesystem>
#include <utility>

#include "store/layer/schema.h"
#include "study/readTables.h"
#include "study/updateStore.h"

namespace bookTables {

namespace {

constexpr std::size_t mostRows = 10000;

}  // namespace

writeTables::Outcome write(const book::Book& book, const std::string& folder, bool force) {
    std::map<std::string, storeTable::Content> tables;
    std::vector<std::string> notes;
    for (const schema::Table& table : schema::tables()) {
        const book::Sheet& sheet = book::sheetOf(book, table.name);
        if (!table.isConfiguration() || !sheet.there) continue;
        std::vector<std::string> others;
        tables[sheet.name] = storeTable::of(table, sheet.content, others);
        for (const std::string& other : others)
            notes.push_back(
                fmt::format("{}: column {} is none of a study's and is left out", table.name, other));
    }
    try {
        writeTables::Outcome outcome = writeTables::write(tables, folder, force);
        if (outcome.problems.empty()) outcome.notes.insert(outcome.notes.end(), notes.begin(), notes.end());
        return outcome;
    } catch (const std::filesystem::filesystem_error& error) {
        const std::string reason = error.code() ? error.code().message() : "cannot be written";
        return {{fmt::format("{}: {}", error.path1().string(), reason)}, false, {}};
    }
}

Taken take(book::Book& book, const std::string& folder) {
    const readTables::Tables files = updateStore::filesOf(folder);
    Taken taken{files.problems, files.notes};
    for (const auto& [name, content] : files.contents) {
        if (content.rows.size() > mostRows)
            taken.problems.push_back(fmt::format("{}.csv: {} rows; {} are the most for a table of a study",
                                                 name, content.rows.size(), mostRows));
    }
    if (!taken.problems.empty()) return taken;
    for (const auto& [name, content] : files.contents) {
        const book::Sheet& sheet = book::sheetOf(book, name);
        std::vector<std::string> others;
        if (sheet.there && writeTables::bytesOf(storeTable::of(*schema::find(name), sheet.content, others)) ==
                               writeTables::bytesOf(content))
            continue;
        book::putTable(book, sheet.name, content);
        taken.tables.emplace_back(name);
    }
    return taken;
}

}  // namespace bookTables
