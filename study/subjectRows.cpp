#include "study/subjectRows.h"

#include <fmt/format.h>

#include <algorithm>
#include <numeric>
#include <stdexcept>
#include <vector>

#include "platform/text.h"
#include "study/readStore.h"
#include "study/rowSlices.h"

namespace subjectRows {

namespace {

/// The columns from `first` on in the order of their names.
std::vector<std::size_t> sortedColumns(const engine::Rows& rows, std::size_t first) {
    std::vector<std::size_t> places(rows.columns.size() - first);
    std::iota(places.begin(), places.end(), first);
    std::ranges::sort(places, {}, [&](std::size_t place) { return text::folded(rows.columns[place]); });
    return places;
}

/// A text that no other value has: of numbers all digits count, and a number is not its text.
std::string exact(const engine::Value& value) {
    if (const auto* real = std::get_if<double>(&value)) return fmt::format("r{}", *real);
    const std::string text = readStore::textOf(value);
    return fmt::format("{}{}:{}", value.index(), text.size(), text);
}

void add(std::size_t& print, const std::string& bytes) {
    print = std::hash<std::string>()(std::to_string(print) + bytes);
}

/// "kim03_" of "kim03_007".
std::string beginningOf(const engine::Value& identifier) {
    const std::string whole = text::folded(readStore::textOf(identifier));
    return whole.substr(0, whole.rfind('_') + 1);
}

struct Places {
    int subject;
    int trial;
    int identifier;
};

Places placesIn(const schema::Table& table, const engine::Rows& slice) {
    const std::string_view key = table.columns.front().name;  // the subject, or an identifier
    if (readStore::columnOf(slice, key) < 0)
        throw std::runtime_error(fmt::format("table {} has no column {}", table.name, key));
    return {readStore::columnOf(slice, "Subject"), readStore::columnOf(slice, "Trial"),
            key == "Subject" ? -1 : readStore::columnOf(slice, key)};
}

const engine::Value& at(const std::vector<engine::Value>& row, int place) {
    return row[static_cast<std::size_t>(place)];
}

std::string ownerOf(const Places& places, const std::vector<engine::Value>& row, Holding& holding) {
    if (places.subject < 0) {
        const std::string beginning = beginningOf(at(row, places.identifier));
        // A name has no line break, so that this owner is nobody's name.
        const std::string owner = holding.owners.try_emplace(beginning, "\n" + beginning).first->second;
        if (owner[0] == '\n') holding.names.try_emplace(owner, beginning + " (of no patient)");
        return owner;
    }
    const std::string name = readStore::textOf(at(row, places.subject));
    const std::string owner = text::folded(name);
    holding.names.try_emplace(owner, name);
    if (places.identifier >= 0) {
        holding.owners.try_emplace(beginningOf(at(row, places.identifier)), owner);
    } else if (places.trial >= 0) {
        const auto* trial = std::get_if<std::int64_t>(&at(row, places.trial));
        holding.owners.try_emplace(fmt::format("{}{:02}_", owner, trial != nullptr ? *trial : 0), owner);
    }
    return owner;
}

}  // namespace

void each(engine::Connection& database, Holding& holding, const Take& take) {
    // In the order of the schema patients and events come before their details.
    for (const schema::Table& table : schema::tables()) {
        if (table.kind != schema::Kind::Result) continue;
        rowSlices::each(database, table.name, "*", [&](const engine::Rows& slice) {
            const Places places = placesIn(table, slice);
            std::vector<std::string> owners;
            owners.reserve(slice.rows.size());
            for (const auto& row : slice.rows) owners.push_back(ownerOf(places, row, holding));
            take(table, slice, owners);
        });
    }
}

Holding read(engine::Connection& database) {
    Holding holding;
    each(database, holding, [&](const schema::Table& table, const engine::Rows& slice, auto owners) {
        const std::vector<std::size_t> columns = sortedColumns(slice, 1);
        for (std::size_t i = 0; i < slice.rows.size(); ++i) {
            std::string bytes(table.name);
            for (const std::size_t column : columns) bytes += exact(slice.rows[i][column]);
            add(holding.prints[owners[i]], bytes);
        }
    });
    return holding;
}

std::size_t printOf(const engine::Rows& rows) {
    std::size_t print = 0;
    const std::vector<std::size_t> columns = sortedColumns(rows, 0);
    for (const std::size_t column : columns) add(print, text::folded(rows.columns[column]));
    for (const auto& row : rows.rows) {
        for (const std::size_t column : columns) add(print, exact(row[column]));
    }
    return print;
}

}  // namespace subjectRows
