// What a script can ask of a control: its properties as texts.
#pragma once

#include <optional>
#include <string>

#include "forms/control.h"

namespace properties {

/// The property as text: truth values as true and false, lists as JSON, places in twips. Nothing for a
/// property that the kind of control does not have.
std::optional<std::string> read(const Control& control, const std::string& property);

/// On one line: a line break as \n, a carriage return as \r, a backslash doubled.
std::string onOneLine(const std::string& text);

}  // namespace properties
