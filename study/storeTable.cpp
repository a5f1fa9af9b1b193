#include "study/storeTable.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <optional>

#include "store/layer/dialect.h"
#include "study/readStore.h"

namespace storeTable {

void make(engine::Connection& database, const schema::Table& table, int diseases) {
    std::string columns;
    for (const schema::NamedColumn& column : schema::columnsOf(table, diseases)) {
        columns += fmt::format("{}{} {}", columns.empty() ? "" : ", ", dialect::quoted(column.name),
                               schema::declaration(column.type));
    }
    engine::execute(database,
                    fmt::format("CREATE TABLE {} ({})", dialect::quoted(std::string(table.name)), columns));
    if (!table.lookup.empty()) engine::execute(database, schema::indexStatement(table));
}

void widen(engine::Connection& database, const schema::Table& table, const Content& content) {
    const std::string name = dialect::quoted(std::string(table.name));
    const engine::Rows there{engine::columnsOf(database, "SELECT * FROM " + name), {}};
    for (const schema::NamedColumn& column : content.columns) {
        if (readStore::columnOf(there, column.name) >= 0) continue;
        const auto known = schema::findColumn(table, column.name);
        engine::execute(database,
                        fmt::format("ALTER TABLE {} ADD COLUMN {} {}", name, dialect::quoted(column.name),
                                    known ? schema::declaration(known->type) : ""));
    }
}

void fill(engine::Connection& database, const schema::Table& table, const Content& content) {
    std::vector<std::string> names;
    for (const schema::NamedColumn& column : content.columns) names.push_back(column.name);
    const std::string statement = dialect::insertion(std::string(table.name), names);
    for (const auto& row : content.rows) engine::execute(database, statement, row);
}

bool exists(engine::Connection& database, const std::string& name) {
    const std::array<engine::Value, 1> wanted{name};
    return !engine::query(database,
                          "SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = ? COLLATE NOCASE",
                          wanted)
                .rows.empty();
}

Content of(const schema::Table& table, const engine::Rows& all, std::vector<std::string>& others) {
    Content content;
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < all.columns.size(); ++i) {
        if (const std::optional<schema::NamedColumn> column = schema::findColumn(table, all.columns[i])) {
            content.columns.push_back(*column);
            places.push_back(i);
        } else {
            others.push_back(all.columns[i]);
        }
    }
    for (const std::vector<engine::Value>& row : all.rows) {
        std::vector<engine::Value>& copy = content.rows.emplace_back();
        for (const std::size_t place : places) copy.push_back(row[place]);
    }
    return content;
}

Content read(engine::Connection& database, const schema::Table& table, const std::string& name,
             std::vector<std::string>& others) {
    return of(table, readStore::table(database, name), others);
}

int columnOf(const Content& content, const std::string& name) {
    const auto found = std::ranges::find(content.columns, name, &schema::NamedColumn::name);
    return found == content.columns.end() ? -1 : static_cast<int>(found - content.columns.begin());
}

}  // namespace storeTable
