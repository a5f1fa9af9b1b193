// The hands of a simulated subject: acts turned into presses, choices and slides, control by control, each
// after a response time during which virtual time passes. What the screen refuses by then throws Refused.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/control.h"
#include "pilot/chance.h"
#include "pilot/policy.h"
#include "pilot/responseTimes.h"

struct Hands {
    ResponseTimes times;
    Chance chance;
};

namespace hands {

/// One response time passes.
void hesitate(Hands& hands);
/// The time that it takes to read a text passes.
void read(Hands& hands, const std::string& text);

/// A response time, then the press.
void press(Hands& hands, Control& control);

/// Types into an empty box.
void type(Hands& hands, Control& textBox, const std::string& text);
/// Takes an item of a list or a combo box.
void choose(Hands& hands, Control& list, const std::string& item);
void chooseLine(Hands& hands, Control& comboBox, int line);

void issue(Hands& hands, int test);
/// Marks the text in the introduction and takes it down.
void note(Hands& hands, const std::string& text);
void prescribe(Hands& hands, int treatment);

/// In the open diagnosis: names diseases, moves the meters, commits. Where the meters push each other, or a
/// sum that is too large may not be rescaled, beliefs are to stay `within100` together. The dialog stays open
/// where it refuses something; its label says what.
void stateBeliefs(Hands& hands, const std::vector<Belief>& beliefs, bool within100);
/// The least that the dialog can be left by: one disease, the one that it names already if it does.
void stateLeast(Hands& hands, const std::string& disease);

}  // namespace hands
