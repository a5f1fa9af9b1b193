// Preloaded into a program: the machine under it misbehaves while the test wants it. The test writes the
// three numbers below into the file that ODD_MACHINE names, at any time.
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <ctime>

namespace {

struct Wishes {
    volatile std::int64_t bytesLeft;  // that go into the store and its journal; below 0: as many as it likes
    volatile std::int64_t wallSeconds;     // by which the calendar clock is wrong
    volatile std::int64_t counterSeconds;  // by which the counter since the start has jumped forward
};
Wishes* wishes = nullptr;

[[gnu::constructor]] void begin() {
    const char* path = std::getenv("ODD_MACHINE");
    const int file = path == nullptr ? -1 : open(path, O_RDWR | O_CLOEXEC);
    if (file < 0) return;
    void* shared = mmap(nullptr, sizeof(Wishes), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    if (shared != MAP_FAILED) wishes = static_cast<Wishes*>(shared);
    close(file);
}

/// Whether there is room for the bytes, which are taken.
bool hasRoom(std::size_t bytes) {
    if (wishes == nullptr || wishes->bytesLeft < 0) return true;
    if (wishes->bytesLeft < static_cast<std::int64_t>(bytes)) {
        wishes->bytesLeft = 0;
        errno = ENOSPC;
        return false;
    }
    wishes->bytesLeft = wishes->bytesLeft - static_cast<std::int64_t>(bytes);
    return true;
}

}  // namespace

// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)

// The engine alone writes at places.
extern "C" ssize_t pwrite64(int file, const void* bytes, std::size_t count, off64_t place) {
    return hasRoom(count) ? syscall(SYS_pwrite64, file, bytes, count, place) : -1;
}

extern "C" int clock_gettime(clockid_t clock, timespec* time) noexcept {
    const auto status = static_cast<int>(syscall(SYS_clock_gettime, clock, time));
    if (wishes == nullptr) return status;
    if (clock == CLOCK_REALTIME || clock == CLOCK_REALTIME_COARSE) time->tv_sec += wishes->wallSeconds;
    if (clock == CLOCK_MONOTONIC || clock == CLOCK_MONOTONIC_COARSE) time->tv_sec += wishes->counterSeconds;
    return status;
}

extern "C" int gettimeofday(timeval* time, void* /*zone*/) noexcept {
    timespec now{};
    const int status = clock_gettime(CLOCK_REALTIME, &now);
    time->tv_sec = now.tv_sec;
    time->tv_usec = now.tv_nsec / 1000;
    return status;
}

extern "C" time_t time(time_t* result) noexcept {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    if (result != nullptr) *result = now.tv_sec;
    return now.tv_sec;
}

// NOLINTEND(readability-inconsistent-declaration-parameter-name)
