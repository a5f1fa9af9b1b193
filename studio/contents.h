// What a study consists of, as a tree on the left of the window: scenarios, patients, words, lists of lengths
// of tests, results. It knows what is chosen, and under which of its entries a finding belongs.
#pragma once

#include <QString>
#include <QTreeWidget>
#include <functional>
#include <string>
#include <vector>

#include "study/finding.h"

namespace contents {

enum class Kind { Start, Scenario, Patients, Words, Tests, Table, Results };

struct Entry {
    Kind kind = Kind::Start;
    std::string name = {};  ///< of the scenario, list or table

    bool operator==(const Entry&) const = default;
};

/// Builds the tree; `heard` is called when a person has chosen an entry.
QTreeWidget* make(const std::function<void()>& heard);

/// Shows what the study consists of now. What is chosen and gone gives way to what stands in its place.
void refresh();

const Entry& chosen();
/// Chooses without a call of `heard`; `refresh` marks it.
void choose(const Entry& entry);

/// The entries under which the cell of a finding may stand, the best first.
std::vector<Entry> placesOf(const check::Finding& finding);

/// Where a finding belongs, in the words of the window: "Night shift: Initial Score".
QString wordsFor(const check::Finding& finding);

}  // namespace contents
