// A block of cells of the study as a grid: typed into, copied and pasted as a block of a spreadsheet, shaded
// by value. What it shows is asked anew at each change of the study.
#pragma once

#include <QString>
#include <QStringList>
#include <QTableWidget>
#include <functional>
#include <optional>
#include <vector>

#include "studio/page.h"
#include "study/book.h"

namespace grid {

/// What a grid shows now.
struct View {
    QStringList columns;
    QStringList rows;
    /// By row and column; nothing for a cell that cannot be changed.
    std::vector<std::vector<std::optional<book::Place>>> places;
    /// Columns of percents, which are shaded.
    std::vector<bool> shaded = {};
    /// Columns that are ticked.
    std::vector<bool> ticked = {};
};

struct Wish {
    QString name;  ///< for screen readers and "Undo"
    std::function<View(const book::Book&)> view;
    /// Adds a row for a paste that is longer than the grid; false where no more go in. Empty: none are added.
    std::function<bool(book::Book&)> addRow = {};
};

struct Grid {
    QTableWidget* table;
    std::function<void()> refresh;
    std::function<bool(const check::Finding&)> show;
    /// The row with the cursor; -1 for none.
    std::function<int()> row;
};

Grid make(const Wish& wish);

/// The deeper the more; no shade for nothing.
void shade(QTableWidgetItem& item, std::optional<double> percent);

/// As high as its rows need, so that the page scrolls and not the grid.
void fit(QTableWidget& table);

/// Cells as a spreadsheet puts them on the clipboard: tabs and line ends, quotes around what holds them.
QString textOf(const std::vector<QStringList>& cells);
/// Nothing behind more rows than can be pasted is read.
std::vector<QStringList> cellsOf(const QString& text);

/// Most cells and rows of one paste: no table of a study has as many.
inline constexpr int mostPasted = 20000;
inline constexpr int mostRows = 1000;

}  // namespace grid
