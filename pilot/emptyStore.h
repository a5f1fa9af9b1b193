// A store without rows of people: the tables of an experimenter's store, those that an update has put aside
// too, with the configuration in them and the results empty.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "store/layer/engine.h"

namespace emptyStore {

struct Layout {
    std::vector<std::string> statements;                         ///< that make tables, indexes and views
    std::vector<std::pair<std::string, engine::Rows>> contents;  ///< of the tables that hold no results
};

/// Reads the store of an experimenter, and nothing of the results in it. Throws std::runtime_error.
Layout read(const std::string& file);

/// Makes all of it in an empty database.
void make(engine::Connection& database, const Layout& layout);

/// The names of the scenarios in the order of the sign-in.
std::vector<std::string> scenarios(const Layout& layout);

}  // namespace emptyStore
