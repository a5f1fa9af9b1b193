// One line on standard error that says how far long work has come.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace progressLine {

/// Takes what has been done, 0 to 1. The line is written on a terminal only, and goes with the last copy of
/// what comes back.
std::function<void(double)> begin(const std::string& work);

/// Takes how many of `all` are done: a bar with rate and time left on a terminal, else a line every few
/// seconds. `before` were done before this run and count for no rate. The bar goes with the last copy.
std::function<void(std::int64_t done)> count(const std::string& what, std::int64_t before, std::int64_t all);

}  // namespace progressLine
