#include "forms/snapshot.h"

namespace snapshot {

std::vector<Kept> take(const Control& form) {
    std::vector<Kept> kept;
    for (Control* control : allControls()) {
        if (control->form == form.form) kept.push_back({control, *control});
    }
    return kept;
}

void putBack(const std::vector<Kept>& form) {
    for (const Kept& kept : form) {
        Control* control = kept.control;
        const Control& before = kept.before;
        const auto revert = [&](auto Control::*field, Property property) {
            if (control->*field == before.*field) return;
            control->*field = before.*field;
            tellWatchers(*control, property);
        };
        revert(&Control::visible, Property::Visible);
        revert(&Control::enabled, Property::Enabled);
        revert(&Control::caption, Property::Caption);
        revert(&Control::items, Property::Items);
        revert(&Control::selected, Property::Items);
        revert(&Control::text, Property::Text);
        revert(&Control::selStart, Property::Selection);
        revert(&Control::selLength, Property::Selection);
        revert(&Control::min, Property::Range);
        revert(&Control::max, Property::Range);
        revert(&Control::value, Property::Value);
    }
}

}  // namespace snapshot
