// What a script can ask of a control: its properties.
#pragma once

#include <functional>
#include <string>

#include "forms/control.h"
#include "headless/scriptValue.h"

namespace properties {

using Reader = std::function<ScriptValue(const Control&)>;

/// Reads the property of that name; places in twips. Empty for one that the kind of control does not have.
Reader readerOf(Kind kind, const std::string& property);

}  // namespace properties
