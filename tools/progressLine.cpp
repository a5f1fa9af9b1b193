#include "tools/progressLine.h"

#include <algorithm>
#include <iostream>

#include "platform/onLeave.h"
#include "platform/terminal.h"

namespace progressLine {

namespace {

constexpr const char* cleared = "\r\x1b[K";

}  // namespace

std::function<void(double)> begin(const std::string& work) {
    if (!terminal::showsErrors()) return [](double) {};
    const auto gone = std::make_shared<OnLeave>([] { std::cerr << cleared << std::flush; });
    return [work, gone, shown = -1](double done) mutable {
        const int percent = std::clamp(static_cast<int>(done * 100.0), 0, 100);
        if (percent == shown) return;
        shown = percent;
        std::cerr << cleared << work << ": " << percent << " %" << std::flush;
    };
}

}  // namespace progressLine
