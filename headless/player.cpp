#include "headless/player.h"

#include <fmt/format.h>

#include <iostream>
#include <optional>

#include "forms/person.h"
#include "headless/commands.h"
#include "headless/openBoxes.h"
#include "headless/virtualTime.h"
#include "platform/files.h"

namespace player {

namespace {

std::istream* source = nullptr;
int lineNumber = 0;
std::string programFolder;

constexpr int failedStatus = 1;

/// Says where and why a command failed, and ends the program.
void fail(int line, const std::string& reason) {
    std::cout.flush();
    std::cerr << fmt::format("line {}: {}\n", line, reason) << std::flush;
    endProgram(failedStatus);
}

Answer showBox(const MessageBox& box) {
    openBoxes::open(box);
    commands::onWaiting();
    while (!openBoxes::newest()->answer) step();
    return openBoxes::close();
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
        .answer = answerBox,
        .picture = {},
    };
}

bool begin(std::istream& script, ActingPerson person, const Options& options) {
    source = &script;
    lineNumber = 0;
    programFolder = options.folder;
    openBoxes::forget();
    commands::setPerson(std::move(person));
    return virtualTime::begin(options.now);
}

Host scriptedHost() {
    Host host;
    host.waitWhile = [](const std::function<bool()>& open) {
        commands::onWaiting();
        while (open()) step();
    };
    host.messageBox = showBox;
    host.yield = [] {};
    host.milliseconds = virtualTime::milliseconds;
    host.today = virtualTime::today;
    host.timeOfDay = virtualTime::timeOfDay;
    host.programFolder = [] { return programFolder; };
    host.loadPicture = files::checkPicture;
    return host;
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

void answerBox(Answer answer) { openBoxes::newest()->answer = answer; }

}  // namespace player
