// What the fuzzers share. Each target defines `tryInput` and says with `hold` what has to be true of every
// input; that no sanitizer complains and nothing is thrown holds for all. script/fuzz runs them.
#pragma once

#include <string>
#include <vector>

namespace fuzz {

/// Does with an input what the target is for.
void tryInput(const std::string& input);

/// Says what does not hold and ends the program, so that the input is kept.
void hold(bool holds, const std::string& what);

/// The lines of an input: many targets take a text, and a file of seeds then holds several.
std::vector<std::string> linesOf(const std::string& input);

}  // namespace fuzz
