#include "qt/pressEcho.h"

#include <QStyle>
#include <QTimer>
#include <QWidget>

#include "forms/control.h"
#include "qt/edge.h"
#include "qt/mirror.h"

namespace pressEcho {

namespace {

constexpr int length = 250;  // milliseconds

void show(QWidget& button, bool pressed) {
    button.setProperty("echo", pressed);
    button.style()->unpolish(&button);
    button.style()->polish(&button);
}

void onChange(Control& control, Property property) {
    if (property != Property::Press || !control.look.echoes) return;
    QWidget* button = mirror::widgetOf(control);
    show(*button, true);
    QTimer::singleShot(length, button, [button] { edge::guard([button] { show(*button, false); }); });
}

}  // namespace

void begin() { watchControls(onChange); }

}  // namespace pressEcho
