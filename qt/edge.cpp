#include "qt/edge.h"

#include <QCoreApplication>
#include <QMetaObject>
#include <exception>

#include "platform/fault.h"
#include "platform/host.h"

namespace edge {

namespace {

std::function<void(const std::string&)>& reporter() {
    static std::function<void(const std::string&)> function;
    return function;
}

/// The program is over: while the error is on show, timers and other events find nothing to run.
bool stopped = false;

/// What the error under way says of itself.
std::string reportOfCurrent() {
    try {
        throw;
    } catch (const std::exception& error) {
        return error.what();
    } catch (...) {
        return "Unknown error";
    }
}

void end(const std::string& report) {
    try {
        if (reporter()) reporter()(report);
    } catch (...) {
        endProgram(faultExitStatus);  // what cannot be shown still ends the program
    }
    endProgram(faultExitStatus);
}

}  // namespace

void onError(std::function<void(const std::string&)> report) { reporter() = std::move(report); }

void run(const std::function<void()>& handler) {
    if (!handler || stopped) return;
    try {
        handler();
    } catch (...) {
        stopped = true;
        end(reportOfCurrent());
    }
}

void guard(const std::function<void()>& work) {
    try {
        work();
    } catch (...) {
        if (stopped) return;
        stopped = true;
        const std::string report = reportOfCurrent();
        QMetaObject::invokeMethod(
            qApp, [report] { end(report); }, Qt::QueuedConnection);
    }
}

}  // namespace edge
