#include "study/bookDraft.h"

#include <fmt/format.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <stdexcept>

#include "store/layer/database.h"
#include "store/layer/dialect.h"
#include "store/layer/engine.h"
#include "store/layer/schema.h"
#include "study/draft.h"
#include "study/readStore.h"

namespace bookDraft {

namespace fs = std::filesystem;

namespace {

constexpr const char* fileName = "draft.mdb";

std::string placeIn(const std::string& folder) { return (fs::path(folder) / fileName).string(); }

fs::path filesIn(const std::string& folder) { return fs::path(folder) / "files"; }

/// Columns without a type give each value back as it is.
void write(engine::Connection& database, const std::string& prefix, const book::Book& book) {
    for (const auto& [name, sheet] : book.sheets) {
        if (!sheet->there) continue;
        std::string columns;
        for (const std::string& column : sheet->content.columns)
            columns += (columns.empty() ? "" : ", ") + dialect::quoted(column);
        const std::string table = prefix + name;
        engine::execute(database, fmt::format("CREATE TABLE {} ({})", dialect::quoted(table), columns));
        engine::executeAll(database, dialect::insertion(table, sheet->content.columns), sheet->content.rows);
    }
    const std::string files = dialect::quoted(prefix + "files");
    engine::execute(database, fmt::format("CREATE TABLE {} (name, place)", files));
    for (const auto& [name, place] : book.files) {
        const std::vector<engine::Value> row{name, place};
        engine::execute(database, fmt::format("INSERT INTO {} VALUES (?, ?)", files), row);
    }
}

book::Book read(engine::Connection& database, const std::string& prefix) {
    book::Book book;
    const engine::Rows tables =
        readStore::select(database, "SELECT name FROM sqlite_master WHERE type = 'table'");
    for (const schema::Table& table : schema::tables()) {
        book::Sheet sheet{.name = std::string(table.name)};
        for (const auto& row : tables.rows) sheet.there |= readStore::textOf(row[0]) == prefix + sheet.name;
        if (sheet.there) sheet.content = readStore::table(database, prefix + sheet.name);
        book.sheets.emplace(table.name, std::make_shared<const book::Sheet>(std::move(sheet)));
    }
    for (const auto& row : readStore::table(database, prefix + "files").rows)
        book.files[readStore::textOf(row[0])] = readStore::textOf(row[1]);
    return book;
}

}  // namespace

void keep(const std::string& folder, const Draft& draft) {
    fs::create_directories(folder);
    const std::string place = placeIn(folder);
    const std::string fresh = draft::of(place);
    draft::remove(fresh);
    {
        const engine::Database database = engine::create(fresh, store::password);
        engine::execute(*database, "BEGIN");
        write(*database, "was_", draft.opened);
        write(*database, "now_", draft.now);
        engine::execute(*database, "CREATE TABLE study (place)");
        const std::vector<engine::Value> row{draft.study};
        engine::execute(*database, "INSERT INTO study VALUES (?)", row);
        engine::execute(*database, "COMMIT");
    }
    fs::rename(fresh, place);
}

std::optional<Draft> find(const std::string& folder) {
    if (!fs::exists(placeIn(folder))) return {};
    try {
        const engine::Database database = readStore::open(placeIn(folder));
        const engine::Rows study = readStore::table(*database, "study");
        if (study.rows.empty()) return {};
        return Draft{readStore::textOf(study.rows[0][0]), read(*database, "was_"), read(*database, "now_")};
    } catch (const std::exception&) {
        return {};  // killed while the first draft was written, or of another version
    }
}

void forget(const std::string& folder) {
    std::error_code failed;
    fs::remove(placeIn(folder), failed);
}

void tidy(const std::string& folder) {
    std::error_code failed;
    if (fs::exists(placeIn(folder), failed)) return;
    fs::remove_all(filesIn(folder), failed);
    fs::remove(folder, failed);  // if nothing else stands in it
}

std::string putAside(const std::string& folder, const std::string& name, const std::string& bytes) {
    const fs::path files = filesIn(folder);
    fs::create_directories(files);
    const fs::path place = files / fmt::format("{:016x}-{}", std::hash<std::string>{}(bytes), name);
    if (fs::exists(place)) return place.string();
    std::ofstream out(place, std::ios::binary);
    out << bytes;
    out.close();
    if (!out) throw std::runtime_error(fmt::format("{} cannot be written", place.string()));
    return place.string();
}

}  // namespace bookDraft
