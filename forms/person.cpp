#include "forms/person.h"

#include <algorithm>

#include "forms/keys.h"
#include "forms/lineBreaks.h"
#include "forms/windows.h"
#include "platform/text.h"

namespace person {

namespace {

void run(const std::function<void()>& handler) {
    if (handler) handler();
}

bool isWritable(const Control& control) {
    return (control.kind == Kind::TextBox && !control.readOnly) || control.kind == Kind::ComboBox;
}

void mustHoldText(const Control& control, const char* what) {
    must::be(control, {Kind::TextBox, Kind::ComboBox}, what);
}

void turnToPageOf(const Control& control) {
    for (const Control* at = &control; at != nullptr; at = at->parent) {
        if (at->page >= 0) setValue(*at->parent, at->page);
    }
}

void eraseBackward(Control& control) {
    if (control.selLength == 0) {
        control.selLength = lineBreaks::lengthBefore(control.text, control.selStart);
        control.selStart -= control.selLength;
        if (control.selLength == 0) return;
    }
    replaceSelection(control, {});
}

void write(Control& control, int code) {
    switch (code) {
        case keys::backspace: eraseBackward(control); break;
        case keys::enter:
            if (control.multiLine) replaceSelection(control, lineBreaks::held("\n"));
            break;
        default: replaceSelection(control, text::fromCode(static_cast<char32_t>(code)));
    }
}

void act(Control& control) {
    switch (control.kind) {
        case Kind::TickBox: setValue(control, isTicked(control) ? 0 : 1); break;
        case Kind::OptionButton: setValue(control, 1); break;
        case Kind::ComboBox: break;  // only taking an item counts
        case Kind::Label: break;     // only a double click counts
        default: tellWatchers(control, Property::Press); run(control.on.click);
    }
}

/// Enter presses buttons, the space bar boxes too; either asks for what a label shows on a double click.
bool isPressedBy(const Control& control, int code) {
    switch (control.kind) {
        case Kind::Button: return code == keys::enter || code == keys::space;
        case Kind::TickBox:
        case Kind::OptionButton: return code == keys::space;
        case Kind::Label: return control.on.doubleClick && (code == keys::enter || code == keys::space);
        default: return false;
    }
}

/// The key's handler first, then what the control itself does with the key.
bool actOnKey(Control& control, int code) {
    if (control.on.key && !control.on.key(code)) return true;
    if (isWritable(control)) {
        write(control, code);
        return true;
    }
    if (!isPressedBy(control, code)) return false;
    act(control);
    if (control.kind == Kind::Label) run(control.on.doubleClick);
    return true;
}

/// Code of the key that writes this character; a line break is Enter.
int keyFor(const std::string& character) {
    return character == "\n" ? keys::enter : static_cast<int>(text::codeOf(character));
}

std::string asHeldBy(const Control& control, const std::string& text) {
    return control.multiLine ? lineBreaks::held(text) : text;
}

/// Whether the new text has anything that the old one has not, or only lacks something.
bool bringsText(const std::string& before, const std::string& now) {
    const auto same = std::mismatch(before.begin(), before.end(), now.begin(), now.end()).second;
    const auto tail = std::make_reverse_iterator(same);
    return std::mismatch(now.rbegin(), tail, before.rbegin(), before.rend()).first != tail;
}

void takeItem(Control& control, int index) {
    if (control.kind == Kind::ComboBox) {
        setListIndex(control, index);
        selectAll(control);
    } else {
        pick(control, {index});
    }
}

}  // namespace

void reach(Control& control) {
    must::takeInput(control);
    turnToPageOf(control);
    windows::setFocus(control);
}

void press(Control& control) {
    reach(control);
    act(control);
}

void pressAgain(Control& control) {
    reach(control);
    run(control.on.doubleClick);
}

void doublePress(Control& control) {
    press(control);
    if (windows::refusal(control).empty()) pressAgain(control);
}

bool key(Control& control, int code) {
    reach(control);
    return actOnKey(control, code);
}

void type(Control& control, const std::string& text) {
    mustHoldText(control, "box to type in");
    reach(control);
    select(control, 0, text::length(control.text));
    if (text.empty() && isWritable(control)) replaceSelection(control, {});
    for (int i = 0; i < text::length(text) && windows::refusal(control).empty(); ++i) {
        actOnKey(control, keyFor(text::mid(text, i, 1)));
    }
}

void paste(Control& control, const std::string& text) {
    mustHoldText(control, "box to paste into");
    reach(control);
    const std::string held = asHeldBy(control, text);
    if (isWritable(control) && !control.typedOnly) setTextTyped(control, held, text::length(held));
}

void edit(Control& control, const std::string& seenText, int cursor) {
    mustHoldText(control, "box to write in");
    reach(control);
    const std::string held = asHeldBy(control, seenText);
    if (!isWritable(control) || (control.typedOnly && bringsText(control.text, held))) return;
    setTextTyped(control, held, lineBreaks::heldPosition(held, cursor));
}

void choose(Control& control, const std::string& item) {
    must::be(control, {Kind::ComboBox, Kind::ListBox}, "list");
    reach(control);
    takeItem(control, must::findItem(control, item));
}

void chooseLine(Control& comboBox, int line) {
    must::be(comboBox, {Kind::ComboBox}, "combo box");
    reach(comboBox);
    must::haveLines(comboBox, {line});
    takeItem(comboBox, line);
}

void pick(Control& list, const std::vector<int>& lines) {
    must::be(list, {Kind::ListBox}, "list");
    reach(list);
    must::haveLines(list, lines);
    selectItems(list, lines);
    run(list.on.click);
}

void chooseBeside(Control& option, int steps) {
    must::be(option, {Kind::OptionButton}, "option button");
    must::takeInput(option);
    std::vector<Control*> group;
    for (Control* control : allControls()) {
        const bool beside = control->kind == Kind::OptionButton && control->parent == option.parent;
        if (beside && windows::isUsable(*control)) group.push_back(control);
    }
    const auto count = static_cast<int>(group.size());
    const auto place = static_cast<int>(std::find(group.begin(), group.end(), &option) - group.begin());
    press(*group[static_cast<std::size_t>((place + steps % count + count) % count)]);
}

void slide(Control& scrollBar, int value) {
    must::be(scrollBar, {Kind::ScrollBar}, "scroll bar");
    reach(scrollBar);
    must::haveValue(scrollBar, value);
    setValue(scrollBar, value);
}

void step(Control& scrollBar, int steps) {
    const int wanted = scrollBar.value.toInt() + steps * scrollBar.smallChange;
    slide(scrollBar, std::clamp(wanted, scrollBar.min.toInt(), scrollBar.max.toInt()));
}

void tick(Control& box, bool on) {
    must::be(box, {Kind::TickBox, Kind::OptionButton}, "box to tick");
    reach(box);
    must::takeTick(box, on);
    setValue(box, on ? 1 : 0);
}

void mark(Control& textBox, int start, int length) {
    must::be(textBox, {Kind::TextBox}, "text box");
    reach(textBox);
    select(textBox, start, length);
}

void moveCursor(Control& control, int seenStart, int seenLength) {
    mustHoldText(control, "box with a cursor");
    must::takeInput(control);
    const int start = lineBreaks::heldPosition(control.text, seenStart);
    select(control, start, lineBreaks::heldPosition(control.text, seenStart + seenLength) - start);
}

void turnTo(Control& tabs, int page) {
    must::be(tabs, {Kind::TabControl}, "tab control");
    reach(tabs);
    must::havePage(tabs, page);
    setValue(tabs, page);
}

void close(Control& form) {
    must::be(form, {Kind::Form}, "form");
    must::close(form);
    form.on.close();
}

}  // namespace person
