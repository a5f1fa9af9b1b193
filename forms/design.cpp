#include "forms/design.h"

#include <algorithm>

#include "platform/text.h"

namespace {

std::vector<Control*>& enrolled() {
    static std::vector<Control*> list;
    return list;
}

/// A control as it comes new, with the handlers it had.
void renew(Control& control, Kind kind) {
    Handlers kept = std::move(control.on);
    control = Control{};
    control.on = std::move(kept);
    control.kind = kind;
    if (std::find(enrolled().begin(), enrolled().end(), &control) == enrolled().end())
        enrolled().push_back(&control);
}

}  // namespace

const std::vector<Control*>& allControls() { return enrolled(); }

namespace design {

Control& form(Control& form, const std::string& name, const std::string& caption, float width, float height) {
    renew(form, Kind::Form);
    form.form = name;
    form.name = name;
    form.caption = caption;
    form.place = {0, 0, width, height};
    form.visible = false;
    return form;
}

Control& place(Container in, Named named, Kind kind, const Place& at, const std::string& text) {
    Control& control = named.control;
    renew(control, kind);
    control.form = in.control->form;
    control.name = named.name;
    control.element = named.element;
    control.parent = in.control;
    control.page = in.page;
    control.place = at;
    const bool hasText = kind == Kind::TextBox || kind == Kind::ComboBox;
    (hasText ? control.text : control.caption) = text;
    if (hasText) control.selStart = text::length(text);
    return control;
}

Control& button(Container in, Named named, const Place& at, const std::string& caption) {
    return place(in, named, Kind::Button, at, caption);
}

Control& label(Container in, Named named, const Place& at, const std::string& caption) {
    return place(in, named, Kind::Label, at, caption);
}

Control& scrollBar(Container in, Named named, const Place& at, Int16 min, Int16 max, Int16 value) {
    Control& control = place(in, named, Kind::ScrollBar, at);
    control.min = min;
    control.max = max;
    control.value = value;
    return control;
}

Control& line(Container in, Named named, float x1, float y1, float x2, float y2) {
    return place(in, named, Kind::Line, {x1, y1, x2 - x1, y2 - y1});
}

Control& timer(Container in, Named named, Int32 milliseconds) {
    Control& control = place(in, named, Kind::Timer, {});
    control.interval = milliseconds;
    control.enabled = false;
    return control;
}

void finish(Control& form) { tellWatchers(form, Property::Design); }

}  // namespace design
