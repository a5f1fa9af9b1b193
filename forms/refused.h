// What a person cannot do, and why. Each rule stands here once, for the records and for whoever tries the
// same on widgets.
#pragma once

#include <exception>
#include <initializer_list>
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

/// Each throws Refused unless it is so.
namespace must {

/// `what` names the kinds: "list".
void be(const Control& control, std::initializer_list<Kind> kinds, const char* what);
/// It is shown and enabled with all its containers, and no modal form or message box stands before it.
void takeInput(const Control& control);
/// The lines exist, and are one at most where the list takes one at a time.
void haveLines(const Control& list, const std::vector<int>& lines);
void havePage(const Control& tabs, int page);
void haveValue(const Control& scrollBar, int value);
/// An option button is left only by choosing another.
void takeTick(const Control& box, bool on);
/// It is on show, has a window button, and takes input; the main screen can be closed at any time.
void close(const Control& form);

/// The first item of that text.
int findItem(const Control& control, const std::string& item);

}  // namespace must
