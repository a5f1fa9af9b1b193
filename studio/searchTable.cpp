#include "studio/searchTable.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QVBoxLayout>
#include <algorithm>

#include "studio/grid.h"
#include "studio/safely.h"

namespace searchTable {

namespace {

struct Parts {
    QTableView* view;
    QStandardItemModel* cells;
    QSortFilterProxyModel* shown;  ///< sorted and searched
    QLabel* title;
    QLabel* count;
};

QVariant chosenIn(const Parts& parts) {
    const QModelIndex at = parts.view->currentIndex();
    return at.isValid() ? at.siblingAtColumn(0).data() : QVariant();
}

bool choose(const Parts& parts, const QVariant& value) {
    for (int row = 0; row < parts.shown->rowCount(); ++row) {
        const QModelIndex at = parts.shown->index(row, 0);
        if (at.data() != value) continue;
        parts.view->setCurrentIndex(at);
        parts.view->scrollTo(at);
        return true;
    }
    return false;
}

void tellCount(const Parts& parts) {
    if (parts.count == nullptr) return;
    const int all = parts.cells->rowCount();
    const int found = parts.shown->rowCount();
    parts.count->setText(found == all ? QString::number(all) : QString("%1 of %2").arg(found).arg(all));
}

void fill(const Parts& parts, const std::vector<Row>& rows) {
    const QVariant chosen = chosenIn(parts);
    const int scrolled = parts.view->verticalScrollBar()->value();
    const bool first = parts.cells->rowCount() == 0;
    parts.shown->setDynamicSortFilter(false);
    parts.cells->setRowCount(static_cast<int>(rows.size()));
    for (std::size_t r = 0; r < rows.size(); ++r) {
        for (std::size_t c = 0; c < rows[r].size(); ++c) {
            const QModelIndex at = parts.cells->index(static_cast<int>(r), static_cast<int>(c));
            if (at.data() == rows[r][c]) continue;
            parts.cells->setData(at, rows[r][c], Qt::DisplayRole);
            const bool text = rows[r][c].typeId() == QMetaType::QString;
            const Qt::Alignment side = text ? Qt::AlignLeft : Qt::AlignRight;
            parts.cells->setData(at, QVariant::fromValue(side | Qt::AlignVCenter), Qt::TextAlignmentRole);
        }
    }
    parts.shown->invalidate();
    parts.shown->setDynamicSortFilter(true);
    if (first && !rows.empty()) parts.view->resizeColumnsToContents();
    const bool kept = chosen.isValid() && chosenIn(parts) != chosen && choose(parts, chosen);
    if (!kept) parts.view->verticalScrollBar()->setValue(scrolled);
    tellCount(parts);
}

void copy(const Parts& parts) {
    std::vector<QStringList> lines;
    QModelIndexList rows = parts.view->selectionModel()->selectedRows();
    std::ranges::sort(rows, {}, &QModelIndex::row);
    for (const QModelIndex& row : rows) {
        QStringList& line = lines.emplace_back();
        for (int c = 0; c < parts.shown->columnCount(); ++c) line << row.siblingAtColumn(c).data().toString();
    }
    QApplication::clipboard()->setText(grid::textOf(lines));
}

QWidget* searchLine(const QString& name, Parts& parts) {
    auto* const line = new QWidget;
    auto* const row = new QHBoxLayout(line);
    auto* const text = new QLineEdit;
    parts.title = new QLabel(name);
    parts.title->setTextFormat(Qt::PlainText);
    parts.count = new QLabel;
    text->setPlaceholderText("Search");
    text->setClearButtonEnabled(true);
    text->setAccessibleName("Search in: " + name);
    text->setMaximumWidth(280);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(parts.title);
    row->addWidget(parts.count);
    row->addStretch();
    row->addWidget(text, 1);
    QObject::connect(text, &QLineEdit::textChanged, text, [parts](const QString& wanted) {
        parts.shown->setFilterFixedString(wanted);
        tellCount(parts);
    });
    return line;
}

void layOut(const QString& name, const Parts& parts) {
    QTableView& view = *parts.view;
    view.setModel(parts.shown);
    view.setAccessibleName(name);
    view.setSelectionBehavior(QAbstractItemView::SelectRows);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setTabKeyNavigation(false);
    view.setAlternatingRowColors(true);
    view.setShowGrid(false);
    view.setSortingEnabled(true);
    view.horizontalHeader()->setSortIndicatorClearable(true);
    view.sortByColumn(-1, Qt::AscendingOrder);
    view.horizontalHeader()->setHighlightSections(false);
    view.horizontalHeader()->setStretchLastSection(true);
    view.verticalHeader()->hide();
    view.setContextMenuPolicy(Qt::ActionsContextMenu);
    auto* const action = new QAction("Copy", &view);
    action->setShortcut(QKeySequence::Copy);
    action->setShortcutContext(Qt::WidgetShortcut);
    QObject::connect(action, &QAction::triggered, &view, safely([parts](bool) { copy(parts); }));
    view.addAction(action);
}

}  // namespace

Table make(const QString& name, const QStringList& columns, bool searched) {
    auto* const whole = new QWidget;
    auto* const column = new QVBoxLayout(whole);
    Parts parts{new QTableView, new QStandardItemModel(0, static_cast<int>(columns.size()), whole),
                new QSortFilterProxyModel(whole), nullptr, nullptr};
    parts.cells->setHorizontalHeaderLabels(columns);
    parts.shown->setSourceModel(parts.cells);
    parts.shown->setFilterKeyColumn(-1);
    parts.shown->setFilterCaseSensitivity(Qt::CaseInsensitive);
    parts.shown->setSortCaseSensitivity(Qt::CaseInsensitive);
    column->setContentsMargins(0, 0, 0, 0);
    if (searched) column->addWidget(searchLine(name, parts));
    column->addWidget(parts.view, 1);
    layOut(name, parts);
    return {whole,
            parts.view,
            parts.title,
            [parts](const std::vector<Row>& rows) { fill(parts, rows); },
            [parts] { return chosenIn(parts); },
            [parts](const QVariant& value) { return choose(parts, value); }};
}

void whenChosen(const Table& table, const std::function<void()>& heard) {
    QObject::connect(table.view->selectionModel(), &QItemSelectionModel::currentRowChanged, table.view,
                     safely([heard](const QModelIndex&, const QModelIndex&) { heard(); }));
}

}  // namespace searchTable
