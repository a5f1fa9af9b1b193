#include "study/timeLimit.h"

namespace timeLimit {

Comes whenComes(int startHour, int hours) {
    constexpr int dial = 12;
    if ((startHour + hours) % dial == 0) return Comes::Never;  // the dial shows 12 there, and no 0
    const bool asPlanned = startHour + hours % dial < dial && hours % dial != 0;
    return asPlanned ? Comes::AsPlanned : Comes::TwelveHoursLate;
}

}  // namespace timeLimit
