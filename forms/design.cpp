#include "forms/design.h"

#include <algorithm>

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
    form.box = {0, 0, width, height};
    form.visible = false;
    return form;
}

Control& place(Container in, Control& control, Kind kind, const std::string& name, const Box& box,
               const std::string& text, int element) {
    renew(control, kind);
    control.form = in.control->form;
    control.name = name;
    control.element = element;
    control.parent = in.control;
    control.page = in.page;
    control.box = box;
    const bool hasText = kind == Kind::TextBox || kind == Kind::ComboBox;
    (hasText ? control.text : control.caption) = text;
    return control;
}

Control& button(Container in, Control& control, const std::string& name, const Box& box,
                const std::string& caption, int element) {
    return place(in, control, Kind::Button, name, box, caption, element);
}

Control& label(Container in, Control& control, const std::string& name, const Box& box,
               const std::string& caption, int element) {
    return place(in, control, Kind::Label, name, box, caption, element);
}

Control& scrollBar(Container in, Control& control, const std::string& name, const Box& box, Int16 min,
                   Int16 max, Int16 value, int element) {
    place(in, control, Kind::ScrollBar, name, box, {}, element);
    control.min = min;
    control.max = max;
    control.value = value;
    return control;
}

Control& line(Container in, Control& control, const std::string& name, float x1, float y1, float x2, float y2,
              int element) {
    return place(in, control, Kind::Line, name, {x1, y1, x2 - x1, y2 - y1}, {}, element);
}

Control& timer(Container in, Control& control, const std::string& name, Int32 milliseconds) {
    place(in, control, Kind::Timer, name, {});
    control.interval = milliseconds;
    control.enabled = false;
    return control;
}

void finish(Control& form) { tellWatchers(form, Property::Design); }

}  // namespace design
