// The states that a study went through while it was changed: one now, those that can be undone, those that
// can be done again.
#pragma once

#include <string>
#include <vector>

#include "study/book.h"

namespace bookHistory {

struct Step {
    book::Book before;
    std::string what;  ///< in the words of a menu: "Rename the scenario"
    std::string of;    ///< steps that follow each other and are of the same thing are one
};

struct History {
    book::Book now;
    book::Book saved;  ///< as it stands in the store
    std::vector<Step> past = {};
    std::vector<Step> future = {};  ///< their `before` is the state that comes back
};

/// Begins with what stands in the store.
History begin(book::Book opened);

/// Makes `next` the state now; false, and no step, where it is the same. Of more steps than anybody goes back
/// the first are forgotten.
bool take(History& history, book::Book next, const std::string& what, const std::string& of = {});

/// The next step is one of its own, whatever it is of.
void part(History& history);

bool undo(History& history);
bool redo(History& history);

/// Whether there is something to save.
bool isChanged(const History& history);

}  // namespace bookHistory
