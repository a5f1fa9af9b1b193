#include "platform/progressLine.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <iostream>

#include "platform/onLeave.h"
#include "platform/terminal.h"

namespace progressLine {

namespace {

using Clock = std::chrono::steady_clock;

constexpr const char* cleared = "\r\x1b[K";
constexpr int barWidth = 30;
constexpr double barSeconds = 0.2;
constexpr double lineSeconds = 5;

double secondsSince(Clock::time_point moment) {
    return std::chrono::duration<double>(Clock::now() - moment).count();
}

std::string duration(double seconds) {
    const auto whole = static_cast<std::int64_t>(std::llround(seconds));
    if (whole < 60) return fmt::format("{} s", whole);
    if (whole < 3600) return fmt::format("{}:{:02} min", whole / 60, whole % 60);
    return fmt::format("{}:{:02} h", whole / 3600, whole / 60 % 60);
}

std::shared_ptr<OnLeave> clearedAtEnd() {
    return std::make_shared<OnLeave>([] { std::cerr << cleared << std::flush; });
}

}  // namespace

std::function<void(double)> begin(const std::string& work) {
    if (!terminal::showsErrors()) return [](double) {};
    return [work, gone = clearedAtEnd(), shown = -1](double done) mutable {
        const int percent = std::clamp(static_cast<int>(done * 100.0), 0, 100);
        if (percent == shown) return;
        shown = percent;
        std::cerr << cleared << work << ": " << percent << " %" << std::flush;
    };
}

std::function<void(std::int64_t)> count(const std::string& what, std::int64_t before, std::int64_t all) {
    const bool screen = terminal::showsErrors();
    const Clock::time_point begun = Clock::now();
    return [=, gone = screen ? clearedAtEnd() : nullptr, last = begun](std::int64_t done) mutable {
        if (secondsSince(last) < (screen ? barSeconds : lineSeconds)) return;
        last = Clock::now();
        const double rate = static_cast<double>(done - before) / secondsSince(begun);
        std::string line = fmt::format("{} of {} {}", done, all, what);
        if (rate > 0)
            line += fmt::format(", {:.{}f} a second, {} left", rate, rate < 10 ? 1 : 0,
                                duration(static_cast<double>(all - done) / rate));
        const auto filled = static_cast<std::size_t>(barWidth * done / std::max<std::int64_t>(all, 1));
        if (screen) line = fmt::format("{}[{:<{}}] {}", cleared, std::string(filled, '#'), barWidth, line);
        std::cerr << line << (screen ? "" : "\n") << std::flush;
    };
}

}  // namespace progressLine
