// One table of a store: made, filled and read.
#pragma once

#include <string>
#include <vector>

#include "store/layer/engine.h"
#include "store/layer/schema.h"

namespace storeTable {

/// Columns of the schema, each once, and the rows under them in the order in which they are delivered.
struct Content {
    std::vector<schema::NamedColumn> columns;
    std::vector<std::vector<engine::Value>> rows;
};

/// Makes the table, without a row. Its numbered columns run to `diseases`.
void make(engine::Connection& database, const schema::Table& table, int diseases);

/// Adds the columns of the content that the table does not have; those that the schema does not know have no
/// type, so that their values stay as they are.
void widen(engine::Connection& database, const schema::Table& table, const Content& content);

/// Adds the rows.
void fill(engine::Connection& database, const schema::Table& table, const Content& content);

bool exists(engine::Connection& database, const std::string& name);

/// Rows laid out as `table`. Columns that the schema does not know are left out, and their names go into
/// `others`.
Content of(const schema::Table& table, const engine::Rows& all, std::vector<std::string>& others);

/// The same of what stands in the table that the store has under `name`.
Content read(engine::Connection& database, const schema::Table& table, const std::string& name,
             std::vector<std::string>& others);

/// Place of the column of that name, as the schema writes it; -1 if there is none.
int columnOf(const Content& content, const std::string& name);

}  // namespace storeTable
