// What a committed diagnosis leaves in the store: the event, one row per hypothesis, and one row with all
// beliefs of that moment side by side. A cancel leaves nothing.
#pragma once

namespace diagnosisRecord {

/// Counts the diagnosis, moves `diagnosisStateId` on, and writes the rows. The event itself already carries
/// the new state.
void recordHypothesisState();

}  // namespace diagnosisRecord
