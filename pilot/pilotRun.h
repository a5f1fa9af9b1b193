// A whole run: who is to be played, by how many processes, and the store that comes of it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "pilot/session.h"

struct Run {
    Setup setup;
    std::vector<const Policy*> policies;
    std::string scenario = "all";  ///< a name, or all
    int subjects = 100;            ///< for each scenario and policy
    std::string file;              ///< the store that is made
    int jobs = 1;
    int shard = 1;  ///< which part of the subjects, from 1
    int shards = 1;
    bool resume = false;
};

namespace pilotRun {

/// Names have numbers of this width at least.
inline constexpr int numberWidth = 5;

struct Outcome {
    bool whole = false;     ///< false after Ctrl-C
    std::int64_t done = 0;  ///< subjects in the store now
    std::int64_t all = 0;
};

/// Plays the subjects and writes the store, each subject whole or not at all and in one order. Throws
/// std::runtime_error where the run cannot begin or go on.
Outcome play(const Run& run);

}  // namespace pilotRun
