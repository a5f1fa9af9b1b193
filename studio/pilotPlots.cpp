#include "studio/pilotPlots.h"

#include <QBarCategoryAxis>
#include <QBarSet>
#include <QBoxPlotSeries>
#include <QBoxSet>
#include <QChart>
#include <QChartView>
#include <QGridLayout>
#include <QHorizontalStackedBarSeries>
#include <QLegend>
#include <QLineSeries>
#include <QVBoxLayout>
#include <QValueAxis>
#include <algorithm>
#include <array>
#include <map>
#include <memory>

#include "qt/look.h"
#include "studio/lanes.h"

namespace pilotPlots {

namespace {

using Outcomes = std::vector<pilotFigures::Outcome>;

constexpr int textPixels = 13;
constexpr int leastWidth = 330;  ///< at which the legend stands in one line
constexpr int linePixels = 2;
constexpr int mostTicks = 8;
constexpr int mostBoxes = 10;  // patients that stand side by side

struct Pair {
    const char* light;
    const char* dark;
};

/// Told apart by eyes that see no red or green, and as far from the card as text.
constexpr std::array<Pair, 6> policyColours{{{"#1f5fa8", "#7db4f0"},
                                             {"#b4520f", "#f0a165"},
                                             {"#1d7a46", "#69c995"},
                                             {"#8a3fa0", "#d09be6"},
                                             {"#5b656e", "#b5bdc4"},
                                             {"#a07a00", "#e3c94f"}}};
constexpr std::array<Qt::PenStyle, 3> policyLines{Qt::SolidLine, Qt::DashLine, Qt::DotLine};

QColor inScheme(const Pair& pair) { return look::colours().card.lightness() < 128 ? pair.dark : pair.light; }

QColor colourOf(std::size_t policy) { return inScheme(policyColours[policy % policyColours.size()]); }

/// Good ends are green, bad ones red and brown; what only ends is grey.
QColor colourOfEnd(const std::string& cause) {
    static const std::map<std::string, std::pair<Pair, int>> known{
        {"Dead", {{"#b3261e", "#f28b82"}, 255}},        {"Saved", {policyColours[2], 255}},
        {"Correct Treatment", {policyColours[2], 150}}, {"Time End", {policyColours[4], 255}},
        {"Wrong Treatment", {policyColours[1], 255}},   {"Diagnosed Wrong", {policyColours[0], 255}},
        {"Diagnosed Right", {policyColours[0], 150}}};
    const auto found = known.find(cause);
    if (found == known.end()) return look::colours().border;
    QColor colour = inScheme(found->second.first);
    colour.setAlpha(found->second.second);
    return colour;
}

QFont textFont(bool bold = false) {
    QFont font;
    font.setPixelSize(textPixels);
    font.setBold(bold);
    return font;
}

std::unique_ptr<QChart> chartNamed(const QString& title) {
    auto chart = std::make_unique<QChart>();
    const look::Colours& c = look::colours();
    chart->setTitle(title);
    chart->setTitleFont(textFont(true));
    chart->setTitleBrush(c.text);
    chart->setBackgroundBrush(c.card);
    chart->setBackgroundPen(QPen(c.border, 1));
    chart->setBackgroundRoundness(6);
    chart->setMargins(QMargins(6, 4, 10, 6));
    chart->legend()->setAlignment(Qt::AlignBottom);
    chart->legend()->setFont(textFont());
    chart->legend()->setLabelColor(c.text);
    return chart;
}

/// The chart takes the axis.
void addAxis(QChart& chart, QAbstractAxis* axis, Qt::Alignment side, const QString& title) {
    const look::Colours& c = look::colours();
    axis->setLabelsFont(textFont());
    axis->setTitleFont(textFont());
    axis->setLabelsColor(c.text);
    axis->setTitleBrush(c.faint);
    axis->setTitleText(title);
    axis->setLinePen(QPen(c.faint, 1));
    axis->setGridLinePen(QPen(c.border, 1));
    chart.addAxis(axis, side);
    for (QAbstractSeries* series : chart.series()) series->attachAxis(axis);
}

void addPercents(QChart& chart, Qt::Alignment side, const QString& title) {
    auto* const axis = new QValueAxis;
    axis->setRange(0, 100);
    axis->setTickCount(5);
    axis->setLabelFormat("%.0f %%");
    addAxis(chart, axis, side, title);
}

double lengthBetweenTicks(double whole, std::initializer_list<int> lengths) {
    for (const int length : lengths) {
        if (whole / length <= mostTicks) return length;
    }
    return whole / mostTicks;
}

std::unique_ptr<QChart> survivalOf(const Outcomes& outcomes) {
    auto chart = chartNamed("Patients alive over simulated time");
    int last = 1;
    for (std::size_t i = 0; i < outcomes.size(); ++i) {
        auto* const line = new QLineSeries;
        line->setName(QString::fromStdString(outcomes[i].policy));
        line->setPen(QPen(colourOf(i), linePixels, policyLines[i % policyLines.size()]));
        double alive = 100;
        line->append(0, alive);
        for (const survival::Step& step : outcomes[i].survival) {
            line->append(step.minute, alive);
            alive = 100 * step.alive;
            line->append(step.minute, alive);
            last = std::max(last, step.minute);
        }
        chart->addSeries(line);
    }
    auto* const minutes = new QValueAxis;
    minutes->setRange(0, last);
    minutes->setTickType(QValueAxis::TicksDynamic);
    minutes->setTickInterval(lengthBetweenTicks(last, {5, 10, 15, 30, 60, 120, 240, 480, 1440}));
    minutes->setLabelFormat("%.0f");
    addAxis(*chart, minutes, Qt::AlignBottom, "Simulated minutes");
    addPercents(*chart, Qt::AlignLeft, {});
    return chart;
}

std::vector<std::string> causesOf(const Outcomes& outcomes) {
    std::vector<std::string> causes;
    for (const pilotFigures::Outcome& each : outcomes) {
        for (const auto& [cause, count] : each.figures.ends) {
            if (count > 0 && std::ranges::find(causes, cause) == causes.end()) causes.push_back(cause);
        }
    }
    return causes;
}

double percentOf(const pilotFigures::Outcome& outcome, const std::string& cause) {
    double count = 0;
    for (const auto& [its, itsCount] : outcome.figures.ends) count += its == cause ? itsCount : 0;
    return outcome.figures.patients > 0 ? 100 * count / outcome.figures.patients : 0;
}

std::unique_ptr<QChart> endsOf(const Outcomes& outcomes) {
    auto chart = chartNamed("How patients end");
    auto* const bars = new QHorizontalStackedBarSeries;
    bars->setBarWidth(0.75);
    for (const std::string& cause : causesOf(outcomes)) {
        auto* const set = new QBarSet(cause.empty() ? "No end written" : QString::fromStdString(cause));
        // Bars stand from below: the first policy comes last.
        for (const pilotFigures::Outcome& each : outcomes) set->insert(0, percentOf(each, cause));
        set->setBrush(colourOfEnd(cause));
        set->setPen(QPen(look::colours().card, 1));
        bars->append(set);
    }
    QStringList policies;
    for (const pilotFigures::Outcome& each : outcomes) policies.prepend(QString::fromStdString(each.policy));
    chart->addSeries(bars);
    auto* const names = new QBarCategoryAxis;
    names->append(policies);
    addAxis(*chart, names, Qt::AlignLeft, {});
    names->setGridLineVisible(false);
    addPercents(*chart, Qt::AlignBottom, {});
    return chart;
}

std::unique_ptr<QChart> scoresOf(const Outcomes& outcomes) {
    auto chart = chartNamed("Score after each patient: quartiles, least and most");
    QStringList patients;
    double least = outcomes.front().startScore;
    double most = least;
    for (std::size_t i = 0; i < outcomes.size(); ++i) {
        const std::vector<figures::Spread>& scores = outcomes[i].figures.scores;
        auto* const boxes = new QBoxPlotSeries;
        boxes->setName(QString::fromStdString(outcomes[i].policy));
        QColor inside = colourOf(i);
        inside.setAlpha(120);
        boxes->setBrush(inside);
        boxes->setPen(QPen(colourOf(i), 1.5));
        for (std::size_t k = 0; k < std::min<std::size_t>(scores.size(), mostBoxes); ++k) {
            const auto& marks = scores[k].marks;
            const QString name = QString::number(k + 1);
            boxes->append(new QBoxSet(marks[0], marks[1], marks[2], marks[3], marks[4], name));
            if (!patients.contains(name)) patients << name;
            least = std::min(least, marks.front());
            most = std::max(most, marks.back());
        }
        chart->addSeries(boxes);
    }
    const double margin = std::max(1.0, (most - least) / 20);
    auto* const numbers = new QBarCategoryAxis;
    numbers->append(patients);
    addAxis(*chart, numbers, Qt::AlignBottom, "Patient");
    numbers->setGridLineVisible(false);
    auto* const score = new QValueAxis;
    score->setRange(least - margin, most + margin);
    score->setLabelFormat("%.0f");
    addAxis(*chart, score, Qt::AlignLeft, {});
    score->applyNiceNumbers();
    return chart;
}

/// The view keeps no chart that it had before.
void put(QChartView& view, std::unique_ptr<QChart> chart) {
    const std::unique_ptr<QChart> before(view.chart());
    view.setBackgroundBrush(look::colours().card);
    view.setChart(chart.release());
}

}  // namespace

Plots make(QScrollArea& area) {
    auto* const whole = new QWidget;
    auto* const cells = new QVBoxLayout(whole);
    cells->setContentsMargins(0, 0, 0, 0);
    const auto view = [&](int height, const QString& name) {
        auto* const made = new QChartView;
        made->setRenderHint(QPainter::Antialiasing);
        made->setFrameShape(QFrame::NoFrame);
        made->setFocusPolicy(Qt::NoFocus);
        made->setMinimumSize(leastWidth, height);
        made->setAccessibleName(name);
        made->setAccessibleDescription("The table of figures below says the same in numbers.");
        return made;
    };
    auto* const survival = view(260, "Plot of survival");
    auto* const scores = view(260, "Plot of scores");
    auto* const ends = view(200, "Plot of causes of end");
    auto* const grid = new QGridLayout;
    cells->addLayout(grid);
    lanes::lay(area, *grid, {survival, scores}, true);
    cells->addWidget(ends);
    whole->hide();
    return {whole, [=](const Outcomes& outcomes) {
                whole->setVisible(!outcomes.empty());
                if (outcomes.empty()) return;
                put(*survival, survivalOf(outcomes));
                put(*ends, endsOf(outcomes));
                put(*scores, scoresOf(outcomes));
            }};
}

}  // namespace pilotPlots
