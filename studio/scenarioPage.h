// A scenario: its name, what can be done with it as a whole, and its options and model as pages behind tabs.
#pragma once

#include <string>

#include "studio/page.h"

namespace scenarioPage {

/// `scenario` tells which is shown; `follow` shows another, after a copy or a new name.
Page make(const std::function<std::string()>& scenario,
          const std::function<void(const std::string&)>& follow);

}  // namespace scenarioPage
