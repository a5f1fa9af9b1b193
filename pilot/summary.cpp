#include "pilot/summary.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <sstream>

namespace summary {

namespace {

using figures::Spread;
using pilotFigures::Outcome;

constexpr std::size_t width = 80;

constexpr std::string_view meanings =
    "life      simulated minutes to a patient's end, whatever it was: quartiles, mean\n"
    "score     at a subject's end: quartiles; change: with a patient, with its\n"
    "          standard error over subjects\n"
    "belief    in the hidden disease at the end, beside its computed chance; apart:\n"
    "chance    mean distance of the two. Empty where no chance is shown or recorded\n"
    "off       mean distance between belief and share of true, over tenths of belief\n";

/// Broken at blanks; further lines begin under the text behind `head`.
std::string wrapped(const std::string& head, const std::string& body) {
    std::string all;
    std::string line = head;
    bool isEmpty = true;
    std::istringstream words(body);
    for (std::string word; words >> word;) {
        if (!isEmpty && line.size() + 1 + word.size() > width) {
            all += line + '\n';
            line = std::string(head.size(), ' ');
            isEmpty = true;
        }
        line += (isEmpty ? "" : " ") + word;
        isEmpty = false;
    }
    return all + line + '\n';
}

std::string quartiles(const std::optional<Spread>& spread) {
    if (!spread) return std::string(21, ' ');
    return fmt::format("{:7.0f}{:7.0f}{:7.0f}", spread->marks[1], spread->marks[2], spread->marks[3]);
}

std::string share(int part, int whole) {
    return whole == 0 ? "" : fmt::format("{:.0f}%", 100.0 * part / whole);
}

std::string lifeLine(const Outcome& each) {
    return fmt::format("{:<11}{:>8}{:>10}{}{:>8}{:>8}\n", each.policy, each.subjects, each.figures.patients,
                       quartiles(each.life), each.life ? fmt::format("{:.1f}", each.meanLife) : "",
                       share(each.figures.saved, each.figures.finished));
}

std::string scoreLine(const Outcome& each) {
    const auto& change = each.change;
    const std::string moved = !change ? ""
                              : change->error
                                  ? fmt::format("{:+.1f} +- {:.1f}", change->value, *change->error)
                                  : fmt::format("{:+.1f}", change->value);
    const bool hasChances = each.figures.distance.has_value();
    const auto two = [](bool isKnown, double value) {
        return isKnown ? fmt::format("{:.2f}", value) : std::string();
    };
    return fmt::format("{:<11}{}{:>17}{:>6.1f}{:>7}{:>7}{:>6}{:>5}\n", each.policy,
                       quartiles(each.figures.score), moved, each.tests, two(hasChances, each.belief),
                       two(hasChances, each.chance), two(hasChances, each.figures.distance.value_or(0)),
                       two(each.miscalibration.has_value(), each.miscalibration.value_or(0)));
}

std::string endsLine(const Outcome& each) {
    auto ends = each.figures.ends;
    std::ranges::stable_sort(ends, std::greater(), &std::pair<std::string, int>::second);
    std::string list;
    for (const auto& [cause, count] : ends)
        list += fmt::format("{}{} {}", list.empty() ? "" : ", ", cause.empty() ? "no end written" : cause,
                            share(count, each.figures.patients));
    for (const auto& [cause, count] : each.brokenOff)
        list += fmt::format("; {} of the sessions broken off ({})", count, cause);
    return wrapped(fmt::format("{:<11}", each.policy), list);
}

std::string ofScenario(std::span<const Outcome> outcomes) {
    constexpr std::string_view quartileHeads = "  lower median  upper";
    std::string all = fmt::format("{}\n\n{:>50}\n", outcomes.front().scenario, "life, simulated minutes");
    all += fmt::format("{:<11}{:>8}{:>10}{}{:>8}{:>8}\n", "policy", "subjects", "patients", quartileHeads,
                       "mean", "saved");
    for (const Outcome& each : outcomes) all += lifeLine(each);
    all += fmt::format("\n{:>32}\n{:<11}{}{:>17}{:>6}{:>7}{:>7}{:>6}{:>5}\n",
                       fmt::format("score, {:.0f} at start", outcomes.front().startScore), "policy",
                       quartileHeads, "change", "tests", "belief", "chance", "apart", "off");
    for (const Outcome& each : outcomes) all += scoreLine(each);
    all += "\nends\n";
    for (const Outcome& each : outcomes) all += endsLine(each);
    return all;
}

}  // namespace

std::string textOf(std::span<const Outcome> outcomes, std::span<const std::string> warnings) {
    std::string all;
    for (std::size_t begin = 0; begin < outcomes.size();) {
        std::size_t end = begin;
        while (end < outcomes.size() && outcomes[end].scenario == outcomes[begin].scenario) ++end;
        all += ofScenario(outcomes.subspan(begin, end - begin)) + '\n';
        begin = end;
    }
    if (!outcomes.empty()) all += meanings;
    if (!warnings.empty()) all += '\n';
    for (const std::string& warning : warnings) all += wrapped("warning   ", warning);
    return all;
}

}  // namespace summary
