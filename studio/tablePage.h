// A table as it stands, for what no other page shows: rows under a name that no scenario has, cells that
// belong to nobody. Findings lead here where nothing better does.
#pragma once

#include <string>

#include "studio/page.h"

namespace tablePage {

/// `table` tells which is shown.
Page make(const std::function<std::string()>& table);

}  // namespace tablePage
