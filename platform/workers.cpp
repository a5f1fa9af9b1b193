#include "platform/workers.h"

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <iostream>
#include <stdexcept>
#include <vector>

#include "platform/onLeave.h"

namespace workers {

namespace {

struct Worker {
    pid_t process = -1;
    int results = -1;  ///< the reading end of its pipe
};

/// In front of the bytes on the pipe. A result is never as long as the mark of a failure.
using Length = std::uint64_t;
constexpr Length failureMark = Length{1} << 63U;

bool writeAll(int pipe, const char* bytes, std::size_t size) {
    while (size > 0) {
        const ssize_t written = ::write(pipe, bytes, size);
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes += written;
        size -= static_cast<std::size_t>(written);
    }
    return true;
}

bool send(int pipe, const std::string& bytes, Length mark = 0) {
    const Length length = bytes.size() | mark;
    std::array<char, sizeof length> head{};
    std::memcpy(head.data(), &length, sizeof length);
    return writeAll(pipe, head.data(), head.size()) && writeAll(pipe, bytes.data(), bytes.size());
}

/// A worker takes every `count`-th number. It ends when nobody reads its results any more.
[[noreturn]] void work(int pipe, int count, std::int64_t first, std::int64_t end, const Job& job) {
    // The one who started it decides when to stop.
    ::signal(SIGINT, SIG_IGN);
    ::signal(SIGTERM, SIG_IGN);
    ::signal(SIGPIPE, SIG_IGN);
    try {
        for (std::int64_t number = first; number < end; number += count) {
            if (!send(pipe, job(number))) ::_exit(0);
        }
    } catch (const std::exception& error) {
        send(pipe, error.what(), failureMark);
    }
    ::_exit(0);
}

Worker start(const std::vector<Worker>& before, int count, std::int64_t first, std::int64_t end,
             const Job& job) {
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0) throw std::runtime_error("no pipe to a worker can be made");
    std::cout.flush();
    const pid_t process = ::fork();
    if (process < 0) throw std::runtime_error("no worker can be started");
    if (process == 0) {
        for (const Worker& other : before) ::close(other.results);
        ::close(ends[0]);
        work(ends[1], count, first, end, job);
    }
    ::close(ends[1]);
    return {process, ends[0]};
}

/// False where the pipe ends, or a signal has come that is to end the work.
bool readAll(int pipe, char* bytes, std::size_t size, const std::function<bool()>& goesOn) {
    while (size > 0) {
        const ssize_t got = ::read(pipe, bytes, size);
        if (got < 0 && errno == EINTR && goesOn()) continue;
        if (got <= 0) return false;
        bytes += got;
        size -= static_cast<std::size_t>(got);
    }
    return true;
}

void stop(const std::vector<Worker>& all) {
    for (const Worker& worker : all) ::close(worker.results);
    for (const Worker& worker : all) {
        ::kill(worker.process, SIGKILL);
        while (::waitpid(worker.process, nullptr, 0) < 0 && errno == EINTR) {
        }
    }
}

}  // namespace

void run(int count, std::int64_t first, std::int64_t end, const Job& job, const Take& take,
         const std::function<bool()>& goesOn) {
    std::vector<Worker> all;
    const OnLeave stopped([&] { stop(all); });
    for (int i = 0; i < count && first + i < end; ++i) all.push_back(start(all, count, first + i, end, job));
    for (std::int64_t number = first; number < end && goesOn(); ++number) {
        const int pipe = all[static_cast<std::size_t>((number - first) % count)].results;
        Length length = 0;
        std::array<char, sizeof length> head{};
        const bool begun = readAll(pipe, head.data(), head.size(), goesOn);
        std::memcpy(&length, head.data(), sizeof length);
        std::string bytes(begun ? length & ~failureMark : 0, '\0');
        const bool whole = begun && readAll(pipe, bytes.data(), bytes.size(), goesOn);
        if (!goesOn()) return;
        if (!whole) throw std::runtime_error("a worker has ended before its work");
        if ((length & failureMark) != 0) throw std::runtime_error(bytes);
        take(number, std::move(bytes));
    }
}

}  // namespace workers
