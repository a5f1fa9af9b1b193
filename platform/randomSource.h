// The one source of chance. Every draw of the task is preceded by a reseed from the millisecond counter;
// tests, scripts and pilots can fix the first state or queue the draws that come next.
#pragma once

#include <cstdint>
#include <span>

namespace randomSource {

/// Puts the generator into the state that belongs to `seed`, and forgets all queued draws.
void fixState(std::uint64_t seed);

/// Folds `number` into the running state. The state is not replaced: draws of one millisecond would all
/// be equal then.
void reseed(std::uint64_t number);

/// Uniform, 0 up to but not including 1, also when narrowed to single precision.
double draw();

/// Whole percent, 0 to 99: a hit when strictly below the chance.
int drawPercent();

/// The next draws, taken in order before the generator goes on. Each in 0 up to but not including 1.
void queueDraws(std::span<const double> draws);
void clearQueue();

}  // namespace randomSource
