#include "qt/edge.h"

#include <exception>
#include <utility>

#include "platform/host.h"

namespace edge {

namespace {

std::function<void(const Fault&)>& reporter() {
    static std::function<void(const Fault&)> function;
    return function;
}

/// The program is over: while the fault is on show, timers and other events find nothing to run.
bool stopped = false;

void stop(const Fault& fault) {
    stopped = true;
    if (reporter()) reporter()(fault);
    endProgram(faultExitStatus);
}

}  // namespace

void onFault(std::function<void(const Fault&)> report) { reporter() = std::move(report); }

void run(const std::function<void()>& handler) {
    if (!handler || stopped) return;
    try {
        handler();
    } catch (const Fault& fault) {
        stop(fault);
    } catch (const std::exception& error) {
        stop({0, error.what()});
    }
}

}  // namespace edge
