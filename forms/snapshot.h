// A form as it stands at one moment, to be put back as a whole. Whoever watches is told of each property that
// goes back; no handler of the form runs.
#pragma once

#include <vector>

#include "forms/control.h"

namespace snapshot {

struct Kept {
    Control* control;
    Control before;
};

std::vector<Kept> take(const Control& form);
void putBack(const std::vector<Kept>& form);

}  // namespace snapshot
