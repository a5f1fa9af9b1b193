#include "studio/workspace.h"

#include <fmt/format.h>

#include <QLockFile>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

#include "platform/companion.h"
#include "platform/files.h"
#include "studio/background.h"
#include "study/bookDraft.h"
#include "study/bookPeople.h"
#include "study/bookScenarios.h"
#include "study/bookStore.h"
#include "study/check.h"

namespace workspace {

namespace fs = std::filesystem;

namespace {

struct State {
    std::string folder;
    bookHistory::History history;
    std::vector<check::Finding> findings;
    /// What was not saved when the program ended; its place stays as it is until it is taken up or dropped.
    std::optional<bookDraft::Draft> draft = {};
};

constexpr std::chrono::seconds pause{2};               // in typing, behind which a new step begins
constexpr std::chrono::seconds patience{2};            // for what reads the results
constexpr const char* folderBegins = "tavix-studio-";  // in front of the process that made it

std::string draftRoot;
State state;
std::vector<std::function<void()>> listeners;

std::string storeIn(const std::string& folder) { return folder + "/data/TavixData.mdb"; }

/// One folder for each study, by its place.
std::string draftFolder(const std::string& folder = state.folder) {
    return fmt::format("{}/{:016x}", draftRoot, std::hash<std::string>{}(folder));
}

using Turn = std::unique_ptr<QLockFile>;

/// This window's turn at the study of this folder; none while another window has it, for two of them would
/// write one draft.
Turn turnAt(const std::string& folder) {
    fs::create_directories(draftRoot);
    auto lock = std::make_unique<QLockFile>(QString::fromStdString(draftFolder(folder) + ".lock"));
    lock->setStaleLockTime(0);
    if (!lock->tryLock() && lock->error() == QLockFile::LockFailedError) return {};
    return lock;
}

void tell() {
    state.findings = check::look(book::studyOf(state.history.now, state.folder));
    for (const auto& heard : listeners) heard();
}

/// What was not saved of the study of this folder, if it differs from what is saved now.
std::optional<bookDraft::Draft> draftOf(const std::string& folder, const book::Book& saved) {
    std::optional<bookDraft::Draft> draft = bookDraft::find(draftFolder(folder));
    if (draft && (draft->study != storeIn(folder) || book::same(draft->now, saved))) draft.reset();
    return draft;
}

/// What was open stays so until nothing can fail any more.
void start(const std::string& folder, book::Book opened, Turn turn) {
    static Turn held;
    std::optional<bookDraft::Draft> draft = draftOf(folder, opened);
    state = {folder, bookHistory::begin(std::move(opened)), {}, std::move(draft)};
    if (turn) held = std::move(turn);
    bookDraft::tidy(draftFolder());
    tell();
}

using Files = std::map<std::string, std::string>;

/// The files of Patients/ that a save is going to replace, by name, and where their bytes stand from now on.
Files putReplacedAside() {
    Files replaced;
    for (const auto& [name, place] : state.history.now.files) {
        if (const std::optional<std::string> bytes = files::tryRead(state.folder + "/Patients/" + name))
            replaced[name] = bookDraft::putAside(draftFolder(), name, *bytes);
    }
    return replaced;
}

/// The pictures and texts of a study, and what has changed of them, under the names that the tables give.
void linkFiles(const fs::path& into) {
    fs::create_directories(into);
    std::error_code failed;
    for (const fs::directory_entry& entry : fs::directory_iterator(state.folder + "/Patients", failed)) {
        const std::string name = entry.path().filename().string();
        if (!state.history.now.files.contains(name))
            fs::create_symlink(fs::absolute(entry.path()), into / name);
    }
    for (const auto& [name, place] : state.history.now.files) fs::create_symlink(place, into / name);
}

}  // namespace

void setDraftRoot(const std::string& folder) { draftRoot = folder; }

std::string sampleFolder() {
    for (const char* place : {"/../../share/tavix", "/../../../sample"}) {
        const std::string folder = files::folderOfProgram() + place;
        if (fs::is_directory(folder + "/tables")) return fs::canonical(folder).string();
    }
    return {};
}

bool isOpen() { return !state.folder.empty(); }
const std::string& folder() { return state.folder; }
std::string store() { return storeIn(state.folder); }

std::string open(const std::string& place) {
    std::error_code failed;
    fs::path folder = fs::absolute(place, failed).lexically_normal();
    if (fs::is_regular_file(folder, failed)) folder = fs::path(check::folderOf(folder.string()));
    if (folder.filename().empty() && folder.has_parent_path()) folder = folder.parent_path();
    if (folder.empty()) return fmt::format("{} does not stand in the folder \"data\" of a study.", place);
    const bool there = fs::is_regular_file(storeIn(folder.string()), failed);
    if (failed && failed != std::errc::no_such_file_or_directory && failed != std::errc::not_a_directory)
        return fmt::format("{}: {}", storeIn(folder.string()), failed.message());
    if (!there)
        return fmt::format("{} holds no study: there is no file data/TavixData.mdb in it.", folder.string());
    try {
        const auto opened = std::make_shared<book::Book>();
        const std::string store = storeIn(folder.string());
        const bool waited = background::await(
            "The study is being read. Where another program holds its store, it is opened as "
            "soon as that one lets it go.",
            [opened, store, place = folder.string()] {
                *opened = book::open(store);
                // Reads the pictures; what follows finds that they were judged.
                check::look(book::studyOf(*opened, place));
            });
        if (!waited) return fmt::format("{} was not waited for.", store);
        Turn turn;
        if (folder != state.folder && !(turn = turnAt(folder.string())))
            return fmt::format("{} stands open in another window of this program.", folder.string());
        start(folder.string(), std::move(*opened), std::move(turn));
    } catch (const std::exception& error) {
        return error.what();
    }
    return {};
}

std::string make(const std::string& folder, bool ofSample) {
    std::error_code failed;
    const fs::path place = fs::absolute(folder, failed).lexically_normal();
    for (const char* taken : {"data", "Patients"}) {
        if (fs::exists(place / taken, failed))
            return fmt::format("{} has a folder \"{}\" already, which stays as it is. Choose another folder.",
                               place.string(), taken);
    }
    for (fs::path above = place.parent_path(); above.has_relative_path(); above = above.parent_path()) {
        if (fs::exists(storeIn(above.string()), failed))
            return fmt::format("{} is a study already, and {} would stand in it. Choose another folder.",
                               above.string(), place.string());
    }
    try {
        fs::create_directories(place / "Patients");
        book::Book empty = book::fresh();
        if (ofSample) {
            const std::string sample = sampleFolder();
            if (sample.empty()) return "The sample experiment is not installed.";
            fs::copy(sample + "/Patients", place / "Patients");
            empty = book::ofTables(sample + "/tables");
        } else {
            bookScenarios::add(empty, "My scenario");
        }
        const updateStore::Outcome made =
            bookStore::save({storeIn(place.string()), place.string()}, book::fresh(), empty, {});
        if (!made.problems.empty()) return made.problems.front();
    } catch (const fs::filesystem_error& error) {
        return fmt::format("{}: {}", error.path1().string(), error.code().message());
    } catch (const std::exception& error) {
        return error.what();
    }
    return open(place.string());
}

bool hasDraft() { return state.draft.has_value(); }

void takeDraft() {
    if (!state.draft) return;
    bookDraft::Draft draft = *std::exchange(state.draft, {});
    state.history.saved = std::move(draft.opened);
    bookHistory::take(state.history, std::move(draft.now), "What was not saved");
    tell();
}

void dropDraft() {
    state.draft.reset();
    bookDraft::forget(draftFolder());
}

const book::Book& book() { return state.history.now; }
const bookHistory::History& history() { return state.history; }
const std::vector<check::Finding>& findings() { return state.findings; }

std::string edit(const std::string& what, const std::function<std::string(book::Book&)>& change,
                 const std::string& of) {
    using Clock = std::chrono::steady_clock;
    static Clock::time_point last;
    if (Clock::now() - std::exchange(last, Clock::now()) > pause) part();
    book::Book next = state.history.now;
    std::string problem = change(next);
    if (problem.empty() && bookHistory::take(state.history, std::move(next), what, of)) tell();
    return problem;
}

void change(const std::string& what, const std::function<void(book::Book&)>& work) {
    edit(what, [&](book::Book& book) {
        work(book);
        return std::string();
    });
}

void part() { bookHistory::part(state.history); }

void undo() {
    if (bookHistory::undo(state.history)) tell();
}

void redo() {
    if (bookHistory::redo(state.history)) tell();
}

void keepDraft() {
    if (!isOpen() || state.draft) return;
    if (!bookHistory::isChanged(state.history)) return dropDraft();
    bookDraft::keep(draftFolder(), {store(), state.history.saved, state.history.now});
}

updateStore::Outcome save(bool closed) {
    std::error_code failed;
    if (!fs::exists(store(), failed)) return {.problems = {fmt::format("{} is no longer there.", store())}};
    const Files replaced = putReplacedAside();
    const auto turn = background::turn(patience);
    if (!turn) return {.problems = {"The results are being read just now. Save in a moment."}};
    updateStore::Outcome outcome =
        bookStore::save({store(), state.folder}, state.history.saved, state.history.now, {.closed = closed});
    if (!outcome.problems.empty()) return outcome;
    state.history.saved = state.history.now;
    part();
    // The states before the save find the files that they were made with.
    for (auto* steps : {&state.history.past, &state.history.future}) {
        for (bookHistory::Step& step : *steps) step.before.files.insert(replaced.begin(), replaced.end());
    }
    tell();
    return outcome;
}

void takeAsSaved() {
    state.history.saved = book::open(store());
    tell();
}

std::string ownFolder() {
    return files::freshFolder(fmt::format("{}{}", folderBegins, companion::ownNumber()));
}

std::string rehearsal(const Part& part) {
    const std::string place = ownFolder();
    book::Book played = state.history.now;
    if (!part.scenario.empty()) {
        for (const std::string& name : bookScenarios::namesOf(played)) {
            if (!check::sameName(name, part.scenario)) bookScenarios::remove(played, name);
        }
    }
    if (part.person) bookPeople::keepOnly(played, *part.person);
    linkFiles(fs::path(place) / "Patients");
    played.files.clear();
    const updateStore::Outcome made = bookStore::save({storeIn(place), place}, book::fresh(), played, {});
    if (!made.problems.empty()) {
        fs::remove_all(place);
        throw std::runtime_error(made.problems.front());
    }
    return place;
}

void sweepFolders() {
    std::error_code failed;
    for (const fs::directory_entry& entry : fs::directory_iterator(fs::temp_directory_path(failed), failed)) {
        const std::string name = entry.path().filename().string();
        if (!name.starts_with(folderBegins)) continue;
        const long maker = std::strtol(name.c_str() + std::strlen(folderBegins), nullptr, 10);
        if (maker > 0 && !companion::isRunning(maker)) fs::remove_all(entry.path(), failed);
    }
}

std::string fileOf(const std::string& name) {
    const auto draft = state.history.now.files.find(name);
    return draft == state.history.now.files.end() ? state.folder + "/Patients/" + name : draft->second;
}

void putFile(book::Book& book, const std::string& name, const std::string& bytes) {
    book.files[name] = bookDraft::putAside(draftFolder(), name, bytes);
}

void whenChanged(std::function<void()> heard) { listeners.push_back(std::move(heard)); }

}  // namespace workspace
