// The script language. Each input is a script of the headless program, played from the start of the run on a
// store in memory: it ends by a status of the program or a fault of the machine, and what is refused names
// its line.
#include <algorithm>
#include <iostream>
#include <memory>
#include <sstream>

#include "headless/commandLine.h"
#include "headless/player.h"
#include "platform/onLeave.h"
#include "platform/randomSource.h"
#include "screens/wiring.h"
#include "store/layer/database.h"
#include "study/readTables.h"
#include "tests/fuzz/frame.h"
#include "trial/run/run.h"

namespace {

constexpr std::size_t mostLines = 200;

/// The words of a line in quotes are the same words.
void holdWords(const std::string& line) {
    const CommandLine read = parseCommand(line);
    if (read.unclosed || read.command.empty()) return;
    std::string quoted;
    std::vector<std::string> words = read.arguments;
    words.insert(words.begin(), read.command);
    for (const std::string& word : words) {
        quoted += " \"";
        for (const char c : word) quoted += c == '"' || c == '\\' ? std::string("\\") + c : std::string(1, c);
        quoted += '"';
    }
    const CommandLine again = parseCommand(quoted);
    fuzz::hold(again.command == read.command && again.arguments == read.arguments && !again.unclosed,
               "words in quotes are the same words:" + quoted);
}

/// A store in memory with the tests' tables.
std::shared_ptr<engine::Connection> makeStore() {
    std::shared_ptr<engine::Connection> database = engine::createInMemory();
    const readTables::Tables tables = readTables::read(TAVIX_TESTS "/tables");
    for (const schema::Table& table : schema::tables()) {
        storeTable::make(*database, table, tables.mostDiseases);
        const auto content = tables.contents.find(table.name);
        if (content != tables.contents.end()) storeTable::fill(*database, table, content->second);
    }
    return database;
}

struct Ended : std::exception {
    int status;
    explicit Ended(int its) : status(its) {}
};

/// The status at the end, without the splash; what a refusal says goes into `said`.
int play(const std::vector<std::string>& lines, std::ostringstream& said) {
    std::size_t at = 0;
    wiring::wireForms();
    randomSource::fixState(1);
    player::begin([&] { return at < lines.size() ? std::optional(lines[at++]) : std::nullopt; },
                  player::onRecords(), {TAVIX_TESTS, "2026-01-05 09:30:00"});
    host() = scriptedHost::make();
    host().endProgram = [](int status) { throw Ended{status}; };
    std::ostringstream printed;
    auto* const out = std::cout.rdbuf(printed.rdbuf());
    auto* const complaints = std::cerr.rdbuf(said.rdbuf());
    const OnLeave back([&] {
        std::cout.rdbuf(out);
        std::cerr.rdbuf(complaints);
    });
    try {
        run::startAtSignIn();
        while (true) player::step();
    } catch (const Ended& end) {
        return end.status;
    } catch (const Fault&) {
        return faultExitStatus;
    }
}

}  // namespace

void fuzz::tryInput(const std::string& input) {
    static const std::shared_ptr<engine::Connection> database = makeStore();
    static const OnLeave used = store::playInMemory(database);
    std::vector<std::string> lines = linesOf(input);
    lines.resize(std::min(lines.size(), mostLines));
    for (const std::string& line : lines) holdWords(line);

    engine::execute(*database, "BEGIN");
    std::ostringstream said;
    const int status = play(lines, said);
    engine::execute(*database, "ROLLBACK");
    std::istringstream place(said.str());
    std::string word;
    std::size_t line = 0;
    place >> word >> line;
    const bool refused = word == "line" && line >= 1 && line <= lines.size();
    hold(status == 1 ? refused : word.empty(),
         "a refusal names its line, and nothing else is said: " + said.str());
}
