#include "studio/tablePage.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "studio/fields.h"
#include "studio/givenText.h"
#include "studio/grid.h"
#include "studio/safely.h"
#include "studio/workspace.h"

namespace tablePage {

namespace {

using Name = std::function<std::string()>;

grid::View viewOf(const book::Book& book, const std::string& table) {
    grid::View view;
    if (!book.sheets.contains(table)) return view;
    const book::Sheet& sheet = book::sheetOf(book, table);
    for (const std::string& column : sheet.content.columns) view.columns << QString::fromStdString(column);
    for (int row = 0; row < sheet.size(); ++row) {
        view.rows << QString::number(row + 1);
        auto& line = view.places.emplace_back();
        for (const std::string& column : sheet.content.columns)
            line.emplace_back(book::Place{table, row, column});
    }
    return view;
}

void removeRow(const grid::Grid& grid, const std::string& table) {
    const int row = grid.row();
    if (row < 0) return fields::tellProblem("Choose a row first.");
    workspace::change("Remove the row", [&](book::Book& book) { book::removeRow(book, table, row); });
}

}  // namespace

Page make(const Name& table) {
    auto* const whole = new QWidget;
    auto* const column = new QVBoxLayout(whole);
    QLabel* const title = givenText::title();
    auto* const remove = new QPushButton("Remove the row");
    const grid::Grid grid =
        grid::make({"Table", [=](const book::Book& book) { return viewOf(book, table()); }});
    QObject::connect(remove, &QPushButton::clicked, whole, safely([=](bool) { removeRow(grid, table()); }));
    column->addWidget(title);
    column->addWidget(grid.table, 1);
    column->addWidget(remove, 0, Qt::AlignLeft);
    const auto refresh = [=] {
        givenText::setTitle(*title, table());
        grid.refresh();
    };
    return {whole, refresh, grid.show};
}

}  // namespace tablePage
