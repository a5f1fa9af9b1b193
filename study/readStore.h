// Reading a store that a session may be writing at the same time: nothing is changed, and a lock is waited
// for. Empty values stay apart from empty texts.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "store/layer/engine.h"

namespace readStore {

/// Opens a store for reading. Throws std::runtime_error, which names the file, where it is missing, no store,
/// or locked for longer than a session holds it.
engine::Database open(const std::string& path);

/// The rows of a selection, as engine::query gives them; a lock is waited for.
engine::Rows select(engine::Connection& database, const std::string& sql,
                    std::span<const engine::Value> values = {});

/// All rows of a table in the order in which they are delivered to a session. Throws std::runtime_error,
/// which names the table, where there is none.
engine::Rows table(engine::Connection& database, std::string_view name);

/// Place of the column of that name, case aside; -1 if there is none.
int columnOf(const engine::Rows& rows, std::string_view name);

/// A value as text: empty for an empty value, numbers in their general form.
std::string textOf(const engine::Value& value);

}  // namespace readStore
