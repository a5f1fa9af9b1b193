#include "studio/listPages.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include "studio/askName.h"
#include "studio/givenText.h"
#include "studio/grid.h"
#include "studio/lanes.h"
#include "studio/rowDeeds.h"
#include "studio/workspace.h"
#include "study/bookScenarios.h"

namespace listPages {

namespace {

using book::Place;

constexpr int leastHeight = 160;  ///< pixels of a list: some of its rows

/// Rows of one kind of a table, with the one column that is typed.
struct Kind {
    const char* table;
    const char* key;    ///< column that tells the kind
    const char* value;  ///< column that is shown
    std::function<std::string()> name;
    QString title;
};

std::vector<int> rowsOf(const book::Book& book, const Kind& kind) {
    return book::rowsOf(book, kind.table, kind.key, kind.name());
}

grid::View viewOf(const book::Book& book, const Kind& kind) {
    grid::View view{{QString(kind.value)}, {}, {}};
    for (const int row : rowsOf(book, kind)) {
        view.rows << QString::number(view.rows.size() + 1);
        view.places.push_back({Place{kind.table, row, kind.value}});
    }
    return view;
}

void addRow(book::Book& book, const Kind& kind) { book::addRowOf(book, kind.table, kind.key, kind.name()); }

struct Block {
    QWidget* widget;
    grid::Grid grid;
};

/// A grid of one kind with its buttons.
Block block(const Kind& kind) {
    const grid::Grid grid =
        grid::make({kind.title, [=](const book::Book& book) { return viewOf(book, kind); },
                    [=](book::Book& book) {
                        addRow(book, kind);
                        return true;
                    }});
    auto* const whole = new QWidget;
    auto* const column = new QVBoxLayout(whole);
    auto* const buttons = new QHBoxLayout;
    const auto button = [&](const QString& text, const std::function<void()>& pressed) {
        auto* const made = new QPushButton(text);
        made->setAccessibleName(text + ": " + kind.title);
        QObject::connect(made, &QPushButton::clicked, made, pressed);
        buttons->addWidget(made);
    };
    button("Add", [=] {
        workspace::change("Add a row", [&](book::Book& book) { addRow(book, kind); });
        grid.table->setCurrentCell(grid.table->rowCount() - 1, 0);
        grid.table->editItem(grid.table->currentItem());
    });
    const auto act = [&](const QString& text, const char* what, int by) {
        button(text, [=] { rowDeeds::act(grid, kind.table, rowsOf(workspace::book(), kind), what, by); });
    };
    act("Remove", "Remove a row", 0);
    act("Move up", "Move a row", -1);
    act("Move down", "Move a row", 1);
    buttons->addStretch();
    auto* const title = new QLabel("<b>" + kind.title + "</b>");
    column->addWidget(title);
    column->addWidget(grid.table, 1);
    column->addLayout(buttons);
    grid.table->setMinimumHeight(leastHeight);
    grid.table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    return {whole, grid};
}

/// How many words the scenarios take of a type.
QString wordsInUse() {
    QString text;
    for (const std::string& name : bookScenarios::namesOf(workspace::book())) {
        const bookScenarios::Parts parts = bookScenarios::partsOf(workspace::book(), name);
        text += QString("\n%1: %2 diseases, %3 symptoms")
                    .arg(QString::fromStdString(name))
                    .arg(parts.diseases)
                    .arg(parts.symptoms.size());
    }
    return "Words are dealt at random to each subject and scenario. A scenario takes the first words of each "
           "list:" +
           text;
}

bool isTaken(const std::string& list) {
    return !book::rowsOf(workspace::book(), "tblTests", "SETTING", list).empty();
}

/// Renames the list where it is used too, or copies it; shows what has come of it.
void nameList(QWidget* parent, const std::string& list, bool isCopy, const Follow& follow) {
    const QString what = isCopy ? "Copy the list" : "Rename the list";
    const std::string name = askName::ask(
        parent, {what, "Name of the list:", isCopy ? list + " copy" : list, isCopy ? std::string() : list},
        isTaken);
    if (name.empty() || name == list) return;
    workspace::change(what.toStdString(), [&](book::Book& book) {
        (isCopy ? bookScenarios::copyTests : bookScenarios::renameTests)(book, list, name);
    });
    follow(name);
}

QString usersText(const std::string& list) {
    QStringList users;
    for (const std::string& user : bookScenarios::usersOfTests(workspace::book(), list))
        users << QString::fromStdString(user);
    return users.empty() ? "No scenario uses this list." : "Used by: " + users.join(", ");
}

}  // namespace

Page words() {
    const auto named = [](const char* name) { return [name] { return std::string(name); }; };
    const Block diseases = block({"tblVocabulary", "Type", "Term", named("Disease"), "Words for diseases"});
    const Block symptoms = block({"tblVocabulary", "Type", "Term", named("Symptom"), "Words for symptoms"});
    auto* const inside = new QWidget;
    auto* const column = new QVBoxLayout(inside);
    auto* const lists = new QGridLayout;
    auto* const used = new QLabel;
    givenText::tame(*used);
    column->addLayout(lists, 1);
    column->addWidget(used);
    QScrollArea* const area = lanes::scrolled(inside);
    lanes::lay(*area, *lists, {diseases.widget, symptoms.widget}, true);
    return {area,
            [=] {
                diseases.grid.refresh();
                symptoms.grid.refresh();
                used->setText(wordsInUse());
            },
            [=](const check::Finding& finding) {
                return diseases.grid.show(finding) || symptoms.grid.show(finding);
            }};
}

Page tests(const std::function<std::string()>& list, const Follow& follow) {
    const Block lengths =
        block({"tblTests", "SETTING", "Length", list, "Length in simulated minutes, by place of the test"});
    auto* const whole = new QWidget;
    auto* const column = new QVBoxLayout(whole);
    auto* const head = new QHBoxLayout;
    QLabel* const name = givenText::title();
    auto* const used = new QLabel;
    givenText::tame(*used);
    head->addWidget(name, 1);
    for (const bool isCopy : {false, true}) {
        auto* const button = new QPushButton(isCopy ? "Copy…" : "Rename…");
        button->setAccessibleName(isCopy ? "Copy the list" : "Rename the list");
        QObject::connect(button, &QPushButton::clicked, whole,
                         [=] { nameList(whole, list(), isCopy, follow); });
        head->addWidget(button);
    }
    column->addLayout(head);
    column->addWidget(lengths.widget, 1);
    column->addWidget(used);
    return {lanes::scrolled(whole),
            [=] {
                givenText::setTitle(*name, list());
                lengths.grid.refresh();
                used->setText(usersText(list()));
            },
            lengths.grid.show};
}

}  // namespace listPages
