#include "studio/chances.h"

#include <QLabel>
#include <optional>

#include "pilot/inference.h"
#include "pilot/patterns.h"
#include "pilot/studyTables.h"
#include "studio/plainTable.h"
#include "studio/workspace.h"

namespace chances {

namespace {

using plainTable::Cell;
using studyTables::Reading;

constexpr const char* none =
    "Nothing can be reckoned while rates, symptoms and treatments do not fit together. The findings tell "
    "where.";

std::optional<Reading> readingOf(const std::string& scenario) {
    const check::Study study = book::studyOf(workspace::book(), workspace::folder());
    for (const check::Scenario& each : study.scenarios) {
        if (check::sameName(each.name, scenario)) return studyTables::of(study, each);
    }
    return {};
}

QString number(double value, int decimals) {
    const QString text = QString::number(value, 'f', decimals);
    return text.toDouble() == 0 && text.startsWith('-') ? text.mid(1) : text;
}

QStringList numbered(const char* what, std::size_t count) {
    QStringList names;
    for (std::size_t i = 0; i < count; ++i) names << QString("%1 %2").arg(what).arg(i + 1);
    return names;
}

void showTests(QTableWidget& table, QLabel& sum, const Reading& reading,
               const std::vector<patterns::Pattern>& all) {
    const std::size_t tests = reading.tables.symptomChances.size();
    const inference::Results open(tests, Result::None);
    std::vector<std::vector<Cell>> lines;
    for (std::size_t test = 0; test < tests; ++test) {
        const double bits = inference::information(reading.tables, open, test);
        const double fall = inference::expectedFall(reading.task, reading.tables, open, test);
        lines.push_back({{number(bits, 2), 100 * bits},
                         {number(fall, 1)},
                         {number(reading.task.testCost, 0)},
                         {fall > reading.task.testCost ? "yes" : "no"}});
    }
    plainTable::show(table,
                     {"Tells, bits", "Expected fall of the penalty", "Costs", "Pays, as the first test"},
                     numbered("Test", tests), lines);
    const patterns::Right right = patterns::rightOf(reading.tables, all);
    sum.setText(
        QString("The likeliest disease is the right one for %1 of 100 patients without a test, and for "
                "%2 with all results.")
            .arg(number(100 * right.without, 0), number(100 * right.with, 0)));
}

std::vector<Cell> lineOf(const patterns::Pattern& pattern) {
    std::vector<Cell> line;
    line.reserve(pattern.results.size() + 1 + pattern.chances.size());
    for (const Result result : pattern.results) line.push_back({result == Result::Present ? "present" : "–"});
    line.push_back({number(100 * pattern.share, 1)});
    bool canBe = false;
    for (const double chance : pattern.chances) canBe = canBe || chance > 0;
    for (const double chance : pattern.chances)
        line.push_back(canBe ? Cell{number(100 * chance, 1), 100 * chance} : Cell{"cannot be"});
    return line;
}

void showPatterns(QTableWidget& table, const Reading& reading, const std::vector<patterns::Pattern>& all) {
    std::vector<std::vector<Cell>> lines;
    lines.reserve(all.size());
    for (const patterns::Pattern& pattern : all) lines.push_back(lineOf(pattern));
    plainTable::show(table,
                     numbered("Symptom", reading.tables.symptomChances.size())
                         << "Patients, %" << numbered("Disease", reading.tables.baseRates.size()),
                     numbered("Pattern", all.size()), lines);
}

QLabel* help(const QString& text) {
    auto* const label = new QLabel(text);
    label->setWordWrap(true);
    label->setProperty("role", "help");
    return label;
}

}  // namespace

Tables make() {
    auto* const tests = plainTable::make("What each test tells");
    auto* const chances = plainTable::make("Chances by pattern of findings");
    auto* const sum = new QLabel;
    sum->setWordWrap(true);
    return {
        {sum, tests,
         help(
             "Bits: how much the result tells of the disease when nothing else is known. The penalty is that "
             "of a subject who believes the computed chances.")},
        {help("The chance of each disease in percent as the program computes it, from the findings alone: "
              "base "
              "rates do not enter. They decide how many patients come with a pattern."),
         chances},
        [=](const std::string& scenario) {
            const std::optional<Reading> reading = readingOf(scenario);
            if (!reading) {
                sum->setText(none);
                plainTable::show(*tests, {}, {}, {});
                plainTable::show(*chances, {}, {}, {});
                return;
            }
            const std::vector<patterns::Pattern> all = patterns::of(reading->tables);
            showTests(*tests, *sum, *reading, all);
            showPatterns(*chances, *reading, all);
        }};
}

}  // namespace chances
