// Who may be at work on a store just now. A session opens the store for moments only, and reads its tables
// once, at the sign-in; so a lock tells of it only by chance, and its rows have to.
#pragma once

#include <string>
#include <vector>

#include "store/layer/engine.h"

namespace openSessions {

/// A subject whose last row is younger than this, in minutes, may still be at work: the longest time planned
/// for a patient.
constexpr int youngMinutes = 30;

/// A line for each subject with a row that is young: who it is, of when it is, and whether a trial stands
/// open. A trial that stands open and is older was closed by a moderator or broken off, as happens every day.
std::vector<std::string> young(engine::Connection& database);

/// yyyy-mm-dd hh:mm:ss, local time as in the rows, so many minutes from now.
std::string moment(int minutesFromNow);

}  // namespace openSessions
