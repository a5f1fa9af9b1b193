#include "pilot/policies.h"

#include <algorithm>
#include <vector>

namespace policies {

std::span<const Policy> all() {
    static const std::vector<Policy> list{
        {"silent", "does nothing: what a patient comes to alone", false, silent},
        {"random", "does whatever can be done, as chance has it", false, random},
    };
    return list;
}

const Policy* find(std::string_view name) {
    const auto found = std::ranges::find(all(), name, &Policy::name);
    return found == all().end() ? nullptr : &*found;
}

}  // namespace policies
