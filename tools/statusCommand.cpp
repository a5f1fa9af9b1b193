#include <fmt/chrono.h>
#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <iostream>
#include <limits>
#include <memory>
#include <thread>

#include "platform/terminal.h"
#include "platform/text.h"
#include "study/simulated.h"
#include "study/storeStatus.h"
#include "tools/commands.h"

namespace commands {

namespace {

using namespace storeStatus;
using Clock = std::chrono::steady_clock;

struct Arguments {
    std::string file;
    double seconds = 0;  // 0: one look
};

constexpr const char* cleared = "\x1b[H\x1b[J";
constexpr int restFactor = 10;  // a look at a large store is followed by a rest of so many times its length
constexpr std::size_t fewest = 3;

/// `text` with blanks behind it. Widths count characters: names have accents.
std::string filled(const std::string& text, std::size_t width) {
    const auto length = static_cast<std::size_t>(text::length(text));
    return text + std::string(width > length ? width - length : 0, ' ');
}

template <class Item>
std::size_t widest(const std::vector<Item>& items, std::string Item::*name, std::size_t atLeast) {
    for (const Item& item : items)
        atLeast = std::max(atLeast, static_cast<std::size_t>(text::length(item.*name)));
    return atLeast;
}

std::string counts(const Patients& p) {
    return fmt::format("{:>9} {:>8} {:>11} {:>5}", p.finished, p.aborted, p.brokenOff, p.open);
}

std::vector<std::string> scenarioLines(const Status& status) {
    const std::size_t width = widest(status.scenarios, &Scenario::name, 8);
    std::vector<std::string> lines{filled("Scenario", width) +
                                   "  Subjects  Finished  Aborted  Broken off  Open"};
    for (const Scenario& scenario : status.scenarios)
        lines.push_back(fmt::format("{}{:>10} {}", filled(scenario.name, width), scenario.subjects,
                                    counts(scenario.patients)));
    return lines;
}

std::vector<std::string> subjectLines(const Status& status, std::size_t most) {
    const std::size_t width = widest(status.subjects, &Subject::name, 8);
    const std::size_t scenarioWidth = widest(status.subjects, &Subject::scenario, 13);
    std::vector<std::string> lines{filled("Subject", width) + "  " + filled("Last scenario", scenarioWidth) +
                                   "  Finished  Aborted  Broken off  Open  Last activity"};
    for (const Subject& subject : status.subjects) {
        if (lines.size() > most) break;
        lines.push_back(fmt::format("{}  {} {}  {}", filled(subject.name, width),
                                    filled(subject.scenario, scenarioWidth), counts(subject.patients),
                                    subject.last));
    }
    if (status.subjects.size() > most)
        lines.push_back(fmt::format("and {} more", status.subjects.size() - most));
    return lines;
}

std::vector<std::string> tableLines(const Status& status) {
    std::vector<std::string> lines{filled("Table", 20) + "       Rows"};
    for (const auto& [table, rows] : status.tables)
        lines.push_back(fmt::format("{}{:>11}", filled(table, 20), rows));
    return lines;
}

/// The first lines of a text.
std::string cut(const std::string& all, std::size_t lines) {
    std::size_t end = 0;
    for (std::size_t i = 0; i < lines && end < all.size(); ++i) end = text::lineEnd(all, end).next;
    return all.substr(0, end);
}

/// Everything; with `height` what has room in so many lines: first the subjects give way, then the tables.
std::string page(const std::string& file, const Status& status, std::size_t height) {
    const std::vector<std::string> scenarios = scenarioLines(status);
    const std::vector<std::string> tables = tableLines(status);
    const std::size_t taken = scenarios.size() + tables.size() + 7;
    const std::size_t most = height == 0 ? std::numeric_limits<std::size_t>::max()
                                         : std::max(fewest, height - std::min(height, taken));
    std::string all = fmt::format("{}{}\n{:%Y-%m-%d %H:%M:%S}  Subjects: {}  Last activity: {}\n", file,
                                  status.simulated ? fmt::format(" ({})", simulated::called) : "",
                                  fmt::localtime(std::time(nullptr)), status.subjects.size(),
                                  status.subjects.empty() ? "none" : status.subjects.front().last);
    for (const auto& lines : {scenarios, subjectLines(status, most), tables}) {
        all += '\n';
        for (const std::string& line : lines) all += line + '\n';
    }
    return height == 0 ? all : cut(all, height - 1);
}

/// Until somebody ends the program. A store that cannot be read at the moment is said and looked for again.
[[noreturn]] void watch(const Arguments& arguments) {
    const bool screen = terminal::showsOutput();
    while (true) {
        const Clock::time_point begun = Clock::now();
        std::string shown;
        try {
            const std::size_t height = screen ? static_cast<std::size_t>(terminal::lines()) : 0;
            shown = page(arguments.file, storeStatus::read(arguments.file), height);
        } catch (const std::exception& error) {
            shown = std::string(error.what()) + '\n';
        }
        std::cout << (screen ? cleared : "") << shown << (screen ? "" : "\n") << std::flush;
        std::this_thread::sleep_for(std::max<Clock::duration>(
            std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(arguments.seconds)),
            restFactor * (Clock::now() - begun)));
    }
}

int show(const Arguments& arguments) {
    const Status status = storeStatus::read(arguments.file);
    if (arguments.seconds > 0) watch(arguments);
    std::cout << page(arguments.file, status, 0);
    return 0;
}

}  // namespace

Command status(CLI::App& program) {
    const auto given = std::make_shared<Arguments>();
    CLI::App* app = program.add_subcommand(
        "status", "Shows how far a study has come: subjects, scenarios, patients, last activity, rows.");
    app->add_option("FILE", given->file, "the store file")->required();
    app->add_option(
           "--watch", given->seconds,
           "look again every so many seconds (3), until Ctrl-C. Nothing is written, and no session waits")
        ->option_text("[SECONDS]")
        ->expected(0, 1)
        ->default_str("3")
        ->check(CLI::Range(0.1, 3600.0));
    app->footer(
        "Finished: the patient's row has its end. Aborted: by the experimenter's key. Broken off: without "
        "an\n"
        "end, and the subject went on with other patients. Open: the subject's last patient, without an "
        "end;\n"
        "it is under treatment, or the program has ended. On a terminal --watch shows the subjects who were\n"
        "active last.\n"
        "Exit status:\n"
        "  0    the status was shown\n"
        "  1    the store cannot be read; standard error says why");
    return {app, [given] { return show(*given); }};
}

}  // namespace commands
