// A store as an ordinary file of its engine, for R, Python and whatever else reads such files.
#pragma once

#include <functional>
#include <string>

namespace plainCopy {

/// Writes the store as it stands at one moment, without encryption, to a new file. Nothing else is changed,
/// and a session may go on. `progress` hears what has been done, 0 to 1; what it throws ends the work, and
/// nothing is left of it. Throws std::runtime_error, which names the file.
void write(const std::string& store, const std::string& copy, const std::function<void(double)>& progress);

}  // namespace plainCopy
