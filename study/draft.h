// Files on their way: written beside their place under a hidden name and moved there when complete, so that
// a broken attempt leaves no half file.
#pragma once

#include <array>
#include <string>

namespace draft {

/// What the engine keeps beside a store while it works on it, and what a killed program leaves.
inline constexpr std::array companions{"-journal", "-wal", "-shm"};

/// The draft of the file at `place`. It has one name, so that the next attempt clears away what a killed one
/// has left; whoever writes it locks the folder.
std::string of(const std::string& place);

/// Removes a draft and what stands beside it.
void remove(const std::string& draft);

/// Where a new file is to stand, links resolved. Throws std::runtime_error where there is no such folder, or
/// something stands there already.
std::string freshPlace(const std::string& file);

/// Copies a store as it stands at one moment, still encrypted. A session at work waits for as long as the
/// copying of the bytes takes. Throws std::runtime_error, which names the file.
void copyStore(const std::string& store, const std::string& copy);

}  // namespace draft
