#include "platform/interruption.h"

#include <atomic>
#include <csignal>

namespace interruption {

namespace {

std::atomic<bool> noted = false;

}  // namespace

void watch() {
    struct sigaction action {};
    action.sa_handler = [](int) { noted = true; };
    // No restart: a wait for a worker ends too.
    ::sigaction(SIGINT, &action, nullptr);
    ::sigaction(SIGTERM, &action, nullptr);
}

bool came() { return noted; }

}  // namespace interruption
