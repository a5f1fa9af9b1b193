#include "study/readTables.h"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <optional>

#include "platform/files.h"
#include "platform/numberText.h"
#include "platform/text.h"
#include "study/csv.h"

namespace readTables {

namespace fs = std::filesystem;

namespace {

constexpr int mostDiseaseColumns = 400;

/// One file on its way in.
struct Sheet {
    Tables& tables;
    std::string file;
    const schema::Table& table;
    Content content = {};

    void complain(int line, const std::string& reason) const {
        tables.problems.push_back(fmt::format("{}, line {}: {}", file, line, reason));
    }
};

std::string wholeNumberProblem(double value, double least, double most, int bits) {
    if (value != std::floor(value)) return "is no whole number";
    if (value < least || value > most) return fmt::format("does not fit {} bits", bits);
    return {};
}

template <class T>
std::string rangeProblem(double value) {
    return wholeNumberProblem(value, std::numeric_limits<T>::min(), std::numeric_limits<T>::max(),
                              sizeof(T) * 8);
}

/// yyyy-mm-dd, and a day of the calendar.
bool isDate(const std::string& text) {
    constexpr std::string_view form = "dddd-dd-dd";
    if (text.size() != form.size()) return false;
    for (std::size_t i = 0; i < form.size(); ++i) {
        const bool digit = text[i] >= '0' && text[i] <= '9';
        if (form[i] == 'd' ? !digit : text[i] != form[i]) return false;
    }
    const auto number = [&](std::size_t at, std::size_t size) { return std::stoi(text.substr(at, size)); };
    return std::chrono::year_month_day(std::chrono::year(number(0, 4)),
                                       std::chrono::month(static_cast<unsigned>(number(5, 2))),
                                       std::chrono::day(static_cast<unsigned>(number(8, 2))))
        .ok();
}

/// Yes or no in the ways people write them: -1 or 0.
std::string truthProblem(const std::string& text, engine::Value& value) {
    const std::string word = text::folded(text);
    for (const char* yes : {"yes", "true", "1", "-1"}) {
        if (word == yes) value = std::int64_t{-1};
    }
    for (const char* no : {"no", "false", "0"}) {
        if (word == no) value = std::int64_t{0};
    }
    return std::holds_alternative<std::monostate>(value) ? "is neither yes nor no" : "";
}

std::string numberProblem(const std::string& text, schema::ColumnType type, engine::Value& value) {
    if (!numberText::isNumeric(text)) return "is no number";
    const double number = numberText::toNumber(text);
    if (!std::isfinite(number)) return "is too large";
    if (type == schema::ColumnType::Float) {
        value = number;
        return {};
    }
    const std::string problem = type == schema::ColumnType::Short ? rangeProblem<std::int16_t>(number)
                                                                  : rangeProblem<std::int32_t>(number);
    if (problem.empty()) value = static_cast<std::int64_t>(number);
    return problem;
}

/// Turns a field into the column's value; says why it cannot be one. Nothing is an empty value, two quotes
/// are an empty text.
std::string convert(const csv::Field& field, schema::ColumnType type, engine::Value& value) {
    using enum schema::ColumnType;
    value = {};
    if (field.isNothing()) return {};
    switch (type) {
        case Short:
        case Long:
        case Float:
        case NumberFlag: return numberProblem(field.text, type, value);
        case YesNo: return truthProblem(field.text, value);
        case Date: value = field.text; return isDate(field.text) ? "" : "is no date (yyyy-mm-dd)";
        case NumberOrText:
        case Text: break;
    }
    value = field.text;
    return {};
}

/// The schema's column of that name; the name as the schema writes it.
bool findColumn(const schema::Table& table, const std::string& name, schema::NamedColumn& found) {
    const int number = schema::seriesNumber(table, name);
    for (const schema::NamedColumn& column : schema::columnsOf(table, number)) {
        if (text::folded(column.name) != text::folded(name)) continue;
        found = column;
        return true;
    }
    return false;
}

bool ofDiseases(const schema::Table& table) { return !table.series.empty() && !table.series.front().fixed; }

bool has(const Content& content, const std::string& name) {
    return std::ranges::find(content.columns, name, &schema::NamedColumn::name) != content.columns.end();
}

void readHeader(Sheet& sheet, const csv::Line& line) {
    for (const csv::Field& field : line.fields) {
        const std::string name = text::trim(field.text);
        const int number = schema::seriesNumber(sheet.table, name);
        if (number > mostDiseaseColumns) {
            sheet.complain(line.number, fmt::format("column {}: a store holds at most {} diseases", name,
                                                    mostDiseaseColumns));
            continue;
        }
        schema::NamedColumn column{name, schema::ColumnType::Text};
        if (!findColumn(sheet.table, name, column)) {
            sheet.complain(line.number, fmt::format("{} has no column \"{}\"", sheet.table.name, name));
        } else if (has(sheet.content, column.name)) {
            sheet.complain(line.number, fmt::format("column {} stands twice", column.name));
        }
        sheet.content.columns.push_back(column);
        if (ofDiseases(sheet.table)) sheet.tables.mostDiseases = std::max(sheet.tables.mostDiseases, number);
    }
}

void noteScenario(Content& content) {
    std::string name;
    int count = 0;
    for (std::size_t i = 0; i < content.columns.size(); ++i) {
        const engine::Value& value = content.rows.back()[i];
        const auto* text = std::get_if<std::string>(&value);
        if (content.columns[i].name == "Setting" && text != nullptr) name = text::folded(*text);
        const auto* number = std::get_if<std::int64_t>(&value);
        if (content.columns[i].name == "Count" && number != nullptr) count = static_cast<int>(*number);
    }
    int& most = content.scenarios[name];
    most = std::max(most, count);
}

void readRow(Sheet& sheet, const csv::Line& line) {
    const std::vector<schema::NamedColumn>& columns = sheet.content.columns;
    if (line.fields.size() != columns.size()) {
        return sheet.complain(line.number, fmt::format("{} fields where the first line names {} columns",
                                                       line.fields.size(), columns.size()));
    }
    std::vector<engine::Value>& row = sheet.content.rows.emplace_back();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const std::string& text = line.fields[i].text;
        const std::string problem = convert(line.fields[i], columns[i].type, row.emplace_back());
        if (!problem.empty())
            sheet.complain(line.number, fmt::format("column {}: \"{}\" {}", columns[i].name, text, problem));
    }
    noteScenario(sheet.content);
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

/// Spreadsheets leave rows of nothing but commas below a table.
void readRows(Sheet& sheet, std::span<const csv::Line> lines) {
    int skipped = 0;
    int first = 0;
    for (const csv::Line& line : lines) {
        if (!line.isNothingButCommas()) {
            readRow(sheet, line);
        } else if (skipped++ == 0) {
            first = line.number;
        }
    }
    if (skipped > 0)
        sheet.tables.notes.push_back(fmt::format("{}, line {}: rows of nothing but commas are skipped ({})",
                                                 sheet.file, first, skipped));
}

void readTable(Tables& tables, const fs::path& path) {
    const std::string file = path.filename().string();
    const schema::Table* table = schema::find(path.stem().string());
    if (table == nullptr) {
        tables.problems.push_back(
            fmt::format("{}, line 1: there is no table \"{}\"", file, path.stem().string()));
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
    for (const auto& [scenario, own] : tables.contents.at(table).scenarios) {
        const auto count = counts->second.scenarios.find(scenario);
        if (count != counts->second.scenarios.end()) used = std::max(used, count->second);
    }
    return used;
}

/// The program reads every column of the tables of a study. A table without a file is told elsewhere.
void checkColumns(Tables& tables) {
    for (const schema::Table& table : schema::tables()) {
        const auto content = tables.contents.find(table.name);
        if (table.kind != schema::Kind::Configuration || content == tables.contents.end()) continue;
        const int used = columnsInUse(tables, table.name);
        for (const schema::NamedColumn& column : schema::columnsOf(table, used)) {
            if (schema::seriesNumber(table, column.name) <= used && !has(content->second, column.name))
                tables.problems.push_back(
                    fmt::format("{}.csv, line 1: column {} is missing", table.name, column.name));
        }
    }
}

}  // namespace

Tables read(const std::string& folder) {
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
    checkColumns(tables);
    if (!tables.problems.empty()) return tables;
    for (const schema::Table& table : schema::tables()) {
        if (table.kind == schema::Kind::Configuration && !tables.contents.contains(table.name))
            tables.problems.push_back(fmt::format("{}: the file {}.csv is missing", folder, table.name));
    }
    return tables;
}

}  // namespace readTables
