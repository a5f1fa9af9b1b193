#include "study/book.h"

#include <algorithm>
#include <stdexcept>

#include "platform/text.h"
#include "store/layer/schema.h"
#include "study/fieldValue.h"
#include "study/readStore.h"
#include "study/readTables.h"

namespace book {

namespace {

constexpr int someDiseases = 4;  ///< columns of a table that is made anew

/// The column as the schema knows it; a text where it does not.
schema::NamedColumn columnFor(std::string_view table, const std::string& column) {
    const schema::Table* known = schema::find(table);
    return schema::findColumn(*known, column).value_or(schema::NamedColumn{column, schema::ColumnType::Text});
}

void addColumnTo(Sheet& sheet, const std::string& column) {
    sheet.content.columns.push_back(columnFor(sheet.name, column).name);
    for (auto& row : sheet.content.rows) row.emplace_back();
}

}  // namespace

Book open(const std::string& file) {
    Book made;
    for (auto& [name, sheet] : check::sheetsOf(file))
        made.sheets[name] = std::make_shared<const Sheet>(std::move(sheet));
    return made;
}

Book ofTables(const std::string& folder) {
    const readTables::Tables tables = readTables::read(folder);
    if (!tables.problems.empty()) throw std::runtime_error(tables.problems.front());
    Book made = fresh();
    for (const auto& [name, content] : tables.contents) {
        putTable(made, name, content);
    }
    return made;
}

Book fresh() {
    Book made;
    for (const schema::Table& table : schema::tables()) {
        Sheet sheet{.name = std::string(table.name), .there = true};
        for (const schema::NamedColumn& column : schema::columnsOf(table, someDiseases))
            sheet.content.columns.push_back(column.name);
        made.sheets.emplace(table.name, std::make_shared<const Sheet>(std::move(sheet)));
    }
    return made;
}

const Sheet& sheetOf(const Book& book, std::string_view table) { return *book.sheets.find(table)->second; }

Sheet& change(Book& book, std::string_view table) {
    std::shared_ptr<const Sheet>& held = book.sheets.find(table)->second;
    const auto own = std::make_shared<Sheet>(*held);
    held = own;
    if (!own->there) {
        own->there = true;
        for (const schema::NamedColumn& column : schema::columnsOf(*schema::find(table), someDiseases))
            own->content.columns.push_back(column.name);
    }
    return *own;
}

void putTable(Book& book, std::string_view table, const storeTable::Content& content) {
    Sheet& sheet = change(book, table);
    sheet.content = {{}, content.rows};
    for (const schema::NamedColumn& column : content.columns) sheet.content.columns.push_back(column.name);
}

bool sameTable(const Sheet& a, const Sheet& b) {
    return a.there == b.there && a.content.columns == b.content.columns && a.content.rows == b.content.rows;
}

bool same(const Book& a, const Book& b) {
    return a.files == b.files && std::ranges::equal(a.sheets, b.sheets, [](const auto& x, const auto& y) {
               return x.second == y.second || sameTable(*x.second, *y.second);
           });
}

check::Study studyOf(const Book& book, const std::string& folder) {
    check::Sheets sheets;
    for (const auto& [name, sheet] : book.sheets) sheets.emplace(name, *sheet);
    check::Study study = check::assembled(std::move(sheets), folder);
    study.drafts = book.files;
    return study;
}

std::string textAt(const Book& book, const Place& place) {
    const engine::Value& value = sheetOf(book, place.table).at(place.row, place.column);
    if (std::holds_alternative<std::string>(value)) return std::get<std::string>(value);
    return fieldValue::written(value, columnFor(place.table, place.column).type);
}

std::string put(Book& book, const Place& place, const std::string& text) {
    const schema::ColumnType type = columnFor(place.table, place.column).type;
    const std::string trimmed = text::trim(text);
    if (!text::isUtf8(text) || text.find('\0') != std::string::npos) return "is no text";
    engine::Value value;
    const std::string problem = fieldValue::read({trimmed, false}, type, value);
    if (!problem.empty()) return problem;
    if (value != sheetOf(book, place.table).at(place.row, place.column)) set(book, place, std::move(value));
    return {};
}

void set(Book& book, const Place& place, engine::Value value) {
    Sheet& sheet = change(book, place.table);
    if (!sheet.has(place.column)) addColumnTo(sheet, place.column);
    const int at = readStore::columnOf(sheet.content, place.column);
    sheet.content.rows[static_cast<std::size_t>(place.row)][static_cast<std::size_t>(at)] = std::move(value);
}

void addColumn(Book& book, std::string_view table, const std::string& column) {
    Sheet& sheet = change(book, table);
    if (!sheet.has(column)) addColumnTo(sheet, column);
}

std::optional<int> rowOf(const Book& book, std::string_view table, std::string_view column,
                         std::string_view text) {
    const std::vector<int> rows = rowsOf(book, table, column, text);
    return rows.empty() ? std::nullopt : std::optional(rows.front());
}

std::vector<int> rowsOf(const Book& book, std::string_view table, std::string_view column,
                        std::string_view text) {
    const Sheet& sheet = sheetOf(book, table);
    std::vector<int> rows;
    for (int row = 0; row < sheet.size(); ++row) {
        if (!sheet.isEmpty(row, column) && check::sameName(sheet.text(row, column), text))
            rows.push_back(row);
    }
    return rows;
}

int addRowOf(Book& book, const std::string& table, const std::string& column, const std::string& text) {
    const std::vector<int> own = rowsOf(book, table, column, text);
    const int at = own.empty() ? sheetOf(book, table).size() : own.back() + 1;
    addRow(book, table, at);
    set(book, {table, at, column}, text);
    return at;
}

void addRow(Book& book, std::string_view table, int at) {
    engine::Rows& rows = change(book, table).content;
    const int place = std::clamp(at, 0, static_cast<int>(rows.rows.size()));
    rows.rows.emplace(rows.rows.begin() + place, rows.columns.size());
}

void copyRow(Book& book, std::string_view table, int row) {
    auto& rows = change(book, table).content.rows;
    std::vector<engine::Value> copy = rows[static_cast<std::size_t>(row)];
    rows.insert(rows.begin() + row + 1, std::move(copy));
}

void removeRow(Book& book, std::string_view table, int row) {
    auto& rows = change(book, table).content.rows;
    rows.erase(rows.begin() + row);
}

void moveRow(Book& book, std::string_view table, int row, int to) {
    auto& rows = change(book, table).content.rows;
    const auto first = rows.begin() + std::min(row, to);
    const auto last = rows.begin() + std::max(row, to) + 1;
    std::rotate(first, row < to ? first + 1 : last - 1, last);
}

}  // namespace book
