// Pseudonyms of subjects, P0001 and on: one for all spellings of a name as the program compares them. They
// take the name's place wherever it stands, also inside identifiers. The key file holds which is whose; it
// belongs to no dataset.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

namespace pseudonyms {

struct Subject {
    std::string name;       ///< as first met
    std::string pseudonym;  ///< empty until it is numbered
    std::set<std::int64_t> trials = {};
};

struct Key {
    std::vector<Subject> subjects;
    std::unordered_map<std::string, std::size_t> places = {};     ///< by the name's folded form
    std::unordered_map<std::string, std::size_t> spellings = {};  ///< by the name as it stands
    std::set<std::string> taken = {};                             ///< pseudonyms
    std::unordered_map<std::string, std::string> unknown = {};    ///< beginnings of identifiers of nobody
};

/// The key of an earlier export, empty where there is no such file yet. Throws std::runtime_error, which
/// names file and line.
Key read(const std::string& file);

/// Writes the key beside its place and moves it there. Only the owner can read it.
void write(const Key& key, const std::string& file);

/// A subject of the store; a trial of it helps to read identifiers.
void add(Key& key, const std::string& name);
void addTrial(Key& key, const std::string& name, std::int64_t trial);

/// Gives those who were added a pseudonym that is nobody's name.
void number(Key& key);

/// The pseudonym of a name that was added and numbered.
std::string ofSubject(const Key& key, const std::string& name);

/// The identifier (name, trial, underscore, number) with the pseudonym in the name's place. Where it can be
/// read in more than one way ("kim112_001"), the same reading is taken each time, so that rows still join.
std::string ofIdentifier(Key& key, const std::string& identifier);

}  // namespace pseudonyms
