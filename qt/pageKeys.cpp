#include "qt/pageKeys.h"

#include <QKeyEvent>
#include <QWidget>

#include "forms/control.h"
#include "forms/person.h"
#include "qt/eventHook.h"
#include "qt/faces.h"

namespace pageKeys {

namespace {

/// Pages onward; 0 for any other key.
int stepsOf(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const bool plain = modifiers == Qt::ControlModifier;
    if (!plain && modifiers != (Qt::ControlModifier | Qt::ShiftModifier)) return 0;
    switch (event.key()) {
        case Qt::Key_Tab: return plain ? 1 : -1;
        case Qt::Key_Backtab: return -1;
        case Qt::Key_PageDown: return plain ? 1 : 0;
        case Qt::Key_PageUp: return plain ? -1 : 0;
        default: return 0;
    }
}

Control* pagesIn(const QWidget& window, const WidgetOf& widgetOf) {
    for (Control* control : allControls()) {
        if (control->kind == Kind::TabControl && widgetOf(*control)->window() == &window) return control;
    }
    return nullptr;
}

bool turns(QObject* object, QEvent* event, const WidgetOf& widgetOf) {
    if (event->type() != QEvent::KeyPress || !object->isWidgetType()) return false;
    const int steps = stepsOf(*static_cast<QKeyEvent*>(event));
    Control* tabs = steps == 0 ? nullptr : pagesIn(*static_cast<QWidget*>(object)->window(), widgetOf);
    if (tabs == nullptr) return false;
    const auto count = static_cast<int>(tabs->items.size());
    faces::act([&] { person::turnTo(*tabs, (tabs->value.toInt() + steps + count) % count); });
    return true;
}

}  // namespace

void follow(WidgetOf widgetOf) {
    hookAllEvents([widgetOf = std::move(widgetOf)](QObject* object, QEvent* event) {
        return turns(object, event, widgetOf);
    });
}

}  // namespace pageKeys
