// What marks a store as one of simulated subjects: two tables that no store of people has. One tells of each
// run that wrote into it, the other of each subject.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "store/layer/engine.h"

namespace simulated {

/// A row a run: program, policies, scenarios, seed, parameters, subjects, trials, shard, and when it began.
inline constexpr const char* runs = "pilotRuns";
/// A row a subject: name, policy, scenario, seed, number and how the session ended.
inline constexpr const char* subjects = "pilotSubjects";

/// What every text about such a store calls its subjects.
inline constexpr const char* called = "simulated subjects";

/// How a session ended that came to the end of its last patient.
inline constexpr const char* complete = "complete";

/// Whether this is the name of one of the two tables.
bool isMark(std::string_view table);

/// Whether a store holds simulated subjects.
bool isMarked(engine::Connection& database);

/// What the second table tells of a subject.
struct Subject {
    std::string policy;
    std::string ended;  ///< how its session ended
};

/// All of them by name, case aside (text::folded); none in a store that holds people alone.
std::unordered_map<std::string, Subject> subjectsOf(engine::Connection& database);

/// Makes the two tables where they are missing.
void mark(engine::Connection& database);

/// Adds what `from` tells of runs and simulated subjects and `to` does not yet. Nothing comes of a store of
/// people.
void unite(engine::Connection& from, engine::Connection& to);

/// The columns of a run that two parts of it have in common, and that its continuation must have too: all but
/// the moment.
std::vector<std::string> runColumns();
/// The columns of a subject, the name in front.
std::vector<std::string> subjectColumns();

}  // namespace simulated
