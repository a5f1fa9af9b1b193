#include "pilot/outputStore.h"

#include <fmt/format.h>

#include <filesystem>
#include <stdexcept>

#include "pilot/rowBytes.h"
#include "platform/files.h"
#include "platform/onLeave.h"
#include "store/layer/database.h"
#include "store/layer/dialect.h"
#include "store/layer/schema.h"
#include "study/draft.h"
#include "study/readStore.h"
#include "study/simulated.h"
#include "study/subjectRows.h"

namespace outputStore {

namespace {

using Row = std::vector<engine::Value>;

/// The result tables, in an order of their own, and the one of the subjects last.
std::vector<std::string> tables() {
    std::vector<std::string> names;
    for (const schema::Table& table : schema::tables()) {
        if (table.kind == schema::Kind::Result) names.emplace_back(table.name);
    }
    names.emplace_back(simulated::subjects);
    return names;
}

void putRows(std::string& bytes, const std::vector<Row>& rows) {
    rowBytes::put(bytes, static_cast<std::int64_t>(rows.size()));
    rowBytes::put(bytes, static_cast<std::int64_t>(rows.empty() ? 0 : rows.front().size()));
    for (const Row& row : rows) {
        for (const engine::Value& value : row) rowBytes::put(bytes, value);
    }
}

void takeRows(std::string_view& bytes, std::vector<Row>& rows) {
    const auto count = std::get<std::int64_t>(rowBytes::take(bytes));
    const auto columns = std::get<std::int64_t>(rowBytes::take(bytes));
    for (std::int64_t i = 0; i < count; ++i) {
        Row& row = rows.emplace_back();
        for (std::int64_t j = 0; j < columns; ++j) row.push_back(rowBytes::take(bytes));
    }
}

/// The subjects of a store that only `add` has written to: no row has ever gone.
std::int64_t count(engine::Connection& database) {
    const std::string last = fmt::format("SELECT ifnull(max(rowid), 0) FROM {}", simulated::subjects);
    return std::get<std::int64_t>(readStore::select(database, last).rows[0][0]);
}

}  // namespace

void make(const std::string& file, const emptyStore::Layout& layout, const Row& run) {
    const std::string place = draft::freshPlace(file);
    const OnLeave unlocked = files::lockFolder(std::filesystem::path(place).parent_path().string());
    draft::freshPlace(file);  // another program may have had the folder until now
    const std::string draft = draft::of(place);
    draft::remove(draft);
    {
        const engine::Database database = engine::create(draft, store::password);
        engine::execute(*database, "BEGIN");
        emptyStore::make(*database, layout);
        simulated::mark(*database);
        std::vector<std::string> columns = simulated::runColumns();
        columns.emplace_back("Began");
        engine::execute(*database, dialect::insertion(simulated::runs, columns), run);
        engine::execute(*database, "COMMIT");
    }
    files::moveIntoPlace(draft, place);
}

std::int64_t subjectsIn(const std::string& file, const emptyStore::Layout& layout, const Row& run) {
    const engine::Database database = readStore::open(file);
    if (!simulated::isMarked(*database))
        throw std::runtime_error(file + ": holds no simulated subjects; there is nothing to go on with");
    const engine::Rows before = readStore::table(*database, simulated::runs);
    if (before.rows.size() != 1)
        throw std::runtime_error(file + ": is several runs made one and cannot be gone on with");
    const std::vector<std::string> columns = simulated::runColumns();
    std::string differing;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (before.rows[0][i] != run[i])
            differing += fmt::format("\n  {}: {} there, {} now", columns[i],
                                     readStore::textOf(before.rows[0][i]), readStore::textOf(run[i]));
    }
    for (const auto& [table, content] : layout.contents) {
        if (subjectRows::printOf(content) != subjectRows::printOf(readStore::table(*database, table)))
            differing += fmt::format("\n  table {}: changed in the folder since", table);
    }
    if (!differing.empty())
        throw std::runtime_error(fmt::format("{}: was begun by another command:{}", file, differing));
    return count(*database);
}

std::string rowsOf(engine::Connection& database, const Row& subject) {
    std::string bytes;
    for (const std::string& table : tables()) {
        if (table == simulated::subjects) break;
        putRows(bytes,
                engine::query(database, "SELECT * FROM " + dialect::quoted(table) + " ORDER BY rowid").rows);
    }
    putRows(bytes, {subject});
    return bytes;
}

void add(engine::Connection& database, std::span<const std::string> subjects, std::int64_t before) {
    const std::vector<std::string> names = tables();
    std::vector<std::vector<Row>> rows(names.size());
    for (const std::string& subject : subjects) {
        std::string_view bytes = subject;
        for (std::vector<Row>& table : rows) takeRows(bytes, table);
    }
    engine::execute(database, "BEGIN IMMEDIATE");
    if (count(database) != before) throw std::runtime_error("another run writes into the same store");
    for (std::size_t i = 0; i < names.size(); ++i) {
        const std::vector<std::string> columns =
            engine::columnsOf(database, "SELECT * FROM " + dialect::quoted(names[i]));
        engine::executeAll(database, dialect::insertion(names[i], columns), rows[i]);
    }
    engine::execute(database, "COMMIT");
}

}  // namespace outputStore
