// What a dataset says of itself in words, for people who have never seen the program.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "study/keptTables.h"

namespace datasetTexts {

struct Told {
    std::string name;
    bool pseudonyms;  ///< stand in the names' place
    bool textsOut;    ///< what subjects wrote is left out
    bool simulated;   ///< no people, or not people alone
};

std::string description(const Told& told);

/// The history of the study's tables.
std::string changes(const std::vector<keptTables::Kept>& kept);

/// The other texts, each with its place in the dataset.
std::vector<std::pair<std::string, std::string>> files(const Told& told);

}  // namespace datasetTexts
