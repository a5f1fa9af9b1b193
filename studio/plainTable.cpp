#include "studio/plainTable.h"

#include "studio/grid.h"

namespace plainTable {

QTableWidget* make(const QString& name) {
    auto* const table = new QTableWidget;
    table->setAccessibleName(name);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setTabKeyNavigation(false);
    return table;
}

void show(QTableWidget& table, const QStringList& columns, const QStringList& rows,
          const std::vector<std::vector<Cell>>& cells) {
    table.setRowCount(static_cast<int>(rows.size()));
    table.setColumnCount(static_cast<int>(columns.size()));
    table.setHorizontalHeaderLabels(columns);
    table.setVerticalHeaderLabels(rows);
    for (int row = 0; row < table.rowCount(); ++row) {
        for (int column = 0; column < table.columnCount(); ++column) {
            const Cell& cell = cells[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
            QTableWidgetItem* item = table.item(row, column);
            if (item == nullptr) table.setItem(row, column, item = new QTableWidgetItem);
            item->setText(cell.text);
            item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            item->setData(Qt::AccessibleTextRole,
                          QString("%1, %2: %3").arg(rows[row], columns[column], cell.text));
            grid::shade(*item, cell.percent);
        }
    }
    table.setVisible(!rows.isEmpty());
    grid::fit(table);
}

}  // namespace plainTable
