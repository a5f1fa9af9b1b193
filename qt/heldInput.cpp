#include "qt/heldInput.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QWindow>
#include <algorithm>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/onLeave.h"
#include "qt/edge.h"
#include "qt/eventHook.h"
#include "qt/formWindow.h"
#include "qt/modality.h"

namespace heldInput {

namespace {

using Maker = std::function<std::unique_ptr<QEvent>()>;

struct Kept {
    QPointer<QObject> target;
    QPointer<QWindow> window;
    Maker event;
    std::optional<QPoint> pointer;  ///< where it was, for the pointer's events
    QPointer<QWidget> under;        ///< what the pointer was on
    bool wasCovered = false;        ///< a box or dialog has come up since
};

/// The windows that have come up since each wait began, the innermost wait last.
std::vector<std::vector<const QWindow*>> waits;
std::deque<Kept> kept;
const QEvent* delivered = nullptr;

QWidget* widgetOf(const QWindow& window) { return QWidget::find(window.winId()); }

QWidget* at(const QWindow& window, const std::optional<QPoint>& pointer) {
    const QWidget* top = pointer ? widgetOf(window) : nullptr;
    return top == nullptr ? nullptr : top->childAt(*pointer);
}

/// The toolkit's copies of a pointer's event all share the place where the pointer is last, so that one is
/// made anew.
Maker makerOf(const QEvent& event, const QMouseEvent* mouse) {
    if (mouse == nullptr) {
        const std::shared_ptr<QEvent> copy(event.clone());
        return [copy] { return std::unique_ptr<QEvent>(copy->clone()); };
    }
    return [type = mouse->type(), place = mouse->position(), global = mouse->globalPosition(),
            button = mouse->button(), buttons = mouse->buttons(), modifiers = mouse->modifiers()] {
        return std::make_unique<QMouseEvent>(type, place, place, global, button, buttons, modifiers);
    };
}

Kept heldOf(QObject* target, QWindow& window, const QEvent& event) {
    const auto* mouse = dynamic_cast<const QMouseEvent*>(&event);
    Kept held{target, &window, makerOf(event, mouse), std::nullopt, nullptr, false};
    if (mouse != nullptr) held.pointer = mouse->position().toPoint();
    held.under = at(window, held.pointer);
    return held;
}

/// The platform brings its events to the window first, but for what an input method has composed.
QWindow* windowOf(QObject* object, QEvent::Type type) {
    if (object->isWindowType()) return static_cast<QWindow*>(object);
    if (type != QEvent::InputMethod || !object->isWidgetType()) return nullptr;
    return static_cast<QWidget*>(object)->window()->windowHandle();
}

bool isInput(const QWindow& window, const QEvent& event) {
    switch (event.type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::InputMethod:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick: return true;
        case QEvent::MouseMove: return static_cast<const QMouseEvent&>(event).buttons() != Qt::NoButton;
        case QEvent::Close: return &window != formWindow::mainWindow()->windowHandle();
        default: return false;
    }
}

/// Nothing comes of the wheel, and touch and pen come once more as the pointer where nobody takes them.
bool isDropped(QEvent::Type type) {
    return type == QEvent::Wheel || type == QEvent::TouchBegin || type == QEvent::TouchUpdate ||
           type == QEvent::TouchEnd || type == QEvent::TabletPress || type == QEvent::TabletMove ||
           type == QEvent::TabletRelease;
}

bool takesInput(const QWindow* window) {
    return waits.empty() || std::ranges::find(waits.back(), window) != waits.back().end();
}

std::deque<Kept>::iterator nextToDeliver() {
    return std::ranges::find_if(kept, [](const Kept& held) { return takesInput(held.window); });
}

/// What stands behind a box takes no input in any case; and nothing overtakes what has been kept.
bool isKept(const QWindow& window) {
    const QWidget* top = widgetOf(window);
    if (top != nullptr && modality::standsBehind(*top)) return false;
    return !takesInput(&window) || nextToDeliver() != kept.end();
}

/// The toolkit asks for a shortcut before the key comes; a key that was kept is asked for here.
bool pressesByLetter(const QWindow& window, const QEvent& event) {
    const auto* key = dynamic_cast<const QKeyEvent*>(&event);
    if (key == nullptr || key->type() != QEvent::KeyPress || key->modifiers() != Qt::AltModifier)
        return false;
    const QKeySequence pressed(key->modifiers() | Qt::Key(key->key()));
    for (auto* button : widgetOf(window)->findChildren<QAbstractButton*>()) {
        if (button->shortcut() != pressed || !button->isVisible() || !button->isEnabled()) continue;
        button->setFocus(Qt::ShortcutFocusReason);
        button->click();
        return true;
    }
    return false;
}

void deliverLater();

/// One at a time, so that a dialog which the first brings up is there before the next is looked at.
void deliverNext() {
    const auto next = nextToDeliver();
    if (next == kept.end()) return;
    const Kept held = std::move(*next);
    kept.erase(next);
    deliverLater();
    if (held.target == nullptr || held.window == nullptr || !held.window->isVisible()) return;
    if (held.wasCovered && at(*held.window, held.pointer) != held.under) return;
    const std::unique_ptr<QEvent> event = held.event();
    if (pressesByLetter(*held.window, *event)) return;
    delivered = event.get();
    QCoreApplication::sendEvent(held.target, event.get());
    delivered = nullptr;
}

void deliverLater() {
    if (nextToDeliver() == kept.end()) return;
    QMetaObject::invokeMethod(
        qApp, [] { edge::guard(deliverNext); }, Qt::QueuedConnection);
}

void noteNewcomer(const QWindow& window) {
    if (waits.empty()) return;
    waits.back().push_back(&window);
    if (window.type() == Qt::ToolTip) return;
    for (Kept& held : kept) held.wasCovered = true;
}

bool keep(QObject* object, QEvent* event) {
    QWindow* window = windowOf(object, event->type());
    if (window == nullptr) return false;
    if (event == delivered) {
        delivered = nullptr;
        return false;
    }
    if (event->type() == QEvent::Show) noteNewcomer(*window);
    const QEvent::Type type = event->type();
    const bool dropped = isDropped(type) || type == QEvent::ShortcutOverride;
    if ((!dropped && !isInput(*window, *event)) || !isKept(*window)) return false;
    if (!dropped) kept.push_back(heldOf(object, *window, *event));
    event->setAccepted(type != QEvent::Close && !isDropped(type));
    return true;
}

}  // namespace

void enforce() { hookAllEvents(keep); }

void yield() {
    waits.emplace_back();
    const OnLeave done([] {
        waits.pop_back();
        deliverLater();
    });
    QCoreApplication::processEvents();
}

}  // namespace heldInput
