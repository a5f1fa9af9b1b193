#include "headless/player.h"

#include <fmt/format.h>

#include <exception>
#include <iostream>

#include "forms/person.h"
#include "headless/commands.h"
#include "platform/fault.h"
#include "platform/randomSource.h"
#include "screens/wiring.h"
#include "trial/run/run.h"

namespace player {

namespace {

Lines source;
int lineNumber = 0;

constexpr int failedStatus = 1;

/// Says where and why a command failed, and ends the program.
void fail(int line, const std::string& reason) {
    std::cout.flush();
    std::cerr << fmt::format("line {}: {}\n", line, reason) << std::flush;
    endProgram(failedStatus);
}

/// Unwinds out of every wait when the program ends.
struct ProgramEnd : std::exception {
    int status;
    explicit ProgramEnd(int its) : status(its) {}
};

}  // namespace

ActingPerson onRecords() {
    return {
        .press = person::press,
        .doublePress = person::doublePress,
        .key = person::key,
        .type = person::type,
        .paste = person::paste,
        .choose = person::choose,
        .pick = person::pick,
        .slide = person::slide,
        .tick = person::tick,
        .mark = person::mark,
        .turnTo = person::turnTo,
        .close = person::close,
        .answer = scriptedHost::answerBox,
        .picture = {},
    };
}

Lines linesOf(std::istream& script) {
    return [&script]() -> std::optional<std::string> {
        std::string line;
        if (!std::getline(script, line)) return std::nullopt;
        if (line.ends_with('\r')) line.pop_back();
        return line;
    };
}

bool begin(Lines script, ActingPerson person, const scriptedHost::Start& start) {
    source = std::move(script);
    lineNumber = 0;
    commands::setPerson(std::move(person));
    return scriptedHost::begin(start, {step, commands::onWaiting});
}

int playSession(Lines script, const scriptedHost::Start& start, std::uint64_t seed) {
    wiring::wireForms();
    randomSource::fixState(seed);
    if (!begin(std::move(script), onRecords(), start)) {
        std::cerr << "--now: \"" << start.now << "\" is no date and time (2026-01-05 09:30:00)\n";
        return failedStatus;
    }
    host() = scriptedHost::make();
    host().endProgram = [](int status) { throw ProgramEnd{status}; };
    try {
        run::startApplication();
        while (true) step();
    } catch (const ProgramEnd& end) {
        return end.status;
    } catch (const std::exception& error) {
        std::cout.flush();
        std::cerr << error.what() << '\n';
        return faultExitStatus;
    }
}

void step() {
    const std::optional<std::string> line = source();
    if (!line) endProgram();
    const int at = ++lineNumber;
    try {
        commands::execute(*line);
    } catch (const Refused& refused) {
        fail(at, refused.reason);
    }
    std::cout.flush();
}

}  // namespace player
