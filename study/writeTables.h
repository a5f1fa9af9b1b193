// The configuration tables of a store as CSV files, of which `create` makes the same tables again.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "study/storeTable.h"

namespace writeTables {

struct Outcome {
    std::vector<std::string> problems;  ///< why nothing was written
    bool taken = false;                 ///< because files are there, which `force` would write over
    std::vector<std::string> notes;     ///< what the files do not give back as it stands in the store
};

/// A table as the bytes of its file: UTF-8 without a byte-order mark, a line feed behind each line.
std::string bytesOf(const storeTable::Content& content);

/// Writes a file for each configuration table of the store `file` into `folder`, which is made if it is
/// missing. Files that are there are written over only with `force`. With a `moment` (yyyy-mm-dd, with
/// hh:mm or hh:mm:ss behind it or not) the tables in force then, otherwise those in force now.
Outcome write(const std::string& file, const std::string& folder, bool force, const std::string& moment);

/// The same for tables that are at hand, by their names.
Outcome write(const std::map<std::string, storeTable::Content>& tables, const std::string& folder,
              bool force);

}  // namespace writeTables
