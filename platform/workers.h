// Work that is split over processes of this program. Each result belongs to a number; whoever takes the
// results gets them in the order of the numbers, whatever the count of processes.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace workers {

/// Makes the bytes of one result, in a process of its own.
using Job = std::function<std::string(std::int64_t number)>;
/// Takes them, in the caller's process.
using Take = std::function<void(std::int64_t number, std::string bytes)>;

/// Runs the job for each number from `first` up to but not including `end`, on `count` processes, which begin
/// with a copy of what the caller holds and end with the call. `goesOn` is asked before each result and after
/// each signal; at its false the rest is left. A process that fails ends the work with std::runtime_error and
/// its reason.
void run(int count, std::int64_t first, std::int64_t end, const Job& job, const Take& take,
         const std::function<bool()>& goesOn);

}  // namespace workers
