// One line on standard error that says how far long work has come. It is written on a terminal only, and is
// gone at the end.
#pragma once

#include <functional>
#include <memory>
#include <string>

namespace progressLine {

/// Takes what has been done, 0 to 1. The line goes with the last copy of what comes back.
std::function<void(double)> begin(const std::string& work);

}  // namespace progressLine
