#include "studio/rowDeeds.h"

#include <algorithm>

#include "studio/fields.h"
#include "studio/workspace.h"

namespace rowDeeds {

void act(const grid::Grid& grid, const std::string& table, const std::vector<int>& rows,
         const std::string& what, int by) {
    const auto count = static_cast<int>(rows.size());
    const int at = grid.row();
    if (at < 0 || at >= count) return fields::tellProblem("Choose a row first.");
    const int to = at + by;
    if (to < 0 || to >= count) return;
    workspace::change(what, [&](book::Book& book) {
        const int row = rows[static_cast<std::size_t>(at)];
        if (by == 0)
            book::removeRow(book, table, row);
        else
            book::moveRow(book, table, row, rows[static_cast<std::size_t>(to)]);
    });
    if (by != 0) grid.table->setCurrentCell(to, std::max(grid.table->currentColumn(), 0));
}

}  // namespace rowDeeds
