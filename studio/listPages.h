// What all scenarios share: the words that are dealt to subjects, and the lists of lengths of tests, each
// with what uses it.
#pragma once

#include <string>

#include "studio/page.h"

namespace listPages {

Page words();

/// Shows the list of this name.
using Follow = std::function<void(const std::string&)>;

/// `list` tells which list of lengths is shown.
Page tests(const std::function<std::string()>& list, const Follow& follow);

}  // namespace listPages
