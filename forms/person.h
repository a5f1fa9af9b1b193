// What a person can do to the controls, by a script or by the widgets of a screen: the one place that knows
// what a press, a key, a pick or a slide comes to. The controls refuse what a screen would refuse, and
// nothing has happened then. Turning to the page on which a control stands is part of the way to it.
#pragma once

#include <string>
#include <vector>

#include "forms/control.h"
#include "forms/refused.h"

namespace person {

/// Turns to the control's page and gives it the focus.
void reach(Control& control);

/// A press with the mouse: buttons, tick boxes and option buttons act, a list keeps its selection.
void press(Control& control);
/// The second press of a double click.
void pressAgain(Control& control);
/// A double click from its first press on.
void doublePress(Control& control);

/// One key by its character code: the control's key handler first, then what the control itself does with
/// it. False if neither had a use for the key.
bool key(Control& control, int code);
/// Replaces the text key by key.
void type(Control& control, const std::string& text);
/// Replaces the text in one change. In a box of several lines each line break becomes a whole one. A box that
/// takes keys alone stays as it is.
void paste(Control& control, const std::string& text);
/// What an edit widget has done to its text by itself (an input method, a paste, Delete, undo, a drag), as
/// one change. Text and cursor are those of the widget, with a line break as one character.
void edit(Control& control, const std::string& seenText, int cursor);

/// Takes an item of a list or combo box.
void choose(Control& control, const std::string& item);
/// Takes an item of a combo box by its place.
void chooseLine(Control& comboBox, int line);
/// Selects exactly these lines of a list.
void pick(Control& list, const std::vector<int>& lines);

/// Chooses the option button so many places after this one in its group, or before it, round about.
void chooseBeside(Control& option, int steps);

void slide(Control& scrollBar, int value);
/// So many small changes up or down, as far as the bar goes: a turn of the wheel.
void step(Control& scrollBar, int steps);
void tick(Control& box, bool on);
/// Selects in a text box, in characters of the text as it is held.
void mark(Control& textBox, int start, int length);
/// Cursor and selection of an edit widget, with a line break as one character. Does not move the focus.
void moveCursor(Control& control, int seenStart, int seenLength);
void turnTo(Control& tabs, int page);

/// The window button of a form.
void close(Control& form);

}  // namespace person
