// How the rows of the results belong together: which row of dataTrial an event belongs to, which words its
// subject was dealt, which beliefs a diagnosis left. What the tidy tables join stands here once.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "store/layer/engine.h"

namespace trialIndex {

/// The words of a subject in a scenario, in the order in which they were dealt.
struct Words {
    std::vector<std::string> symptoms;
    std::vector<std::string> diseases;
};

/// A row of a diagnosis; the disease or the belief is missing where the store has none.
struct Belief {
    std::string disease;
    std::optional<std::int64_t> percent;
};

struct Trial {
    std::string key;    ///< subject and number: the same for a case that came twice
    std::string start;  ///< date and time of day
    const Words* words = nullptr;
    bool hasEvents = false;
    std::optional<std::size_t> lastDiagnosis = {};
};

struct Index {
    std::vector<Trial> trials;                                          ///< as the rows of dataTrial
    std::unordered_map<std::string, std::vector<std::size_t>> numbers;  ///< trials of a key
    std::vector<std::vector<Belief>> diagnoses;                         ///< as the events "Diagnose"
    std::unordered_map<std::string, std::vector<std::vector<std::int64_t>>> starts;  ///< by StateID
    std::map<std::pair<std::string, std::string>, Words> words;  ///< by folded subject and scenario
    std::unordered_map<std::string, std::string> folded;         ///< spellings that were met
};

Index build(engine::Connection& store);

/// The row of dataTrial of an event. Of a case that came twice it is the last row that had begun by then.
std::optional<std::size_t> trialOf(Index& index, const engine::Value& subject, const engine::Value& number,
                                   const std::string& moment);

/// Date and time of day as one text, which sorts.
std::string momentOf(const engine::Value& date, const engine::Value& time);

/// Seconds from one moment to another; nothing where one of them is no moment.
std::optional<std::int64_t> secondsBetween(const std::string& from, const std::string& to);

}  // namespace trialIndex
