// Replaces configuration tables in a store that holds results.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "study/readTables.h"

namespace updateStore {

struct Wish {
    bool closed = false;  ///< nobody is at work, whatever young rows say
    bool dryRun = false;  ///< everything but the change itself
};

struct Outcome {
    std::vector<std::string> problems = {};  ///< why nothing was changed
    bool inUse = false;                      ///< for one thing, because a session may be at work
    bool elsewhere = false;                  ///< or because the tables are no longer those that were opened
    std::vector<std::string> notes = {};     ///< what was left out of the files
    std::vector<std::string> done = {};      ///< a line for each table
    std::vector<std::string> misfits = {};   ///< subjects whose stored words do not fit the tables in force
};

/// The CSV files of a folder that can replace tables: no results among them, and at least one.
readTables::Tables filesOf(const std::string& folder);

/// Replaces each configuration table that has a CSV file in `folder` and differs from it, all in one
/// transaction. The others, and the results, stay as they are; what is replaced is kept under another name.
/// Refused while a session may be running.
Outcome update(const std::string& file, const std::string& folder, Wish wish);

/// Why these tables cannot go in, asked when the store is locked; none to go on.
using Judge = std::function<std::vector<std::string>(engine::Connection& database)>;

/// The same for tables that are at hand. Of results only what is missing is made, tables and columns.
Outcome replace(const std::string& file, const readTables::Tables& tables, const Judge& judge, Wish wish);

}  // namespace updateStore
