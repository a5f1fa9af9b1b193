// What a script asks for: a value, and how it reads as text.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

using ScriptValue = nlohmann::ordered_json;

namespace scriptValue {

/// Texts as they are, truth values as true and false, numbers in their general form, lists and records as
/// JSON. Bytes that are no UTF-8 stand in JSON as replacement characters.
std::string textOf(const ScriptValue& value);

/// The text on one line: JSON stands as it is; in any other text a line break shows as \n, a carriage return
/// as \r, a backslash doubled.
std::string printed(const ScriptValue& value);

}  // namespace scriptValue
