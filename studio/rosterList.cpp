#include "studio/rosterList.h"

#include <QAction>
#include <QKeySequence>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/files.h"
#include "studio/portrait.h"
#include "studio/safely.h"
#include "studio/workspace.h"
#include "study/bookPeople.h"

namespace rosterList {

namespace {

constexpr const char* table = "tblPatients";

using Deed = std::function<void(QListWidget&)>;

const book::Sheet& people() { return book::sheetOf(workspace::book(), table); }

/// A change of the roster, after which this row is the chosen one.
void change(QListWidget& list, const std::string& what, int then,
            const std::function<void(book::Book&)>& work) {
    workspace::change(what, [&](book::Book& book) { work(book); });
    list.setCurrentRow(std::clamp(then, -1, list.count() - 1));
}

void add(QListWidget& list) {
    if (!workspace::isOpen()) return;
    const int at = chosen(list).value_or(people().size() - 1) + 1;
    change(list, "Add a person", at, [&](book::Book& book) {
        bookPeople::add(book, at);
        portrait::putNobody(book, at);
    });
}

/// The copy gets an introduction of its own, since it is changed where it stands.
void copy(QListWidget& list) {
    const std::optional<int> row = chosen(list);
    if (!row) return;
    change(list, "Copy a person", *row + 1, [&](book::Book& book) {
        bookPeople::copy(book, *row);
        const book::Sheet& sheet = book::sheetOf(book, table);
        const std::optional<std::string> intro = files::tryRead(workspace::fileOf(sheet.text(*row, "Intro")));
        if (!intro) return;
        const std::string name =
            bookPeople::freeFile(book, workspace::folder(), sheet.text(*row + 1, "Name") + ".txt");
        workspace::putFile(book, name, *intro);
        book::set(book, {table, *row + 1, "Intro"}, name);
    });
}

void remove(QListWidget& list) {
    const std::optional<int> row = chosen(list);
    if (!row) return;
    change(list, "Remove a person", *row, [&](book::Book& book) { book::removeRow(book, table, *row); });
}

void move(QListWidget& list, int by) {
    const std::optional<int> row = chosen(list);
    if (!row || *row + by < 0 || *row + by >= people().size()) return;
    change(list, "Move a person", *row + by,
           [&](book::Book& book) { book::moveRow(book, table, *row, *row + by); });
}

QAction* keyed(QListWidget& list, const QString& text, const QKeySequence& keys, const Deed& act) {
    auto* const action = new QAction(text, &list);
    action->setShortcut(keys);
    action->setShortcutContext(Qt::WidgetShortcut);
    QObject::connect(action, &QAction::triggered, &list, safely([act, &list](bool) { act(list); }));
    list.addAction(action);
    return action;
}

/// A button beside the list and the same by a key on the list.
void deed(QListWidget& list, QLayout& buttons, const QString& text, const QKeySequence& keys,
          const Deed& act) {
    auto* const button = new QPushButton(text);
    button->setAccessibleName(text + ": patients");
    button->setToolTip(keys.toString(QKeySequence::NativeText));
    QObject::connect(button, &QPushButton::clicked, keyed(list, text, keys, act), &QAction::trigger);
    buttons.addWidget(button);
}

}  // namespace

std::optional<int> chosen(const QListWidget& list) {
    const int row = list.currentRow();
    if (!workspace::isOpen() || row < 0 || row >= people().size()) return {};
    return row;
}

void refresh(QListWidget& list) {
    const QSignalBlocker quiet(&list);
    const int before = std::max(list.currentRow(), 0);
    const int count = workspace::isOpen() ? people().size() : 0;
    while (list.count() > count) delete list.takeItem(list.count() - 1);
    while (list.count() < count) list.addItem(new QListWidgetItem);
    for (int row = 0; row < count; ++row) {
        QListWidgetItem& item = *list.item(row);
        const QString name = QString::fromStdString(people().text(row, "Name"));
        item.setText(name.isEmpty() ? QString("Person %1").arg(row + 1) : name);
        item.setIcon(portrait::small(row));
        item.setSizeHint(QSize(0, 32));
    }
    list.setCurrentRow(std::min(before, count - 1));
}

QWidget* make(QListWidget& list, const std::function<void()>& name) {
    auto* const whole = new QWidget;
    auto* const column = new QVBoxLayout(whole);
    auto* const title = new QLabel("<h2>Patients</h2>");
    auto* const first = new QHBoxLayout;
    auto* const second = new QHBoxLayout;
    list.setAccessibleName("Patients, in the order of the table");
    list.setIconSize(QSize(40, 26));
    list.setContextMenuPolicy(Qt::ActionsContextMenu);
    deed(list, *first, "Add", QKeySequence(Qt::Key_Insert), [name](QListWidget& l) {
        add(l);
        name();
    });
    deed(list, *first, "Copy", QKeySequence(Qt::CTRL | Qt::Key_D), copy);
    deed(list, *first, "Remove", QKeySequence(Qt::Key_Delete), remove);
    deed(list, *second, "Move up", QKeySequence(Qt::ALT | Qt::Key_Up), [](QListWidget& l) { move(l, -1); });
    deed(list, *second, "Move down", QKeySequence(Qt::ALT | Qt::Key_Down),
         [](QListWidget& l) { move(l, 1); });
    second->addStretch();
    keyed(list, "Change the name", QKeySequence(Qt::Key_F2), [name](QListWidget&) { name(); });
    auto* const help = new QLabel(
        "Persons are drawn at random, each once before one comes again. Their diseases are drawn "
        "anew each time.");
    help->setProperty("role", "help");
    help->setWordWrap(true);
    column->setContentsMargins(8, 8, 0, 8);
    column->addWidget(title);
    column->addWidget(&list, 1);
    column->addLayout(first);
    column->addLayout(second);
    column->addWidget(help);
    return whole;
}

}  // namespace rosterList
