// The tables of a study in memory as CSV files, and files of such tables back into it.
#pragma once

#include <string>
#include <vector>

#include "study/book.h"
#include "study/writeTables.h"

namespace bookTables {

/// Writes a file for each table into `folder`, which is made if it is missing. Files that are there are
/// written over only with `force`.
writeTables::Outcome write(const book::Book& book, const std::string& folder, bool force);

struct Taken {
    std::vector<std::string> problems = {};  ///< with file, line and column; then nothing was changed
    std::vector<std::string> notes = {};     ///< what was left out and needs no mending
    std::vector<std::string> tables = {};    ///< those that differ now
};

/// Puts the tables of a folder of CSV files into the book; a table without a file stays, and one that holds
/// the same stays as it is.
Taken take(book::Book& book, const std::string& folder);

}  // namespace bookTables
