#include "study/simulated.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <set>

#include "platform/text.h"
#include "store/layer/dialect.h"
#include "study/readStore.h"
#include "study/rowStream.h"
#include "study/storeTable.h"

namespace simulated {

namespace {

void make(engine::Connection& database, const char* table, std::vector<std::string> columns) {
    if (storeTable::exists(database, table)) return;
    for (std::string& column : columns) {
        const bool number =
            column == "Seed" || column == "Subjects" || column == "Trials" || column == "Number";
        column += number ? " INTEGER" : " TEXT COLLATE NOCASE";
    }
    engine::execute(database, fmt::format("CREATE TABLE {} ({})", table, fmt::join(columns, ", ")));
}

/// Adds the rows that are not there by their first `key` columns.
void uniteTable(engine::Connection& from, engine::Connection& to, const char* table, std::size_t key) {
    const auto keyOf = [key](const std::vector<engine::Value>& row) {
        std::string all;
        for (std::size_t i = 0; i < key; ++i) all += readStore::textOf(row[i]) + '\n';
        return text::folded(all);
    };
    std::set<std::string> there;
    for (const auto& row : readStore::table(to, table).rows) there.insert(keyOf(row));
    engine::Rows source = readStore::table(from, table);
    std::erase_if(source.rows, [&](const auto& row) { return !there.insert(keyOf(row)).second; });
    engine::executeAll(to, dialect::insertion(table, source.columns), source.rows);
}

}  // namespace

bool isMark(std::string_view table) {
    return text::folded(table) == text::folded(runs) || text::folded(table) == text::folded(subjects);
}

bool isMarked(engine::Connection& database) { return storeTable::exists(database, runs); }

std::unordered_map<std::string, Subject> subjectsOf(engine::Connection& database) {
    std::unordered_map<std::string, Subject> all;
    if (!storeTable::exists(database, subjects)) return all;
    rowStream::each(database, subjects, {"Subject", "Policy", "Ended"}, [&](const auto& row) {
        all[text::folded(readStore::textOf(row[0]))] = {readStore::textOf(row[1]), readStore::textOf(row[2])};
    });
    return all;
}

void mark(engine::Connection& database) {
    std::vector<std::string> run = runColumns();
    run.emplace_back("Began");
    make(database, runs, run);
    make(database, subjects, subjectColumns());
}

void unite(engine::Connection& from, engine::Connection& to) {
    if (!isMarked(from)) return;
    mark(to);
    uniteTable(from, to, runs, runColumns().size());
    uniteTable(from, to, subjects, 1);
}

std::vector<std::string> runColumns() {
    return {"Program", "Policies", "Scenarios", "Seed", "Subjects", "Trials", "Parameters", "Shard"};
}

std::vector<std::string> subjectColumns() {
    return {"Subject", "Policy", "Setting", "Seed", "Number", "Ended"};
}

}  // namespace simulated
