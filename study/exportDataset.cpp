#include "study/exportDataset.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <stdexcept>

#include "platform/files.h"
#include "platform/onLeave.h"
#include "store/layer/dialect.h"
#include "store/layer/schema.h"
#include "study/datasetFile.h"
#include "study/datasetTexts.h"
#include "study/dictionary.h"
#include "study/keptTables.h"
#include "study/pseudonyms.h"
#include "study/readStore.h"
#include "study/rowSlices.h"
#include "study/rowStream.h"
#include "study/simulated.h"
#include "study/storeTable.h"
#include "study/tidyTables.h"
#include "study/trialIndex.h"
#include "study/writeTables.h"

namespace exportDataset {

namespace fs = std::filesystem;

namespace {

using engine::Value;
using readStore::textOf;
using Row = std::vector<Value>;

struct Export {
    const Request& request;
    fs::path draft;
    engine::Connection& store;
    const std::function<void(double)>& progress;
    std::int64_t rows = 1;  ///< that go out
    std::int64_t written = 0;
    std::optional<pseudonyms::Key> key = {};
    dictionary::Files dictionary = {};
    std::vector<std::string> notes = {};

    [[nodiscard]] bool leavesTextsOut() const { return key && !request.keepTexts; }
};

constexpr int rowsBetweenNews = 500;

bool isNote(const Value& action) {
    return textOf(action) == "AddSymptom" || textOf(action) == "RemoveSymptom";
}

void hideName(const Export& all, Value& name) {
    if (all.key && !textOf(name).empty()) name = pseudonyms::ofSubject(*all.key, textOf(name));
}

void hideIdentifier(Export& all, Value& identifier) {
    if (all.key && !textOf(identifier).empty())
        identifier = pseudonyms::ofIdentifier(*all.key, textOf(identifier));
}

/// Everybody who stands in a table of results; of those who ran, their trials too.
void readNames(Export& all) {
    all.key = pseudonyms::read(all.request.pseudonyms);
    for (const char* table : {"SubjectInfo", "SubjectSettings", "dataTrial", "dataEvents"}) {
        const bool ran = std::string_view(table).starts_with("data");
        const std::vector<std::string> columns =
            ran ? std::vector<std::string>{"Subject", "Trial"} : std::vector<std::string>{"Subject"};
        rowStream::each(all.store, table, columns, [&](Row& row) {
            const std::string name = textOf(row[0]);
            if (name.empty()) return;
            pseudonyms::add(*all.key, name);
            const auto* trial = ran ? std::get_if<std::int64_t>(&row[1]) : nullptr;
            if (trial != nullptr) pseudonyms::addTrial(*all.key, name, *trial);
        });
    }
    pseudonyms::number(*all.key);
}

std::string fileName(const Export& all, std::string_view table) {
    return fmt::format("study-{}_description-{}_data", all.request.name, table);
}

/// A data file with its part of the dictionary beside it.
datasetFile::File beginData(Export& all, std::string_view table,
                            std::vector<dictionary::Variable> variables) {
    std::vector<std::string> columns;
    columns.reserve(variables.size());
    for (const dictionary::Variable& variable : variables) columns.push_back(variable.name);
    const std::string path = (all.draft / "data" / fileName(all, table)).string();
    datasetFile::write(path + ".json", dictionary::ofFile(variables));
    all.dictionary.files.emplace_back(table, std::move(variables));
    return datasetFile::begin(path + ".csv", columns);
}

void addRow(Export& all, datasetFile::File& file, const Row& row) {
    datasetFile::add(file, row);
    if (++all.written % rowsBetweenNews == 0)
        all.progress(static_cast<double>(all.written) / static_cast<double>(all.rows));
}

/// How many rows are to come: trials and events go out twice.
void countRows(Export& all) {
    for (const schema::Table& table : schema::tables()) {
        if (table.kind != schema::Kind::Result) continue;
        const int times = table.name == "dataTrial" || table.name == "dataEvents" ? 2 : 1;
        all.rows += times * rowSlices::count(all.store, table.name);
    }
}

/// The columns of a result table that go out: those that the program writes. A column of somebody else's
/// could hold anything, names too.
std::vector<std::string> rawColumns(Export& all, const schema::Table& table) {
    std::vector<std::string> columns;
    for (const std::string& column :
         engine::columnsOf(all.store, "SELECT * FROM " + dialect::quoted(std::string(table.name)))) {
        const auto known = schema::findColumn(table, column);
        const bool freeText = column == "History" || column == "ListItem";
        if (!known) {
            all.notes.push_back(
                fmt::format("{}: column {} is none of the program's and is left out", table.name, column));
        } else if (!freeText || !all.leavesTextsOut()) {
            columns.push_back(known->name);
        }
    }
    return columns;
}

void writeRaw(Export& all, const schema::Table& table) {
    const std::vector<std::string> columns = rawColumns(all, table);
    std::vector<dictionary::Variable> variables;
    std::vector<std::size_t> names;
    std::vector<std::size_t> identifiers;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        variables.push_back(dictionary::ofColumn(table, columns[i]));
        if (columns[i] == "Subject") names.push_back(i);
        if (columns[i] == "EventID" || columns[i] == "StateID" || columns[i] == "DiagnosisID")
            identifiers.push_back(i);
    }
    const auto action = std::ranges::find(columns, "Action") - columns.begin();
    const auto input = std::ranges::find(columns, "Input") - columns.begin();
    const bool cutsNotes = all.leavesTextsOut() && table.name == "dataEvents";
    datasetFile::File file = beginData(all, table.name, std::move(variables));
    rowStream::each(all.store, table.name, columns, [&](Row& row) {
        for (const std::size_t place : names) hideName(all, row[place]);
        for (const std::size_t place : identifiers) hideIdentifier(all, row[place]);
        if (cutsNotes && isNote(row.at(static_cast<std::size_t>(action))))
            row.at(static_cast<std::size_t>(input)) = Value();
        addRow(all, file, row);
    });
    datasetFile::finish(file);
}

void writeTidy(Export& all, trialIndex::Index& index) {
    datasetFile::File trials = beginData(all, "trials", tidyTables::trialColumns());
    tidyTables::eachTrial(all.store, index, [&](Row& row) {
        hideName(all, row[tidyTables::trialSubject]);
        addRow(all, trials, row);
    });
    datasetFile::finish(trials);
    datasetFile::File events = beginData(all, "events", tidyTables::eventColumns());
    tidyTables::eachEvent(all.store, index, [&](Row& row) {
        hideName(all, row[tidyTables::eventSubject]);
        hideIdentifier(all, row[tidyTables::eventId]);
        hideIdentifier(all, row[tidyTables::eventState]);
        if (all.leavesTextsOut() && isNote(row[tidyTables::eventAction]))
            row[tidyTables::eventItem] = Value();
        addRow(all, events, row);
    });
    datasetFile::finish(events);
}

/// The configuration in force, and what it replaced: the files are those that make a store again.
void writeMaterials(Export& all) {
    fs::create_directories(all.draft / "materials" / "tables");
    const auto put = [&](const fs::path& place, const schema::Table& table, const std::string& name) {
        std::vector<std::string> others;
        const storeTable::Content content = storeTable::read(all.store, table, name, others);
        for (const std::string& other : others)
            all.notes.push_back(
                fmt::format("{}: column {} is none of a study's and is left out", name, other));
        datasetFile::write(place.string(), writeTables::bytesOf(content));
    };
    for (const schema::Table& table : schema::tables()) {
        if (table.isConfiguration())
            put(all.draft / "materials" / "tables" / fmt::format("{}.csv", table.name), table,
                std::string(table.name));
    }
    const std::vector<keptTables::Kept> kept = keptTables::list(all.store);
    if (!kept.empty()) fs::create_directories(all.draft / "materials" / "replaced");
    for (const keptTables::Kept& one : kept) {
        if (const schema::Table* table = schema::find(one.table))
            put(all.draft / "materials" / "replaced" / (one.name + ".csv"), *table, one.name);
    }
    datasetFile::write((all.draft / "CHANGES.md").string(), datasetTexts::changes(kept));
}

void writeDataset(Export& all) {
    fs::create_directories(all.draft / "data");
    countRows(all);
    all.progress(0);
    if (!all.request.pseudonyms.empty()) readNames(all);
    all.progress(0);
    trialIndex::Index index = trialIndex::build(all.store);
    writeTidy(all, index);
    for (const schema::Table& table : schema::tables()) {
        if (table.kind != schema::Kind::Result) continue;
        writeRaw(all, table);
    }
    writeMaterials(all);
    const datasetTexts::Told told{all.request.name, all.key.has_value(), all.leavesTextsOut(),
                                  simulated::isMarked(all.store)};
    all.dictionary.name = all.request.name;
    all.dictionary.description = datasetTexts::description(told);
    datasetFile::write((all.draft / "dataset_description.json").string(),
                       dictionary::ofDataset(all.dictionary));
    for (const auto& [place, text] : datasetTexts::files(told)) {
        fs::create_directories((all.draft / place).parent_path());
        datasetFile::write((all.draft / place).string(), text);
    }
}

/// The dataset's place, which has to be free. The key must not go out with the data.
fs::path placeOf(const Request& request) {
    std::error_code failed;
    fs::path place = fs::weakly_canonical(fs::absolute(request.folder, failed), failed);
    if (request.folder.empty() || failed)
        throw std::runtime_error(fmt::format("\"{}\" is no folder's name", request.folder));
    if (!place.has_filename()) place = place.parent_path();
    const bool isWord = std::ranges::all_of(request.name, [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    });
    if (request.name.empty() || !isWord)
        throw std::runtime_error(
            fmt::format("name \"{}\": letters from A to Z and digits only", request.name));
    if (!fs::is_directory(place.parent_path()))
        throw std::runtime_error(
            fmt::format("{}: there is no folder {}", request.folder, place.parent_path().string()));
    if (fs::exists(place) && !(fs::is_directory(place) && fs::is_empty(place)))
        throw std::runtime_error(request.folder + " exists already and is not written over");
    if (request.pseudonyms.empty()) return place;
    const fs::path key = fs::weakly_canonical(fs::absolute(request.pseudonyms, failed), failed);
    if (failed || !fs::is_directory(key.parent_path(), failed))
        throw std::runtime_error(request.pseudonyms + ": there is no such folder for the key");
    if (std::ranges::mismatch(place, key).in1 == place.end())
        throw std::runtime_error(request.pseudonyms + ": the key cannot stand in the dataset");
    return place;
}

}  // namespace

std::vector<std::string> write(const Request& request, const std::function<void(double)>& progress) {
    const fs::path place = placeOf(request);
    // One at a time, since the draft has one name: what stands there was left by a killed attempt.
    const OnLeave unlocked = files::lockFolder(place.parent_path().string());
    const fs::path draft = place.parent_path() / fmt::format(".{}.tavixdb", place.filename().string());
    const std::string copy = draft.string() + "-store";
    const auto clear = [&] {
        std::error_code failed;
        for (const std::string& left : {draft.string(), copy, copy + "-journal"})
            fs::remove_all(left, failed);
    };
    clear();
    const OnLeave cleared(clear);
    const engine::Database store = rowStream::openCopy(request.file, copy);
    Export all{request, draft, *store, progress};
    writeDataset(all);
    if (all.key) pseudonyms::write(*all.key, request.pseudonyms);
    std::error_code failed;
    fs::rename(draft, place, failed);
    if (failed) throw std::runtime_error(fmt::format("{}: {}", request.folder, failed.message()));
    return all.notes;
}

}  // namespace exportDataset
