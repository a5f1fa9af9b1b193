// Words on the anonymous model: the vocabulary is dealt onto its columns and rows in an order that is drawn
// once for each subject and scenario, stored, and given back when the subject returns. So nobody can carry
// knowledge of real diseases into the task. Only words move; the numbers of the model never do.
#pragma once

#include <string>
#include <vector>

#include "platform/list.h"

namespace termOrders {

/// Reads both vocabularies, deals them and records the order. At most four diseases come into play, the
/// first of the table; an empty vocabulary leaves the words as they were.
void loadVocabulary();

/// The stored order of the subject in this scenario, or a fresh deal if there is none.
void restoreTermOrders();

/// A forward Fisher-Yates pass, reseeded from the millisecond counter before every draw.
void shuffleTerms(List<std::string>& terms);

/// Adds the row of the subject and the scenario of the sign-in screen. Fewer symptom words than rows of
/// the model fault with Subscript out of range.
void recordTermOrders();

/// The items of a comma-separated list, trimmed; a list of one item is taken as it stands.
List<std::string> parseTermList(const std::string& listText);

}  // namespace termOrders
