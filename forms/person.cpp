#include "forms/person.h"

#include <algorithm>

#include "forms/windows.h"
#include "platform/text.h"

namespace person {

namespace {

constexpr int backspaceKey = 8;
constexpr int enterKey = 13;
constexpr int spaceKey = 32;

void run(const std::function<void()>& handler) {
    if (handler) handler();
}

void mustBe(const Control& control, std::initializer_list<Kind> kinds, const char* what) {
    if (std::find(kinds.begin(), kinds.end(), control.kind) == kinds.end()) {
        throw Refused{fullName(control) + " is no " + what};
    }
}

bool isWritable(const Control& control) {
    return (control.kind == Kind::TextBox && !control.readOnly) || control.kind == Kind::ComboBox;
}

void turnToPageOf(const Control& control) {
    for (const Control* at = &control; at != nullptr; at = at->parent) {
        if (at->page >= 0) setValue(*at->parent, at->page);
    }
}

void eraseBackward(Control& control) {
    if (control.selLength == 0) {
        if (control.selStart == 0) return;
        --control.selStart;
        control.selLength = 1;
    }
    replaceSelection(control, {});
}

void insert(Control& control, const std::string& character, int code) {
    if (code == backspaceKey) {
        eraseBackward(control);
    } else if (code == enterKey) {
        if (control.multiLine) replaceSelection(control, "\r\n");
    } else {
        replaceSelection(control, character);
    }
}

void act(Control& control) {
    switch (control.kind) {
        case Kind::TickBox: setValue(control, isTicked(control) ? 0 : 1); break;
        case Kind::OptionButton: setValue(control, 1); break;
        case Kind::ComboBox: break;  // only taking an item counts
        default: run(control.on.click);
    }
}

bool isPressedBy(const Control& control, int code) {
    if (code == enterKey) return control.kind == Kind::Button;
    const bool presses =
        control.kind == Kind::Button || control.kind == Kind::TickBox || control.kind == Kind::OptionButton;
    return presses && code == spaceKey;
}

/// The key's handler first, then what the control itself does with the key.
void actOnKey(Control& control, const std::string& character, int code) {
    if (control.on.key && !control.on.key(code)) return;
    if (isWritable(control)) {
        insert(control, character, code);
    } else if (isPressedBy(control, code)) {
        act(control);
    }
}

/// Code of the key that writes this character; a line break is Enter.
int keyFor(const std::string& character) {
    return character == "\n" ? enterKey : static_cast<int>(text::codeOf(character));
}

}  // namespace

void reach(Control& control) {
    const std::string reason = windows::refusal(control);
    if (!reason.empty()) throw Refused{reason};
    turnToPageOf(control);
    windows::setFocus(control);
}

void press(Control& control) {
    reach(control);
    act(control);
}

void doublePress(Control& control) {
    press(control);
    run(control.on.doubleClick);
}

void key(Control& control, int code) {
    reach(control);
    actOnKey(control, text::fromCode(static_cast<char32_t>(code)), code);
}

void type(Control& control, const std::string& text) {
    mustBe(control, {Kind::TextBox, Kind::ComboBox}, "box to type in");
    reach(control);
    select(control, 0, text::length(control.text));
    if (text.empty() && isWritable(control)) replaceSelection(control, {});
    for (int i = 0; i < text::length(text) && windows::refusal(control).empty(); ++i) {
        const std::string character = text::mid(text, i, 1);
        actOnKey(control, character, keyFor(character));
    }
}

void paste(Control& control, const std::string& text) {
    mustBe(control, {Kind::TextBox, Kind::ComboBox}, "box to paste into");
    reach(control);
    if (isWritable(control)) setText(control, text);
}

void choose(Control& control, const std::string& item) {
    mustBe(control, {Kind::ComboBox, Kind::ListBox}, "list");
    reach(control);
    const int index = findItem(control, item);
    if (index < 0) throw Refused{fullName(control) + " has no item \"" + item + "\""};
    if (control.kind == Kind::ComboBox) {
        setListIndex(control, index);
    } else {
        pick(control, {index});
    }
}

void pick(Control& list, const std::vector<int>& lines) {
    mustBe(list, {Kind::ListBox}, "list");
    reach(list);
    for (const int line : lines) {
        if (line < 0 || line >= static_cast<int>(list.items.size())) {
            throw Refused{fullName(list) + " has no line " + std::to_string(line)};
        }
    }
    if (lines.size() > 1 && !list.multiSelect) throw Refused{fullName(list) + " takes one line at a time"};
    selectItems(list, lines);
    run(list.on.click);
}

void slide(Control& scrollBar, int value) {
    mustBe(scrollBar, {Kind::ScrollBar}, "scroll bar");
    reach(scrollBar);
    if (value < scrollBar.min.toInt() || value > scrollBar.max.toInt()) {
        throw Refused{fullName(scrollBar) + " goes from " + std::to_string(scrollBar.min.toInt()) + " to " +
                      std::to_string(scrollBar.max.toInt())};
    }
    setValue(scrollBar, value);
}

void tick(Control& box, bool on) {
    mustBe(box, {Kind::TickBox, Kind::OptionButton}, "box to tick");
    reach(box);
    if (box.kind == Kind::OptionButton && !on) throw Refused{fullName(box) + " is left by choosing another"};
    setValue(box, on ? 1 : 0);
}

void mark(Control& textBox, int start, int length) {
    mustBe(textBox, {Kind::TextBox}, "text box");
    reach(textBox);
    select(textBox, start, length);
}

void turnTo(Control& tabs, int page) {
    mustBe(tabs, {Kind::TabControl}, "tab control");
    reach(tabs);
    if (page < 0 || page >= static_cast<int>(tabs.items.size())) {
        throw Refused{fullName(tabs) + " has no page " + std::to_string(page)};
    }
    setValue(tabs, page);
}

void close(Control& form) {
    mustBe(form, {Kind::Form}, "form");
    if (!form.visible) throw Refused{fullName(form) + " is not on show"};
    if (!form.on.close) throw Refused{fullName(form) + " has no window button"};
    form.on.close();
}

}  // namespace person
