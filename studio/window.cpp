#include "studio/window.h"

#include <QAction>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <memory>

#include "qt/eventHook.h"
#include "studio/fields.h"
#include "studio/findingsPanel.h"
#include "studio/handOver.h"
#include "studio/listPages.h"
#include "studio/notices.h"
#include "studio/patientsPage.h"
#include "studio/play.h"
#include "studio/resultsPage.h"
#include "studio/safely.h"
#include "studio/scenarioPage.h"
#include "studio/sheet.h"
#include "studio/startPage.h"
#include "studio/workspace.h"
#include "study/bookScenarios.h"
#include "study/bookTables.h"

namespace window {

namespace {

enum class Kind { Start, Scenario, Patients, Words, Tests, Results };

/// What the tree has chosen.
struct Chosen {
    Kind kind = Kind::Start;
    std::string name = {};
};

struct Window {
    QMainWindow* main;
    QTreeWidget* tree;
    QStackedWidget* stack;
    QLabel* problem;
    QAction* undo;
    QAction* redo;
    QAction* save;
    QAction* play;
    std::vector<QAction*> tables;  ///< out and in
    QTimer* draftTimer;
    findingsPanel::Panel findings;
    std::vector<std::pair<Kind, Page>> pages;
    Chosen chosen;
};

Window w;

Page& pageOf(Kind kind) {
    for (auto& [its, page] : w.pages) {
        if (its == kind) return page;
    }
    return w.pages.front().second;
}

void showChosen() {
    Page& page = pageOf(w.chosen.kind);
    w.stack->setCurrentWidget(page.widget);
    page.refresh();
}

QTreeWidgetItem* entry(QTreeWidgetItem* parent, const QString& text, const Chosen& chosen) {
    auto* const item =
        parent == nullptr ? new QTreeWidgetItem(w.tree, {text}) : new QTreeWidgetItem(parent, {text});
    item->setData(0, Qt::UserRole, static_cast<int>(chosen.kind));
    item->setData(0, Qt::UserRole + 1, QString::fromStdString(chosen.name));
    if (chosen.kind == w.chosen.kind && check::sameName(chosen.name, w.chosen.name))
        w.tree->setCurrentItem(item);
    return item;
}

QTreeWidgetItem* heading(const QString& text) {
    auto* const item = new QTreeWidgetItem(w.tree, {text});
    item->setFlags(Qt::ItemIsEnabled);
    return item;
}

void fillTree() {
    const QSignalBlocker quiet(w.tree);
    w.tree->clear();
    if (!workspace::isOpen()) return;
    QTreeWidgetItem* const scenarios = heading("Scenarios");
    for (const std::string& name : bookScenarios::namesOf(workspace::book()))
        entry(scenarios, QString::fromStdString(name), {Kind::Scenario, name});
    entry(nullptr, "Patients", {Kind::Patients});
    entry(nullptr, "Words", {Kind::Words});
    QTreeWidgetItem* const tests = heading("Lengths of tests");
    for (const std::string& list : bookScenarios::testLists(workspace::book()))
        entry(tests, QString::fromStdString(list), {Kind::Tests, list});
    entry(nullptr, "Results", {Kind::Results});
    w.tree->expandAll();
}

/// A scenario or list that is gone gives way to the first there is.
void mendChoice() {
    if (!workspace::isOpen()) return;
    const auto has = [](const std::vector<std::string>& names) {
        return std::ranges::any_of(names,
                                   [](const auto& name) { return check::sameName(name, w.chosen.name); });
    };
    const std::vector<std::string> scenarios = bookScenarios::namesOf(workspace::book());
    const bool lost = (w.chosen.kind == Kind::Scenario && !has(scenarios)) ||
                      (w.chosen.kind == Kind::Tests && !has(bookScenarios::testLists(workspace::book()))) ||
                      w.chosen.kind == Kind::Start;
    if (!lost) return;
    w.chosen = scenarios.empty() ? Chosen{Kind::Words} : Chosen{Kind::Scenario, scenarios.front()};
}

void refresh() {
    mendChoice();
    fillTree();
    const bookHistory::History& history = workspace::history();
    const auto label = [](const char* verb, const std::vector<bookHistory::Step>& steps) {
        return steps.empty() ? QString(verb)
                             : QString("%1: %2").arg(verb, QString::fromStdString(steps.back().what));
    };
    w.undo->setText(label("Undo", history.past));
    w.undo->setEnabled(!history.past.empty());
    w.redo->setText(label("Redo", history.future));
    w.redo->setEnabled(!history.future.empty());
    const bool changed = workspace::isOpen() && bookHistory::isChanged(history);
    w.save->setEnabled(changed);
    w.play->setEnabled(workspace::isOpen());
    for (QAction* each : w.tables) each->setEnabled(workspace::isOpen());
    w.main->setWindowModified(changed);
    w.main->setWindowTitle(workspace::isOpen()
                               ? QString::fromStdString(workspace::folder()) + "[*] - Tavix Studio"
                               : QString("Tavix Studio"));
    w.findings.refresh();
    w.findings.widget->setVisible(workspace::isOpen());
    w.tree->setVisible(workspace::isOpen());
    // Whoever types without a pause has a draft too.
    if (!w.draftTimer->isActive()) w.draftTimer->start();
    showChosen();
}

void go(const check::Finding& finding) {
    const auto nameAt = [&](const char* column) {
        return book::sheetOf(workspace::book(), finding.table).text(finding.row - 1, column);
    };
    if (finding.row == 0) return fields::tellProblem("This finding belongs to the table as a whole.");
    Chosen wanted;
    if (finding.table == "tblVocabulary")
        wanted = {Kind::Words};
    else if (finding.table == "tblPatients")
        wanted = {Kind::Patients};
    else if (finding.table == "tblTests")
        wanted = {Kind::Tests, nameAt("SETTING")};
    else
        wanted = {Kind::Scenario, nameAt("Setting")};
    w.chosen = wanted;
    refresh();
    if (!pageOf(w.chosen.kind).show(finding))
        fields::tellProblem(QString("%1, row %2 cannot be shown on a page.")
                                .arg(QString::fromStdString(finding.table))
                                .arg(finding.row));
}

QString listOf(const std::vector<std::string>& lines) {
    QStringList all;
    for (const std::string& line : lines) all << QString::fromStdString(line);
    return all.join('\n');
}

/// False if the study is not saved after all.
bool save() {
    updateStore::Outcome outcome = workspace::save(false);
    if (!outcome.problems.empty() && outcome.inUse) {
        const int pressed = notices::ask(
            "A session may be at work on this study, so nothing was saved.",
            listOf(outcome.problems) +
                "\n\nIf you see that the program is closed on every station, the study can be saved.",
            {"Go back", "The program is closed: save", "Go back"});
        if (pressed != 1) return false;
        outcome = workspace::save(true);
    }
    if (!outcome.problems.empty()) {
        notices::tell("Nothing was saved.", listOf(outcome.problems));
        return false;
    }
    workspace::keepDraft();
    QString text = "Saved.";
    if (!outcome.misfits.empty())
        notices::tell("Saved. The words that these subjects were dealt no longer fit:",
                      listOf(outcome.misfits));
    w.main->statusBar()->showMessage(text, 5000);
    return true;
}

void tablesOut() {
    const QString folder = QFileDialog::getExistingDirectory(w.main, "Folder for the tables as CSV");
    if (folder.isEmpty()) return;
    writeTables::Outcome outcome = bookTables::write(workspace::book(), folder.toStdString(), false);
    if (outcome.taken) {
        if (notices::ask("There are tables in this folder already.", folder,
                         {"Write over them", "Go back"}) != 0)
            return;
        outcome = bookTables::write(workspace::book(), folder.toStdString(), true);
    }
    if (!outcome.problems.empty()) return notices::list("Nothing was written.", outcome.problems);
    w.main->statusBar()->showMessage("The tables stand in " + folder, 8000);
    if (!outcome.notes.empty())
        notices::list("The tables were written. What the files cannot give back:", outcome.notes);
}

void tablesIn() {
    const QString folder = QFileDialog::getExistingDirectory(w.main, "Folder with tables as CSV");
    if (folder.isEmpty()) return;
    bookTables::Taken taken;
    workspace::edit("Tables from CSV", [&](book::Book& book) {
        taken = bookTables::take(book, folder.toStdString());
        return std::string(taken.problems.empty() ? "" : "cannot be taken");
    });
    if (!taken.problems.empty())
        return notices::list("The tables were not taken; the study is as it was.", taken.problems);
    QStringList tables;
    for (const std::string& table : taken.tables) tables << QString::fromStdString(table);
    w.main->statusBar()->showMessage(
        tables.empty() ? "The tables were the same already." : "Taken: " + tables.join(", "), 8000);
    if (!taken.notes.empty()) notices::list("The tables were taken. Left out:", taken.notes);
}

/// Whether what is open may be left; asks if it is not saved, or something is made of it.
bool mayLeave() {
    if (!handOver::atWork().isEmpty()) {
        const int pressed = notices::ask(handOver::atWork() + " goes on.",
                                         "Nothing is left of it if it is stopped.", {"Stop it", "Go back"});
        if (pressed != 0) return false;
        handOver::stop();
    }
    if (!workspace::isOpen() || !bookHistory::isChanged(workspace::history())) return true;
    const int pressed =
        notices::ask("The study has changes that are not saved.", QString::fromStdString(workspace::folder()),
                     {"Save", "Leave them out", "Cancel"});
    if (pressed == 0) return save();
    if (pressed == 1) workspace::dropDraft();
    return pressed == 1;
}

void opened() {
    startPage::remember(QString::fromStdString(workspace::folder()));
    w.chosen = {};
    if (workspace::hasDraft()) {
        const int pressed = notices::ask(
            "Changes of this study were not saved when the window was last closed.",
            "They can be taken up again, and saved or undone then.", {"Take them up", "Throw them away"});
        if (pressed == 0)
            workspace::takeDraft();
        else
            workspace::dropDraft();
    }
    refresh();
}

/// What was open stays so, with the draft that was dropped to leave it.
void stay(const QString& sentence, const std::string& problem) {
    w.draftTimer->start();
    notices::tell(sentence, QString::fromStdString(problem));
}

void chooseStudy() {
    const QString folder = QFileDialog::getExistingDirectory(w.main, "Open a study");
    if (!folder.isEmpty() && mayLeave()) open(folder.toStdString());
}

void makeStudy(bool ofSample) {
    const QString folder =
        QFileDialog::getSaveFileName(w.main, "Folder of the new study", QDir::homePath() + "/study", {},
                                     nullptr, QFileDialog::ShowDirsOnly | QFileDialog::DontConfirmOverwrite);
    if (folder.isEmpty() || !mayLeave()) return;
    const std::string problem = workspace::make(folder.toStdString(), ofSample);
    if (!problem.empty()) return stay("The study was not made.", problem);
    opened();
}

void addScenario() {
    const std::string name = bookScenarios::freeName(workspace::book(), "New scenario");
    workspace::edit("Add a scenario", [&](book::Book& book) {
        bookScenarios::add(book, name);
        return std::string();
    });
    w.chosen = {Kind::Scenario, name};
    refresh();
}

template <class Handler>
QAction* action(QMenu* menu, const QString& text, const QKeySequence& keys, Handler handler) {
    auto* const made = new QAction(text, w.main);
    made->setShortcut(keys);
    QObject::connect(made, &QAction::triggered, w.main, safely([handler](bool) { handler(); }));
    menu->addAction(made);
    return made;
}

void buildMenus() {
    QMenu* const file = w.main->menuBar()->addMenu("&Study");
    action(file, "New from the sample…", {}, [] { makeStudy(true); });
    action(file, "New, empty…", QKeySequence::New, [] { makeStudy(false); });
    action(file, "Open…", QKeySequence::Open, chooseStudy);
    w.save = action(file, "Save", QKeySequence::Save, save);
    file->addSeparator();
    w.tables = {action(file, "Tables &as CSV…", {}, tablesOut),
                action(file, "Tables &from CSV…", {}, tablesIn)};
    file->addSeparator();
    action(file, "Quit", QKeySequence::Quit, [] { w.main->close(); });
    QMenu* const edit = w.main->menuBar()->addMenu("&Edit");
    w.undo = action(edit, "Undo", QKeySequence::Undo, workspace::undo);
    w.redo = action(edit, "Redo", QKeySequence::Redo, workspace::redo);
    edit->addSeparator();
    action(edit, "Add a scenario", {}, [] {
        if (workspace::isOpen()) addScenario();
    });
    QMenu* const run = w.main->menuBar()->addMenu("&Try");
    w.play = action(run, "Play", QKeySequence(Qt::Key_F5),
                    [] { play::start(w.chosen.kind == Kind::Scenario ? w.chosen.name : std::string()); });
    w.play->setToolTip("Starts the program on a copy of the study (F5). What it writes is thrown away.");
    auto* const bar = w.main->addToolBar("Study");
    bar->setMovable(false);
    bar->addActions({w.save, w.undo, w.redo, edit->actions().back(), w.play});
}

void buildPages() {
    const auto name = [] { return w.chosen.name; };
    w.pages.emplace_back(Kind::Start, startPage::make({makeStudy, chooseStudy, [](const QString& folder) {
                                                           if (mayLeave()) open(folder.toStdString());
                                                       }}));
    w.pages.emplace_back(Kind::Scenario, scenarioPage::make(name, [](const std::string& scenario) {
                             w.chosen = {Kind::Scenario, scenario};
                             refresh();
                         }));
    w.pages.emplace_back(Kind::Patients, patientsPage::make());
    w.pages.emplace_back(Kind::Words, listPages::words());
    w.pages.emplace_back(Kind::Tests, listPages::tests(name));
    w.pages.emplace_back(Kind::Results, resultsPage::make());
    for (const auto& [kind, page] : w.pages) w.stack->addWidget(page.widget);
}

void buildFrame() {
    auto* const across = new QSplitter(Qt::Horizontal);
    auto* const down = new QSplitter(Qt::Vertical);
    w.tree->setHeaderHidden(true);
    w.tree->setAccessibleName("What the study consists of");
    across->addWidget(w.tree);
    across->addWidget(w.stack);
    across->setStretchFactor(1, 1);
    across->setSizes({210, 1000});
    down->addWidget(across);
    down->addWidget(w.findings.widget);
    down->setStretchFactor(0, 1);
    down->setSizes({640, 120});
    w.problem->setProperty("role", "error");
    w.main->statusBar()->addWidget(w.problem, 1);
    w.main->setCentralWidget(down);
    w.main->resize(1280, 860);
}

}  // namespace

void open(const std::string& folder) {
    const std::string problem = workspace::open(folder);
    if (!problem.empty()) return stay("The study was not opened.", problem);
    opened();
}

void show() {
    w.main = new QMainWindow;
    w.main->setStyleSheet(sheet::text());
    w.tree = new QTreeWidget;
    w.stack = new QStackedWidget;
    w.problem = new QLabel;
    w.draftTimer = new QTimer(w.main);
    w.draftTimer->setSingleShot(true);
    w.draftTimer->setInterval(400);
    w.findings = findingsPanel::make(go);
    fields::tellProblemsTo([](const QString& text) {
        w.problem->setText(text);
        if (!text.isEmpty()) w.main->statusBar()->clearMessage();
    });
    QObject::connect(w.draftTimer, &QTimer::timeout, w.main, safely([] { workspace::keepDraft(); }));
    play::tellTo([](const QString& text) { w.main->statusBar()->showMessage(text, 20000); });
    buildMenus();
    buildPages();
    buildFrame();
    QObject::connect(w.tree, &QTreeWidget::currentItemChanged, w.main,
                     safely([](QTreeWidgetItem* item, QTreeWidgetItem*) {
                         if (item == nullptr || !item->data(0, Qt::UserRole).isValid()) return;
                         w.chosen = {static_cast<Kind>(item->data(0, Qt::UserRole).toInt()),
                                     item->data(0, Qt::UserRole + 1).toString().toStdString()};
                         showChosen();
                     }));
    hookEvents(w.main, [](QEvent* event) {
        if (event->type() != QEvent::Close || mayLeave()) return false;
        event->ignore();
        return true;
    });
    workspace::whenChanged(refresh);
    refresh();
    w.main->show();
}

}  // namespace window
