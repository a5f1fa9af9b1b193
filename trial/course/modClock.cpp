#include "trial/course/modClock.h"

#include <cmath>

#include "forms/frmOptions.h"
#include "forms/frmTavix.h"
#include "forms/windows.h"
#include "platform/dial.h"
#include "platform/host.h"
#include "platform/numberText.h"
#include "state/TrialState.h"
#include "store/record/Options.h"
#include "trial/course/endings.h"

namespace modClock {

using numberText::clockText;

namespace {

void refuseStartTime(Control& box) {
    tell("Invalid Start Time");
    windows::setFocus(box);
    selectAll(box);
}

/// The seven labels under the health monitor stand at the eighths of the planned length.
void labelTimeAxis(Int16 startHour, Int16 startMinute) {
    const Int16 step = floor16(trialState.trialMinutes / 8.0);
    Int16 minutes = startHour * dial::minutesInHour + startMinute;
    for (Control& label : frmTavix.lblX) {
        minutes += step;
        setCaption(label, clockText(floor16(minutes.toFloat() / dial::minutesInHour),
                                    minutes % dial::minutesInHour));
    }
}

void reachTimeLimit() {
    setEnabled(frmTavix.tmrClock, false);
    setEnabled(frmTavix.tmrHealth, false);
    setCaption(frmTavix.lblClock, clockText(trialState.clockHour, trialState.clockMinute));
    endings::endPatient(EndCause::TimeLimit);
}

}  // namespace

void startOptions() {
    if (Options.StartHour.number() > dial::hours) {
        refuseStartTime(Options.StartHour.box);
        return;
    }
    if (Options.StartMin.number() > dial::minutesInHour - 1) {
        refuseStartTime(Options.StartMin.box);
        return;
    }
    Int16 startHour = round16(Options.StartHour.number());
    initClock(startHour, round16(Options.StartMin.number()), Options.SimRate.value(), Options.Time.value());
    trialState.score = floor32(Options.InitScore.number());
    setCaption(frmTavix.lblClock, clockText(trialState.clockHour, trialState.clockMinute));
    setInterval(frmTavix.tmrClock, round32(1000.0 / Options.SimRate.value().toFloat()));
    setInterval(frmTavix.tmrHealth, round32(frmTavix.tmrClock.interval.toFloat() / 4.0));
    setEnabled(frmTavix.tmrClock, true);
    setCaption(frmTavix.lblScore, numberText::whole(trialState.score));
    windows::hide(frmOptions.form);
}

void initClock(Int16& startHour, Int16 startMinute, Int16 rate, Int16 length) {
    TrialState& s = trialState;
    s.trialHours = rate * length;
    const Int16 sum = startHour + s.trialHours;
    s.endHour = sum % dial::hours;
    s.endMinute = startMinute;
    s.endPasses = floor16(sum.toFloat() / dial::hours);
    if (startHour == 0) startHour = dial::hours;
    s.clockHour = startHour;
    s.clockMinute = startMinute;
    s.trialMinutes = (s.trialHours * dial::minutesInHour).toFloat();
    labelTimeAxis(startHour, startMinute);
    s.trialStartTick = host().milliseconds();
}

std::string tickClock() {
    TrialState& s = trialState;
    ++s.clockMinute;
    ++s.elapsedMinutes;
    if (s.clockMinute == dial::minutesInHour) {
        ++s.clockHour;
        s.clockMinute = 0;
        ++s.elapsedHours;
    }
    if (s.clockHour > dial::hours) s.clockHour = 1;
    if (s.clockMinute == s.endMinute && s.clockHour == s.endHour) {
        if (s.endPasses < 1) {
            reachTimeLimit();
        } else {
            --s.endPasses;
        }
    }
    // After the time limit this reads the clock as the end of the trial left it, one minute later.
    return clockText(s.clockHour, s.clockMinute);
}

}  // namespace modClock
