#include "stage/scriptedHost.h"

#include "platform/onLeave.h"
#include "platform/pictures.h"
#include "stage/openBoxes.h"
#include "stage/virtualTime.h"

namespace scriptedHost {

namespace {

std::string programFolder;
Player player;

void tellWaits() {
    if (player.waits) player.waits();
}

Answer showBox(const MessageBox& box) {
    openBoxes::open(box);
    const OnLeave close(openBoxes::close);
    tellWaits();
    while (!openBoxes::newest()->answer) player.step();
    return *openBoxes::newest()->answer;
}

}  // namespace

bool begin(const Start& start, Player whoPlays) {
    programFolder = start.folder;
    player = std::move(whoPlays);
    return virtualTime::begin(start.now);
}

Host make() {
    Host host;
    host.waitWhile = [](const std::function<bool()>& open) {
        tellWaits();
        while (open()) player.step();
    };
    host.messageBox = showBox;
    host.yield = [] {};
    host.milliseconds = virtualTime::milliseconds;
    host.today = virtualTime::today;
    host.timeOfDay = virtualTime::timeOfDay;
    host.programFolder = [] { return programFolder; };
    host.checkPicture = pictures::check;
    return host;
}

void answerBox(Answer answer) { openBoxes::newest()->answer = answer; }

}  // namespace scriptedHost
