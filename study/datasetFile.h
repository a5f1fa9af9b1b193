// A CSV file of a dataset, written row by row: UTF-8 without a mark at its start, lines that end in a line
// feed. An empty value is nothing between two commas, an empty text is two quotes.
#pragma once

#include <fstream>
#include <span>
#include <string>
#include <vector>

#include "store/layer/engine.h"

namespace datasetFile {

struct File {
    std::string path;
    std::size_t columns;
    std::ofstream bytes;
};

/// Begins the file with the names of its columns. Throws std::runtime_error, which names the file.
File begin(const std::string& path, const std::vector<std::string>& columns);

/// Adds a row; it has a value for each column.
void add(File& file, std::span<const engine::Value> row);

/// Throws std::runtime_error where the disk did not take it all.
void finish(File& file);

/// A whole text file.
void write(const std::string& path, const std::string& bytes);

/// The field as it stands in the file. A text that is no UTF-8 is taken for Windows-1252.
std::string field(const engine::Value& value);

}  // namespace datasetFile
