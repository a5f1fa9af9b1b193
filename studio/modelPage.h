// The model of a scenario: base rates with their sum, the chances of symptoms and treatments as matrices, and
// buttons that change all that hangs on a disease at once.
#pragma once

#include <string>

#include "studio/page.h"

namespace modelPage {

Page make(const std::function<std::string()>& scenario);

}  // namespace modelPage
