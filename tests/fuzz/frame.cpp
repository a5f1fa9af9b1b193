#include "tests/fuzz/frame.h"

#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <sstream>

namespace fuzz {

void hold(bool holds, const std::string& what) {
    if (holds) return;
    std::cerr << "Does not hold: " << what << std::endl;
    std::abort();
}

std::vector<std::string> linesOf(const std::string& input) {
    std::vector<std::string> lines;
    std::istringstream rest(input);
    for (std::string line; std::getline(rest, line);) lines.push_back(line);
    return lines;
}

}  // namespace fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    fuzz::tryInput({reinterpret_cast<const char*>(bytes), size});
    return 0;
}
