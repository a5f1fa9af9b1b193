#include "study/readTables.h"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <span>

#include "platform/files.h"
#include "platform/text.h"
#include "study/csv.h"
#include "study/fieldValue.h"
#include "study/readStore.h"

namespace readTables {

namespace fs = std::filesystem;

namespace {

constexpr int mostDiseaseColumns = 400;

/// One file on its way in.
struct Sheet {
    Tables& tables;
    std::string file;
    const schema::Table& table;
    storeTable::Content content = {};
    std::size_t unnamed = 0;  ///< columns at the end of the first line that have no name

    void complain(int line, const std::string& reason) const {
        tables.problems.push_back(fmt::format("{}, line {}: {}", file, line, reason));
    }
};

bool ofDiseases(const schema::Table& table) { return !table.series.empty() && !table.series.front().fixed; }

bool has(const storeTable::Content& content, const std::string& name) {
    return storeTable::columnOf(content, name) >= 0;
}

/// Spreadsheets leave columns without a name at the right of a table.
std::size_t withoutUnnamed(Sheet& sheet, const csv::Line& line) {
    std::size_t named = line.fields.size();
    while (named > 0 && line.fields[named - 1].text.empty()) --named;
    sheet.unnamed = line.fields.size() - named;
    if (named > 0 && sheet.unnamed > 0)
        sheet.tables.notes.push_back(fmt::format("{}, line {}: columns without a name are skipped ({})",
                                                 sheet.file, line.number, sheet.unnamed));
    if (named == 0) sheet.complain(line.number, "the first line must name the columns");
    return named;
}

void readHeader(Sheet& sheet, const csv::Line& line) {
    for (const csv::Field& field : std::span(line.fields).first(withoutUnnamed(sheet, line))) {
        const std::string name = text::trim(field.text);
        const int number = schema::seriesNumber(sheet.table, name);
        if (number > mostDiseaseColumns) {
            sheet.complain(line.number, fmt::format("column {}: a store holds at most {} diseases", name,
                                                    mostDiseaseColumns));
            continue;
        }
        const std::optional<schema::NamedColumn> known = schema::findColumn(sheet.table, name);
        const schema::NamedColumn column =
            known.value_or(schema::NamedColumn{name, schema::ColumnType::Text});
        if (!known) {
            sheet.complain(line.number, fmt::format("{} has no column \"{}\"", sheet.table.name, name));
        } else if (has(sheet.content, column.name)) {
            sheet.complain(line.number, fmt::format("column {} stands twice", column.name));
        }
        sheet.content.columns.push_back(column);
        if (ofDiseases(sheet.table)) sheet.tables.mostDiseases = std::max(sheet.tables.mostDiseases, number);
    }
}

/// The scenarios of the rows, each with its largest `Count`; 0 in a table without that column.
std::map<std::string, int> countsOf(const storeTable::Content& content) {
    std::map<std::string, int> counts;
    const int setting = storeTable::columnOf(content, "Setting");
    const int number = storeTable::columnOf(content, "Count");
    for (const std::vector<engine::Value>& row : content.rows) {
        const auto at = [&](int column) {
            return column < 0 ? engine::Value() : row[static_cast<std::size_t>(column)];
        };
        int& most = counts[text::folded(readStore::textOf(at(setting)))];
        const engine::Value value = at(number);
        if (const auto* count = std::get_if<std::int64_t>(&value))
            most = std::max(most, static_cast<int>(*count));
    }
    return counts;
}

void readRow(Sheet& sheet, const csv::Line& line) {
    const std::vector<schema::NamedColumn>& columns = sheet.content.columns;
    if (line.fields.size() > columns.size() && line.fields.size() <= columns.size() + sheet.unnamed) {
        for (const csv::Field& field : std::span(line.fields).subspan(columns.size())) {
            if (!field.text.empty())
                sheet.complain(line.number,
                               fmt::format("\"{}\" stands in a column without a name", field.text));
        }
    } else if (line.fields.size() != columns.size()) {
        return sheet.complain(line.number, fmt::format("{} fields where the first line names {} columns",
                                                       line.fields.size(), columns.size()));
    }
    std::vector<engine::Value>& row = sheet.content.rows.emplace_back();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const std::string& text = line.fields[i].text;
        const std::string problem = fieldValue::read(line.fields[i], columns[i].type, row.emplace_back());
        if (!problem.empty())
            sheet.complain(line.number, fmt::format("column {}: \"{}\" {}", columns[i].name, text, problem));
    }
}

/// A file is UTF-8 or, as old programs write it, Windows-1252 as a whole: its first line with more than plain
/// letters decides. A later line of the other kind would be changed on its way into the store, and so would a
/// sign that neither has.
void checkEncoding(const Sheet& sheet, std::string_view bytes) {
    std::optional<bool> fileIsUtf8;
    int number = 1;
    for (std::size_t at = 0; at < bytes.size(); ++number) {
        const auto [end, next] = text::lineEnd(bytes, at);
        const std::string_view line = bytes.substr(at, end - at);
        at = next;
        if (line.find('\0') != std::string_view::npos)
            return sheet.complain(number, "holds a zero byte; save the file as UTF-8 text");
        if (std::ranges::all_of(line, [](char c) { return static_cast<std::uint8_t>(c) < 0x80; })) continue;
        const bool isUtf8 = text::isUtf8(line);
        if (!isUtf8 && text::fromFileBytes(line).find("\uFFFD") != std::string::npos)
            return sheet.complain(number, "is no UTF-8 text; save the file as UTF-8");
        if (fileIsUtf8.value_or(isUtf8) != isUtf8)
            return sheet.complain(number,
                                  "is in another encoding than the lines above; save the file as UTF-8");
        fileIsUtf8 = isUtf8;
    }
}

/// Spreadsheets leave rows of nothing but separators below a table.
void readRows(Sheet& sheet, std::span<const csv::Line> lines) {
    int skipped = 0;
    int first = 0;
    for (const csv::Line& line : lines) {
        if (!line.isNothing()) {
            readRow(sheet, line);
        } else if (skipped++ == 0) {
            first = line.number;
        }
    }
    if (skipped > 0)
        sheet.tables.notes.push_back(
            fmt::format("{}, line {}: rows without a value are skipped ({})", sheet.file, first, skipped));
}

void readTable(Tables& tables, const fs::path& path) {
    const std::string file = path.filename().string();
    const schema::Table* table = schema::find(path.stem().string());
    if (table == nullptr) {
        tables.problems.push_back(
            fmt::format("{}, line 1: there is no table \"{}\"", file, path.stem().string()));
        return;
    }
    if (tables.contents.contains(table->name)) {
        tables.problems.push_back(
            fmt::format("{}, line 1: another file of the folder is {} too", file, table->name));
        return;
    }
    errno = 0;
    const std::optional<std::string> bytes = files::tryRead(path.string());
    if (!bytes) {
        const std::string reason = errno == 0 ? "it is no file" : std::generic_category().message(errno);
        tables.problems.push_back(fmt::format("{}: cannot be read: {}", file, reason));
        return;
    }
    Sheet sheet{tables, file, *table};
    try {
        checkEncoding(sheet, *bytes);
        const std::vector<csv::Line> lines = csv::parse(text::fromFileBytes(*bytes));
        if (lines.empty()) return sheet.complain(1, "the first line must name the columns");
        readHeader(sheet, lines.front());
        readRows(sheet, std::span(lines).subspan(1));
        tables.contents[table->name] = std::move(sheet.content);
    } catch (const csv::Problem& problem) {
        sheet.complain(problem.line, problem.text);
    }
}

/// How many of the numbered columns the program reads: as many as the largest `Count` says. For a scenario's
/// treatments it goes by the `Count` of its symptoms.
int columnsInUse(const Tables& tables, const std::string_view table) {
    const auto counts = tables.contents.find(table == "tblTreatments" ? "tblDiseaseSymptom" : table);
    int used = 1;
    if (counts == tables.contents.end()) return used;
    const std::map<std::string, int> known = countsOf(counts->second);
    for (const auto& [scenario, own] : countsOf(tables.contents.at(table))) {
        const auto count = known.find(scenario);
        if (count != known.end()) used = std::max(used, count->second);
    }
    return used;
}

}  // namespace

void checkColumns(Tables& tables) {
    for (const schema::Table& table : schema::tables()) {
        const auto content = tables.contents.find(table.name);
        if (!table.isConfiguration() || content == tables.contents.end()) continue;
        const int used = columnsInUse(tables, table.name);
        for (const schema::NamedColumn& column : schema::columnsOf(table, used)) {
            if (schema::seriesNumber(table, column.name) <= used && !has(content->second, column.name))
                tables.problems.push_back(
                    fmt::format("{}.csv, line 1: column {} is missing", table.name, column.name));
        }
    }
}

Tables readFiles(const std::string& folder) {
    Tables tables;
    std::error_code failed;
    std::vector<fs::path> paths;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, failed)) {
        if (text::folded(entry.path().extension().string()) == ".csv") paths.push_back(entry.path());
    }
    if (failed) {
        tables.problems.push_back(fmt::format("{}: {}", folder, failed.message()));
        return tables;
    }
    std::ranges::sort(paths);
    for (const fs::path& path : paths) readTable(tables, path);
    return tables;
}

Tables read(const std::string& folder) {
    Tables tables = readFiles(folder);
    checkColumns(tables);
    if (!tables.problems.empty()) return tables;
    for (const schema::Table& table : schema::tables()) {
        if (table.isConfiguration() && !tables.contents.contains(table.name))
            tables.problems.push_back(fmt::format("{}: the file {}.csv is missing", folder, table.name));
    }
    return tables;
}

}  // namespace readTables
