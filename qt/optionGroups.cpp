#include "qt/optionGroups.h"

#include <QWidget>
#include <vector>

#include "forms/control.h"
#include "forms/registry.h"

namespace optionGroups {

namespace {

void placeStop(const Control& container, const WidgetOf& widgetOf) {
    const Control* stop = nullptr;
    std::vector<const Control*> group;
    for (const Control* control : registry::childrenOf(container)) {
        if (control->kind != Kind::OptionButton) continue;
        group.push_back(control);
        if (!control->visible || !control->enabled) continue;
        if (stop == nullptr || control->value != 0) stop = control;
    }
    for (const Control* control : group)
        widgetOf(*control)->setFocusPolicy(control == stop ? Qt::StrongFocus : Qt::ClickFocus);
}

void placeAll(const WidgetOf& widgetOf) {
    for (const Control* control : allControls()) {
        if (control->kind == Kind::OptionButton) placeStop(*control->parent, widgetOf);
    }
}

}  // namespace

void follow(WidgetOf widgetOf) {
    placeAll(widgetOf);
    watchControls([widgetOf = std::move(widgetOf)](const Control& control, Property property) {
        if (property == Property::Design) return placeAll(widgetOf);
        const bool moves =
            property == Property::Value || property == Property::Visible || property == Property::Enabled;
        if (moves && control.kind == Kind::OptionButton) placeStop(*control.parent, widgetOf);
    });
}

}  // namespace optionGroups
