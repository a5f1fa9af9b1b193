// A study from memory into its store: all tables that have changed in one transaction, then the files of its
// patients. Results stay as they are.
#pragma once

#include <string>
#include <vector>

#include "study/book.h"
#include "study/updateStore.h"

namespace bookStore {

struct Target {
    std::string file;    ///< the store; made where there is none
    std::string folder;  ///< the study's, with Patients/ in it or to come
};

/// Saves what differs between `opened`, as the store had it, and `now`. Refused, with nothing changed, while
/// a session may be at work, or where a table is no longer as it was opened. What is replaced is kept as by
/// `updateStore`.
updateStore::Outcome save(const Target& target, const book::Book& opened, const book::Book& now,
                          updateStore::Wish wish);

}  // namespace bookStore
