// One simulated subject's session with the real program: from the splash to the closing of the main screen,
// in virtual time. Everything in it follows from the seed, the policy, the scenario and the subject's number.
#pragma once

#include <cstdint>
#include <string>

#include "pilot/policy.h"
#include "pilot/responseTimes.h"
#include "study/simulated.h"

struct Setup {
    std::string folder;  ///< the program's, with `Patients` in it
    std::string now = "2026-01-05 09:00:00";
    ResponseTimes times;
    Parameters parameters;
    int trials = 10;
    int limit = 60;  ///< minutes of the clock on the wall that a subject stays with one patient
    std::uint64_t seed = 1;
};

struct Subject {
    const Policy* policy = nullptr;
    int scenario = 0;  ///< place in the list of the sign-in, from 1
    int number = 0;    ///< from 1
    std::string name;
};

namespace session {

/// How a session ended that has not ended with its last patient.
inline constexpr const char* left = "left";       ///< the patient's time was up and the subject went home
inline constexpr const char* ended = "ended";     ///< the program ended itself
inline constexpr const char* faulted = "fault ";  ///< with number and text behind it
inline constexpr const char* complete = simulated::complete;

/// Plays the session on the store in use; one of the texts above tells how it ended. False dates throw
/// std::runtime_error.
std::string play(const Setup& setup, const Subject& subject);

}  // namespace session
