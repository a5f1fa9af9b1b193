// The results of a store as a dataset by the Psych-DS standard: CSV files with a dictionary that others can
// read in ten years, the tables for analysis beside the raw ones, and the study's configuration.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace exportDataset {

struct Request {
    std::string file;             ///< the store
    std::string folder;           ///< the dataset's, which is made
    std::string name = "tavix";   ///< of the study, in the names of the files: letters and digits
    std::string pseudonyms = {};  ///< the key file; without one the names stay
    bool keepTexts = false;       ///< what subjects wrote stays in, also under pseudonyms
};

/// Writes the dataset beside its place and moves it there when it is whole; one that stands there is never
/// touched. `progress` hears what is done, 0 to 1; what it throws ends the work, and nothing is left of it.
/// What comes back tells what was left out. The same store, and the same key, give the same bytes. Throws
/// std::runtime_error, which names the file or the table.
std::vector<std::string> write(const Request& request, const std::function<void(double)>& progress);

}  // namespace exportDataset
