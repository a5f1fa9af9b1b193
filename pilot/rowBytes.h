// Rows on their way from the process that played a subject to the one that writes them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/layer/engine.h"

namespace rowBytes {

void put(std::string& bytes, const engine::Value& value);

/// Takes the next value off the beginning.
engine::Value take(std::string_view& bytes);

}  // namespace rowBytes
