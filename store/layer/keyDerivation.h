// The key of a store file, derived from password and salt. The derivation costs tens of milliseconds on
// purpose; it is done once for each salt and remembered for the run.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace keyDerivation {

constexpr std::size_t saltSize = 16;
using Salt = std::array<std::uint8_t, saltSize>;

/// The first 16 bytes of the file, which are its salt; nothing for a file that is missing or shorter.
std::optional<Salt> readSalt(const std::string& path);

/// The raw key with the salt behind it, in the form that the engine takes: x'<64 hex><32 hex>'. Nothing if
/// the library refuses to derive it.
std::optional<std::string> rawKey(const std::string& password, const Salt& salt);

}  // namespace keyDerivation
