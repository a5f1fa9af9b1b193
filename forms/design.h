// How a form is drawn up: each form's file lists its controls with their names, places and captions through
// these functions. Running a form's design again puts all its controls back as they were at first and
// leaves the handlers in place; this is what unloading a form means.
#pragma once

#include <array>
#include <string>

#include "forms/control.h"
#include "platform/fault.h"

/// A control array, 0-based; an element that does not exist is a run-time fault.
template <int N>
struct Elements {
    std::array<Control, static_cast<std::size_t>(N)> items;

    Control& operator[](Int32 index) {
        if (index < 0 || index >= N) raiseFault(FaultNumber::SubscriptOutOfRange);
        return items[static_cast<std::size_t>(index.raw)];
    }

    [[nodiscard]] static constexpr int count() { return N; }
    auto begin() { return items.begin(); }
    auto end() { return items.end(); }
};

namespace design {

/// Where a control goes: a form, a frame, or a page of a tab control.
struct Container {
    Control* control;
    int page = -1;
};

/// Begins a form. Its place holds the size of the client area.
Control& form(Control& form, const std::string& name, const std::string& caption, float width, float height);

/// A control with the name that its form gives it, and its place in a control array, -1 outside of one.
struct Named {
    Control& control;
    const char* name;
    int element = -1;
};

/// Places a control, with `text` as its caption, or as its text where the kind has no caption.
Control& place(Container in, Named named, Kind kind, const Place& at, const std::string& text = {});

Control& button(Container in, Named named, const Place& at, const std::string& caption);
Control& label(Container in, Named named, const Place& at, const std::string& caption = {});
Control& scrollBar(Container in, Named named, const Place& at, Int16 min, Int16 max, Int16 value);
/// A line from one point to another.
Control& line(Container in, Named named, float x1, float y1, float x2, float y2);
/// A timer that is off.
Control& timer(Container in, Named named, Int32 milliseconds);

/// Says that the design is complete.
void finish(Control& form);

}  // namespace design

/// A member of a form's record together with its name, so that each name is written once.
#define NAMED(form, member) \
    design::Named { (form).member, #member }
#define NAMED_AT(form, member, index) \
    design::Named { (form).member[index], #member, index }
