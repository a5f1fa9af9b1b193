// The options of a scenario, in the groups and under the captions of the options dialog, each with a sentence
// of help, and the dial with start, planned end and where the time limit really falls.
#pragma once

#include <string>

#include "studio/page.h"

namespace optionsPage {

/// `scenario` tells whose options are shown.
Page make(const std::function<std::string()>& scenario);

}  // namespace optionsPage
