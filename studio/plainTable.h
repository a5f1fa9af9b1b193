// A table of figures to read: not typed into, as high as its rows, each cell told to screen readers with the
// names of its row and column.
#pragma once

#include <QString>
#include <QStringList>
#include <QTableWidget>
#include <optional>
#include <vector>

namespace plainTable {

struct Cell {
    QString text;
    std::optional<double> percent = {};  ///< by which it is shaded
};

QTableWidget* make(const QString& name);

/// By row and column. Hidden without a row.
void show(QTableWidget& table, const QStringList& columns, const QStringList& rows,
          const std::vector<std::vector<Cell>>& cells);

}  // namespace plainTable
