// The tables of the store as data: names, columns, types, the limits of their values and what they mean.
// Whoever makes, checks or describes a store reads this one list.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace schema {

enum class ColumnType {
    Text,
    Short,         ///< 16 bits, signed
    Long,          ///< 32 bits, signed
    Float,         ///< 64 bits
    Date,          ///< yyyy-mm-dd
    YesNo,         ///< -1 or 0, or empty
    NumberFlag,    ///< a number that is not 0, or empty
    NumberOrText,  ///< kept as it is typed, read as a number
};

struct Column {
    std::string_view name;
    ColumnType type;
    std::string_view meaning;
    /// Values that make sense for a study; the bits of the type allow more.
    std::optional<int> least = {};
    std::optional<int> most = {};
};

/// Columns that a table has once for each disease or hypothesis: prefix, number from 1, suffix.
struct Series {
    std::string_view prefix;
    std::string_view suffix;
    std::string_view meaning;
    int fewest;  ///< how many a new store has at least
    bool fixed;  ///< it never has more
};

enum class Kind { Configuration, Result };

struct Table {
    std::string_view name;
    Kind kind;
    std::vector<Column> columns;
    std::vector<Series> series;
    std::string_view lookup = {};  ///< the column by which the program looks rows up among ever more, if any

    [[nodiscard]] bool isConfiguration() const { return kind == Kind::Configuration; }
};

/// All tables, configuration first.
std::span<const Table> tables();

/// The table of that name, case aside, or none.
const Table* find(std::string_view name);

struct NamedColumn {
    std::string name;
    ColumnType type;
};

/// All columns of a table whose series run to `count`, in the order in which a new store has them.
std::vector<NamedColumn> columnsOf(const Table& table, int count);

/// The column of that name, case aside, as the schema writes it, or none.
std::optional<NamedColumn> findColumn(const Table& table, std::string_view name);

/// Number of the series column that `name` is ("D3+" gives 3), 0 if it is none.
int seriesNumber(const Table& table, std::string_view name);

/// The statement that makes the index of a table with a lookup column. It orders by bytes: the collation of
/// the texts is the program's own, and an index ordered by it would be out of order for every other tool.
std::string indexStatement(const Table& table);

/// The engine's declaration of a type: texts compare and sort without regard to case.
std::string_view declaration(ColumnType type);

}  // namespace schema
