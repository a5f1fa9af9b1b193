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

/// A timer as the queue knows it.
struct Slot {
    Control* timer;
    std::uint64_t order = 0;  ///< of its arming that counts; 0 while it is off
    bool running = false;     ///< its handler waits, under a box
};

/// An arming. It counts as long as its timer has not been armed anew, or switched off, since.
struct Armed {
    std::int64_t due;
    std::uint64_t order;
    std::size_t slot;
};

std::int64_t now = 0;
std::chrono::sys_seconds start;
std::uint64_t armedSoFar = 0;
std::vector<Slot> slots;
std::vector<Armed> queue;  ///< a heap, what is due first on top

bool isLater(const Armed& a, const Armed& b) { return a.due != b.due ? a.due > b.due : a.order > b.order; }

void takeTop() {
    std::pop_heap(queue.begin(), queue.end(), isLater);
    queue.pop_back();
}

/// Brings the top, whose time has moved on, to its place: half the work of taking it off and adding it anew.
void sinkTop() {
    const Armed moved = queue.front();
    std::size_t at = 0;
    for (std::size_t next = 1; next < queue.size(); next = 2 * at + 1) {
        if (next + 1 < queue.size() && isLater(queue[next], queue[next + 1])) ++next;
        if (!isLater(moved, queue[next])) break;
        queue[at] = queue[next];
        at = next;
    }
    queue[at] = moved;
}

/// The arming that is due first, or none; those that no longer count are dropped on the way.
const Armed* earliest() {
    while (!queue.empty() && slots[queue.front().slot].order != queue.front().order) takeTop();
    return queue.empty() ? nullptr : &queue.front();
}

std::size_t slotOf(Control& timer) {
    std::size_t at = 0;
    while (at < slots.size() && slots[at].timer != &timer) ++at;
    if (at == slots.size()) slots.push_back({&timer});
    return at;
}

void arm(std::size_t slot) {
    const Int32 interval = slots[slot].timer->interval;
    if (interval <= 0) return;
    slots[slot].order = ++armedSoFar;
    queue.push_back({now + interval.toInt(), armedSoFar, slot});
    std::push_heap(queue.begin(), queue.end(), isLater);
}

void watchTimer(Control& control, Property property) {
    if (control.kind == Kind::Form && property == Property::Design) {
        for (Slot& slot : slots) {
            if (!slot.timer->enabled) slot.order = 0;
        }
    }
    if (control.kind != Kind::Timer) return;
    if (property != Property::Enabled && property != Property::Interval) return;
    const std::size_t slot = slotOf(control);
    slots[slot].order = 0;
    if (control.enabled) arm(slot);
}

/// Fires what stands on top of the queue, which is armed anew before. A tick of a timer whose handler is
/// still running, under a box, is lost.
void fireTop() {
    Armed& top = queue.front();
    const std::size_t at = top.slot;
    const Control& timer = *slots[at].timer;
    top.due += timer.interval.toInt();
    top.order = slots[at].order = ++armedSoFar;
    sinkTop();
    if (!timer.on.timer || slots[at].running) return;
    slots[at].running = true;
    const OnLeave stop([at] { slots[at].running = false; });
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
    slots.clear();
    queue.clear();
    watchControls(watchTimer);
    return true;
}

std::uint32_t milliseconds() { return static_cast<std::uint32_t>(now); }
std::string today() { return fmt::format("{:%Y-%m-%d}", moment()); }
std::string timeOfDay() { return fmt::format("{:%H:%M:%S}", moment()); }

void pass(std::int64_t duration, const std::function<bool()>& stop) {
    std::int64_t remaining = duration;
    for (const Armed* next = earliest(); next != nullptr && next->due - now <= remaining; next = earliest()) {
        const std::int64_t step = std::max<std::int64_t>(0, next->due - now);
        remaining -= step;
        now += step;
        fireTop();
        if (stop()) return;
    }
    now += remaining;
}

}  // namespace virtualTime
