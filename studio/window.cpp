#include "studio/window.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "qt/eventHook.h"
#include "studio/contents.h"
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
#include "studio/tableFiles.h"
#include "studio/tablePage.h"
#include "studio/workspace.h"
#include "study/bookScenarios.h"
#include "study/check.h"

namespace window {

using contents::Entry;
using contents::Kind;

namespace {

struct Window {
    QMainWindow* main;
    QTreeWidget* tree;
    QStackedWidget* stack;
    QLabel* problem;
    QAction* undo;
    QAction* redo;
    QAction* save;
    QAction* add;
    QAction* play;
    QAction* session;
    std::vector<QAction*> tables;  ///< out and in
    QTimer* draftTimer;
    findingsPanel::Panel findings;
    std::vector<std::pair<Kind, Page>> pages;
};

Window w;

Page& pageOf(Kind kind) {
    for (auto& [its, page] : w.pages) {
        if (its == kind) return page;
    }
    return w.pages.front().second;
}

void showChosen() {
    Page& page = pageOf(contents::chosen().kind);
    w.stack->setCurrentWidget(page.widget);
    page.refresh();
}

void refresh() {
    contents::refresh();
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
    w.save->setEnabled(workspace::isOpen());  // what is being typed into a cell is no change yet
    for (QAction* each : {w.add, w.play, w.session}) each->setEnabled(workspace::isOpen());
    for (QAction* each : w.tables) each->setEnabled(workspace::isOpen());
    w.main->setWindowModified(changed);
    w.main->setWindowTitle(workspace::isOpen()
                               ? QString::fromStdString(workspace::folder()) + "[*] - Tavix Studio"
                               : QString("Tavix Studio"));
    w.findings.refresh();
    w.findings.widget->setVisible(workspace::isOpen());
    // Not begun anew with each key, or whoever types on would have no draft.
    if (!w.draftTimer->isActive()) w.draftTimer->start();
    showChosen();
}

/// Shows the first page that has the cell of the finding.
void go(const check::Finding& finding) {
    const std::string told = check::lineOf(finding);
    for (const Entry& place : contents::placesOf(finding)) {
        contents::choose(place);
        refresh();
        const bool stayed =
            contents::chosen().kind == place.kind && check::sameName(contents::chosen().name, place.name);
        if (stayed && pageOf(place.kind).show(finding)) return;
    }
    // It belongs to no cell; what it says is the way to its remedy.
    fields::tellProblem(QString::fromStdString(told));
}

/// Takes in what is typed into a cell or field at this moment, which a key of the menu would pass by.
void settle() {
    const QPointer<QWidget> typing = QApplication::focusWidget();
    if (!typing) return;
    QWidget* cells = typing->parentWidget();
    while (cells != nullptr && qobject_cast<QAbstractItemView*>(cells) == nullptr)
        cells = cells->parentWidget();
    typing->clearFocus();
    if (cells != nullptr)
        cells->setFocus();
    else if (typing)
        typing->setFocus();
}

QString listOf(const std::vector<std::string>& lines) {
    QStringList all;
    for (const std::string& line : lines) all << QString::fromStdString(line);
    return all.join('\n');
}

/// No box tells of a failure: it would come back with each change.
void keepDraft() {
    static bool failed = false;
    try {
        workspace::keepDraft();
        if (std::exchange(failed, false)) fields::tellProblem({});
    } catch (const std::exception& error) {
        failed = true;
        fields::tellProblem(QString("What is not saved would be lost if the program ended now: %1")
                                .arg(QString::fromStdString(error.what())));
    }
}

/// False if the study is not saved after all.
bool save() {
    if (!bookHistory::isChanged(workspace::history())) {
        w.main->statusBar()->showMessage("Nothing has changed since the study was last saved.", 5000);
        return true;
    }
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
    if (outcome.elsewhere) {
        const int pressed =
            notices::ask("Somebody has changed this study since it was opened here, so nothing was saved.",
                         listOf(outcome.problems) +
                             "\n\nSaving replaces these tables by yours; theirs stay in the store "
                             "under other names, as with every save.",
                         {"Go back", "Save mine", "Go back"});
        if (pressed != 1) return false;
        workspace::takeAsSaved();
        outcome = workspace::save(false);
    }
    if (!outcome.problems.empty()) {
        notices::tell("Nothing was saved.",
                      listOf(outcome.problems) +
                          "\n\nThe changes stay here. \"Tables as CSV…\" in the menu "
                          "writes them elsewhere, from where they can be taken into another study.");
        return false;
    }
    keepDraft();
    QString text = "Saved.";
    if (!outcome.misfits.empty())
        notices::tell("Saved. The words that these subjects were dealt no longer fit:",
                      listOf(outcome.misfits));
    w.main->statusBar()->showMessage(text, 5000);
    return true;
}

/// A subject plays what is saved.
void startForSubject() {
    if (bookHistory::isChanged(workspace::history())) {
        const int pressed =
            notices::ask("The study has changes that are not saved, and a subject would not get them.", {},
                         {"Save and start", "Go back"});
        if (pressed != 0 || !save()) return;
    }
    play::forSubject();
}

/// Whether what is open may be left; asks if it is not saved, or something is made of it.
bool mayLeave() {
    settle();
    if (!handOver::atWork().isEmpty()) {
        const int pressed = notices::ask(handOver::atWork() + " goes on.",
                                         "Nothing is left of it if it is stopped.", {"Stop it", "Go back"});
        if (pressed != 0) return false;
        handOver::stop();
    }
    if (!workspace::isOpen() || !bookHistory::isChanged(workspace::history())) return true;
    const int pressed =
        notices::ask("The study has changes that are not saved.", QString::fromStdString(workspace::folder()),
                     {"Save", "Do not save", "Cancel"});
    if (pressed == 0) return save();
    if (pressed == 1) workspace::dropDraft();
    return pressed == 1;
}

void opened() {
    startPage::remember(QString::fromStdString(workspace::folder()));
    contents::choose(Entry{});
    if (workspace::hasDraft()) {
        w.draftTimer->stop();  // what is kept next would take the place of what is offered
        const int pressed =
            notices::ask("Changes of this study were not saved when the window was last closed.",
                         "They can be taken up again, and saved or undone then.",
                         {"Take them up", "Throw them away", "Take them up"});
        if (pressed == 1)
            workspace::dropDraft();
        else
            workspace::takeDraft();
    }
    refresh();
    w.tree->setFocus();
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
    QFileDialog place(w.main, "Folder of the new study", QDir::homePath());
    place.setAcceptMode(QFileDialog::AcceptSave);
    place.setOption(QFileDialog::ShowDirsOnly);
    place.setOption(QFileDialog::DontConfirmOverwrite);
    place.setLabelText(QFileDialog::FileName, "New folder:");
    place.setLabelText(QFileDialog::FileType, "Shown:");
    place.setLabelText(QFileDialog::Accept, "Make");
    place.setNameFilter("Folders (*)");
    place.selectFile("study");
    if (place.exec() != QDialog::Accepted) return;
    const QString folder = place.selectedFiles().value(0);
    if (folder.isEmpty() || !mayLeave()) return;
    const std::string problem = workspace::make(folder.toStdString(), ofSample);
    if (!problem.empty()) return stay("The study was not made.", problem);
    opened();
}

void addScenario() {
    const std::string name = bookScenarios::freeName(workspace::book(), "New scenario");
    workspace::change("Add a scenario", [&](book::Book& book) { bookScenarios::add(book, name); });
    contents::choose({Kind::Scenario, name});
    refresh();
}

/// A scenario that comes back with a step is shown.
void follow(void (*step)()) {
    const std::vector<std::string> before = bookScenarios::namesOf(workspace::book());
    step();
    for (const std::string& name : bookScenarios::namesOf(workspace::book())) {
        if (std::ranges::find(before, name) != before.end()) continue;
        contents::choose({Kind::Scenario, name});
        return refresh();
    }
}

/// The button that has the focus is pressed by Return as in a dialog, once, however long the key is down.
bool pressByReturn(QEvent* event) {
    if (event->type() != QEvent::KeyPress) return false;
    const auto* const press = static_cast<QKeyEvent*>(event);
    const int key = press->key();
    auto* const button = qobject_cast<QPushButton*>(QApplication::focusWidget());
    if ((key != Qt::Key_Return && key != Qt::Key_Enter) || button == nullptr) return false;
    if (!press->isAutoRepeat()) button->click();
    return true;
}

template <class Handler>
QAction* action(QMenu* menu, const QString& text, const QKeySequence& keys, Handler handler) {
    auto* const made = new QAction(text, w.main);
    made->setShortcut(keys);
    QObject::connect(made, &QAction::triggered, w.main, safely([handler](bool) {
                         settle();
                         handler();
                     }));
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
    w.tables = {action(file, "Tables &as CSV…", {}, [] { tableFiles::write(*w.main); }),
                action(file, "Tables &from CSV…", {}, [] { tableFiles::take(*w.main); })};
    file->addSeparator();
    action(file, "Quit", QKeySequence::Quit, [] { w.main->close(); });
    QMenu* const edit = w.main->menuBar()->addMenu("&Edit");
    w.undo = action(edit, "Undo", QKeySequence::Undo, [] { follow(workspace::undo); });
    w.redo = action(edit, "Redo", QKeySequence::Redo, [] { follow(workspace::redo); });
    QList<QKeySequence> again = QKeySequence::keyBindings(QKeySequence::Redo);
    if (const QKeySequence usual(Qt::CTRL | Qt::Key_Y); !again.contains(usual)) again << usual;
    w.redo->setShortcuts(again);
    edit->addSeparator();
    w.add = action(edit, "Add a scenario", {}, addScenario);
    QMenu* const run = w.main->menuBar()->addMenu("&Try");
    w.play = action(run, "Play", QKeySequence(Qt::Key_F5), [] {
        play::start(contents::chosen().kind == Kind::Scenario ? contents::chosen().name : std::string());
    });
    w.session = action(run, "Start for a subject", {}, startForSubject);
    w.play->setToolTip("Starts the program on a copy of the study (F5). What it writes is thrown away.");
    // What they would do stands in the menu and the tooltip; on the bar all buttons keep their places.
    w.undo->setIconText("Undo");
    w.redo->setIconText("Redo");
    auto* const bar = w.main->addToolBar("Study");
    bar->setMovable(false);
    bar->addActions({w.save, w.undo, w.redo, w.add, w.play, w.session});
}

void buildPages() {
    const auto name = [] { return contents::chosen().name; };
    w.pages.emplace_back(Kind::Start, startPage::make({makeStudy, chooseStudy, [](const QString& folder) {
                                                           if (mayLeave()) open(folder.toStdString());
                                                       }}));
    w.pages.emplace_back(Kind::Scenario, scenarioPage::make(name, [](const std::string& scenario) {
                             contents::choose({Kind::Scenario, scenario});
                             refresh();
                         }));
    w.pages.emplace_back(Kind::Patients, patientsPage::make());
    w.pages.emplace_back(Kind::Words, listPages::words());
    w.pages.emplace_back(Kind::Tests, listPages::tests(name, [](const std::string& list) {
                             contents::choose({Kind::Tests, list});
                             refresh();
                         }));
    w.pages.emplace_back(Kind::Table, tablePage::make(name));
    w.pages.emplace_back(Kind::Results, resultsPage::make());
    for (const auto& [kind, page] : w.pages) w.stack->addWidget(page.widget);
}

void buildFrame() {
    auto* const across = new QSplitter(Qt::Horizontal);
    auto* const down = new QSplitter(Qt::Vertical);
    across->addWidget(w.tree);
    across->addWidget(w.stack);
    across->setStretchFactor(1, 1);
    across->setSizes({210, 1000});
    down->addWidget(across);
    down->addWidget(w.findings.widget);
    down->setStretchFactor(0, 1);
    down->setSizes({640, 120});
    // What is drawn shut would keep the focus, and take presses that nobody sees.
    across->setChildrenCollapsible(false);
    down->setCollapsible(0, false);
    w.problem->setProperty("role", "error");
    w.problem->setTextFormat(Qt::PlainText);
    w.main->statusBar()->addWidget(w.problem, 1);
    w.main->setCentralWidget(down);
    w.main->resize(QSize(1280, 860).boundedTo(w.main->screen()->availableSize() * 0.95));
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
    w.tree = contents::make([] {
        fields::tellProblem({});
        showChosen();
    });
    w.stack = new QStackedWidget;
    w.problem = new QLabel;
    w.draftTimer = new QTimer(w.main);
    w.draftTimer->setSingleShot(true);
    w.draftTimer->setInterval(250);
    w.findings = findingsPanel::make(go);
    fields::tellProblemsTo([](const QString& text) {
        w.problem->setText(text);
        if (!text.isEmpty()) w.main->statusBar()->clearMessage();
    });
    QObject::connect(w.draftTimer, &QTimer::timeout, w.main, [] { keepDraft(); });
    play::tellTo([](const QString& text) { w.main->statusBar()->showMessage(text, 20000); });
    buildMenus();
    buildPages();
    buildFrame();
    hookEvents(w.main, [](QEvent* event) {
        if (pressByReturn(event)) return true;
        if (event->type() != QEvent::Close || mayLeave()) return false;
        event->ignore();
        return true;
    });
    workspace::whenChanged([] {
        fields::tellProblem({});
        refresh();
    });
    QObject::connect(qApp, &QApplication::focusChanged, w.main, [] { workspace::part(); });
    refresh();
    w.main->show();
}

}  // namespace window
