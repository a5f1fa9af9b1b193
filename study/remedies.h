// What mends a finding where only one thing makes sense: a row that is missing, rates that do not add up.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "study/book.h"
#include "study/finding.h"

namespace remedies {

struct Remedy {
    std::string label;  ///< for a button: "Add the row"
    std::function<void(book::Book& book)> mend;
};

/// The remedy of a finding of `check` on this state of the study; none where it is for a person to choose.
std::optional<Remedy> of(const book::Book& book, const check::Finding& finding);

}  // namespace remedies
