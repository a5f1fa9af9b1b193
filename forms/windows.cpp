#include "forms/windows.h"

#include <algorithm>

#include "platform/host.h"
#include "platform/text.h"

namespace windows {

namespace {

/// What is modal, the latest last: forms, and a null for each message box.
std::vector<Control*>& modals() {
    static std::vector<Control*> stack;
    return stack;
}

constexpr Control* messageBox = nullptr;

const Control& rootOf(const Control& control) {
    const Control* at = &control;
    while (at->parent != nullptr) at = at->parent;
    return *at;
}

/// What is typed first into a combo box that has taken the focus replaces its text: it is selected until the
/// focus goes on.
void takeFocus(Control& control) {
    if (control.kind == Kind::ComboBox) selectAll(control);
}

void leaveFocus(Control* control) {
    if (control != nullptr && control->kind == Kind::ComboBox)
        select(*control, text::length(control->text), 0);
}

void makeActive(Control& control) {
    Control*& active = formOf(control).active;
    if (active != &control) {
        leaveFocus(active);
        active = &control;
        takeFocus(control);
    }
    tellWatchers(control, Property::Focus);
}

/// A form comes up with the focus on its last active control, or on the first that can take it.
void focusFirst(Control& form) {
    if (form.active != nullptr && isUsable(*form.active)) return takeFocus(*form.active);
    form.active = nullptr;
    for (Control* control : allControls()) {
        if (&rootOf(*control) != &form || !takesFocus(control->kind) || !isUsable(*control)) continue;
        makeActive(*control);
        return;
    }
}

/// Whether `test` holds for the control and all its containers.
template <class Test>
bool holdsUpward(const Control& control, Test test) {
    for (const Control* at = &control; at != nullptr; at = at->parent) {
        if (!test(*at)) return false;
    }
    return true;
}

}  // namespace

bool takesFocus(Kind kind) {
    switch (kind) {
        case Kind::Button:
        case Kind::TextBox:
        case Kind::TickBox:
        case Kind::OptionButton:
        case Kind::ComboBox:
        case Kind::ListBox:
        case Kind::ScrollBar:
        case Kind::TabControl: return true;
        default: return false;
    }
}

void show(Control& form) {
    form.modal = false;
    setVisible(form, true);
    focusFirst(form);
}

void showModal(Control& form) {
    form.modal = true;
    modals().push_back(&form);
    setVisible(form, true);
    focusFirst(form);
    host().waitWhile([&form] { return form.visible; });
    std::erase(modals(), &form);
    form.modal = false;
}

void hide(Control& form) {
    std::erase(modals(), &form);
    setVisible(form, false);
}

void openBox() { modals().push_back(messageBox); }

void closeBox() {
    const auto last = std::find(modals().rbegin(), modals().rend(), messageBox);
    if (last != modals().rend()) modals().erase(std::next(last).base());
}

bool boxInFront() { return !modals().empty() && modals().back() == messageBox; }

Control* topModal() {
    const auto last = std::find_if(modals().rbegin(), modals().rend(),
                                   [](const Control* modal) { return modal != messageBox; });
    return last == modals().rend() ? nullptr : *last;
}

void reset() { modals().clear(); }

void setFocus(Control& control) {
    if (takesFocus(control.kind) && isUsable(control)) makeActive(control);
}

bool hasFocus(const Control& control) {
    const Control& form = rootOf(control);
    return isUsable(control) && form.active == &control && (topModal() == nullptr || topModal() == &form);
}

Control& formOf(Control& control) { return const_cast<Control&>(rootOf(control)); }

bool isShown(const Control& control) {
    return holdsUpward(control, [](const Control& at) { return at.visible; });
}

bool isUsable(const Control& control) {
    return isShown(control) && holdsUpward(control, [](const Control& at) { return at.enabled; });
}

std::string refusal(const Control& control) {
    if (!isShown(control)) return fullName(control) + " is hidden";
    if (!isUsable(control)) return fullName(control) + " is disabled";
    if (boxInFront()) return fullName(control) + " stands behind a message box";
    if (topModal() != nullptr && topModal() != &rootOf(control)) {
        return fullName(control) + " stands behind " + topModal()->form;
    }
    return {};
}

}  // namespace windows
