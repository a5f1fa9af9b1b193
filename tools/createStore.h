// Makes a store file from a folder of CSV tables.
#pragma once

#include <string>
#include <vector>

namespace createStore {

/// Makes `file` with every table of the schema and the rows of the tables in `folder`; an existing file is
/// replaced only with `force`. Returns what cannot go in, each with file, line and column; then no file has
/// been made and an existing one is untouched.
std::vector<std::string> create(const std::string& folder, const std::string& file, bool force);

}  // namespace createStore
