// The stores of several stations made one.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace mergeStores {

struct Outcome {
    std::vector<std::string> problems;  ///< why nothing was merged, each with its file
    std::vector<std::string> notes;     ///< what came from each store
};

/// Adds the subjects of the stores `files` to the store `into`, in one transaction; where `into` does not
/// exist it begins as a copy of the first store. Subjects whose rows are there already are left out. Nothing
/// is changed when a subject stands in two stores with different rows, when two subjects would have the same
/// identifiers, when the tables of the experiment differ, or, unless `simulatedToo`, when some stores hold
/// simulated subjects and others people. Sessions may go on in `files`; in `into` they
/// wait. `progress` hears what has been done, 0 to 1. What cannot be read throws, with the file's name.
Outcome merge(const std::vector<std::string>& files, const std::string& into, bool simulatedToo,
              const std::function<void(double)>& progress);

}  // namespace mergeStores
