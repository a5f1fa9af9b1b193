#include "qt/eventHook.h"

#include <QApplication>
#include <utility>

#include "qt/edge.h"

namespace {

/// The toolkit wants an object here; it only passes the event on.
class EventHook : public QObject {
public:
    using Sight = std::function<bool(QObject*, QEvent*)>;
    EventHook(QObject* watched, Sight watcher) : QObject(watched), sight(std::move(watcher)) {}

    bool eventFilter(QObject* watched, QEvent* event) override {
        bool dealtWith = false;
        edge::guard([&] { dealtWith = sight(watched, event); });
        return dealtWith;
    }

private:
    Sight sight;
};

}  // namespace

void hookEvents(QObject* object, EventSight sight) {
    object->installEventFilter(
        new EventHook(object, [sight = std::move(sight)](QObject*, QEvent* event) { return sight(event); }));
}

void hookAllEvents(std::function<bool(QObject*, QEvent*)> sight) {
    qApp->installEventFilter(new EventHook(qApp, std::move(sight)));
}

void hookPainting(QWidget* widget, std::function<void(QWidget*)> paint) {
    hookEvents(widget, [widget, paint = std::move(paint)](QEvent* event) {
        if (event->type() != QEvent::Paint) return false;
        paint(widget);
        return true;
    });
}
