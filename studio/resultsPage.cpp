#include "studio/resultsPage.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QLabel>
#include <QSplitter>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

#include "studio/background.h"
#include "studio/givenText.h"
#include "studio/handOver.h"
#include "studio/lanes.h"
#include "studio/safely.h"
#include "studio/searchTable.h"
#include "studio/workspace.h"
#include "study/courses.h"
#include "study/readStore.h"
#include "study/storeStatus.h"

namespace resultsPage {

namespace {

using searchTable::Row;
using searchTable::Table;

constexpr int leastHeight = 130;  ///< pixels of a table: some of its rows
constexpr qint64 rest = 3000;     ///< ms from one look to the next
constexpr qint64 restFactor =
    10;  ///< a look at a large store is followed by a rest of so many times its length

/// What a look at the store has brought.
struct Look {
    std::string store;
    QDateTime changed;                               ///< of the file, when the look began
    std::string subject;                             ///< whose patients these are
    std::optional<storeStatus::Status> status = {};  ///< none if the file is as it was
    courses::Study patients = {};
    qint64 length = 0;  ///< ms
};

struct View {
    QWidget* whole;
    QLabel* head;
    QLabel* problem;
    Table subjects, patients, scenarios, tables;
    QTimer* timer;
    QString wanted = {};  ///< the subject to be chosen when there are rows
    bool looking = false;
    Look shown = {};  ///< without the rows
};

using Shared = std::shared_ptr<View>;

QString textOf(const std::string& text) { return QString::fromStdString(text); }

template <class Number>
QVariant numberOf(const std::optional<Number>& number) {
    return number ? QVariant(*number) : QVariant();
}

void addCounts(Row& row, const storeStatus::Patients& patients) {
    for (const int count : {patients.finished, patients.aborted, patients.brokenOff, patients.open})
        row.emplace_back(count);
}

void showStatus(const View& view, const storeStatus::Status& status) {
    std::vector<Row> rows;
    int finished = 0;
    for (const storeStatus::Subject& subject : status.subjects) {
        Row& row =
            rows.emplace_back(Row{textOf(subject.name), textOf(subject.last), textOf(subject.scenario)});
        addCounts(row, subject.patients);
        finished += subject.patients.finished;
    }
    view.subjects.fill(rows);
    rows.clear();
    for (const storeStatus::Scenario& scenario : status.scenarios) {
        Row& row = rows.emplace_back(Row{textOf(scenario.name), scenario.subjects});
        addCounts(row, scenario.patients);
    }
    view.scenarios.fill(rows);
    rows.clear();
    for (const storeStatus::TableRows& table : status.tables)
        rows.push_back({textOf(table.table), static_cast<qlonglong>(table.rows)});
    view.tables.fill(rows);
    view.head->setText(status.subjects.empty()
                           ? QString("Nobody has signed in yet.")
                           : QString("Subjects: %1. Finished patients: %2. Last activity: %3.")
                                 .arg(status.subjects.size())
                                 .arg(finished)
                                 .arg(textOf(status.subjects.front().last)));
}

QString endOf(const courses::Patient& patient) {
    switch (patient.state) {
        case courses::State::Open: return "stands open";
        case courses::State::Repeated: return textOf(patient.result) + " (repeats another row)";
        default: return textOf(patient.result);
    }
}

int eventsOf(const courses::Patient& patient, courses::Action action) {
    return static_cast<int>(std::ranges::count(patient.events, action, &courses::Event::action));
}

void showPatients(const View& view, const Look& look) {
    std::vector<Row> rows;
    for (const courses::Patient& patient : look.patients.patients) {
        Row& row = rows.emplace_back(Row{patient.trial, textOf(look.patients.scenarios[patient.scenario]),
                                         textOf(patient.start), textOf(patient.disease), endOf(patient),
                                         patient.saved ? QString("yes") : QString("no")});
        for (const QVariant& value :
             {numberOf(patient.score), numberOf(patient.duration), numberOf(patient.health),
              numberOf(patient.belief), numberOf(patient.chance)})
            row.push_back(value);
        for (const courses::Action action :
             {courses::Action::Testing, courses::Action::Diagnose, courses::Action::Prescribe})
            row.emplace_back(eventsOf(patient, action));
    }
    view.patients.fill(rows);
    view.patients.title->setText(look.subject.empty()
                                     ? QString("Patients: choose a subject to see them")
                                     : "Patients of " + givenText::shortened(textOf(look.subject)));
}

/// In the thread of the stores.
void read(Look& look, bool all) {
    QElapsedTimer clock;
    clock.start();
    if (all) look.status = storeStatus::read(look.store);
    if (!look.subject.empty()) look.patients = courses::readOf(*readStore::open(look.store), look.subject);
    look.length = clock.elapsed();
}

void lookAgain(const Shared& view);

void take(const Shared& view, Look& look, const std::string& problem) {
    view->looking = false;
    view->timer->start(static_cast<int>(std::max(rest, restFactor * look.length)));
    if (look.store != workspace::store()) return lookAgain(view);
    view->problem->setText(problem.empty() ? QString()
                                           : "The results cannot be read at the moment: " + textOf(problem));
    view->problem->setVisible(!problem.empty());
    if (!problem.empty()) {
        view->shown.changed = {};  // tried again, however old the file is
        return;
    }
    if (look.status) showStatus(*view, *look.status);
    view->shown = {look.store, look.changed, look.subject};  // before a choice, which looks again
    if (look.status && !look.status->subjects.empty() && !view->subjects.chosen().isValid())
        view->subjects.choose(textOf(look.status->subjects.front().name));
    if (!view->wanted.isEmpty() && view->subjects.choose(view->wanted)) view->subjects.view->setFocus();
    view->wanted.clear();
    showPatients(*view, look);
    if (view->subjects.chosen().toString().toStdString() != look.subject) lookAgain(view);
}

/// Looks at the store, if it has changed or another subject is chosen, and if anybody sees the page.
void lookAgain(const Shared& view) {
    if (view->looking || !view->whole->isVisible() || !workspace::isOpen()) return;
    const std::string store = workspace::store();
    if (view->shown.store != store) {
        showStatus(*view, {});
        view->head->setText("The results are being read.");
        view->shown = {};
    }
    const auto look = std::make_shared<Look>();
    look->store = store;
    look->changed = QFileInfo(textOf(store)).lastModified();
    look->subject = view->subjects.chosen().toString().toStdString();
    const bool all =
        look->changed != view->shown.changed || view->shown.store != store || !look->changed.isValid();
    if (!all && look->subject == view->shown.subject) return;
    view->looking = true;
    background::run([look, all] { read(*look, all); },
                    [view, look](const std::string& problem) { take(view, *look, problem); });
}

void layOut(const View& view, QWidget* handOver) {
    auto* const column = new QVBoxLayout(view.whole);
    auto* const across = new QSplitter(Qt::Horizontal);
    auto* const down = new QSplitter(Qt::Vertical);
    auto* const sides = new QTabWidget;
    sides->addTab(view.scenarios.widget, "Scenarios");
    sides->addTab(view.tables.widget, "Rows of the tables");
    across->addWidget(view.subjects.widget);
    across->addWidget(sides);
    across->setSizes({620, 420});
    across->setChildrenCollapsible(false);
    down->setChildrenCollapsible(false);
    for (QTableView* table : {view.subjects.view, view.patients.view}) table->setMinimumHeight(leastHeight);
    down->addWidget(across);
    down->addWidget(view.patients.widget);
    view.head->setWordWrap(true);
    view.problem->setWordWrap(true);
    view.problem->setProperty("role", "error");
    view.problem->hide();
    column->addWidget(new QLabel("<h2>Results</h2>"));
    column->addWidget(view.head);
    column->addWidget(view.problem);
    column->addWidget(handOver);
    column->addWidget(down, 1);
}

}  // namespace

Page make() {
    auto* const whole = new QWidget;
    const QStringList counts{"Finished", "Aborted", "Broken off", "Open"};
    const auto view = std::make_shared<View>(
        View{whole, new QLabel, new QLabel,
             searchTable::make("Subjects", QStringList{"Subject", "Last activity", "Last scenario"} + counts,
                               true),
             searchTable::make("Patients",
                               {"Trial", "Scenario", "Began", "Disease", "End", "Saved", "Score", "Seconds",
                                "Health", "Belief", "Chance", "Tests", "Diagnoses", "Treatments"},
                               true),
             searchTable::make("Scenarios", QStringList{"Scenario", "Subjects"} + counts, false),
             searchTable::make("Rows of the tables", {"Table", "Rows"}, false), new QTimer(whole)});
    layOut(*view, handOver::make([view] {
        const QVariant trial = view->patients.chosen();
        return trial.isValid() && !view->shown.subject.empty()
                   ? view->shown.subject + ":" + trial.toString().toStdString()
                   : std::string();
    }));
    view->timer->setSingleShot(true);
    QObject::connect(view->timer, &QTimer::timeout, whole, safely([view] {
                         view->timer->start(rest);
                         lookAgain(view);
                     }));
    searchTable::whenChosen(view->subjects, [view] { lookAgain(view); });
    view->timer->start(rest);
    const auto show = [view](const check::Finding& finding) {
        if (!finding.table.starts_with("Subject") || finding.row == 0) return false;
        const book::Sheet& sheet = book::sheetOf(workspace::book(), finding.table);
        view->wanted = textOf(sheet.text(finding.row - 1, "Subject"));
        view->subjects.view->setFocus();
        if (view->subjects.choose(view->wanted)) view->wanted.clear();
        return true;
    };
    return {lanes::scrolled(whole), [view] { lookAgain(view); }, show};
}

}  // namespace resultsPage
