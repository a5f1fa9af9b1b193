#include "study/createStore.h"

#include <fmt/format.h>

#include <filesystem>
#include <functional>

#include "platform/files.h"
#include "platform/onLeave.h"
#include "store/layer/database.h"
#include "store/layer/engine.h"
#include "study/draft.h"
#include "study/readTables.h"
#include "study/storeTable.h"

namespace createStore {

namespace fs = std::filesystem;

namespace {

void writeStore(const readTables::Tables& tables, const std::string& file) {
    const engine::Database database = engine::create(file, store::password);
    engine::execute(*database, "BEGIN");
    for (const schema::Table& table : schema::tables()) {
        storeTable::make(*database, table, tables.mostDiseases);
        const auto content = tables.contents.find(table.name);
        if (content == tables.contents.end()) continue;
        storeTable::widen(*database, table, content->second);
        storeTable::fill(*database, table, content->second);
    }
    engine::execute(*database, "COMMIT");
}

/// Moves what stands beside `from`, if anything does, to beside `to`.
std::error_code moveCompanions(const std::string& from, const std::string& to) {
    std::error_code failed;
    for (const char* companion : draft::companions) {
        if (fs::exists(from + companion) && !failed) fs::rename(from + companion, to + companion, failed);
    }
    return failed;
}

std::error_code moveInto(const std::string& place, const std::string& draft) {
    try {
        files::moveIntoPlace(draft, place);
    } catch (const fs::filesystem_error& error) {
        return error.code();
    }
    return {};
}

/// Moves the draft over the old store. What a killed program left beside that one belongs to it, and the
/// engine would play it into the new store. So the old store is opened, which ends what was begun; what stays
/// beside a file that is no store goes with the draft's name, under which it is cleared away.
std::string replace(const std::string& place, const std::string& draft) {
    if (const std::error_code failed = files::copyOwnership(place, draft))
        return "its owner and permissions cannot be kept: " + failed.message();
    try {
        engine::open(place, store::password, engine::Access::Read);
    } catch (const engine::Error& error) {
        if (error.number == engine::couldNotLockFile) return "is in use";
    }
    std::error_code failed = moveCompanions(place, draft);
    if (!failed) failed = moveInto(place, draft);
    if (failed) moveCompanions(draft, place);
    return failed ? failed.message() : std::string();
}

/// Written beside the target and moved over it when complete, so that a broken attempt leaves no half file.
std::string makeAt(const readTables::Tables& tables, const std::string& place, const std::string& draft) {
    const OnLeave cleared([&] { draft::remove(draft); });
    try {
        writeStore(tables, draft);
    } catch (const engine::Error& error) {
        return error.text;
    }
    std::error_code failed;
    if (fs::exists(place, failed)) return replace(place, draft);
    failed = moveInto(place, draft);
    return failed ? failed.message() : std::string();
}

/// Makes the store of the tables that `tables` gives once the place is found fit.
Outcome makeOf(const std::string& file, bool force, const std::function<readTables::Tables()>& read) {
    const auto refused = [](std::string problem) { return Outcome{{std::move(problem)}, {}}; };
    std::error_code failed;
    const fs::path place = fs::weakly_canonical(fs::absolute(file, failed), failed);  // a link stays one
    if (file.empty() || failed) return refused(fmt::format("\"{}\" is no file's name", file));
    const fs::path parent = place.parent_path();
    if (!fs::is_directory(parent, failed))
        return refused(fmt::format("{}: there is no folder {}", file, parent.string()));
    // One at a time, since the draft has one name: what stands there was left by a killed attempt.
    const OnLeave unlocked = files::lockFolder(parent.string());
    const std::string draft = draft::of(place.string());
    draft::remove(draft);
    if (fs::exists(place, failed)) {
        if (!fs::is_regular_file(place, failed))
            return refused(file + " is no plain file and is not replaced");
        if (!force) return refused(file + " exists already; --force replaces it");
    }
    readTables::Tables tables = read();
    if (tables.problems.empty()) {
        const std::string problem = makeAt(tables, place.string(), draft);
        if (!problem.empty()) tables.problems.push_back(fmt::format("{}: {}", file, problem));
    }
    return {tables.problems, tables.notes};
}

}  // namespace

Outcome create(const std::string& folder, const std::string& file, bool force) {
    return makeOf(file, force, [&] { return readTables::read(folder); });
}

Outcome make(const readTables::Tables& tables, const std::string& file) {
    return makeOf(file, false, [&] { return tables; });
}

}  // namespace createStore
