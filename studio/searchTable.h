// A table to be read: sorted by a press on a column's head, searched by a text, its chosen rows copied for a
// spreadsheet. What it shows is replaced as a whole, and who was chosen stays chosen.
#pragma once

#include <QLabel>
#include <QStringList>
#include <QTableView>
#include <QVariant>
#include <QWidget>
#include <functional>
#include <vector>

namespace searchTable {

/// A row's values; numbers sort as numbers. The first names the row.
using Row = std::vector<QVariant>;

struct Table {
    QWidget* widget;
    QTableView* view;
    QLabel* title;  ///< above a table that is searched
    std::function<void(const std::vector<Row>& rows)> fill;
    /// The first value of the row with the cursor; not valid where there is none.
    std::function<QVariant()> chosen;
    /// Brings the row of that first value into view; false where there is none.
    std::function<bool(const QVariant& value)> choose;
};

/// `name` is for screen readers. With `searched` there is a line for a text above the table.
Table make(const QString& name, const QStringList& columns, bool searched);

/// Calls `heard` when another row is chosen.
void whenChosen(const Table& table, const std::function<void()>& heard);

}  // namespace searchTable
