#include "studio/patientsPage.h"

#include <QDragEnterEvent>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QScrollArea>
#include <QSplitter>
#include <QTimer>
#include <QVBoxLayout>
#include <array>
#include <memory>
#include <vector>

#include "qt/eventHook.h"
#include "studio/fields.h"
#include "studio/introEditor.h"
#include "studio/lanes.h"
#include "studio/portrait.h"
#include "studio/previews.h"
#include "studio/rosterList.h"
#include "studio/safely.h"
#include "studio/workspace.h"
#include "study/bookScenarios.h"

namespace patientsPage {

namespace {

constexpr const char* table = "tblPatients";
constexpr int leastLine = 340;  ///< pixels of a field and its unit; beside less there is no picture

struct Cell {
    std::string column;
    fields::Field field;
};

/// A short field with its unit; without one it takes the whole line.
QWidget* beside(QWidget* field, const QString& unit) {
    if (unit.isEmpty()) return field;
    auto* const whole = new QWidget;
    auto* const row = new QHBoxLayout(whole);
    auto* const help = new QLabel(unit);
    help->setProperty("role", "help");
    help->setWordWrap(true);
    field->setMaximumWidth(88);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(field);
    row->addWidget(help, 1);
    return whole;
}

/// Name, age, sex, height, weight and health, each with its unit as a sentence.
std::vector<Cell> addCells(QFormLayout& form, const std::function<std::optional<int>()>& person) {
    constexpr std::array captions{std::pair("Name", "Name"),     std::pair("Age", "Age"),
                                  std::pair("Male?", "Male"),    std::pair("Height", "Height"),
                                  std::pair("Weight", "Weight"), std::pair("Health", "Health")};
    std::vector<Cell> cells;
    for (const auto& [column, caption] : captions) {
        const fields::Words words = fields::wordsOf(table, column, caption);
        const fields::Where where = [person, column = column]() -> std::optional<book::Place> {
            const std::optional<int> row = person();
            if (!row) return {};
            return book::Place{table, *row, column};
        };
        const bool flag = std::string_view(column) == "Male?";
        const fields::Field field = flag ? fields::tick(where, words) : fields::line(where, words);
        auto* const label = new QLabel(flag ? QString() : words.name);
        label->setBuddy(field.widget);
        form.addRow(label, beside(field.widget, column == captions.front().first || flag ? "" : words.help));
        cells.push_back({column, field});
    }
    return cells;
}

QString droppedFile(const QMimeData& data) {
    const QList<QUrl> urls = data.urls();
    return urls.size() == 1 && urls.front().isLocalFile() ? urls.front().toLocalFile() : QString();
}

/// One file may be dropped anywhere on the page. It is looked at when the drop is over, since a box would
/// hold up the program from which it comes.
void takeDrops(QWidget& page, const std::function<void(const QString&)>& take) {
    for (QLineEdit* line : page.findChildren<QLineEdit*>()) line->setAcceptDrops(false);
    page.setAcceptDrops(true);
    hookEvents(&page, [&page, take](QEvent* event) {
        const QEvent::Type type = event->type();
        if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop) return false;
        auto* const drop = static_cast<QDropEvent*>(event);
        const QString file = droppedFile(*drop->mimeData());
        if (file.isEmpty()) return false;
        drop->acceptProposedAction();
        if (type == QEvent::Drop) QTimer::singleShot(0, &page, safely([take, file] { take(file); }));
        return true;
    });
}

bool show(QListWidget& list, const std::vector<Cell>& cells, const check::Finding& finding) {
    if (!check::sameName(finding.table, table) || finding.row > list.count()) return false;
    list.setFocus();
    if (finding.row == 0) return true;  // of the roster as a whole
    list.setCurrentRow(finding.row - 1);
    for (const Cell& cell : cells) {
        if (check::sameName(cell.column, finding.column)) cell.field.widget->setFocus();
    }
    return true;
}

/// The page "Patient" with this person, small, and what keeps it from being drawn.
struct Seen {
    QWidget* widget;
    previews::Refresh refresh;
};

Seen seen(const std::function<std::optional<int>()>& person) {
    constexpr int width = 300;
    auto* const whole = new QWidget;
    auto* const column = new QVBoxLayout(whole);
    auto* const button = new QPushButton;
    auto* const text = new QLabel;
    const auto picture = std::make_shared<QImage>();
    button->setAccessibleName("The page \"Patient\" with this person, large");
    button->setToolTip("Press to see it large");
    button->setProperty("role", "picture");
    button->hide();
    text->setProperty("role", "help");
    text->setWordWrap(true);
    text->setMinimumWidth(width);
    text->setTextFormat(Qt::PlainText);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(button, 0, Qt::AlignHCenter);
    column->addWidget(text);
    column->addStretch();
    QObject::connect(button, &QPushButton::clicked, whole,
                     [=] { previews::enlarge(whole, "Page \"Patient\"", *picture); });
    const previews::Listener listener{
        [=] {
            const bool somebody = person().has_value();
            text->setText(somebody ? "It is drawn anew…" : "There is nobody yet. \"Add\" makes a person.");
            if (!somebody) button->hide();
        },
        [=](const QString& title, const QImage& drawn) {
            if (!title.contains("Patient\"")) return;
            *picture = drawn;
            const double ratio = whole->devicePixelRatioF();
            QPixmap pixmap =
                QPixmap::fromImage(drawn.scaledToWidth(qRound(width * ratio), Qt::SmoothTransformation));
            pixmap.setDevicePixelRatio(ratio);
            button->setIcon(pixmap);
            button->setIconSize(pixmap.deviceIndependentSize().toSize());
            button->show();
        },
        [=](const QString& problem) {
            button->setVisible(problem.isEmpty());
            text->setText(problem.isEmpty()
                              ? QString("Press the picture to see it large.")
                              : "This person cannot be shown yet; the findings say why. The program says:\n" +
                                    problem);
        }};
    const auto wish = [=]() -> std::optional<previews::Wish> {
        const std::optional<int> row = person();
        if (!row) return {};
        const std::vector<std::string> scenarios = bookScenarios::namesOf(workspace::book());
        if (scenarios.empty()) return {};
        return previews::Wish{{scenarios.front(), row}, true};
    };
    return {whole, previews::make(whole, wish, listener)};
}

QGroupBox* group(const QString& title, QLayout* inside) {
    auto* const box = new QGroupBox(title);
    inside->setContentsMargins(12, 28, 12, 12);
    box->setLayout(inside);
    return box;
}

}  // namespace

Page make() {
    auto* const whole = new QSplitter(Qt::Horizontal);
    auto* const list = new QListWidget;
    const auto person = [list] { return rosterList::chosen(*list); };
    auto* const lines = new QWidget;
    auto* const form = new QFormLayout(lines);
    form->setContentsMargins(0, 0, 16, 0);
    lines->setMinimumWidth(leastLine);
    std::vector<Cell> cells = addCells(*form, person);
    const portrait::Portrait picture = portrait::make(person);
    const introEditor::Editor intro = introEditor::make(person);
    cells.push_back({"Picture", {picture.field, {}, picture.refresh}});
    cells.push_back({"Intro", {intro.field, {}, intro.refresh}});
    auto* const inside = new QWidget;
    auto* const column = new QVBoxLayout(inside);
    auto* const upper = new QGridLayout;
    auto* const text = new QVBoxLayout;
    picture.widget->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    text->addWidget(intro.widget);
    const Seen sight = seen(person);
    auto* const lower = new QGridLayout;
    auto* const right = new QVBoxLayout;
    right->addWidget(sight.widget);
    QGroupBox* const written = group("Introduction", text);
    QGroupBox* const shown = group("As the subject sees it", right);
    shown->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    column->addWidget(group("Person", upper));
    column->addLayout(lower, 1);
    QScrollArea* const area = lanes::scrolled(inside);
    lanes::lay(*area, *upper, {lines, picture.widget}, false);
    lanes::lay(*area, *lower, {written, shown}, false);
    whole->addWidget(rosterList::make(*list, [name = cells.front().field.widget] {
        name->setFocus();
        qobject_cast<QLineEdit*>(name)->selectAll();
    }));
    whole->addWidget(area);
    whole->setStretchFactor(1, 1);
    whole->setSizes({230, 760});
    whole->setChildrenCollapsible(false);
    takeDrops(*whole, picture.take);
    const auto showPerson = [=] {
        for (const Cell& cell : cells) cell.field.refresh();
        sight.refresh();
    };
    QObject::connect(list, &QListWidget::currentRowChanged, whole, safely([=](int) { showPerson(); }));
    return {whole,
            [=] {
                rosterList::refresh(*list);
                showPerson();
            },
            [=](const check::Finding& finding) { return show(*list, cells, finding); }};
}

}  // namespace patientsPage
