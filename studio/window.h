// The window in which a study is made: on the left what a study consists of, in the middle one page at a
// time, below what is found in it.
#pragma once

#include <string>

namespace window {

/// Builds the window and shows it.
void show();

/// Opens a study in it; what is against it is told in a box.
void open(const std::string& folder);

}  // namespace window
