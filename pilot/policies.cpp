#include "pilot/policies.h"

#include <algorithm>
#include <vector>

namespace policies {

std::span<const Policy> all() {
    static const std::vector<Policy> list{
        {"silent", "does nothing: what a patient comes to alone", false, silent},
        {"random", "does whatever can be done, as chance has it", false, random},
        {"bayes", "believes the computed chances, issues the tests that pay, treats best", true, bayes},
        {"anchored", "as bayes, but its beliefs move only part of the way from the base rates", true,
         anchored},
        {"satisficer", "treats as soon as one belief is high enough; tests as they come", true, satisficer},
    };
    return list;
}

const Policy* find(std::string_view name) {
    const auto found = std::ranges::find(all(), name, &Policy::name);
    return found == all().end() ? nullptr : &*found;
}

}  // namespace policies
