// What a person can do to the controls, acted on the records themselves: the controls behave as on a screen,
// and refuse what a screen would refuse. Turning to the page on which a control stands is part of the way
// to it.
#pragma once

#include <exception>
#include <string>
#include <utility>
#include <vector>

#include "forms/control.h"

/// The person cannot do that; nothing has happened.
struct Refused : std::exception {
    std::string reason;

    explicit Refused(std::string why) : reason(std::move(why)) {}
    [[nodiscard]] const char* what() const noexcept override { return reason.c_str(); }
};

namespace person {

/// Refuses a control that takes no input now; otherwise turns to its page and gives it the focus.
void reach(Control& control);

/// A press with the mouse: buttons, tick boxes and option buttons act, a list keeps its selection.
void press(Control& control);
void doublePress(Control& control);

/// One key by its character code.
void key(Control& control, int code);
/// Replaces the text key by key.
void type(Control& control, const std::string& text);
/// Replaces the text in one change.
void paste(Control& control, const std::string& text);

/// Takes an item of a list or combo box.
void choose(Control& control, const std::string& item);
/// Selects exactly these lines of a list.
void pick(Control& list, const std::vector<int>& lines);

void slide(Control& scrollBar, int value);
void tick(Control& box, bool on);
void mark(Control& textBox, int start, int length);
void turnTo(Control& tabs, int page);

/// The window button of a form.
void close(Control& form);

}  // namespace person
