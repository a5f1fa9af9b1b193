#include "qt/tableGrid.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>
#include <map>

#include "qt/eventHook.h"
#include "qt/faces.h"
#include "qt/geometry.h"
#include "qt/look.h"

namespace tableGrid {

namespace {

using Cells = Look::Cells;

constexpr int headStep = 15;   // characters from one head to the next
constexpr int numberGap = 14;  // blanks between numbers
constexpr int mostGaps = 4;    // between columns, where there is room
constexpr double margin = 60;  // twips of a text box's frame

QString textOf(const Control& control) {
    return control.kind == Kind::TextBox ? faces::toQt(control.text) : faces::labelText(control);
}

/// A line of a text, cut. The word behind the numbers stands apart, since its column begins at the left.
struct Row {
    QStringList cells;
    QString word;
};

Row headsOf(const QString& line) {
    Row row;
    const QList<uint> characters = line.toUcs4();
    for (qsizetype at = 1; at < characters.size(); at += headStep) {
        const QList<uint> head = characters.mid(at, headStep);
        row.cells << QString::fromUcs4(reinterpret_cast<const char32_t*>(head.data()), head.size()).trimmed();
    }
    return row;
}

Row numbersOf(const QString& line) {
    Row row{line.trimmed().split(QString(numberGap, ' ')), {}};
    const QString last = row.cells.takeLast();
    row.cells << last.section(' ', 0, 0);
    row.word = last.section(' ', 1).trimmed();
    return row;
}

Row cut(const QString& line, Cells how) {
    switch (how) {
        case Cells::Heads: return headsOf(line);
        case Cells::Numbers: return numbersOf(line);
        case Cells::Marks: return {line.split(' ', Qt::SkipEmptyParts), {}};
        default: return {{}, line};
    }
}

std::vector<Row> rowsOf(const Control& control) {
    QStringList lines = textOf(control).split('\n');
    if (lines.last().isEmpty()) lines.removeLast();
    std::vector<Row> rows;
    for (const QString& line : lines) rows.push_back(cut(line, control.look.cells));
    return rows;
}

QFont sized(const Control& control, int size) {
    QFont font = look::font(control.look, geometry::scaleOf(control));
    font.setPixelSize(size);
    return font;
}

/// What the widest texts of the columns take, pixels.
struct Widths {
    int columns = 0;
    double head = 0;
    double number = 0;
    double word = 0;
};

void widen(Widths& widths, const Control& control, int size) {
    const QFontMetrics metrics(sized(control, size));
    const auto widthOf = [&metrics](const QString& text) {
        return text.isEmpty() ? 0.0 : metrics.horizontalAdvance(text) + 2.0;  // for rounding, at both sides
    };
    for (const Row& row : rowsOf(control)) {
        widths.columns = std::max(widths.columns, static_cast<int>(row.cells.size()));
        double& widest = control.look.cells == Cells::Heads ? widths.head : widths.number;
        for (const QString& cell : row.cells) widest = std::max(widest, widthOf(cell));
        widths.word = std::max(widths.word, widthOf(row.word));
    }
}

bool sharesColumns(const Control& a, const Control& b) {
    return a.look.cells != Cells::None && b.look.cells != Cells::None && a.place.left == b.place.left;
}

/// The columns of numbers, and the words behind them from `left` + `columns` * `step` on.
struct Grid {
    double left = 0;
    double step = 0;
    double head = 0;
    double gap = 0;  ///< the least between texts
    int columns = 0;
    bool staggered = false;  ///< heads too wide to stand side by side stand on two lines by turns
    bool fits = false;
};

/// The grid stands in the middle of its place: what the outer texts leave free is the same at both sides.
Grid gridOf(const Control& control, int size) {
    Widths widths;
    for (const Control* member : membersOf(control))
        if (sharesColumns(*member, control)) widen(widths, *member, size);
    const double inset = control.look.cells == Cells::Numbers || control.look.cells == Cells::Heads
                             ? 2 * margin * geometry::scaleOf(control)
                             : 0;
    const double room = geometry::place(control).width() - 2 * inset;
    const double widest = std::max(widths.head, widths.number);
    const double gap = size / 2.0;
    // Half a column's blank belongs to the margin at the left, and at the right too where no words stand.
    const double ends = widths.word > 0 ? 0.5 : 1;
    const double most =
        (room - widths.word - ends * widest) / std::max(0.5, static_cast<double>(widths.columns) - ends);

    Grid grid{.head = widths.head, .gap = gap, .columns = widths.columns};
    grid.staggered = most < widest + 2 * gap;
    grid.fits = widths.columns == 0 ? widths.word <= room
                                    : most >= std::max(widths.number + gap, (widths.head + gap) / 2);
    grid.step = std::max(0.0, std::min(most, widest + (grid.staggered ? 2 : mostGaps) * gap));
    const double blank = (grid.step - widest) / 2;
    const double content = widths.columns * grid.step + widths.word - 2 * ends * blank;
    grid.left = inset + (widths.columns == 0 ? 0 : (room - content) / 2 - blank);
    return grid;
}

/// Whether the control's text has room where its table is set in type of this size.
bool hasRoom(const Control& control, int size) {
    if (control.look.clips) return true;
    if (control.look.cells != Cells::None) return gridOf(control, size).fits;
    const int flags = geometry::wraps(control) ? Qt::TextWordWrap : 0;
    return geometry::hasRoom(sized(control, size), textOf(control), geometry::place(control).size(), flags);
}

int& sizeOf(const Control& control) {
    static std::map<std::pair<std::string, int>, int> sizes;
    return sizes[{control.form, control.look.table}];
}

/// Where the rows of cells stand, beside those of the table's other texts.
QRect rowRect(const Control& control, int row, int rows) {
    const QSize size = geometry::place(control).size();
    const double frame = control.kind == Kind::TextBox ? margin * geometry::scaleOf(control) : 0;
    const double step = (size.height() - 2 * frame) / std::max(rows, control.look.rows);
    const int top = qRound(frame + row * step);
    return {0, top, size.width(), qRound(frame + (row + 1) * step) - top};
}

/// Staggered heads reach over their neighbours' columns, and never over the next head of their own line.
QRect columnRect(const Grid& grid, int column, const QRect& row) {
    const double most = std::max(0.0, grid.step - grid.gap);
    const double over = std::clamp(grid.head - grid.step, 0.0, most) / 2;
    const int left = qRound(grid.left + column * grid.step - over);
    return {left, row.top(), qRound(grid.step + 2 * over), row.height()};
}

/// Heads stand half-way between the rates and the table; of staggered ones every second stands a line higher.
QRect headRect(const Control& control, const Grid& grid, int column) {
    return grid.staggered ? rowRect(control, 1 - column % 2, 2) : rowRect(control, 0, 1);
}

void addRow(std::vector<Cell>& cells, const Control& control, const Grid& grid, const Row& row, QRect place) {
    const bool heads = control.look.cells == Cells::Heads;
    for (int i = 0; i < row.cells.size(); ++i) {
        const QRect line = heads ? headRect(control, grid, i) : place;
        cells.push_back({row.cells[i], columnRect(grid, i, line), Qt::AlignCenter});
    }
    if (row.word.isEmpty()) return;
    place.setLeft(qRound(grid.left + grid.columns * grid.step));
    cells.push_back({row.word, place, Qt::AlignLeft | Qt::AlignVCenter});
}

}  // namespace

std::vector<Cell> cellsOf(const Control& control) {
    const Grid grid = gridOf(control, sizeOf(control));
    const std::vector<Row> rows = rowsOf(control);
    const int count = static_cast<int>(rows.size());
    std::vector<Cell> cells;
    for (int i = 0; i < count; ++i) {
        addRow(cells, control, grid, rows[static_cast<std::size_t>(i)], rowRect(control, i, count));
    }
    return cells;
}

std::vector<Control*> membersOf(const Control& control) {
    std::vector<Control*> members;
    for (Control* other : allControls())
        if (other->look.table == control.look.table && other->form == control.form) members.push_back(other);
    return members;
}

bool fit(const Control& control) {
    const std::vector<Control*> members = membersOf(control);
    const QFont font =
        geometry::fitted(look::font(control.look, geometry::scaleOf(control)), [&members](const QFont& at) {
            return std::all_of(members.begin(), members.end(),
                               [&at](const Control* member) { return hasRoom(*member, at.pixelSize()); });
        });
    return std::exchange(sizeOf(control), font.pixelSize()) != font.pixelSize();
}

QFont fontOf(const Control& control) { return sized(control, sizeOf(control)); }

void hookCells(QWidget* target, const Control& control) {
    hookPainting(target, [&control](QWidget* widget) {
        const QFont font = fontOf(control);
        QPainter painter(widget);
        painter.setFont(font);
        painter.setPen(look::colours().text);
        // The cells are those of the control's widget; the inside of a text box begins within its frame.
        const bool inside = control.kind == Kind::TextBox;
        if (inside) painter.translate(-widget->pos());
        for (const Cell& cell : cellsOf(control)) {
            painter.drawText(cell.rect, cell.align | Qt::TextSingleLine,
                             QFontMetrics(font).elidedText(cell.text, Qt::ElideRight, cell.rect.width()));
        }
    });
}

}  // namespace tableGrid
