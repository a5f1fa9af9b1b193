// The fields of the run state by name, for scripts: "score", "patients(0).status".
#pragma once

#include <optional>
#include <string>

namespace stateFields {

/// The field as text, lists and records as JSON; nothing for a name that does not exist.
std::optional<std::string> read(const std::string& path);

}  // namespace stateFields
