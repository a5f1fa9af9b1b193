// Parts of a scrolled page side by side, as many as there is room for, so that a small window is scrolled
// down and not sideways.
#pragma once

#include <QGridLayout>
#include <QScrollArea>
#include <QWidget>
#include <vector>

namespace lanes {

/// Lays the parts into the grid, row by row, and anew whenever the width of the page's area asks for more or
/// fewer of them in a row. The grid stands in the area's widget, itself or nested. With `even` all lanes are
/// equally wide; otherwise each part's own policy counts.
void lay(QScrollArea& area, QGridLayout& grid, const std::vector<QWidget*>& parts, bool even);

/// A page that is scrolled where the window is smaller than what stands in it.
QScrollArea* scrolled(QWidget* inside);

}  // namespace lanes
