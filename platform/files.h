// Files and folders: whole-file reads with faults and what only this operating system has: owners, locks of
// folders, where the running program stands.
#pragma once

#include <optional>
#include <string>
#include <system_error>

#include "platform/onLeave.h"

namespace files {

/// All bytes of a file; nothing if it cannot be read. A folder counts as unreadable.
std::optional<std::string> tryRead(const std::string& path);

/// All bytes of a file. Faults with File not found, naming the path.
std::string read(const std::string& path);

/// Gives a file the owner, the group and the permissions of another one.
std::error_code copyOwnership(const std::string& from, const std::string& to);

/// Gives a complete file its place, over what stands there. The file, its name and what was done to the names
/// beside it before are on the disk when this returns. Throws std::filesystem::filesystem_error.
void moveIntoPlace(const std::string& from, const std::string& to);

/// Keeps others who ask for the same folder waiting until this goes, or the program ends. A file system
/// without such locks lets everybody in.
[[nodiscard]] OnLeave lockFolder(const std::string& folder);

/// Makes a folder that nobody else can look into, under a new name in the folder for temporary files. Throws
/// std::system_error.
std::string freshFolder(const std::string& beginning);

/// Folder of the running program, without a separator at its end.
std::string folderOfProgram();

}  // namespace files
