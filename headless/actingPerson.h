// Whoever acts in a scripted program.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/control.h"
#include "platform/host.h"

/// What a person does, by the means of the program at hand: on the records of the headless program, or with
/// mouse and keys on real widgets. Throws Refused for what cannot be done.
struct ActingPerson {
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
