// What all scenarios share: the words that are dealt to subjects, and the lists of lengths of tests, each
// with what uses it.
#pragma once

#include <string>

#include "studio/page.h"

namespace listPages {

Page words();

/// `list` tells which list of lengths is shown.
Page tests(const std::function<std::string()>& list);

}  // namespace listPages
