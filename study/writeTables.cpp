#include "study/writeTables.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <string_view>

#include "platform/files.h"
#include "platform/onLeave.h"
#include "platform/text.h"
#include "study/csv.h"
#include "study/fieldValue.h"
#include "study/keptTables.h"
#include "study/readStore.h"

namespace writeTables {

namespace fs = std::filesystem;

namespace {

bool isMoment(std::string_view moment) {
    constexpr std::string_view form = "dddd-dd-dd dd:dd:dd";
    if (moment.size() != 10 && moment.size() != 16 && moment.size() != form.size()) return false;
    return std::ranges::equal(moment, form.substr(0, moment.size()), [](char c, char wanted) {
        return wanted == 'd' ? c >= '0' && c <= '9' : c == wanted;
    });
}

/// Rows count from 1, the line of the names aside.
void noteLosses(const std::string& table, const storeTable::Content& content,
                std::vector<std::string>& notes) {
    for (std::size_t r = 0; r < content.rows.size(); ++r) {
        const std::vector<engine::Value>& row = content.rows[r];
        if (std::ranges::all_of(row, [](const engine::Value& value) { return value == engine::Value(); }))
            notes.push_back(fmt::format("{}, row {}: holds no value and will be skipped", table, r + 1));
        for (std::size_t c = 0; c < row.size(); ++c) {
            const std::string loss = fieldValue::lossOf(row[c], content.columns[c].type);
            if (!loss.empty())
                notes.push_back(fmt::format("{}, row {}, column {}: \"{}\" {}", table, r + 1,
                                            content.columns[c].name, readStore::textOf(row[c]), loss));
        }
    }
}

using Contents = std::map<std::string, storeTable::Content>;

Contents contentsOf(const std::string& file, const std::string& moment, Outcome& outcome) {
    Contents contents;
    const engine::Database database = readStore::open(file);
    readStore::select(*database, "BEGIN");  // all tables as of one moment
    const std::vector<keptTables::Kept> kept = keptTables::list(*database);
    for (const schema::Table& table : schema::tables()) {
        if (!table.isConfiguration()) continue;
        const std::string name(table.name);
        const std::string source = moment.empty() ? name : keptTables::nameAt(kept, name, moment);
        std::vector<std::string> others;
        storeTable::Content content = storeTable::read(*database, table, source, others);
        for (const std::string& other : others)
            outcome.notes.push_back(
                fmt::format("{}: column {} is none of a study's and is left out", source, other));
        contents[name] = std::move(content);
    }
    return contents;
}

/// Where each table's file goes. A file of the name in another case is the same table to whoever reads the
/// folder, so it is the one to write over.
std::map<std::string, fs::path> placesOf(const std::map<std::string, std::string>& files,
                                         const fs::path& folder, bool force, Outcome& outcome) {
    std::map<std::string, fs::path> places;
    for (const auto& [table, bytes] : files) places[table] = folder / (table + ".csv");
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        for (auto& [table, place] : places) {
            if (text::folded(entry.path().filename().string()) != text::folded(table + ".csv")) continue;
            place = entry.path();
            if (!entry.is_regular_file()) {
                outcome.problems.push_back(place.string() + " is no plain file and is not written over");
            } else if (!force) {
                outcome.problems.push_back(place.string() + " exists already; --force writes over it");
                outcome.taken = true;
            }
        }
    }
    std::ranges::sort(outcome.problems);
    return places;
}

/// All are complete beside their places before the first takes its own.
void writeFiles(const std::map<std::string, std::string>& files, std::map<std::string, fs::path>& places) {
    const auto draftOf = [&](const std::string& table) {
        return (places[table].parent_path() / fmt::format(".{}.csv.tavixdb", table)).string();
    };
    const OnLeave cleared([&] {
        std::error_code failed;
        for (const auto& [table, bytes] : files) fs::remove(draftOf(table), failed);
    });
    for (const auto& [table, bytes] : files) {
        std::ofstream out(draftOf(table), std::ios::binary);
        out << bytes;
        out.close();
        if (!out) throw fs::filesystem_error("cannot be written", draftOf(table), std::error_code());
    }
    for (const auto& [table, bytes] : files) files::moveIntoPlace(draftOf(table), places[table]);
}

}  // namespace

std::string bytesOf(const storeTable::Content& content) {
    std::string bytes;
    for (std::size_t i = 0; i < content.columns.size(); ++i)
        bytes += (i == 0 ? "" : ",") + csv::written(content.columns[i].name);
    bytes += '\n';
    for (const std::vector<engine::Value>& row : content.rows) {
        for (std::size_t i = 0; i < row.size(); ++i)
            bytes += (i == 0 ? "" : ",") + fieldValue::written(row[i], content.columns[i].type);
        bytes += '\n';
    }
    return bytes;
}

Outcome write(const std::string& file, const std::string& folder, bool force, const std::string& moment) {
    Outcome outcome;
    if (!moment.empty() && !isMoment(moment)) {
        outcome.problems.push_back(fmt::format("\"{}\" is no moment (yyyy-mm-dd hh:mm:ss)", moment));
        return outcome;
    }
    const Contents contents = contentsOf(file, moment, outcome);
    Outcome written = write(contents, folder, force);
    // Of no file there is nothing to note.
    if (written.problems.empty())
        written.notes.insert(written.notes.begin(), outcome.notes.begin(), outcome.notes.end());
    return written;
}

Outcome write(const std::map<std::string, storeTable::Content>& tables, const std::string& folder,
              bool force) {
    Outcome outcome;
    std::map<std::string, std::string> files;
    for (const auto& [table, content] : tables) {
        noteLosses(table, content, outcome.notes);
        files[table] = bytesOf(content);
    }
    std::error_code failed;
    fs::create_directory(folder, failed);
    if (!fs::is_directory(folder)) {
        const bool taken = fs::exists(folder);
        outcome.problems.push_back(fmt::format("{}: {}", folder, taken ? "is no folder" : failed.message()));
        return outcome;
    }
    std::map<std::string, fs::path> places = placesOf(files, folder, force, outcome);
    if (!outcome.problems.empty()) return {outcome.problems, outcome.taken, {}};
    writeFiles(files, places);
    return outcome;
}

}  // namespace writeTables
