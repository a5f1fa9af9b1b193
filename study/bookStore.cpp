#include "study/bookStore.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>

#include "platform/files.h"
#include "platform/onLeave.h"
#include "store/layer/schema.h"
#include "study/createStore.h"
#include "study/readStore.h"

namespace bookStore {

namespace fs = std::filesystem;

namespace {

/// A file of Patients/ on its way: complete beside its place before the tables change.
struct Staged {
    fs::path draft;
    fs::path place;
};

/// A column that is none of a study's goes along without a type, so that its values stay what they are.
storeTable::Content contentOf(const schema::Table& table, const book::Sheet& sheet) {
    storeTable::Content content{{}, sheet.content.rows};
    for (const std::string& column : sheet.content.columns)
        content.columns.push_back(schema::findColumn(table, column)
                                      .value_or(schema::NamedColumn{column, schema::ColumnType::Text}));
    return content;
}

readTables::Tables tablesOf(const book::Book& opened, const book::Book& now, bool all) {
    readTables::Tables tables;
    for (const schema::Table& table : schema::tables()) {
        const book::Sheet& sheet = book::sheetOf(now, table.name);
        if (!sheet.there) continue;
        if (!table.isConfiguration()) {
            const book::Sheet& was = book::sheetOf(opened, table.name);
            if (!all && was.content.columns != sheet.content.columns)
                tables.contents[table.name] = {contentOf(table, sheet).columns, {}};
            continue;
        }
        for (const std::string& column : sheet.content.columns)
            tables.mostDiseases = std::max(tables.mostDiseases, schema::seriesNumber(table, column));
        if (all || !book::sameTable(book::sheetOf(opened, table.name), sheet))
            tables.contents[table.name] = contentOf(table, sheet);
    }
    return tables;
}

std::vector<std::string> changedSince(engine::Connection& database, const book::Book& opened,
                                      const readTables::Tables& tables) {
    std::vector<std::string> problems;
    for (const auto& [name, content] : tables.contents) {
        if (!schema::find(name)->isConfiguration()) continue;
        const book::Sheet& was = book::sheetOf(opened, name);
        const bool there = storeTable::exists(database, std::string(name));
        if (!there && !was.there) continue;
        const engine::Rows is = there ? readStore::table(database, name) : engine::Rows();
        if (there != was.there || is.columns != was.content.columns || is.rows != was.content.rows)
            problems.push_back(
                fmt::format("{}: somebody has changed it in the store since it was opened here", name));
    }
    return problems;
}

std::vector<Staged> stage(const Target& target, const book::Book& opened, const book::Book& now) {
    std::vector<Staged> staged;
    const fs::path folder = fs::path(target.folder) / "Patients";
    for (const auto& [name, source] : now.files) {
        const auto before = opened.files.find(name);
        if (before != opened.files.end() && before->second == source) continue;
        fs::create_directories(folder);
        staged.push_back({folder / fmt::format(".{}.tavix", name), folder / name});
        fs::copy_file(source, staged.back().draft, fs::copy_options::overwrite_existing);
    }
    return staged;
}

}  // namespace

updateStore::Outcome save(const Target& target, const book::Book& opened, const book::Book& now,
                          updateStore::Wish wish) {
    updateStore::Outcome outcome;
    std::vector<Staged> staged;
    const OnLeave cleared([&] {
        std::error_code failed;
        for (const Staged& file : staged) fs::remove(file.draft, failed);
    });
    try {
        staged = stage(target, opened, now);
        if (!fs::exists(target.file)) {
            fs::create_directories(fs::path(target.file).parent_path());
            for (std::string& problem : createStore::make(tablesOf(opened, now, true), target.file).problems)
                outcome.problems.push_back(std::move(problem));
        } else {
            const readTables::Tables tables = tablesOf(opened, now, false);
            bool elsewhere = false;
            if (!tables.contents.empty())
                outcome = updateStore::replace(
                    target.file, tables,
                    [&](engine::Connection& database) {
                        std::vector<std::string> changed = changedSince(database, opened, tables);
                        elsewhere = !changed.empty();
                        return changed;
                    },
                    wish);
            outcome.elsewhere = elsewhere;
        }
        if (!outcome.problems.empty() || wish.dryRun) return outcome;
        for (const Staged& file : staged) {
            files::moveIntoPlace(file.draft, file.place);
            outcome.done.push_back("Patients/" + file.place.filename().string());
        }
    } catch (const fs::filesystem_error& error) {
        outcome.problems.push_back(fmt::format("{}: {}", error.path1().string(), error.code().message()));
    } catch (const std::exception& error) {
        outcome.problems.emplace_back(error.what());
    }
    return outcome;
}

}  // namespace bookStore
