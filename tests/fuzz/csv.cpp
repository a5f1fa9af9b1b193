// A table as its CSV file: the first line of an input is the table's name, the rest are the bytes of the
// file. What is taken gives itself when it is written and read, and what is refused names file and line.
#include "study/csv.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "study/readTables.h"
#include "study/writeTables.h"
#include "tests/fuzz/frame.h"

namespace {

namespace fs = std::filesystem;

std::string written(const csv::Line& line) {
    std::string all;
    for (const csv::Field& field : line.fields)
        all += (&field == &line.fields[0] ? "" : ",") + (field.isNothing() ? "" : csv::written(field.text));
    return all + '\n';
}

/// Whatever the lines hold, each comes back.
void holdLines(const std::string& bytes) {
    std::vector<csv::Line> lines;
    try {
        lines = csv::parse(bytes);
    } catch (const csv::Problem&) {
        return;
    }
    for (const csv::Line& line : lines) {
        const std::vector<csv::Line> again = csv::parse(written(line));
        fuzz::hold(again.size() == 1 && std::ranges::equal(again[0].fields, line.fields, {},
                                                           &csv::Field::text, &csv::Field::text),
                   "a line comes back: " + written(line));
    }
}

/// From a folder of this process, with the one file in it.
readTables::Tables read(const std::string& name, const std::string& bytes) {
    static const fs::path folder = fs::temp_directory_path() / ("tavix-fuzz-" + std::to_string(getpid()));
    fs::create_directories(folder);
    std::ofstream(folder / (name + ".csv"), std::ios::binary) << bytes;
    readTables::Tables tables = readTables::readFiles(folder.string());
    readTables::checkColumns(tables);
    fs::remove_all(folder);
    return tables;
}

void holdPlace(const std::string& problem, const std::string& name, std::ptrdiff_t lines) {
    const std::string start = name + ".csv, line ";
    const int line = problem.starts_with(start) ? std::atoi(problem.c_str() + start.size()) : 0;
    fuzz::hold(line >= 1 && line <= lines, problem + " (names no line of the file)");
}

}  // namespace

void fuzz::tryInput(const std::string& input) {
    const std::size_t end = std::min(input.find('\n'), input.size());
    const schema::Table* table = schema::find(input.substr(0, end));
    if (table == nullptr) return;
    const std::string name(table->name);
    const std::string bytes = input.substr(std::min(end + 1, input.size()));
    holdLines(bytes);
    const readTables::Tables tables = read(name, bytes);
    const auto lines = 1 + std::ranges::count_if(bytes, [](char c) { return c == '\n' || c == '\r'; });
    for (const std::string& problem : tables.problems) holdPlace(problem, name, lines);
    if (!tables.problems.empty()) return;

    const storeTable::Content& content = tables.contents.at(table->name);
    const std::string whole = writeTables::bytesOf(content);
    const readTables::Tables again = read(name, whole);
    hold(again.problems.empty() && again.notes.empty(), "what was written is taken as it is: " + whole);
    hold(again.contents.at(table->name).rows == content.rows, "what was written comes back: " + whole);
}
