// The store that a run writes: the experimenter's tables, the rows of the simulated subjects, and what tells
// that they are simulated.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "pilot/emptyStore.h"
#include "store/layer/engine.h"

namespace outputStore {

/// Makes the store with the row of its run (simulated::runColumns and the moment). One that is there already
/// throws std::runtime_error.
void make(const std::string& file, const emptyStore::Layout& layout, const std::vector<engine::Value>& run);

/// How many subjects a store holds that this run has begun. Throws std::runtime_error where the file is none
/// of the run's, or has other tables, and names what differs.
std::int64_t subjectsIn(const std::string& file, const emptyStore::Layout& layout,
                        const std::vector<engine::Value>& run);

/// All rows of results in the store that a subject has just played on, and of the row that tells of it.
std::string rowsOf(engine::Connection& database, const std::vector<engine::Value>& subject);

/// Adds subjects, as `rowsOf` gave them, in one transaction, to the `before` that are there. Throws
/// std::runtime_error where there are others.
void add(engine::Connection& database, std::span<const std::string> subjects, std::int64_t before);

}  // namespace outputStore
