// The two tables for analysis: a row for each patient with the options, the truth and the outcome beside each
// other, and a row for each event with its seconds and the beliefs in force. What the raw tables need several
// joins and some care for is done here once.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "store/layer/engine.h"
#include "study/dictionary.h"
#include "study/trialIndex.h"

namespace tidyTables {

using Take = std::function<void(std::vector<engine::Value>& row)>;

/// The columns of a row of trials, and the rows in the order of dataTrial. Each is read with the
/// configuration tables that were in force when it began.
std::vector<dictionary::Variable> trialColumns();
void eachTrial(engine::Connection& store, trialIndex::Index& index, const Take& take);

/// The columns of a row of events, and the rows in the order of dataEvents.
std::vector<dictionary::Variable> eventColumns();
void eachEvent(engine::Connection& store, trialIndex::Index& index, const Take& take);

/// Where the subject, identifiers and free texts stand in these rows.
inline constexpr std::size_t trialSubject = 0;
inline constexpr std::size_t eventSubject = 0;
inline constexpr std::size_t eventId = 3;
inline constexpr std::size_t eventAction = 8;
inline constexpr std::size_t eventItem = 10;
inline constexpr std::size_t eventState = 14;

}  // namespace tidyTables
