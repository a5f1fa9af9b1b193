#include "studio/pilotTable.h"

#include <fmt/format.h>

#include <algorithm>
#include <functional>

#include "studio/plainTable.h"
#include "study/survival.h"

namespace pilotTable {

namespace {

using figures::Spread;
using pilotFigures::Outcome;
using Outcomes = std::vector<Outcome>;
using Say = std::function<std::string(const Outcome&)>;

struct Line {
    std::string name;
    Say say;
};

constexpr int mostMoments = 6;
constexpr std::size_t mostPatients = 10;

std::string middle(const std::optional<Spread>& spread) {
    if (!spread) return "–";
    const auto& marks = spread->marks;
    return fmt::format("{:.0f}  ({:.0f} to {:.0f})", marks[2], marks[1], marks[3]);
}

std::string share(int part, int whole) {
    return whole == 0 ? "–" : fmt::format("{:.0f} %", 100.0 * part / whole);
}

int countOf(const Outcome& outcome, const std::string& cause) {
    const auto found = std::ranges::find(outcome.figures.ends, cause, &std::pair<std::string, int>::first);
    return found == outcome.figures.ends.end() ? 0 : found->second;
}

void addEnds(std::vector<Line>& lines, const Outcomes& outcomes) {
    std::vector<std::string> causes;
    for (const Outcome& each : outcomes) {
        for (const auto& [cause, count] : each.figures.ends) {
            if (count > 0 && std::ranges::find(causes, cause) == causes.end()) causes.push_back(cause);
        }
    }
    for (const std::string& cause : causes)
        lines.push_back({"End: " + (cause.empty() ? "none written" : cause), [cause](const Outcome& each) {
                             return share(countOf(each, cause), each.figures.patients);
                         }});
}

std::string aliveAt(const Outcome& outcome, int minute) {
    double alive = 1;
    for (const survival::Step& step : outcome.survival) {
        if (step.minute > minute) break;
        alive = step.alive;
    }
    const bool seen = !outcome.survival.empty() && minute <= outcome.survival.back().minute;
    return seen ? fmt::format("{:.0f} %", 100 * alive) : "–";
}

void addSurvival(std::vector<Line>& lines, const Outcomes& outcomes) {
    int last = 0;
    for (const Outcome& each : outcomes) {
        if (!each.survival.empty()) last = std::max(last, each.survival.back().minute);
    }
    const int step = std::max(10, (last / mostMoments + 9) / 10 * 10);
    for (int minute = step; minute <= last; minute += step)
        lines.push_back({fmt::format("Alive after {} simulated minutes", minute),
                         [minute](const Outcome& each) { return aliveAt(each, minute); }});
}

void addScores(std::vector<Line>& lines, const Outcomes& outcomes) {
    lines.push_back(
        {"Score at the start", [](const Outcome& each) { return fmt::format("{:.0f}", each.startScore); }});
    std::size_t patients = 0;
    for (const Outcome& each : outcomes) patients = std::max(patients, each.figures.scores.size());
    for (std::size_t k = 0; k < std::min(patients, mostPatients); ++k)
        lines.push_back(
            {fmt::format("Score after patient {}, median (quartiles)", k + 1), [k](const Outcome& each) {
                 const auto& scores = each.figures.scores;
                 return middle(k < scores.size() ? std::optional(scores[k]) : std::nullopt);
             }});
    lines.push_back({"Score at the end, median (quartiles)",
                     [](const Outcome& each) { return middle(each.figures.score); }});
    lines.push_back({"Change of the score with a patient", [](const Outcome& each) {
                         if (!each.change) return std::string("–");
                         return each.change->error
                                    ? fmt::format("{:+.1f} ± {:.1f}", each.change->value, *each.change->error)
                                    : fmt::format("{:+.1f}", each.change->value);
                     }});
}

std::vector<Line> linesOf(const Outcomes& outcomes) {
    std::vector<Line> lines{
        {"Subjects", [](const Outcome& each) { return std::to_string(each.subjects); }},
        {"Patients", [](const Outcome& each) { return std::to_string(each.figures.patients); }},
        {"Subjects who did not come to their last patient",
         [](const Outcome& each) {
             int all = 0;
             for (const auto& [cause, sessions] : each.brokenOff) all += sessions;
             return std::to_string(all);
         }},
        {"Saved, of finished patients",
         [](const Outcome& each) { return share(each.figures.saved, each.figures.finished); }}};
    addEnds(lines, outcomes);
    lines.push_back({"Life in simulated minutes, median (quartiles)",
                     [](const Outcome& each) { return middle(each.life); }});
    addSurvival(lines, outcomes);
    addScores(lines, outcomes);
    lines.push_back(
        {"Tests with a patient", [](const Outcome& each) { return fmt::format("{:.1f}", each.tests); }});
    const auto ofChance = [](double Outcome::*value) -> Say {
        return [value](const Outcome& each) {
            return each.figures.distance ? fmt::format("{:.2f}", each.*value) : "–";
        };
    };
    lines.push_back({"Belief in the hidden disease at the end", ofChance(&Outcome::belief)});
    lines.push_back({"Its computed chance", ofChance(&Outcome::chance)});
    return lines;
}

}  // namespace

QTableWidget* make() { return plainTable::make("Figures of the simulated subjects"); }

void show(QTableWidget& table, const Outcomes& outcomes) {
    QStringList policies;
    QStringList names;
    std::vector<std::vector<plainTable::Cell>> cells;
    for (const Outcome& each : outcomes) policies << QString::fromStdString(each.policy);
    if (!outcomes.empty()) {
        for (const Line& line : linesOf(outcomes)) {
            names << QString::fromStdString(line.name);
            auto& row = cells.emplace_back();
            for (const Outcome& each : outcomes) row.push_back({QString::fromStdString(line.say(each))});
        }
    }
    plainTable::show(table, policies, names, cells);
}

}  // namespace pilotTable
