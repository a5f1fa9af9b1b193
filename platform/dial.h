// The twelve-hour dial by which all simulated times are told.
#pragma once

namespace dial {

constexpr int hours = 12;
constexpr int minutesInHour = 60;

}  // namespace dial
