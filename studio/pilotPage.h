// What a scenario will be like: simulated subjects play it in the background while it is made, and what came
// of them stands here as plots and as a table. What the tables forbid before anybody plays stands above.
#pragma once

#include <string>

#include "studio/page.h"

namespace pilotPage {

Page make(const std::function<std::string()>& scenario);

}  // namespace pilotPage
