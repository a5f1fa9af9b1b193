#include "qt/modality.h"

#include <QMessageBox>
#include <QTimer>
#include <QWidget>

#include "forms/registry.h"
#include "forms/windows.h"
#include "qt/boxes.h"
#include "qt/edge.h"
#include "qt/eventHook.h"
#include "qt/formWindow.h"

namespace modality {

namespace {

/// What takes the input: the newest message box or modal form; none if nothing is modal.
QWidget* front() {
    if (windows::boxInFront()) return boxes::newest();
    const Control* modal = windows::topModal();
    return modal == nullptr ? nullptr : formWindow::of(*modal);
}

/// Windows of forms and message boxes stand behind each other; a list that drops down stands behind none.
bool isOrdinary(const QWidget& window) {
    if (qobject_cast<const QMessageBox*>(&window) != nullptr) return true;
    for (const Control* form : registry::forms()) {
        if (formWindow::of(*form) == &window) return true;
    }
    return false;
}

/// The window that takes the input in place of this widget's; none if the widget may have it.
QWidget* windowInFrontOf(const QWidget& widget) {
    QWidget* modal = front();
    if (modal == nullptr || widget.window() == modal || !isOrdinary(*widget.window())) return nullptr;
    return modal;
}

bool isInput(QEvent::Type type) {
    switch (type) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::Wheel:
        case QEvent::Enter:
        case QEvent::HoverEnter:
        case QEvent::HoverMove:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
        case QEvent::ContextMenu:
        case QEvent::TouchBegin:
        case QEvent::TabletPress: return true;
        default: return false;
    }
}

}  // namespace

bool standsBehind(const QWidget& widget) { return windowInFrontOf(widget) != nullptr; }

void enforce() {
    hookAllEvents([](QObject* object, QEvent* event) {
        const bool activated = event->type() == QEvent::WindowActivate;
        if (!object->isWidgetType() || (!activated && !isInput(event->type()))) return false;
        QWidget* modal = windowInFrontOf(*static_cast<QWidget*>(object));
        if (modal == nullptr) return false;
        if (activated)
            QTimer::singleShot(0, modal, [modal] { edge::guard([modal] { modal->activateWindow(); }); });
        return !activated;
    });
}

}  // namespace modality
