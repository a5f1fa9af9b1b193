// Files and folders: whole-file reads with faults and where the running program stands, the one thing
// here that only this operating system has.
#pragma once

#include <optional>
#include <string>

namespace files {

/// All bytes of a file; nothing if it cannot be read. A folder counts as unreadable.
std::optional<std::string> tryRead(const std::string& path);

/// All bytes of a file. Faults with File not found, naming the path.
std::string read(const std::string& path);

/// Folder of the running program, without a separator at its end.
std::string folderOfProgram();

}  // namespace files
