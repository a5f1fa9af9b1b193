// What is done to the row with the cursor of a grid whose rows are some of a table's.
#pragma once

#include <string>
#include <vector>

#include "studio/grid.h"

namespace rowDeeds {

/// Moves the row by so many places among `rows`, the rows of the table that the grid shows, or removes it for
/// 0. `what` stands behind "Undo". Without a chosen row that is said.
void act(const grid::Grid& grid, const std::string& table, const std::vector<int>& rows,
         const std::string& what, int by);

}  // namespace rowDeeds
