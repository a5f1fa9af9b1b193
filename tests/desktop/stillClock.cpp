// Preloaded into the desktop program: no time passes for it until it gets the signal USR1. So a test decides
// when a patient begins to age, however slow the machine is, and two starts differ by nothing but their
// seeds.
#include <sys/syscall.h>
#include <unistd.h>

#include <csignal>
#include <ctime>

namespace {

volatile std::sig_atomic_t passing = 0;

[[gnu::constructor]] void begin() {
    std::signal(SIGUSR1, [](int) { passing = 1; });
}

}  // namespace

// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name)
extern "C" int clock_gettime(clockid_t clock, timespec* time) noexcept {
    static timespec start{};
    if (clock != CLOCK_MONOTONIC || passing != 0 || start.tv_sec == 0) {
        const auto status = static_cast<int>(syscall(SYS_clock_gettime, clock, time));
        if (clock == CLOCK_MONOTONIC && passing == 0) start = *time;
        return status;
    }
    *time = start;
    return 0;
}
