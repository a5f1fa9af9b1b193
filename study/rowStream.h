// The rows of a large table, one by one, from a copy of the store: a session that runs meanwhile never waits
// for longer than the copy of its file takes, and all tables are those of one moment.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "store/layer/engine.h"

namespace rowStream {

/// Copies the store's file, encrypted as it is, and opens the copy. `copy` is the caller's to remove. Throws
/// std::runtime_error, which names the file.
engine::Database openCopy(const std::string& path, const std::string& copy);

/// Hands over these columns of each row, in the order in which the rows were written. Throws
/// std::runtime_error, which names the table, where it or a column is missing.
void each(engine::Connection& database, std::string_view table, const std::vector<std::string>& columns,
          const std::function<void(std::vector<engine::Value>& row)>& take);

}  // namespace rowStream
