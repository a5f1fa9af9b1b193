// Rows looked up by a text through the index of their table, so that the cost does not grow with the table.
// The index orders by bytes, on which all programs agree, while the texts of the store compare without regard
// to case: so every spelling that stands in the table is looked up. The order of the rows stays the table's.
#pragma once

#include <string>

#include "store/layer/engine.h"

namespace rowLookup {

/// The engine's form of the source, narrowed to the rows that can meet its first condition. It stays as it is
/// if the table has no index, which no store needs: older ones have none.
std::string narrowed(engine::Connection& database, const std::string& source);

}  // namespace rowLookup
