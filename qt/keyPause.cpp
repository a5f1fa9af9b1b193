#include "qt/keyPause.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QWindow>
#include <algorithm>
#include <map>
#include <set>

#include "qt/eventHook.h"

namespace keyPause {

namespace {

constexpr int quiet = 500;  // milliseconds

std::map<QWidget*, qint64> pausing;  // since when
std::set<QWidget*> buttons;          // that have paused
std::set<quint32> down;              // keys, by the keyboard's code

/// Keys are told by the keyboard's time, milliseconds: a program that is busy sees them late.
struct Stroke {
    quint32 key = 0;
    quint64 time = 0;
};
Stroke lastStroke;
Stroke lastRelease;

qint64 now() {
    static const QElapsedTimer clock = [] {
        QElapsedTimer started;
        started.start();
        return started;
    }();
    return clock.elapsed();
}

bool wouldGet(const QWidget& widget, const QWindow& window) {
    const QWidget& top = *widget.window();
    return top.windowHandle() == &window && (&top == &widget || top.focusWidget() == &widget);
}

/// Whether a key for the window comes too early. The first that does not ends the pause.
bool isTooEarly(const QWindow& window, quint64 time) {
    const auto found = std::find_if(pausing.begin(), pausing.end(),
                                    [&](const auto& entry) { return wouldGet(*entry.first, window); });
    if (found == pausing.end()) return false;
    if (!down.empty() || now() - found->second < quiet || time - lastStroke.time < quiet) return true;
    pausing.erase(found);
    return false;
}

/// Modifiers do nothing by themselves, and the window manager often takes their release.
bool isModifier(int key) {
    return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt || key == Qt::Key_Meta ||
           key == Qt::Key_AltGr || key == Qt::Key_CapsLock || key == Qt::Key_NumLock;
}

void note(const QKeyEvent& event) {
    lastStroke = {event.nativeScanCode(), event.timestamp()};
    if (event.type() == QEvent::KeyRelease) {
        down.erase(event.nativeScanCode());
        lastRelease = lastStroke;
    } else if (!isModifier(event.key())) {
        down.insert(event.nativeScanCode());
    }
}

/// The platform brings its keys to the window first, a shortcut as a question before the key itself.
bool drops(QObject* object, QEvent* event) {
    if (!object->isWindowType()) return false;
    const QEvent::Type type = event->type();
    if (type != QEvent::KeyPress && type != QEvent::KeyRelease && type != QEvent::ShortcutOverride)
        return false;
    const auto& key = *static_cast<QKeyEvent*>(event);
    const bool early =
        type != QEvent::KeyRelease && isTooEarly(*static_cast<QWindow*>(object), key.timestamp());
    if (type != QEvent::ShortcutOverride) note(key);
    if (early) event->accept();
    return early;
}

}  // namespace

void enforce() {
    hookAllEvents(drops);
    QObject::connect(qGuiApp, &QGuiApplication::applicationStateChanged, qGuiApp, [] { down.clear(); });
}

void begin(QWidget& widget) {
    if (!pausing.contains(&widget) && !buttons.contains(&widget))
        QObject::connect(&widget, &QObject::destroyed, &widget, [gone = &widget] { pausing.erase(gone); });
    if (!widget.isWindow()) buttons.insert(&widget);
    pausing[&widget] = now();
}

void beginAgain() {
    for (QWidget* button : buttons) {
        if (button->isVisible()) begin(*button);
    }
}

void end(QWidget& widget) { pausing.erase(&widget); }

// A key that is held down comes as releases and presses, each pair at one moment.
bool isHeldDown(const QKeyEvent& press) {
    return press.isAutoRepeat() || (lastRelease.key != 0 && lastRelease.key == press.nativeScanCode() &&
                                    lastRelease.time == press.timestamp());
}

}  // namespace keyPause
