// One field of a CSV file and the value that stands for it in a store, in both directions.
#pragma once

#include <string>

#include "store/layer/engine.h"
#include "store/layer/schema.h"
#include "study/csv.h"

namespace fieldValue {

/// Turns a field into the column's value; says why it cannot be one, or nothing. Nothing in a field is an
/// empty value, two quotes are an empty text.
std::string read(const csv::Field& field, schema::ColumnType type, engine::Value& value);

/// The value as a field that `read` turns into the same value: flags as yes and no, numbers in as many digits
/// as they need, quotes where a text needs them.
std::string written(const engine::Value& value, schema::ColumnType type);

/// Why `read` would not give this value back, or nothing: the store holds what the column should not.
std::string lossOf(const engine::Value& value, schema::ColumnType type);

}  // namespace fieldValue
