#include "studio/grid.h"

#include <fmt/format.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSignalBlocker>
#include <algorithm>
#include <memory>

#include "platform/numberText.h"
#include "qt/look.h"
#include "studio/fields.h"
#include "studio/givenText.h"
#include "studio/workspace.h"

namespace grid {

namespace {

using Cells = std::vector<QStringList>;

struct State {
    Wish wish;
    View view = {};
};

constexpr const char* rowsHeight = "rowsHeight";  ///< property: pixels without the scroll bar
constexpr int mostShade = 130;                    ///< alpha of a cell of 100 per cent

bool flagOf(const std::vector<bool>& flags, int column) {
    return static_cast<std::size_t>(column) < flags.size() && flags[static_cast<std::size_t>(column)];
}

std::optional<book::Place> placeAt(const View& view, int row, int column) {
    if (row < 0 || column < 0 || static_cast<std::size_t>(row) >= view.places.size()) return {};
    const auto& line = view.places[static_cast<std::size_t>(row)];
    return static_cast<std::size_t>(column) < line.size() ? line[static_cast<std::size_t>(column)]
                                                          : std::nullopt;
}

void fill(QTableWidget& table, State& state) {
    const QSignalBlocker quiet(&table);
    state.view = state.wish.view(workspace::book());
    const View& view = state.view;
    table.setRowCount(static_cast<int>(view.places.size()));
    table.setColumnCount(static_cast<int>(view.columns.size()));
    table.setHorizontalHeaderLabels(view.columns);
    table.setVerticalHeaderLabels(view.rows);
    for (int row = 0; row < table.rowCount(); ++row) {
        for (int column = 0; column < table.columnCount(); ++column) {
            QTableWidgetItem* item = table.item(row, column);
            if (item == nullptr) table.setItem(row, column, item = new QTableWidgetItem);
            const std::optional<book::Place> place = placeAt(view, row, column);
            const bool ticks = flagOf(view.ticked, column);
            item->setFlags(!place  ? Qt::ItemIsSelectable | Qt::ItemIsEnabled
                           : ticks ? Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsUserCheckable
                                   : Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsEditable);
            const QString text =
                place ? QString::fromStdString(book::textAt(workspace::book(), *place)) : QString();
            const bool on =
                place && book::sheetOf(workspace::book(), place->table).isTrue(place->row, place->column);
            item->setText(ticks ? QString() : text);
            item->setData(Qt::CheckStateRole,
                          ticks ? QVariant(on ? Qt::Checked : Qt::Unchecked) : QVariant());
            item->setData(Qt::AccessibleTextRole,
                          QString("%1, %2: %3").arg(view.rows.value(row), view.columns.value(column), text));
            if (flagOf(view.shaded, column))
                shade(*item, text.isEmpty() ? std::nullopt
                                            : std::optional(numberText::toNumber(text.toStdString())));
        }
    }
}

void typed(QTableWidget& table, State& state, const QTableWidgetItem& item) {
    const std::optional<book::Place> place = placeAt(state.view, item.row(), item.column());
    if (!place) return;
    const bool ticks = flagOf(state.view.ticked, item.column());
    const QString text = !ticks ? item.text() : item.checkState() == Qt::Checked ? "yes" : "no";
    const std::string problem = workspace::edit(state.wish.name.toStdString(), [&](book::Book& book) {
        return book::put(book, *place, text.toStdString());
    });
    const QString where = state.view.columns.value(item.column());
    fields::tellProblem(problem.empty()
                            ? QString()
                            : QString("%1: \"%2\" %3")
                                  .arg(where, givenText::shortened(text), QString::fromStdString(problem)));
    fill(table, state);
}

Cells selected(const QTableWidget& table, const State& state) {
    Cells cells;
    for (const QTableWidgetSelectionRange& range : table.selectedRanges()) {
        for (int row = range.topRow(); row <= range.bottomRow(); ++row) {
            QStringList line;
            for (int column = range.leftColumn(); column <= range.rightColumn(); ++column) {
                const std::optional<book::Place> place = placeAt(state.view, row, column);
                line << (place ? QString::fromStdString(book::textAt(workspace::book(), *place)) : QString());
            }
            cells.push_back(line);
        }
    }
    return cells;
}

/// One pasted line into the row; what the first cell that cannot be taken says.
std::string pasteLine(book::Book& book, const View& view, const QStringList& line, int row, int first) {
    for (int i = 0; i < line.size(); ++i) {
        const std::optional<book::Place> place = placeAt(view, row, first + i);
        if (!place)
            return fmt::format("the block is wider than the table ({} columns from here)",
                               view.columns.size() - first);
        const std::string problem = book::put(book, *place, line[i].toStdString());
        if (!problem.empty())
            return fmt::format("row {}, {}: \"{}\" {}", row + 1, view.columns.value(first + i).toStdString(),
                               givenText::shortened(line[i]).toStdString(), problem);
    }
    return {};
}

/// Puts the cells in from row and column on, with the rows that they need.
std::string paste(book::Book& book, const State& state, const Cells& cells, int row, int column) {
    std::size_t count = 0;
    for (const QStringList& line : cells) count += static_cast<std::size_t>(line.size());
    if (count > mostPasted)
        return fmt::format("{} cells are too many for one paste; {} are the most", count, mostPasted);
    if (cells.size() > mostRows)
        return fmt::format("more than {} rows are too many for a table of a study", mostRows);
    const std::size_t wanted = static_cast<std::size_t>(row) + cells.size();
    for (std::size_t have = state.view.places.size(); have < wanted; ++have) {
        if (!state.wish.addRow || !state.wish.addRow(book))
            return fmt::format("the block has {} rows, and from here there is room for {}", cells.size(),
                               have - static_cast<std::size_t>(row));
    }
    const View view = state.wish.view(book);
    for (std::size_t i = 0; i < cells.size(); ++i) {
        std::string wrong = pasteLine(book, view, cells[i], row + static_cast<int>(i), column);
        if (!wrong.empty()) return wrong;
    }
    return {};
}

void pasteHere(QTableWidget& table, const State& state) {
    const Cells cells = cellsOf(QApplication::clipboard()->text());
    if (cells.empty()) return;
    const int row = std::max(table.currentRow(), 0);
    const int column = std::max(table.currentColumn(), 0);
    const std::string problem =
        workspace::edit("Paste into " + state.wish.name.toStdString(),
                        [&](book::Book& book) { return paste(book, state, cells, row, column); });
    fields::tellProblem(problem.empty() ? QString()
                                        : "Nothing was pasted: " + QString::fromStdString(problem));
    if (!problem.empty()) return;
    const auto longest = std::ranges::max_element(cells, {}, &QStringList::size);
    table.clearSelection();
    table.setRangeSelected({row, column, row + static_cast<int>(cells.size()) - 1,
                            column + static_cast<int>(longest->size()) - 1},
                           true);
}

void clear(const QTableWidget& table, const std::shared_ptr<State>& state) {
    workspace::change("Clear cells", [&](book::Book& book) {
        for (const QTableWidgetItem* item : table.selectedItems()) {
            const std::optional<book::Place> place = placeAt(state->view, item->row(), item->column());
            if (place) book::put(book, *place, {});
        }
    });
}

void addAction(QTableWidget& table, const QString& text, const QList<QKeySequence>& keys,
               const std::function<void()>& act) {
    auto* const action = new QAction(text, &table);
    action->setShortcuts(keys);
    action->setShortcutContext(Qt::WidgetShortcut);
    QObject::connect(action, &QAction::triggered, &table, act);
    table.addAction(action);
}

/// Where a cell that was typed leads to. As in a spreadsheet, Enter goes down. Tab goes on in the row, past
/// the cells that take no text: from one of these it would leave the table, and what is typed go to a button.
void goOn(QTableWidget& table, QAbstractItemDelegate::EndEditHint hint) {
    const int row = table.currentRow();
    if (hint == QAbstractItemDelegate::SubmitModelCache)
        table.setCurrentCell(std::min(row + 1, table.rowCount() - 1), table.currentColumn());
    const int step = static_cast<int>(hint == QAbstractItemDelegate::EditNextItem) -
                     static_cast<int>(hint == QAbstractItemDelegate::EditPreviousItem);
    const int columns = table.columnCount();
    if (step == 0 || table.currentColumn() < 0) return;
    const auto takesText = [&](int place) {
        return (table.item(place / columns, place % columns)->flags() & Qt::ItemIsEditable) != 0;
    };
    const int here = (row * columns) + table.currentColumn();
    int place = here;
    while (place >= 0 && place < table.rowCount() * columns && !takesText(place)) place += step;
    if (place == here || place < 0 || place >= table.rowCount() * columns) return;
    table.setCurrentCell(place / columns, place % columns);
    table.editItem(table.currentItem());
}

bool show(QTableWidget& table, const View& view, const check::Finding& finding) {
    for (int row = 0; row < table.rowCount(); ++row) {
        for (int column = 0; column < table.columnCount(); ++column) {
            const std::optional<book::Place> place = placeAt(view, row, column);
            if (!place || place->table != finding.table || place->row != finding.row - 1) continue;
            if (!check::sameName(place->column, finding.column)) continue;
            table.setCurrentCell(row, column);
            table.scrollToItem(table.item(row, column));
            table.setFocus();
            return true;
        }
    }
    return false;
}

}  // namespace

QString textOf(const Cells& cells) {
    QString text;
    for (const QStringList& line : cells) {
        QStringList quoted;
        for (QString cell : line) {
            if (cell.contains(QRegularExpression("[\t\n\"]"))) cell = '"' + cell.replace("\"", "\"\"") + '"';
            quoted << cell;
        }
        text += quoted.join('\t') + '\n';
    }
    return text;
}

Cells cellsOf(const QString& text) {
    Cells cells;
    QStringList line;
    QString cell;
    bool quoted = false;
    const auto endLine = [&] {
        line << cell;
        cell.clear();
        cells.push_back(line);
        line.clear();
    };
    for (qsizetype i = 0; i < text.size() && cells.size() <= mostRows; ++i) {
        const QChar c = text[i];
        if (quoted) {
            if (c != '"')
                cell += c;
            else if (i + 1 < text.size() && text[i + 1] == '"')
                cell += text[++i];
            else
                quoted = false;
        } else if (c == '"' && cell.isEmpty()) {
            quoted = true;
        } else if (c == '\t') {
            line << cell;
            cell.clear();
        } else if (c == '\n') {
            endLine();
        } else if (c != '\r') {
            cell += c;
        }
    }
    if (!cell.isEmpty() || !line.isEmpty()) endLine();
    return cells;
}

Grid make(const Wish& wish) {
    auto* const table = new QTableWidget;
    const auto state = std::make_shared<State>(State{wish});
    table->setAccessibleName(wish.name);
    table->setTabKeyNavigation(false);
    table->horizontalHeader()->setHighlightSections(false);
    table->setContextMenuPolicy(Qt::ActionsContextMenu);
    const auto copy = [=] { QApplication::clipboard()->setText(textOf(selected(*table, *state))); };
    addAction(*table, "Cut", {QKeySequence::Cut}, [=] {
        copy();
        clear(*table, state);
    });
    addAction(*table, "Copy", {QKeySequence::Copy}, copy);
    addAction(*table, "Paste", {QKeySequence::Paste}, [=] { pasteHere(*table, *state); });
    addAction(*table, "Clear", {QKeySequence::Delete, Qt::Key_Backspace}, [=] { clear(*table, state); });
    QObject::connect(table->itemDelegate(), &QAbstractItemDelegate::closeEditor, table,
                     [=](QWidget*, QAbstractItemDelegate::EndEditHint hint) { goOn(*table, hint); });
    QObject::connect(table, &QTableWidget::itemChanged, table,
                     [=](QTableWidgetItem* item) { typed(*table, *state, *item); });
    return {table, [=] { fill(*table, *state); },
            [=](const check::Finding& finding) { return show(*table, state->view, finding); },
            [=] { return table->currentRow(); }};
}

void shade(QTableWidgetItem& item, std::optional<double> percent) {
    QColor colour = look::colours().accent;
    colour.setAlpha(static_cast<int>(std::clamp(percent.value_or(0), 0.0, 100.0) * mostShade / 100));
    item.setBackground(percent ? QBrush(colour) : QBrush());
}

void fit(QTableWidget& table) {
    table.resizeColumnsToContents();
    int height = table.horizontalHeader()->sizeHint().height() + 2 * table.frameWidth() + 4;
    int width = table.verticalHeader()->sizeHint().width() + 2 * table.frameWidth() + 4;
    for (int row = 0; row < table.rowCount(); ++row) height += table.rowHeight(row);
    for (int column = 0; column < table.columnCount(); ++column) width += table.columnWidth(column);
    table.setMaximumWidth(width);
    const auto setHeight = [&table](int rows, int hidden) {
        table.setFixedHeight(rows + (hidden > 0 ? table.horizontalScrollBar()->sizeHint().height() : 0));
    };
    if (!table.property(rowsHeight).isValid()) {
        table.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        QObject::connect(
            table.horizontalScrollBar(), &QScrollBar::rangeChanged, &table,
            [&table, setHeight](int, int hidden) { setHeight(table.property(rowsHeight).toInt(), hidden); });
    }
    table.setProperty(rowsHeight, height);
    setHeight(height, table.horizontalScrollBar()->maximum());
}

}  // namespace grid
