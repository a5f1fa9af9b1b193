#include "qt/heldInput.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QWindow>
#include <algorithm>
#include <deque>
#include <memory>
#include <vector>

#include "platform/onLeave.h"
#include "qt/edge.h"
#include "qt/eventHook.h"
#include "qt/formWindow.h"
#include "qt/modality.h"

namespace heldInput {

namespace {

struct Kept {
    QPointer<QObject> target;
    QPointer<QWindow> window;
    std::unique_ptr<QEvent> event;
    QPointer<QWidget> under;  ///< what the pointer was on
    bool wasCovered = false;  ///< a box or dialog has come up since
};

/// The windows that have come up since each wait began, the innermost wait last.
std::vector<std::vector<const QWindow*>> waits;
std::deque<Kept> kept;
const QEvent* delivered = nullptr;

QWidget* widgetOf(const QWindow& window) { return QWidget::find(window.winId()); }

QWidget* underPointer(const QWindow& window, const QEvent& event) {
    const auto* mouse = dynamic_cast<const QMouseEvent*>(&event);
    QWidget* top = mouse == nullptr ? nullptr : widgetOf(window);
    return top == nullptr ? nullptr : top->childAt(mouse->position().toPoint());
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
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::TabletPress:
        case QEvent::TabletRelease: return true;
        case QEvent::MouseMove: return static_cast<const QMouseEvent&>(event).buttons() != Qt::NoButton;
        case QEvent::Close: return &window != formWindow::mainWindow()->windowHandle();
        default: return false;
    }
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
bool pressesByLetter(const Kept& held) {
    const auto* key = dynamic_cast<QKeyEvent*>(held.event.get());
    if (key == nullptr || key->type() != QEvent::KeyPress || key->modifiers() != Qt::AltModifier)
        return false;
    const QKeySequence pressed(key->modifiers() | Qt::Key(key->key()));
    for (auto* button : widgetOf(*held.window)->findChildren<QAbstractButton*>()) {
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
    if (held.wasCovered && underPointer(*held.window, *held.event) != held.under) return;
    if (pressesByLetter(held)) return;
    delivered = held.event.get();
    QCoreApplication::sendEvent(held.target, held.event.get());
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
    const bool question = event->type() == QEvent::ShortcutOverride;
    if ((!question && !isInput(*window, *event)) || !isKept(*window)) return false;
    if (!question)
        kept.push_back(
            {object, window, std::unique_ptr<QEvent>(event->clone()), underPointer(*window, *event)});
    event->setAccepted(event->type() != QEvent::Close);
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
