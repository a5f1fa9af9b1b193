// Makes a store file from a folder of CSV tables.
#pragma once

#include <string>
#include <vector>

#include "study/readTables.h"

namespace createStore {

struct Outcome {
    std::vector<std::string> problems;  ///< why nothing was made, each with file, line and column
    std::vector<std::string> notes;     ///< what was left out of the tables
};

/// Makes `file` with every table of the schema and the rows of the tables in `folder`. An existing file is
/// replaced only with `force`, keeps its owner and permissions, and stays untouched until the new one is
/// complete. What a killed attempt has left is cleared away.
Outcome create(const std::string& folder, const std::string& file, bool force);

/// The same of tables at hand, where nothing stands yet.
Outcome make(const readTables::Tables& tables, const std::string& file);

}  // namespace createStore
