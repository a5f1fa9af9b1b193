// Presses anything anywhere in the study window, in any order, and looks after each act whether the window
// shows what the study holds, whether the findings are those of a fresh check, and whether anything was
// written outside "Save". Programs of the system and other windows of it are left alone.
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTabBar>
#include <QTableWidget>
#include <QTimer>
#include <QtTest/QTest>
#include <deque>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>

#include "platform/files.h"
#include "studio/fields.h"
#include "studio/window.h"
#include "studio/workspace.h"
#include "study/bookDraft.h"
#include "study/bookScenarios.h"
#include "study/check.h"
#include "tests/studio/studioDesk.h"

namespace {

namespace fs = std::filesystem;

std::minstd_rand numbers;
std::deque<std::string> acts;  ///< the last ones
bool saved = false;            ///< "Save" was pressed since the last look
bool takenUp = false;          ///< a draft was taken up
book::Book opened;             ///< what undoing all has to give
int complaints = 0;
std::ofstream actLog;  ///< tells after a crash what led to it

std::size_t any(std::size_t count) { return numbers() % count; }
bool onceIn(std::size_t times) { return any(times) == 0; }

template <class Items>
auto anyOf(const Items& items) {
    return items[static_cast<decltype(items.size())>(any(static_cast<std::size_t>(items.size())))];
}

void did(const std::string& act) {
    actLog << act << std::endl;
    acts.push_back(act);
    if (acts.size() > 12) acts.pop_front();
}

void complain(const std::string& about) {
    fmt::print(stderr, "{}\n", about);
    for (const std::string& act : acts) fmt::print(stderr, "    {}\n", act);
    ++complaints;
}

void expect(bool holds, const std::string& about) {
    if (!holds) complain(about);
}

QString anyText() {
    static const QStringList texts{"50",     "0",    "100",     "-1",   "3.5",     "1e400", "nan",
                                   "yes",    "x",    "",        " ",    "40000",   "'",     "a; b",
                                   "Plain",  "Four", "four ",   "slow", "2",       "1",     "99999999999",
                                   "D1\tD2", "\"",   "blanks ", "none", "anna.png"};
    return onceIn(30) ? QString(300, 'w') : onceIn(30) ? QString::fromUtf8("Žofie 🙂") : anyOf(texts);
}

QString anyBlock() {
    QString block;
    const std::size_t lines = onceIn(40) ? 500 : 1 + any(4);
    const std::size_t cells = 1 + any(4);
    for (std::size_t line = 0; line < lines; ++line) {
        for (std::size_t i = 0; i < cells; ++i)
            block += (i == 0 ? "" : "\t") + (onceIn(4) ? anyText() : "20");
        block += '\n';
    }
    return block;
}

void type(QWidget& widget, const QString& text) {
    const QPointer<QWidget> there(&widget);
    for (const QChar letter : text) {
        QWidget* const at = QApplication::focusWidget();
        if (!there || at == nullptr) return;
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, letter);
        QApplication::sendEvent(at, &press);
    }
}

void key(Qt::Key key, Qt::KeyboardModifiers with = {}) {
    QWidget* const at = QApplication::focusWidget();
    QTest::keyClick(at == nullptr ? &studioDesk::lay() : at, key, with);
}

void anyKey() {
    static constexpr std::array keys{Qt::Key_Return, Qt::Key_Escape, Qt::Key_Tab,      Qt::Key_Backtab,
                                     Qt::Key_Space,  Qt::Key_Up,     Qt::Key_Down,     Qt::Key_Left,
                                     Qt::Key_End,    Qt::Key_Home,   Qt::Key_Delete,   Qt::Key_F2,
                                     Qt::Key_Insert, Qt::Key_PageUp, Qt::Key_Backspace};
    static constexpr std::array letters{Qt::Key_Z, Qt::Key_Y, Qt::Key_S, Qt::Key_C,
                                        Qt::Key_V, Qt::Key_X, Qt::Key_A, Qt::Key_D};
    if (onceIn(3)) return key(anyOf(letters), Qt::ControlModifier);
    if (onceIn(8)) return key(onceIn(2) ? Qt::Key_Up : Qt::Key_Down, Qt::AltModifier);
    key(anyOf(keys), onceIn(8) ? Qt::ShiftModifier : Qt::NoModifier);
}

/// "Play", the start for a subject and the browser are other programs.
bool isLeftAlone(const QString& text) {
    return text == "Play" || text == "Start for a subject" || text.startsWith("Report");
}

/// Answers whatever holds the window up. A box that comes of the answer is answered too.
void answer() {
    QTimer::singleShot(1, answer);
    if (QWidget* const popup = QApplication::activePopupWidget()) {
        did("popup");
        return QTest::keyClick(popup, anyOf(std::array{Qt::Key_Down, Qt::Key_Return, Qt::Key_Escape}));
    }
    QWidget* const box = QApplication::activeModalWidget();
    if (box == nullptr) return;
    if (auto* const message = qobject_cast<QMessageBox*>(box)) {
        QAbstractButton* const button = anyOf(message->buttons());
        did("answer \"" + message->text().toStdString() + "\" by " + button->text().toStdString());
        if (message->text() == "That could not be done.") complain(message->informativeText().toStdString());
        if (button->text() == "Take them up") QTest::qWait(500);  // while drafts are kept
        takenUp |= button->text() == "Take them up";
        if (button->text() == "Save" || button->text().endsWith(": save") || button->text() == "Save mine")
            saved = true;
        return button->click();
    }
    if (auto* const input = qobject_cast<QInputDialog*>(box)) {
        const QString text = anyText();
        did("name " + text.toStdString());
        if (!onceIn(3)) input->setTextValue(text);
        return onceIn(3) ? input->reject() : input->accept();
    }
    if (auto* const dialog = qobject_cast<QDialog*>(box)) {
        const QList<QCheckBox*> ticks = dialog->findChildren<QCheckBox*>();
        if (qobject_cast<QFileDialog*>(box) == nullptr && !ticks.isEmpty()) anyOf(ticks)->click();
        if (dialog->inherits("QProgressDialog")) return;  // goes by itself
        did("leave " + dialog->windowTitle().toStdString());
        dialog->reject();
    }
}

void pressItem(QAbstractItemView& view) {
    const int rows = view.model()->rowCount();
    const int columns = view.model()->columnCount();
    if (rows == 0 || columns == 0) return;
    QModelIndex at = view.model()->index(static_cast<int>(any(static_cast<std::size_t>(rows))),
                                         static_cast<int>(any(static_cast<std::size_t>(columns))));
    if (const int inside = view.model()->rowCount(at); inside > 0)
        at = view.model()->index(static_cast<int>(any(static_cast<std::size_t>(inside))), 0, at);
    did(fmt::format("item {} of {}", at.data().toString().toStdString(),
                    view.accessibleName().toStdString()));
    view.scrollTo(at);
    const QPoint place = view.visualRect(at).center();
    const QPointer<QAbstractItemView> there(&view);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, onceIn(6) ? Qt::ShiftModifier : Qt::NoModifier, place);
    if (there && qobject_cast<QTableWidget*>(&view) != nullptr && !onceIn(3)) {
        if (onceIn(2)) QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, place);
        const QString text = anyText();
        did("type " + text.toStdString());
        type(view, text);
        if (!onceIn(5)) key(onceIn(2) ? Qt::Key_Return : Qt::Key_Tab);
    } else if (there && onceIn(3)) {
        anyKey();
    }
}

void press(QWidget& widget) {
    did(fmt::format("{} \"{}\"", widget.metaObject()->className(), widget.accessibleName().toStdString()));
    if (auto* const button = qobject_cast<QAbstractButton*>(&widget)) {
        did("press " + button->text().toStdString());
        if (!isLeftAlone(button->text())) QTest::mouseClick(button, Qt::LeftButton);
    } else if (auto* const view = qobject_cast<QAbstractItemView*>(&widget)) {
        pressItem(*view);
    } else if (auto* const bar = qobject_cast<QTabBar*>(&widget)) {
        bar->setCurrentIndex(static_cast<int>(any(static_cast<std::size_t>(bar->count()))));
    } else if (widget.focusPolicy() != Qt::NoFocus) {
        widget.setFocus();
        const QPointer<QWidget> there(&widget);
        if (onceIn(2)) key(Qt::Key_A, Qt::ControlModifier);
        const QString text = anyText();
        did("type " + text.toStdString());
        type(widget, text);
        if (there && onceIn(3)) anyKey();
    }
}

void act() {
    QMainWindow& main = studioDesk::lay();
    if (onceIn(12)) QApplication::clipboard()->setText(anyBlock());
    if (onceIn(6)) return did("a key"), anyKey();
    if (onceIn(12)) {
        QList<QAction*> actions;
        for (QAction* action : main.findChildren<QAction*>()) {
            const auto* const of = qobject_cast<QWidget*>(action->parent());
            const bool seen = action->isEnabled() && of != nullptr && of->isVisible();
            if (seen && action->menu() == nullptr && !isLeftAlone(action->text())) actions << action;
        }
        QAction* const action = anyOf(actions);
        did("menu " + action->text().toStdString());
        return action->trigger();
    }
    if (onceIn(10)) {
        const QPoint place(static_cast<int>(any(static_cast<std::size_t>(main.width()))),
                           static_cast<int>(any(static_cast<std::size_t>(main.height()))));
        QWidget* const at = main.childAt(place);
        auto* const button = qobject_cast<QAbstractButton*>(at);
        if (at == nullptr || (button != nullptr && isLeftAlone(button->text()))) return;
        did(fmt::format("click at {},{}", place.x(), place.y()));
        return QTest::mouseClick(at, onceIn(8) ? Qt::RightButton : Qt::LeftButton, {},
                                 at->mapFrom(&main, place));
    }
    QList<QWidget*> widgets;
    for (QWidget* widget : main.findChildren<QWidget*>()) {
        const bool taken = widget->focusPolicy() != Qt::NoFocus || qobject_cast<QAbstractButton*>(widget);
        if (widget->isVisible() && widget->isEnabled() && taken) widgets << widget;
    }
    press(*anyOf(widgets));
}

/// The columns of a table by the sentences that stand at their fields; not those that share one.
std::map<QString, std::string> columnsOf(const char* table) {
    std::map<QString, std::string> found;
    for (const schema::Column& column : schema::find(table)->columns) {
        const QString help = fields::wordsOf(table, std::string(column.name), {}).help;
        const bool fresh = !help.isEmpty() && found.emplace(help, column.name).second;
        if (!fresh) found[help].clear();
    }
    return found;
}

void expectField(QWidget& widget, const book::Place& place) {
    const QString wanted = QString::fromStdString(book::textAt(workspace::book(), place));
    const std::string where = fmt::format("{} {} {}", place.table, place.row, place.column);
    if (auto* const tick = qobject_cast<QCheckBox*>(&widget))
        return expect(tick->isChecked() ==
                          book::sheetOf(workspace::book(), place.table).isTrue(place.row, place.column),
                      where + " is not ticked as in the study");
    auto* const line = qobject_cast<QLineEdit*>(&widget);
    if (line == nullptr) return;
    const bool onItsWay = line->hasFocus() && (line->property("problem").toBool() ||
                                               line->parentWidget()->property("problem").toBool() ||
                                               line->text().trimmed() == wanted);
    expect(line->text() == wanted || onItsWay, fmt::format("{} shows \"{}\" for \"{}\"", where,
                                                           line->text().toStdString(), wanted.toStdString()));
}

void expectFields(const std::string& entry) {
    const auto* const roster = studioDesk::named<QListWidget>("Patients, in the order of the table");
    const bool people = roster != nullptr;
    const char* const table = people ? "tblPatients" : "tblAppDefault";
    const std::optional<int> row = people ? std::optional(roster->currentRow())
                                          : bookScenarios::partsOf(workspace::book(), entry).options;
    if (!row || *row < 0) return;
    static const auto ofPeople = columnsOf("tblPatients");
    static const auto ofOptions = columnsOf("tblAppDefault");
    const auto& columns = people ? ofPeople : ofOptions;
    for (QWidget* widget : studioDesk::lay().findChildren<QWidget*>()) {
        const auto known = columns.find(widget->accessibleDescription());
        const std::string column = known == columns.end() ? std::string() : known->second;
        if (widget->isVisible() && !column.empty()) expectField(*widget, {table, *row, column});
    }
}

/// The grids of the model, by the words of their heads.
void expectGrid(const char* name, const char* table, const std::vector<int>& rows) {
    const auto* const grid = studioDesk::named<QTableWidget>(name);
    if (grid == nullptr) return;
    if (grid->rowCount() != static_cast<int>(rows.size()))
        return complain(fmt::format("{} has {} rows for {}", name, grid->rowCount(), rows.size()));
    for (int i = 0; i < grid->rowCount(); ++i) {
        for (int j = 0; j < grid->columnCount(); ++j) {
            QString column = grid->horizontalHeaderItem(j)->text();
            const bool ticks = column.startsWith("Visible");
            column.replace("Disease ", "D").replace(", heals", "+").replace(", harms", "-");
            column.replace("Name", "Type");
            const book::Place place{table, rows[static_cast<std::size_t>(i)], column.toStdString()};
            const std::string wanted = ticks ? "" : book::textAt(workspace::book(), place);
            expect(grid->item(i, j)->text().toStdString() == wanted,
                   fmt::format("{} {},{} is not \"{}\"", name, i, j, wanted));
        }
    }
}

std::string linesOf(const std::vector<check::Finding>& findings) {
    std::string all;
    for (const check::Finding& finding : findings) all += check::lineOf(finding) + '\n';
    return all;
}

bool sameTables(const book::Book& a, const book::Book& b) {
    return std::ranges::all_of(a.sheets, [&](const auto& sheet) {
        return book::sameTable(*sheet.second, book::sheetOf(b, sheet.first));
    });
}

void lookAtWindow() {
    const bookHistory::History& history = workspace::history();
    const auto* const current = studioDesk::tree().currentItem();
    expect(current != nullptr, "the tree has nothing chosen");
    if (current == nullptr || !current->data(0, Qt::UserRole).isValid()) return;  // a heading
    const std::string entry = current->text(0).toStdString();
    const bookScenarios::Parts parts = bookScenarios::partsOf(workspace::book(), entry);
    expectFields(entry);
    if (parts.rates) expectGrid("Base rates", "tblBaseRates", {*parts.rates});
    expectGrid("Chances of symptoms", "tblDiseaseSymptom", parts.symptoms);
    expectGrid("Chances of treatments", "tblTreatments", parts.treatments);
    expect(studioDesk::lay().isWindowModified() == bookHistory::isChanged(history), "the title is wrong");
    expect(studioDesk::action("Undo").isEnabled() == !history.past.empty(), "Undo");
    const auto fresh = check::look(book::studyOf(workspace::book(), workspace::folder()));
    expect(linesOf(fresh) == linesOf(workspace::findings()), "the findings are not those of a fresh check");
    expect(studioDesk::named<QTreeWidget>("Findings")->topLevelItemCount() == static_cast<int>(fresh.size()),
           "the findings are not all listed");
}

/// What is now and was not saved, as a window started anew would find it.
void lookAtDraft(const fs::path& drafts) {
    workspace::keepDraft();
    std::optional<bookDraft::Draft> kept;
    for (const auto& entry : fs::directory_iterator(drafts)) {
        auto found = bookDraft::find(entry.path().string());
        if (found && found->study == workspace::store()) kept = std::move(found);
    }
    const bool changed = bookHistory::isChanged(workspace::history());
    expect(kept.has_value() == changed, "a draft is missing, or nobody needs it");
    expect(!kept || book::same(kept->now, workspace::book()), "the draft is not what is now");
}

void lookAtHistory() {
    bookHistory::History history = workspace::history();
    const bool whole = history.past.size() < 1000;
    while (bookHistory::undo(history)) {
    }
    expect(!whole || sameTables(history.now, opened), "undoing all does not give what was opened");
    while (bookHistory::redo(history)) {
    }
    while (history.future.size() < workspace::history().future.size()) bookHistory::undo(history);
    expect(book::same(history.now, workspace::book()), "redoing all does not give what was");
    expect(sameTables(book::open(workspace::store()), history.saved), "the store is not what was saved");
}

/// As after a kill, or when the window was closed.
void startAgain(const studioDesk::OwnStudy& study) {
    did("start again");
    workspace::keepDraft();
    const book::Book before = studioDesk::bookNow();
    takenUp = false;
    studioDesk::lay().show();
    window::open(study.folder);
    expect(!takenUp || book::same(workspace::book(), before), "the draft that was taken up is another");
    opened = takenUp ? workspace::history().past.front().before : workspace::book();
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App app("Presses anything anywhere in the study window.");
    int presses = 300;
    std::string logFile;
    std::uint32_t seed = 1;
    bool ofSample = false;
    app.add_option("--presses", presses);
    app.add_option("--seed", seed);
    app.add_flag("--sample", ofSample, "the sample study, with its eight scenarios");
    app.add_option("--log", logFile, "file for what is pressed");
    CLI11_PARSE(app, argc, argv);
    numbers.seed(seed);
    if (!logFile.empty()) actLog.open(logFile);
    studioDesk::OwnStudy study;
    study.change("INSERT INTO SubjectInfo (Subject, Date, Time) VALUES ('kim', '2020-01-01', '10:00:00')");
    studioDesk::lay();
    const fs::path drafts = fs::path(qEnvironmentVariable("XDG_CONFIG_HOME").toStdString()) / "drafts";
    fs::create_directories(drafts);
    QObject::connect(&studioDesk::action("Save"), &QAction::triggered, [] { saved = true; });
    answer();
    if (ofSample) {
        fs::remove_all(study.folder + "/data");
        fs::remove_all(study.folder + "/Patients");
        workspace::make(study.folder, true);
    }
    startAgain(study);
    std::string print = studioDesk::printOf(study);
    for (int i = 1; i <= presses && complaints < 10; ++i) {
        act();
        QCoreApplication::processEvents();
        if (!studioDesk::lay().isVisible() || onceIn(400)) startAgain(study);
        const std::string now = studioDesk::printOf(study);
        expect(saved || now == print, "written outside \"Save\":\n" + now);
        print = now;
        saved = false;
        lookAtWindow();
        if (i % 20 == 0) lookAtHistory(), lookAtDraft(drafts);
    }
    fmt::print("{} presses, {} complaints\n", presses, complaints);
    return complaints == 0 ? 0 : 1;
}
