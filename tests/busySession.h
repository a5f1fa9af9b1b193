// A session without pauses, for tests of what stands in the store afterwards.
#pragma once

#include <string>

/// Script of a new subject who treats that many patients. Every action writes rows, and the number of the
/// event is printed once the action has returned: nine lines a patient, the trial's number first, the score
/// last.
std::string busySession(const std::string& subject, int patients);
