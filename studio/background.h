// Work on a store in a thread of its own, so that the window goes on while a lock is waited for or a large
// store is read. A connection to a store stays in the thread that opened it.
#pragma once

#include <QString>
#include <chrono>
#include <functional>
#include <mutex>
#include <string>

namespace background {

/// Does `work` behind whatever was asked for before, and then calls `done` in the window's thread with what
/// `work` threw; empty if it threw nothing.
void run(std::function<void()> work, std::function<void(const std::string& problem)> done);

/// Does `work` in that thread too, and returns when it is done. If that takes longer than a moment, a box
/// with the sentence waits for it. False if the person would not wait: the work goes on, and nobody takes
/// what comes of it. Throws std::runtime_error with what `work` threw.
bool await(const QString& sentence, std::function<void()> work);

/// The store for whoever in this program opens it. The system lets go of all locks of a program on a file as
/// soon as the program closes that file anywhere, so one thread at a time has it. Holds nothing where another
/// has had it for that long. Work that is done here has it already.
std::unique_lock<std::timed_mutex> turn(std::chrono::milliseconds patience);

}  // namespace background
