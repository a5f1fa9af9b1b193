#include "qt/eventHook.h"

#include <utility>

namespace {

/// The toolkit wants an object here; it only passes the event on.
class EventHook : public QObject {
public:
    EventHook(QObject* watched, EventSight watcher) : QObject(watched), sight(std::move(watcher)) {}

    bool eventFilter(QObject* /*watched*/, QEvent* event) override { return sight(event); }

private:
    EventSight sight;
};

}  // namespace

void hookEvents(QObject* object, EventSight sight) {
    object->installEventFilter(new EventHook(object, std::move(sight)));
}

void hookPainting(QWidget* widget, std::function<void(QWidget*)> paint) {
    hookEvents(widget, [widget, paint = std::move(paint)](QEvent* event) {
        if (event->type() != QEvent::Paint) return false;
        paint(widget);
        return true;
    });
}
