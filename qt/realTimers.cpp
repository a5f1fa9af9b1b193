#include "qt/realTimers.h"

#include <QTimer>
#include <map>

#include "forms/control.h"
#include "platform/onLeave.h"
#include "qt/edge.h"

namespace realTimers {

namespace {

std::map<const Control*, QTimer*> timerOf;
int firing = 0;

void fire(const Control& timer) {
    if (!timer.on.timer) return;
    ++firing;
    const OnLeave done([] { --firing; });
    timer.on.timer();
}

void follow(const Control& control, QTimer& timer) {
    if (control.enabled && control.interval > 0) {
        timer.start(control.interval.toInt());
    } else {
        timer.stop();
    }
}

void onChange(Control& control, Property property) {
    const auto found = timerOf.find(&control);
    if (found == timerOf.end()) return;
    if (property == Property::Enabled || property == Property::Interval) follow(control, *found->second);
}

}  // namespace

void build() {
    for (Control* control : allControls()) {
        if (control->kind != Kind::Timer) continue;
        auto* timer = new QTimer;
        timer->setTimerType(Qt::PreciseTimer);
        edge::connect(timer, &QTimer::timeout, [control] { fire(*control); });
        timerOf[control] = timer;
    }
    watchControls(onChange);
}

bool isFiring() { return firing > 0; }

}  // namespace realTimers
