// The fields of the run state by name, for scripts: "score", "patients(0).status".
#pragma once

#include <optional>
#include <string>

#include "headless/scriptValue.h"

namespace stateFields {

/// The field; nothing for a name that does not exist.
std::optional<ScriptValue> read(const std::string& path);

}  // namespace stateFields
