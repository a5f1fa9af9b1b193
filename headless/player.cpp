#include "headless/player.h"

#include <fmt/format.h>

#include <iostream>

#include "forms/person.h"
#include "headless/commands.h"

namespace player {

namespace {

std::istream* source = nullptr;
int lineNumber = 0;

constexpr int failedStatus = 1;

/// Says where and why a command failed, and ends the program.
void fail(int line, const std::string& reason) {
    std::cout.flush();
    std::cerr << fmt::format("line {}: {}\n", line, reason) << std::flush;
    endProgram(failedStatus);
}

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

bool begin(std::istream& script, ActingPerson person, const scriptedHost::Start& start) {
    source = &script;
    lineNumber = 0;
    commands::setPerson(std::move(person));
    return scriptedHost::begin(start, {step, commands::onWaiting});
}

void step() {
    std::string line;
    if (!std::getline(*source, line)) endProgram();
    const int at = ++lineNumber;
    if (line.ends_with('\r')) line.pop_back();
    try {
        commands::execute(line);
    } catch (const Refused& refused) {
        fail(at, refused.reason);
    }
    std::cout.flush();
}

}  // namespace player
