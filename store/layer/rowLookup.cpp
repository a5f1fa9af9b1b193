#include "store/layer/rowLookup.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

#include "platform/text.h"
#include "store/layer/dialect.h"
#include "store/layer/schema.h"

namespace rowLookup {

namespace {

constexpr std::size_t mostSpellings = 64;  // beyond these a look through the table is cheaper
constexpr std::size_t mostRows = 10'000;
constexpr int mostCharacters = 250;        // each costs a look from the first on
constexpr const char* behindAll = "\xFF";  // a byte of no character, and larger than each

bool hasIndex(engine::Connection& database, const schema::Table& table) {
    const std::array<engine::Value, 1> statement{schema::indexStatement(table)};
    return !engine::query(database, "SELECT 1 FROM sqlite_master WHERE sql = ?", statement).rows.empty();
}

/// Rows whose text begins so, byte for byte; or is so, with `whole`.
engine::Rows rowsOf(engine::Connection& database, const schema::Table& table, const std::string& text,
                    bool whole, std::size_t most) {
    const std::string column = dialect::quoted(std::string(table.lookup)) + " COLLATE BINARY";
    const std::array<engine::Value, 2> ends{text, whole ? text : text + behindAll};
    return engine::query(database,
                         "SELECT rowid FROM " + dialect::quoted(std::string(table.name)) + " WHERE " +
                             column + " >= ? AND " + column + " <= ? LIMIT " + std::to_string(most),
                         ends);
}

/// The spellings of a text with which texts of the table begin: character by character, those that do.
std::optional<std::vector<std::string>> spellingsOf(engine::Connection& database, const schema::Table& table,
                                                    const std::string& wanted) {
    if (text::length(wanted) > mostCharacters) return {};
    std::vector<std::string> beginnings{{}};
    for (int i = 0; i < text::length(wanted); ++i) {
        std::vector<std::string> longer;
        for (const std::string& spelling : text::spellings(text::mid(wanted, i, 1))) {
            for (const std::string& beginning : beginnings) {
                if (!rowsOf(database, table, beginning + spelling, false, 1).rows.empty())
                    longer.push_back(beginning + spelling);
            }
        }
        if (longer.size() > mostSpellings) return {};
        beginnings = std::move(longer);
    }
    return beginnings;
}

}  // namespace

std::string narrowed(engine::Connection& database, const std::string& source) {
    std::string all = dialect::translate(source);
    const std::optional<dialect::TextCondition> condition = dialect::textCondition(source);
    const schema::Table* table = schema::find(dialect::tableOf(source));
    if (!condition || table == nullptr || table->lookup.empty() ||
        text::folded(table->lookup) != text::folded(condition->column) || !text::isUtf8(condition->text) ||
        !hasIndex(database, *table))
        return all;
    const auto spellings = spellingsOf(database, *table, condition->text);
    if (!spellings) return all;
    std::vector<std::int64_t> numbers;
    for (const std::string& spelling : *spellings) {
        for (const auto& row : rowsOf(database, *table, spelling, !condition->beginning, mostRows).rows)
            numbers.push_back(std::get<std::int64_t>(row[0]));
    }
    if (numbers.size() >= mostRows) return all;
    return dialect::ofRows(all, numbers);
}

}  // namespace rowLookup
