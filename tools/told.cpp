#include "tools/told.h"

#include <algorithm>
#include <iostream>

namespace commands {

namespace {

constexpr std::size_t mostProblems = 20;  // shown one by one; one wrong column complains about every row

}  // namespace

int told(const std::vector<std::string>& problems, const std::vector<std::string>& notes) {
    for (const std::string& note : notes) std::cerr << "note: " << note << '\n';
    const std::size_t shown = std::min(problems.size(), mostProblems);
    for (std::size_t i = 0; i < shown; ++i) std::cerr << problems[i] << '\n';
    if (shown < problems.size()) std::cerr << "and " << problems.size() - shown << " more\n";
    return problems.empty() ? 0 : 1;
}

}  // namespace commands
