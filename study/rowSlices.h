// The rows of a store in slices. A reading statement keeps a session's write waiting until it ends, so that
// one over a large table would be felt at a station; between two slices the write goes through.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "store/layer/engine.h"

namespace rowSlices {

/// Hands over all rows of a table, slice by slice, in the order in which they came in. `columns` is a list
/// for a selection, "*" or "[Subject], [Trial]"; the engine's number of the row stands in front of it.
void each(engine::Connection& database, std::string_view table, const std::string& columns,
          const std::function<void(const engine::Rows& slice)>& take);

/// The same of the rows of one subject, case aside. A slice can be empty.
void eachOf(engine::Connection& database, std::string_view table, const std::string& columns,
            const std::string& subject, const std::function<void(const engine::Rows& slice)>& take);

/// How many rows a table has.
std::int64_t count(engine::Connection& database, std::string_view table);

}  // namespace rowSlices
