// A study on its way: the tables of a store in memory, with the files of its patients that have changed. It
// is a value, cheap to copy, since tables that nobody has changed are shared: each state of a study can be
// kept for as long as it may come back. Rows and columns count from 0.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "study/checkStudy.h"
#include "study/storeTable.h"

namespace book {

using check::Sheet;

struct Book {
    std::map<std::string, std::shared_ptr<const Sheet>, std::less<>> sheets;
    /// Files of Patients/ that are new or changed: where their bytes stand until they are saved.
    std::map<std::string, std::string> files = {};
};

/// One cell. A column that the table does not have is added when the cell gets a value.
struct Place {
    std::string table;
    int row;
    std::string column;
};

/// The tables of a store. Throws std::runtime_error, which names file or table.
Book open(const std::string& file);

/// The tables of a folder of CSV files. Throws std::runtime_error, which names file, line and column.
Book ofTables(const std::string& folder);

/// Tables without a row.
Book fresh();

const Sheet& sheetOf(const Book& book, std::string_view table);

/// The table on its own, to be changed.
Sheet& change(Book& book, std::string_view table);

/// Puts other columns and rows in the place of the table's.
void putTable(Book& book, std::string_view table, const storeTable::Content& content);

/// Whether two states hold the same tables, value for value, and the same files.
bool same(const Book& a, const Book& b);
bool sameTable(const Sheet& a, const Sheet& b);

/// As the rules of `check` see it. `folder` is that of the study.
check::Study studyOf(const Book& book, const std::string& folder);

/// A cell as the experimenter reads and types it: yes and no for flags, nothing for an empty value.
std::string textAt(const Book& book, const Place& place);

/// Puts what was typed into a cell. Says why the column cannot hold it, and then nothing has changed, or
/// nothing. Nothing typed is an empty value.
std::string put(Book& book, const Place& place, const std::string& text);

/// The same for a value that fits.
void set(Book& book, const Place& place, engine::Value value);

/// Adds a column, with an empty value in each row.
void addColumn(Book& book, std::string_view table, const std::string& column);

/// The row of that table in which the column holds this text, case aside.
std::optional<int> rowOf(const Book& book, std::string_view table, std::string_view column,
                         std::string_view text);

/// All such rows.
std::vector<int> rowsOf(const Book& book, std::string_view table, std::string_view column,
                        std::string_view text);

/// Adds a row with this text in the column, behind the last that has it, or at the end; its place.
int addRowOf(Book& book, const std::string& table, const std::string& column, const std::string& text);

/// Adds an empty row before row `at`, or at the end.
void addRow(Book& book, std::string_view table, int at);
void copyRow(Book& book, std::string_view table, int row);
void removeRow(Book& book, std::string_view table, int row);
/// Moves a row to where the row `to` stands.
void moveRow(Book& book, std::string_view table, int row, int to);

}  // namespace book
