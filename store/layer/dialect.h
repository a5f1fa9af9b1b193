// The statements of the modules are written in one dialect; here it is turned into the engine's.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace dialect {

/// The engine's form of a source: a bare table name becomes a selection of all its rows, [table.column]
/// becomes [table].[column], `Like 'x*'` takes every character but the star as it is, and NOT [flag] counts
/// an empty flag as false. What stands between quotes is otherwise left alone. There are no comments: behind
/// the apostrophe of a name they would hide the rest of a statement that is to be refused.
std::string translate(const std::string& source);

/// The selection with the engine's row number in front of its columns, so that its rows can be changed.
std::string withRowNumber(const std::string& translated);

/// The table that the source reads from: its name, or what follows FROM.
std::string tableOf(const std::string& source);

/// The first condition of a source, if all its conditions have to hold and the first asks for a text: the
/// column, the text, and whether it is only the beginning (`Like 'x*'`).
struct TextCondition {
    std::string column;
    std::string text;
    bool beginning;
};
std::optional<TextCondition> textCondition(const std::string& source);

/// The translated selection, of these rows only; in the order of their numbers, as the engine delivers all.
std::string ofRows(const std::string& translated, std::span<const std::int64_t> numbers);

/// [name], whatever characters it holds.
std::string quoted(const std::string& name);

/// The statement that adds a row, with a place for the value of each of these columns; the others, or all if
/// there is none, stay empty.
std::string insertion(const std::string& table, std::span<const std::string> columns);

/// The statement that changes these columns of one row; the row's number takes the last place.
std::string change(const std::string& table, std::span<const std::string> columns);

}  // namespace dialect
