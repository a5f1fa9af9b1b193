// Health, the pressure of the task: a number that wanders downward in real time, ends the trial at either
// end of its range, and is drawn as a trace on the health monitor.
#pragma once

namespace modHealth {

/// Once per run: makes the plot segments and places the ticks of the time axis.
void initHealthMonitor();

/// Per patient: health from the roster (whole points times 10, in 16 bits), the trace cleared, the timers'
/// intervals set and tmrHealth on.
void resetHealth();

/// One step of -5 to +4 tenths of a point, each with the same chance. At 0 or below the patient dies, at
/// 1000 or above the patient recovers. The trend that treatments move is never applied to health.
void updateHealth();

/// Puts health into lblHealth: one decimal and a trailing blank.
void showHealth();

/// One plot step. A planned length of 0 faults with Division by zero.
void plotHealth();

/// Two plot steps at each full hour of the clock.
void plotHealthHour();

/// A treatment did harm: 20.0 points at once, drawn as a vertical stroke. The limits are judged at the
/// next step of health and not here.
void hurtPatient();

}  // namespace modHealth
