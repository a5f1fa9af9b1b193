// A study that has been changed and not saved, kept in a folder of the experimenter's own until it is: an
// encrypted store with the tables as they were opened and as they are now, and the files of its patients.
#pragma once

#include <optional>
#include <string>

#include "study/book.h"

namespace bookDraft {

struct Draft {
    std::string study;  ///< the store to which it belongs
    book::Book opened;
    book::Book now;
};

/// Writes the draft into `folder`, which is made; the one before is there until the new one is complete.
/// Throws std::exception, which names the file.
void keep(const std::string& folder, const Draft& draft);

/// The draft of that folder, if there is one that can be read.
std::optional<Draft> find(const std::string& folder);

/// The draft goes. Files that were put aside stay: states of the study that can be undone or done again need
/// them for as long as it is open.
void forget(const std::string& folder);
/// Takes away what was put aside for a draft that is no longer there.
void tidy(const std::string& folder);

/// Puts bytes for a file of Patients/ aside; where they stand. The same bytes stand once. Throws
/// std::runtime_error, which names the file.
std::string putAside(const std::string& folder, const std::string& name, const std::string& bytes);

}  // namespace bookDraft
