#include "tests/stage.h"

#include "platform/files.h"
#include "platform/randomSource.h"
#include "screens/wiring.h"

Stage::Stage(std::string programFolder) : folder(std::move(programFolder)) {
    Host& h = host();
    h.waitWhile = [](const std::function<bool()>&) {};
    h.messageBox = [this](const MessageBox& box) {
        boxes.push_back(box);
        if (answers.empty()) return box.buttons == Buttons::Ok ? Answer::Ok : Answer::Yes;
        const Answer answer = answers.front();
        answers.pop_front();
        return answer;
    };
    h.yield = [] {};
    h.milliseconds = [this] { return now; };
    h.today = [] { return "2026-01-05"; };
    h.timeOfDay = [] { return "09:30:00"; };
    h.programFolder = [this] { return folder; };
    h.loadPicture = files::checkPicture;
    h.endProgram = [](int status) { throw ProgramEnded{status}; };
    randomSource::fixState(1);
    wiring::wireForms();
}
