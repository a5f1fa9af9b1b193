// What the subject will see of a scenario: pictures of the real screens, small, and large on a press.
#pragma once

#include <string>

#include "studio/page.h"

namespace screensPage {

/// `scenario` tells which is drawn.
Page make(const std::function<std::string()>& scenario);

}  // namespace screensPage
