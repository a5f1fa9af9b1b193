// Virtual time: a clock that moves only when a script says so, and the queue of the timers that fall due on
// the way. Ties fire in the order in which they were armed.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace virtualTime {

/// Begins at millisecond 0 with the date and time of `text` ("2026-01-05 09:30:00") and watches the timers of
/// the forms. False if the text is no date and time.
bool begin(const std::string& text);

std::uint32_t milliseconds();
std::string today();
std::string timeOfDay();

/// Lets so many milliseconds pass and fires the timers that fall due. Time that passes inside a timer's
/// handler, under a message box, does not count. Stops early after a timer when `stop` holds.
void pass(std::int64_t duration, const std::function<bool()>& stop);

}  // namespace virtualTime
