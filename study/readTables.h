// The tables of a study as the experimenter writes them, a CSV file each: read, judged against the list of
// tables and turned into the values that go into a store.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "store/layer/engine.h"
#include "store/layer/schema.h"

namespace readTables {

/// A table's rows as they will go in.
struct Content {
    std::vector<schema::NamedColumn> columns;
    std::vector<std::vector<engine::Value>> rows;
    /// The scenarios of the rows, each with its largest `Count`; 0 in a table without that column.
    std::map<std::string, int> scenarios = {};
};

struct Tables {
    std::vector<std::string> problems;                  ///< what cannot go in, with file, line and column
    std::vector<std::string> notes;                     ///< what is left out and needs no mending
    std::map<std::string_view, Content> contents = {};  ///< by the table's name in the schema
    int mostDiseases = 0;                               ///< the largest number of a column of diseases
};

/// Every CSV file of the folder.
Tables read(const std::string& folder);

}  // namespace readTables
