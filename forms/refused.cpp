#include "forms/refused.h"

#include <algorithm>

#include "forms/windows.h"

namespace must {

namespace {

void hold(bool so, const std::string& reason) {
    if (!so) throw Refused{reason};
}

bool isPlace(int index, const std::vector<std::string>& items) {
    return index >= 0 && index < static_cast<int>(items.size());
}

}  // namespace

void be(const Control& control, std::initializer_list<Kind> kinds, const char* what) {
    hold(std::find(kinds.begin(), kinds.end(), control.kind) != kinds.end(),
         fullName(control) + " is no " + what);
}

void takeInput(const Control& control) {
    const std::string reason = windows::refusal(control);
    hold(reason.empty(), reason);
}

void haveLines(const Control& list, const std::vector<int>& lines) {
    for (const int line : lines) {
        hold(isPlace(line, list.items), fullName(list) + " has no line " + std::to_string(line));
    }
    hold(lines.size() <= 1 || list.multiSelect, fullName(list) + " takes one line at a time");
}

void havePage(const Control& tabs, int page) {
    hold(isPlace(page, tabs.items), fullName(tabs) + " has no page " + std::to_string(page));
}

void haveValue(const Control& scrollBar, int value) {
    const int min = scrollBar.min.toInt();
    const int max = scrollBar.max.toInt();
    hold(value >= min && value <= max,
         fullName(scrollBar) + " goes from " + std::to_string(min) + " to " + std::to_string(max));
}

void takeTick(const Control& box, bool on) {
    hold(on || box.kind != Kind::OptionButton, fullName(box) + " is left by choosing another");
}

void close(const Control& form) {
    hold(form.visible, fullName(form) + " is not on show");
    hold(static_cast<bool>(form.on.close), fullName(form) + " has no window button");
    if (!form.closesAnyTime) takeInput(form);
}

int findItem(const Control& control, const std::string& item) {
    const int index = ::findItem(control, item);
    hold(index >= 0, fullName(control) + " has no item \"" + item + "\"");
    return index;
}

}  // namespace must
