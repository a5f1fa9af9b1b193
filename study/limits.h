// What the program has room for: a study beyond it ends a session, and what reads results goes by it.
#pragma once

namespace limits {

inline constexpr int mostDiseases = 4;  ///< rows of the diagnosis dialog, and beliefs of a state
inline constexpr int mostSymptoms = 6;  ///< lines of tests on the screen

}  // namespace limits
