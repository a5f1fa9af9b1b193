#include "stage/virtualTime.h"

#include <fmt/chrono.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

#include "forms/control.h"
#include "platform/onLeave.h"

namespace virtualTime {

namespace {

struct Armed {
    Control* timer;
    std::int64_t due;
    std::uint64_t order;
};

std::int64_t now = 0;
std::chrono::sys_seconds start;
std::uint64_t armedSoFar = 0;
std::vector<Armed> queue;
std::vector<Control*> running;

void disarm(const Control& timer) {
    std::erase_if(queue, [&timer](const Armed& armed) { return armed.timer == &timer; });
}

void arm(Control& timer, std::int64_t due) {
    disarm(timer);
    if (timer.interval > 0) queue.push_back({&timer, due, ++armedSoFar});
}

void watchTimer(Control& control, Property property) {
    if (control.kind == Kind::Form && property == Property::Design) {
        std::erase_if(queue, [](const Armed& armed) { return !armed.timer->enabled; });
    }
    if (control.kind != Kind::Timer) return;
    if (property != Property::Enabled && property != Property::Interval) return;
    if (control.enabled) {
        arm(control, now + control.interval.toInt());
    } else {
        disarm(control);
    }
}

std::vector<Armed>::iterator earliest() {
    return std::min_element(queue.begin(), queue.end(), [](const Armed& a, const Armed& b) {
        return a.due != b.due ? a.due < b.due : a.order < b.order;
    });
}

/// A tick of a timer whose handler is still running, under a box, is lost.
void fire(const Armed& armed) {
    Control& timer = *armed.timer;
    arm(timer, armed.due + timer.interval.toInt());
    if (!timer.on.timer || std::find(running.begin(), running.end(), &timer) != running.end()) return;
    running.push_back(&timer);
    const OnLeave stop([&timer] { std::erase(running, &timer); });
    timer.on.timer();
}

std::chrono::sys_seconds moment() { return start + std::chrono::seconds(now / 1000); }

}  // namespace

bool begin(const std::string& text) {
    int year = 0;
    unsigned month = 0;
    unsigned day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    char rest = 0;
    const int read = std::sscanf(text.c_str(), "%4d-%2u-%2u %2d:%2d:%2d%c", &year, &month, &day, &hour,
                                 &minute, &second, &rest);
    const std::chrono::year_month_day date{std::chrono::year(year), std::chrono::month(month),
                                           std::chrono::day(day)};
    if (read != 6 || !date.ok() || hour > 23 || minute > 59 || second > 59) return false;
    start = std::chrono::sys_days(date) + std::chrono::hours(hour) + std::chrono::minutes(minute) +
            std::chrono::seconds(second);
    now = 0;
    armedSoFar = 0;
    queue.clear();
    watchControls(watchTimer);
    return true;
}

std::uint32_t milliseconds() { return static_cast<std::uint32_t>(now); }
std::string today() { return fmt::format("{:%Y-%m-%d}", moment()); }
std::string timeOfDay() { return fmt::format("{:%H:%M:%S}", moment()); }

void pass(std::int64_t duration, const std::function<bool()>& stop) {
    std::int64_t remaining = duration;
    while (true) {
        const auto next = earliest();
        if (next == queue.end() || next->due - now > remaining) break;
        const std::int64_t step = std::max<std::int64_t>(0, next->due - now);
        remaining -= step;
        now += step;
        fire(Armed(*next));
        if (stop()) return;
    }
    now += remaining;
}

}  // namespace virtualTime
