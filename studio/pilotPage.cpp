#include "studio/pilotPage.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QScrollArea>
#include <QSpinBox>
#include <QTimer>
#include <QVBoxLayout>
#include <memory>
#include <utility>

#include "pilot/policies.h"
#include "pilot/prospects.h"
#include "studio/fields.h"
#include "studio/lanes.h"
#include "studio/pilotPlots.h"
#include "studio/pilotRuns.h"
#include "studio/pilotTable.h"
#include "studio/workspace.h"

namespace pilotPage {

namespace {

using Scenario = std::function<std::string()>;

constexpr int pauseAfterChange = 500;  // milliseconds: while somebody types nothing is begun
constexpr int usualSubjects = 200;
constexpr int mostSubjects = 1000;
constexpr int usualPatients = 4;
constexpr int mostPatients = 20;

struct Parts {
    Scenario scenario;
    QWidget* whole;
    std::vector<std::pair<std::string, QCheckBox*>> policies;
    QSpinBox* subjects;
    QSpinBox* patients;
    QLabel* warnings;
    QLabel* state;
    QLabel* faults;
    QProgressBar* progress;
    QTableWidget* table;
    pilotPlots::Plots plots;
    QTimer* timer;
    pilotRuns::Runner runner;
    std::optional<book::Book> shown = {};  ///< whose figures stand here or are on their way
    pilotRuns::Wish wish = {};
};

bool same(const pilotRuns::Wish& a, const pilotRuns::Wish& b) {
    return a.scenario == b.scenario && a.policies == b.policies && a.subjects == b.subjects &&
           a.patients == b.patients;
}

pilotRuns::Wish wishOf(const Parts& parts) {
    pilotRuns::Wish wish{parts.scenario(), {}, parts.subjects->value(), parts.patients->value()};
    for (const auto& [name, box] : parts.policies) {
        if (box->isChecked()) wish.policies.push_back(name);
    }
    return wish;
}

/// Reckoned from the tables alone, so that it stands there at once.
void showWarnings(const Parts& parts) {
    check::Study study = book::studyOf(workspace::book(), workspace::folder());
    std::erase_if(study.scenarios,
                  [&](const check::Scenario& each) { return !check::sameName(each.name, parts.scenario()); });
    QString lines;
    for (const prospects::Prospect& prospect : prospects::of(study)) {
        for (const prospects::Warning& warning : prospect.warnings)
            lines += "<p>" + QString::fromStdString(warning.text).toHtmlEscaped() + "</p>";
    }
    parts.warnings->setText(lines.isEmpty() ? "Nothing in the tables speaks against it: patients can be "
                                              "saved, the time limit can come, and a test can pay."
                                            : lines);
}

void showNews(Parts& parts, const pilotRuns::News& news) {
    parts.plots.show(news.outcomes);
    pilotTable::show(*parts.table, news.outcomes);
    parts.progress->setVisible(!news.last);
    parts.state->setText(news.outcomes.empty()
                             ? QString("No patient came to be seen.")
                             : QString("%1 simulated subjects of each kind, %2 patients each%3")
                                   .arg(news.subjects)
                                   .arg(parts.wish.patients)
                                   .arg(news.last ? "." : "; more are on their way."));
    parts.faults->setText("This scenario cannot be played to its end: " + news.faults + '.');
    parts.faults->setVisible(!news.faults.isEmpty());
}

void showProblem(Parts& parts, const QString& problem) {
    parts.shown.reset();
    parts.plots.show({});
    pilotTable::show(*parts.table, {});
    parts.progress->hide();
    parts.state->setText("No figures.");
    parts.faults->setText("This scenario cannot be played: " + problem);
    parts.faults->show();
}

void begin(Parts& parts) {
    parts.shown = workspace::book();
    parts.wish = wishOf(parts);
    if (parts.wish.policies.empty()) {
        parts.runner.stop();
        parts.progress->hide();
        return parts.state->setText("Choose who plays.");
    }
    parts.runner.start(parts.wish);
}

/// What runs is of no use any more; the next one waits until nobody types, and until it is looked at.
void renew(Parts& parts, int pause) {
    parts.shown.reset();
    parts.runner.stop();
    parts.faults->hide();
    parts.progress->setRange(0, 0);
    parts.progress->show();
    parts.state->setText("Simulated subjects are about to play…");
    parts.timer->start(pause);
}

void refresh(Parts& parts) {
    const bool current =
        parts.shown && same(parts.wish, wishOf(parts)) && book::same(*parts.shown, workspace::book());
    if (current || !workspace::isOpen() || parts.scenario().empty()) return;
    showWarnings(parts);
    const bool another = parts.wish.scenario != parts.scenario();
    if (another) {
        parts.plots.show({});
        pilotTable::show(*parts.table, {});
    }
    renew(parts, another ? 0 : pauseAfterChange);
}

QGroupBox* group(const QString& title, const std::vector<QWidget*>& widgets) {
    auto* const box = new QGroupBox(title);
    auto* const column = new QVBoxLayout(box);
    column->setContentsMargins(12, 28, 12, 12);
    for (QWidget* widget : widgets) column->addWidget(widget);
    return box;
}

QSpinBox* number(QHBoxLayout* row, const QString& caption, int usual, int most, int step) {
    auto* const label = new QLabel(caption);
    auto* const box = new QSpinBox;
    box->setRange(1, most);
    box->setValue(usual);
    box->setSingleStep(step);
    box->setKeyboardTracking(false);
    fields::passWheelOn(box);
    box->setAccessibleName(caption);
    label->setBuddy(box);
    row->addWidget(label);
    row->addWidget(box);
    return box;
}

/// Widgets in a row, from the left.
struct Row {
    QWidget* widget = new QWidget;
    QHBoxLayout* line = new QHBoxLayout(widget);
};

/// Who plays, and how many and how long.
std::vector<QWidget*> choices(Parts& parts) {
    const Row who;
    who.line->setContentsMargins(0, 0, 16, 0);
    for (const Policy& policy : policies::all()) {
        auto* const box = new QCheckBox(QString::fromStdString(policy.name));
        box->setToolTip(QString::fromStdString(policy.meaning));
        box->setAccessibleDescription(box->toolTip());
        box->setChecked(policy.name == "bayes" || policy.name == "silent");
        who.line->addWidget(box);
        parts.policies.emplace_back(policy.name, box);
    }
    const Row many;
    many.line->setContentsMargins(0, 0, 0, 0);
    parts.subjects = number(many.line, "Subjects of each kind", usualSubjects, mostSubjects, 100);
    parts.patients = number(many.line, "Patients of each subject", usualPatients, mostPatients, 1);
    who.line->addStretch();
    many.line->addStretch();
    return {who.widget, many.widget};
}

QLabel* sentence(const QString& text, const char* role) {
    auto* const label = new QLabel(text);
    label->setWordWrap(true);
    if (role != nullptr) label->setProperty("role", role);
    return label;
}

QString policyLines() {
    QString lines = "Who plays: ";
    for (const Policy& policy : policies::all())
        lines += QString("%1 %2; ").arg(QString::fromStdString(policy.name),
                                        QString::fromStdString(policy.meaning));
    lines.chop(2);
    return lines + '.';
}

void connect(const std::shared_ptr<Parts>& parts) {
    const auto anew = [parts] {
        if (parts->whole->isVisible()) renew(*parts, pauseAfterChange);
    };
    for (const auto& [name, box] : parts->policies) QObject::connect(box, &QCheckBox::toggled, box, anew);
    for (QSpinBox* box : {parts->subjects, parts->patients})
        QObject::connect(box, &QSpinBox::valueChanged, box, anew);
    QObject::connect(parts->timer, &QTimer::timeout, parts->whole, [parts] {
        if (parts->whole->isVisible()) begin(*parts);
    });
    // A study that is changed elsewhere makes what runs here useless.
    workspace::whenChanged([parts] {
        if (!parts->shown || book::same(*parts->shown, workspace::book())) return;
        parts->shown.reset();
        parts->runner.stop();
    });
}

}  // namespace

Page make(const Scenario& scenario) {
    auto* const area = new QScrollArea;
    auto* const inside = new QWidget;
    auto* const column = new QVBoxLayout(inside);
    const auto parts = std::make_shared<Parts>();
    parts->scenario = scenario;
    parts->whole = area;
    parts->warnings = sentence({}, nullptr);
    parts->state = sentence({}, nullptr);
    parts->faults = sentence({}, "error");
    parts->faults->hide();
    parts->progress = new QProgressBar;
    parts->progress->setAccessibleName("Progress of the simulated subjects");
    parts->progress->setTextVisible(false);
    parts->progress->setMaximumHeight(8);
    QSizePolicy room = parts->progress->sizePolicy();
    room.setRetainSizeWhenHidden(true);
    parts->progress->setSizePolicy(room);
    parts->table = pilotTable::make();
    parts->plots = pilotPlots::make(*area);
    parts->timer = new QTimer(area);
    parts->timer->setSingleShot(true);
    auto* const who = new QWidget;
    auto* const whoGrid = new QGridLayout(who);
    whoGrid->setContentsMargins(0, 0, 0, 0);
    column->addWidget(group("What the tables say before anybody plays", {parts->warnings}));
    column->addWidget(group("What comes of simulated subjects",
                            {who, sentence(policyLines(), "help"), parts->state, parts->faults,
                             parts->progress, parts->plots.widget, parts->table}));
    column->addStretch();
    area->setWidget(inside);
    lanes::lay(*area, *whoGrid, choices(*parts), false);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    parts->runner = pilotRuns::make({[parts](const pilotRuns::News& news) { showNews(*parts, news); },
                                     [parts](int done, int all) {
                                         parts->progress->setRange(0, all);
                                         parts->progress->setValue(done);
                                     },
                                     [parts](const QString& problem) { showProblem(*parts, problem); }});
    connect(parts);
    return {area, [parts] { refresh(*parts); }, [](const check::Finding&) { return false; }};
}

}  // namespace pilotPage
