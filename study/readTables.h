// The tables of a study as the experimenter writes them, a CSV file each: read, judged against the list of
// tables and turned into the values that go into a store.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "study/storeTable.h"

namespace readTables {

struct Tables {
    std::vector<std::string> problems;  ///< what cannot go in, with file, line and column
    std::vector<std::string> notes;     ///< what is left out and needs no mending
    /// By the table's name in the schema.
    std::map<std::string_view, storeTable::Content> contents = {};
    int mostDiseases = 0;  ///< the largest number of a column of diseases
};

/// The CSV files of the folder, each judged by itself.
Tables readFiles(const std::string& folder);

/// Complains about each column that the program would read and that a configuration table lacks.
void checkColumns(Tables& tables);

/// The tables of a whole study: all files are there, and they fit together.
Tables read(const std::string& folder);

}  // namespace readTables
