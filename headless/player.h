// The player of scripts: reads commands one by one and acts on the forms as a person would. Where the
// program waits, in a modal form or a message box, the waiting itself goes on reading the script.
#pragma once

#include <functional>
#include <istream>
#include <string>
#include <vector>

#include "forms/control.h"
#include "platform/host.h"

namespace player {

/// What a person does, by the means of the program at hand: on the records of the headless program, or with
/// mouse and keys on real widgets. Throws Refused for what cannot be done.
struct Person {
    std::function<void(Control&)> press;
    std::function<void(Control&)> doublePress;
    std::function<void(Control&, int code)> key;
    std::function<void(Control&, const std::string&)> type;
    std::function<void(Control&, const std::string&)> paste;
    std::function<void(Control&, const std::string&)> choose;
    std::function<void(Control&, const std::vector<int>&)> pick;
    std::function<void(Control&, int)> slide;
    std::function<void(Control&, bool)> tick;
    std::function<void(Control&, int start, int length)> mark;
    std::function<void(Control&, int page)> turnTo;
    std::function<void(Control&)> close;
    std::function<void(Answer)> answer;
    /// Writes the screen to a file; only where there is a screen.
    std::function<void(const std::string& file)> picture;
};

/// The person of the headless program.
Person onRecords();

/// Begins a script for that person. `folder` is the program's folder, `now` date and time of its start;
/// false for a date that is none.
struct Options {
    std::string folder;
    std::string now;
};
bool begin(std::istream& script, Person person, const Options& options);

/// A host for scripted programs: virtual time, modal waits and message boxes that read on in the script.
/// `endProgram` is left to the program.
Host scriptedHost();

/// Plays the next command. At the end of the script the program ends.
void step();

/// The message box on top, answered: used by a person who presses a real button.
void answerBox(Answer answer);

}  // namespace player
