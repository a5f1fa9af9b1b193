#include "study/simulated.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "platform/text.h"
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

}  // namespace

bool isMark(std::string_view table) {
    return text::folded(table) == text::folded(runs) || text::folded(table) == text::folded(subjects);
}

bool isMarked(engine::Connection& database) { return storeTable::exists(database, runs); }

void mark(engine::Connection& database) {
    std::vector<std::string> run = runColumns();
    run.emplace_back("Began");
    make(database, runs, run);
    make(database, subjects, subjectColumns());
}

std::vector<std::string> runColumns() {
    return {"Program", "Policies", "Scenarios", "Seed", "Subjects", "Trials", "Parameters", "Shard"};
}

std::vector<std::string> subjectColumns() {
    return {"Subject", "Policy", "Setting", "Seed", "Number", "Ended"};
}

}  // namespace simulated
