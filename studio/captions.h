// What the columns of a study's tables are called in the window: options as in the options dialog, the others
// as their pages call them.
#pragma once

#include <QString>
#include <string>

namespace captions {

/// The caption of a column, the column's own name where no page has another.
QString of(const std::string& table, const std::string& column);

/// What a table is called, its own name where no page has another.
QString ofTable(const std::string& table);

/// The column that names a row of the table for a person.
const char* nameColumn(const std::string& table);

}  // namespace captions
