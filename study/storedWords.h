// The words that were dealt to subjects, against the tables in force. A subject who comes back gets the
// stored words again, however many they are: with too few the session ends, with too many or other ones it
// speaks of diseases that the tables do not have.
#pragma once

#include <string>
#include <vector>

#include "store/layer/engine.h"

namespace storedWords {

/// A line for each subject and scenario whose words do not fit: who, where and why.
std::vector<std::string> misfits(engine::Connection& database);

}  // namespace storedWords
