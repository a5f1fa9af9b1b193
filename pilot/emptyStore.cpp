#include "pilot/emptyStore.h"

#include "store/layer/dialect.h"
#include "store/layer/schema.h"
#include "study/readStore.h"
#include "study/simulated.h"

namespace emptyStore {

namespace {

bool holdsResults(const std::string& table) {
    const schema::Table* known = schema::find(table);
    return known != nullptr && known->kind == schema::Kind::Result;
}

}  // namespace

Layout read(const std::string& file) {
    const engine::Database database = readStore::open(file);
    Layout layout;
    const char* all =
        "SELECT type, name, sql FROM sqlite_master WHERE sql IS NOT NULL AND name NOT LIKE 'sqlite%' "
        "AND type IN ('table', 'index', 'view')";
    for (const auto& row : readStore::select(*database, all).rows) {
        const std::string name = readStore::textOf(row[1]);
        if (simulated::isMark(name)) continue;
        layout.statements.push_back(readStore::textOf(row[2]));
        if (readStore::textOf(row[0]) == "table" && !holdsResults(name))
            layout.contents.emplace_back(name, readStore::table(*database, name));
    }
    return layout;
}

void make(engine::Connection& database, const Layout& layout) {
    for (const std::string& statement : layout.statements) engine::execute(database, statement);
    for (const auto& [table, content] : layout.contents)
        engine::executeAll(database, dialect::insertion(table, content.columns), content.rows);
}

std::vector<std::string> scenarios(const Layout& layout) {
    const engine::Database database = engine::createInMemory();
    make(*database, layout);
    std::vector<std::string> names;
    for (const auto& row :
         engine::query(*database, "SELECT Setting FROM tblAppDefault ORDER BY Setting").rows)
        names.push_back(readStore::textOf(row[0]));
    return names;
}

}  // namespace emptyStore
