// The tables that the form's texts make up: all texts of one table have one size of type, and those that are
// cut into cells are drawn in a grid, whatever blanks stand between them, so that a number stands under its
// word at every size of the window.
#pragma once

#include <QFont>
#include <QRect>
#include <QString>
#include <QWidget>
#include <vector>

#include "forms/control.h"

namespace tableGrid {

struct Cell {
    QString text;
    QRect rect;  ///< pixels of the control's widget
    int align;   ///< flags as for drawing texts
};

/// The cells of the control's text, row by row.
std::vector<Cell> cellsOf(const Control& control);

/// The controls of the table that the control stands in, itself with them.
std::vector<Control*> membersOf(const Control& control);

/// Chooses the size of the control's table anew, the largest up to the designed one at which all its texts
/// have room; true if it has changed.
bool fit(const Control& control);

/// The control's font, in the size of its table.
QFont fontOf(const Control& control);

/// Paints the cells in the place of what the widget would paint; `target` is the widget or lies inside it.
void hookCells(QWidget* target, const Control& control);

}  // namespace tableGrid
