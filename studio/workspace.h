// The study that stands open in the window: its states, what is found in it, and who wants to hear of a
// change. Everything that changes a study goes through `edit`, so that each change can be undone and survives
// a kill.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "study/bookHistory.h"
#include "study/finding.h"
#include "study/updateStore.h"

namespace workspace {

/// Where drafts of studies are kept, a folder of the person's own.
void setDraftRoot(const std::string& folder);

/// Where the sample experiment stands, with `tables` and `Patients`; empty where it is not installed.
std::string sampleFolder();

bool isOpen();
/// The study's folder, in which data/ and Patients/ stand.
const std::string& folder();
/// Its store.
std::string store();

/// Opens the study of this folder, or of the folder in which this store stands. Says why not, and then what
/// was open stays open.
std::string open(const std::string& place);

/// Makes a study in a folder that has none, of the sample or with one scenario of two diseases, and opens it.
std::string make(const std::string& folder, bool ofSample);

/// What was not saved when the program ended, of the study that is open.
bool hasDraft();
void takeDraft();
void dropDraft();

const book::Book& book();
const bookHistory::History& history();
const std::vector<check::Finding>& findings();

/// Changes the study. `change` says why it cannot be, and then nothing has changed. `what` stands in the menu
/// behind "Undo"; steps of one `of` that follow each other are one.
std::string edit(const std::string& what, const std::function<std::string(book::Book&)>& change,
                 const std::string& of = {});
/// The same for a change that nothing can be against.
void change(const std::string& what, const std::function<void(book::Book&)>& work);
/// What is typed next is a step of its own.
void part();
void undo();
void redo();

/// Keeps what is not saved; called a moment after each change.
void keepDraft();

/// Saves. `closed` says that no session is at work, whatever young rows tell.
updateStore::Outcome save(bool closed);

/// The tables that somebody else has put into the store since it was opened are what the next save replaces.
void takeAsSaved();

/// What of the study is to be played.
struct Part {
    std::string scenario;            ///< alone if it is named
    std::optional<int> person = {};  ///< row of tblPatients, alone if there is one

    bool operator==(const Part&) const = default;
};

/// A new folder among the temporary ones, into which nobody else can look. Whoever asks for it removes it; of
/// a window that is killed the next one does.
std::string ownFolder();

/// A folder in which that part of the study as it is now can be played; the caller removes it. Throws
/// std::exception.
std::string rehearsal(const Part& part);

/// Removes the folders of windows that were killed.
void sweepFolders();

/// Where the bytes of a file of Patients/ stand now.
std::string fileOf(const std::string& name);
/// Puts bytes under a name of Patients/ into a state of the study.
void putFile(book::Book& book, const std::string& name, const std::string& bytes);

/// Called after each change, undo and save, and when another study is opened.
void whenChanged(std::function<void()> heard);

}  // namespace workspace
