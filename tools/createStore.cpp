#include "tools/createStore.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <map>

#include "platform/files.h"
#include "platform/numberText.h"
#include "platform/text.h"
#include "store/layer/database.h"
#include "store/layer/dialect.h"
#include "store/layer/engine.h"
#include "store/layer/schema.h"
#include "tools/csv.h"

namespace createStore {

namespace fs = std::filesystem;

namespace {

constexpr int mostDiseaseColumns = 400;

/// A table's rows as they will go in.
struct Content {
    std::vector<schema::NamedColumn> columns;
    std::vector<std::vector<engine::Value>> rows;
};

struct Import {
    std::vector<std::string> problems;
    std::map<std::string_view, Content> contents;  // by the table's name in the schema
    int mostDiseases = 0;

    void complain(const std::string& file, int line, const std::string& reason) {
        problems.push_back(fmt::format("{}, line {}: {}", file, line, reason));
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

bool isDate(const std::string& text) {
    constexpr std::string_view form = "dddd-dd-dd";
    if (text.size() != form.size()) return false;
    for (std::size_t i = 0; i < form.size(); ++i) {
        const bool digit = text[i] >= '0' && text[i] <= '9';
        if (form[i] == 'd' ? !digit : text[i] != form[i]) return false;
    }
    return true;
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

/// Turns a field into the column's value; says why it cannot be one. An empty field is an empty value.
std::string convert(const std::string& text, schema::ColumnType type, engine::Value& value) {
    using enum schema::ColumnType;
    value = {};
    if (text.empty()) return {};
    switch (type) {
        case Short:
        case Long:
        case Float:
        case NumberFlag: return numberProblem(text, type, value);
        case YesNo: return truthProblem(text, value);
        case Date: value = text; return isDate(text) ? "" : "is no date (yyyy-mm-dd)";
        case NumberOrText:
        case Text: break;
    }
    value = text;
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

void readHeader(Import& import, const schema::Table& table, const std::string& file, const csv::Line& line,
                Content& content) {
    for (const std::string& written : line.fields) {
        const std::string name = text::trim(written);
        if (schema::seriesNumber(table, name) > mostDiseaseColumns) {
            import.complain(
                file, line.number,
                fmt::format("column {}: a store holds at most {} diseases", name, mostDiseaseColumns));
            continue;
        }
        schema::NamedColumn column{name, schema::ColumnType::Text};
        if (!findColumn(table, name, column)) {
            import.complain(file, line.number, fmt::format("{} has no column \"{}\"", table.name, name));
        }
        const auto same = [&](const schema::NamedColumn& other) { return other.name == column.name; };
        if (std::any_of(content.columns.begin(), content.columns.end(), same)) {
            import.complain(file, line.number, fmt::format("column {} stands twice", column.name));
        }
        content.columns.push_back(column);
        const bool ofDiseases = !table.series.empty() && !table.series.front().fixed;
        if (ofDiseases)
            import.mostDiseases = std::max(import.mostDiseases, schema::seriesNumber(table, name));
    }
}

void readRow(Import& import, const std::string& file, const csv::Line& line, Content& content) {
    if (line.fields.size() != content.columns.size()) {
        import.complain(file, line.number,
                        fmt::format("{} fields where the first line names {} columns", line.fields.size(),
                                    content.columns.size()));
        return;
    }
    std::vector<engine::Value>& row = content.rows.emplace_back();
    for (std::size_t i = 0; i < line.fields.size(); ++i) {
        const std::string problem = convert(line.fields[i], content.columns[i].type, row.emplace_back());
        if (problem.empty()) continue;
        import.complain(
            file, line.number,
            fmt::format("column {}: \"{}\" {}", content.columns[i].name, line.fields[i], problem));
    }
}

/// Bytes that would change on their way into the store, by the first line that has them. A file is UTF-8 or,
/// as old programs write it, Latin-1 as a whole; a mixture, and signs that neither has, would be changed.
void checkEncoding(Import& import, const std::string& file, std::string_view bytes) {
    const bool whole = text::isUtf8(bytes);
    bool accented = false;  // a line before was UTF-8 beyond plain letters
    int number = 1;
    for (std::size_t start = 0; start < bytes.size(); ++number) {
        const std::string_view line = bytes.substr(start, bytes.find('\n', start) - start);
        start += line.size() + 1;
        const auto isControl = [](char c) {
            return static_cast<std::uint8_t>(c) >= 0x80 && static_cast<std::uint8_t>(c) < 0xA0;
        };
        const bool plain =
            std::all_of(line.begin(), line.end(), [](char c) { return static_cast<std::uint8_t>(c) < 0x80; });
        if (line.find('\0') != std::string_view::npos)
            return import.complain(file, number, "holds a zero byte; save the file as UTF-8 text");
        if (whole || plain) continue;
        const bool lineIsUtf8 = text::isUtf8(line);
        if (accented || std::any_of(line.begin(), line.end(), isControl))
            return import.complain(file, number, "is no UTF-8 text; save the file as UTF-8");
        accented = lineIsUtf8;
    }
}

void readTable(Import& import, const fs::path& path) {
    const std::string file = path.filename().string();
    const schema::Table* table = schema::find(path.stem().string());
    if (table == nullptr) {
        import.complain(file, 1, fmt::format("there is no table \"{}\"", path.stem().string()));
        return;
    }
    try {
        const std::string bytes = files::read(path.string());
        checkEncoding(import, file, bytes);
        const std::vector<csv::Line> lines = csv::parse(text::fromFileBytes(bytes));
        if (lines.empty()) {
            import.complain(file, 1, "the first line must name the columns");
            return;
        }
        Content& content = import.contents[table->name];
        readHeader(import, *table, file, lines.front(), content);
        for (std::size_t i = 1; i < lines.size(); ++i) readRow(import, file, lines[i], content);
    } catch (const csv::Problem& problem) {
        import.complain(file, problem.line, problem.text);
    } catch (const Fault& fault) {
        import.complain(file, 1, fault.text);
    }
}

Import readFolder(const std::string& folder) {
    Import import;
    std::error_code failed;
    std::vector<fs::path> paths;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, failed)) {
        if (text::folded(entry.path().extension().string()) == ".csv") paths.push_back(entry.path());
    }
    if (failed) import.problems.push_back(fmt::format("{}: {}", folder, failed.message()));
    std::sort(paths.begin(), paths.end());
    for (const fs::path& path : paths) readTable(import, path);
    if (!failed && import.problems.empty()) {
        for (const schema::Table& table : schema::tables()) {
            if (table.kind == schema::Kind::Configuration && !import.contents.contains(table.name)) {
                import.problems.push_back(fmt::format("{}: the file {}.csv is missing", folder, table.name));
            }
        }
    }
    return import;
}

std::string createStatement(const schema::Table& table, int diseases) {
    std::string columns;
    for (const schema::NamedColumn& column : schema::columnsOf(table, diseases)) {
        columns += fmt::format("{}{} {}", columns.empty() ? "" : ", ", dialect::quoted(column.name),
                               schema::declaration(column.type));
    }
    return fmt::format("CREATE TABLE {} ({})", dialect::quoted(std::string(table.name)), columns);
}

void insertRows(engine::Connection& database, const schema::Table& table, const Content& content) {
    std::vector<std::string> names;
    for (const schema::NamedColumn& column : content.columns) names.push_back(column.name);
    const std::string statement = dialect::insertion(std::string(table.name), names);
    for (const auto& row : content.rows) engine::execute(database, statement, row);
}

void writeStore(const Import& import, const std::string& file) {
    const engine::Database database = engine::create(file, store::password);
    engine::execute(*database, "BEGIN");
    for (const schema::Table& table : schema::tables()) {
        engine::execute(*database, createStatement(table, import.mostDiseases));
        const auto content = import.contents.find(table.name);
        if (content != import.contents.end()) insertRows(*database, table, content->second);
    }
    engine::execute(*database, "COMMIT");
}

/// A name beside the file that nothing has.
fs::path freeName(const fs::path& place) {
    std::error_code failed;
    fs::path draft = place.string() + ".new";
    for (int i = 2; fs::exists(draft, failed); ++i) draft = fmt::format("{}.new{}", place.string(), i);
    return draft;
}

}  // namespace

std::vector<std::string> create(const std::string& folder, const std::string& file, bool force) {
    std::error_code failed;
    const fs::path place = fs::weakly_canonical(fs::absolute(file, failed), failed);  // a link stays one
    if (file.empty() || failed) return {fmt::format("\"{}\" is no file's name", file)};
    if (fs::exists(place, failed)) {
        if (!fs::is_regular_file(place, failed)) return {file + " is no plain file and is not replaced"};
        if (!force) return {file + " exists already; --force replaces it"};
    }
    if (!fs::is_directory(place.parent_path(), failed))
        return {fmt::format("{}: there is no folder {}", file, place.parent_path().string())};
    const Import import = readFolder(folder);
    if (!import.problems.empty()) return import.problems;
    // Written beside the target and moved over it when complete, so that a broken attempt leaves no half
    // file.
    const fs::path draft = freeName(place);
    try {
        writeStore(import, draft.string());
    } catch (const engine::Error& error) {
        fs::remove(draft, failed);
        return {fmt::format("{}: {}", file, error.text)};
    }
    // What a killed program left of its last operation belongs to the old store; the engine would play it
    // into the new one.
    fs::remove(place.string() + "-journal", failed);
    fs::rename(draft, place, failed);
    if (!failed) return {};
    const std::string reason = failed.message();
    fs::remove(draft, failed);
    return {fmt::format("{}: {}", file, reason)};
}

}  // namespace createStore
