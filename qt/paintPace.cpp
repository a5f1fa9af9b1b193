#include "qt/paintPace.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>

#include "qt/edge.h"
#include "qt/eventHook.h"

namespace paintPace {

namespace {

constexpr int frame = 16;  // milliseconds, of a screen with 60 pictures a second

QElapsedTimer sinceLast;

bool isTooEarly() { return sinceLast.isValid() && sinceLast.elapsed() < frame; }

}  // namespace

void limit(QWidget& window) {
    auto* rest = new QTimer(&window);
    rest->setSingleShot(true);
    rest->setTimerType(Qt::PreciseTimer);
    const auto ask = [&window] {
        QCoreApplication::postEvent(&window, new QEvent(QEvent::UpdateRequest), Qt::LowEventPriority);
    };
    QObject::connect(rest, &QTimer::timeout, rest, [ask] { edge::guard(ask); });
    hookEvents(&window, [rest](QEvent* event) {
        if (event->type() != QEvent::UpdateRequest) return false;
        if (!isTooEarly()) {
            sinceLast.start();
            return false;
        }
        if (!rest->isActive()) rest->start(static_cast<int>(frame - sinceLast.elapsed()));
        return true;
    });
}

}  // namespace paintPace
