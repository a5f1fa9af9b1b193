#include "study/keptTables.h"

#include <fmt/format.h>

#include <array>

#include "platform/text.h"
#include "store/layer/dialect.h"
#include "study/readStore.h"
#include "study/storeTable.h"

namespace keptTables {

std::vector<Kept> list(engine::Connection& database) {
    std::vector<Kept> all;
    if (!storeTable::exists(database, catalogue)) return all;
    const std::string sql = fmt::format("SELECT Date, [Table], Name FROM {} ORDER BY rowid", catalogue);
    for (const auto& row : readStore::select(database, sql).rows)
        all.push_back({readStore::textOf(row[0]), readStore::textOf(row[1]), readStore::textOf(row[2])});
    return all;
}

std::string nameAt(const std::vector<Kept>& kept, std::string_view table, const std::string& moment) {
    for (const Kept& one : kept) {
        if (text::folded(one.table) == text::folded(table) && one.date > moment) return one.name;
    }
    return std::string(table);
}

Kept keep(engine::Connection& database, std::string_view table, const std::string& date) {
    engine::execute(
        database,
        fmt::format("CREATE TABLE IF NOT EXISTS {} (Date TEXT, [Table] TEXT, Name TEXT)", catalogue));
    const Kept kept{date, std::string(table), fmt::format("kept{:04}_{}", list(database).size() + 1, table)};
    // The views that somebody made for the analysis go on speaking of the table in force.
    engine::execute(database, "PRAGMA legacy_alter_table = ON");
    engine::execute(database, fmt::format("ALTER TABLE {} RENAME TO {}", dialect::quoted(kept.table),
                                          dialect::quoted(kept.name)));
    const std::array<std::string, 3> columns{"Date", "Table", "Name"};
    const std::array<engine::Value, 3> values{kept.date, kept.table, kept.name};
    engine::execute(database, dialect::insertion(catalogue, columns), values);
    return kept;
}

}  // namespace keptTables
