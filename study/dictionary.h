// The dictionary of a dataset: what each column of each file means, its unit and range, and what an empty
// field of it says. The raw tables take their meanings from the list of tables.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "store/layer/schema.h"

namespace dictionary {

struct Variable {
    std::string name;
    std::string meaning;
    std::string unit;
    std::string empty;  ///< what an empty field means
    std::optional<double> least = {};
    std::optional<double> most = {};
};

/// A column of a raw table, with the ranges of its type where the list of tables says nothing closer.
Variable ofColumn(const schema::Table& table, const std::string& column);

/// A file's part of the dictionary, or the dataset's, as JSON-LD of the vocabulary schema.org. In the
/// dataset's a name that stands in several files has the meaning of each.
struct Files {
    std::string name;         ///< of the dataset
    std::string description;  ///< of the dataset
    std::vector<std::pair<std::string, std::vector<Variable>>> files;
};
std::string ofFile(const std::vector<Variable>& variables);
std::string ofDataset(const Files& files);

}  // namespace dictionary
