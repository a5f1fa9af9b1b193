#include "trial/course/modHealth.h"

#include <cmath>

#include "forms/frmTavix.h"
#include "platform/host.h"
#include "platform/numberText.h"
#include "platform/randomSource.h"
#include "state/TrialState.h"
#include "store/record/Options.h"
#include "trial/course/endings.h"

namespace modHealth {

namespace {

constexpr int fullHealth = 1000;  // tenths of a point
constexpr double segmentWidth = 5.0;
constexpr double axisParts = 8.0;
constexpr int startTrend = -5;
constexpr int harm = 200;
constexpr double millisecondsInMinute = 60000.0;

const Place& panel() { return frmTavix.lblHealthScreen.place; }

/// 0 at the top of the panel, 1 at the bottom.
double depthOf(Int16 health) { return (Int16(fullHealth) - health).toFloat() / fullHealth; }

float plotY(double depth) { return static_cast<float>(panel().height * depth + panel().top); }

}  // namespace

void initHealthMonitor() {
    const Int16 gap = round16(panel().width / axisParts);
    const Int16 first = round16(gap.toFloat() + panel().left);
    trialState.monitorX = round16(panel().left);
    trialState.monitorSegments = round16(panel().width / segmentWidth);
    for (int i = 0; i < Elements<7>::count(); ++i) {
        Control& tick = frmTavix.linTimeScale[i];
        setPlace(tick,
                 {static_cast<float>((gap * i + first).toFloat()), tick.place.top, 0, tick.place.height});
    }
    frmTavix.linHealth.renew(trialState.monitorSegments);
}

void resetHealth() {
    TrialState& s = trialState;
    s.monitorX = 0;
    s.health = s.patients[s.currentPatient].health * 10;
    s.healPending = false;
    s.hurtPending = false;
    s.healthTrend = startTrend;
    const float y = plotY(depthOf(s.health));
    for (PlotSegment& segment : frmTavix.linHealth) segment = {panel().left, y, panel().left, y, false};
    tellPlotWatchers(-1);
    s.monitorIndex = 0;
    const double passLength = Options.Time.value().toFloat() * millisecondsInMinute;
    setInterval(frmTavix.tmrHealthMonitor, round32(passLength / s.monitorSegments.toFloat()));
    setEnabled(frmTavix.tmrHealth, true);
}

void updateHealth() {
    TrialState& s = trialState;
    randomSource::reseed(host().milliseconds());
    const Int16 step = round16(std::floor(randomSource::draw() * 10.0) - 5.0);
    if (s.healPending) {
        ++s.healthTrend;
        s.healPending = false;
    }
    if (s.hurtPending) {
        --s.healthTrend;
        s.hurtPending = false;
    }
    s.health += step;
    if (s.health <= 0) {
        s.health = 0;
        endings::endPatient(EndCause::Death);
    } else if (s.health >= fullHealth) {
        s.health = fullHealth;
        endings::endPatient(EndCause::Recovery);
    }
}

void showHealth() { setCaption(frmTavix.lblHealth, numberText::oneDecimal(trialState.health) += ' '); }

void plotHealth() {
    TrialState& s = trialState;
    if (s.trialMinutes == 0) raiseFault(FaultNumber::DivisionByZero, "the clock was never set up");
    s.monitorX = round16(panel().width * s.elapsedMinutes.toFloat() / s.trialMinutes);
    s.monitorDepth = depthOf(s.health);
    PlotSegment& segment = frmTavix.linHealth[s.monitorIndex];
    segment.x2 = static_cast<float>(s.monitorX.toFloat() + panel().left);
    segment.y2 = plotY(s.monitorDepth);
    if (s.monitorIndex > 0) {
        const PlotSegment& previous = frmTavix.linHealth[s.monitorIndex - 1];
        segment.x1 = previous.x2;
        segment.y1 = previous.y2;
        segment.visible = true;
    }
    tellPlotWatchers(s.monitorIndex.toInt());
    // Once all segments are used the last one is reused: its far end follows the trace.
    ++s.monitorIndex;
    if (s.monitorIndex == s.monitorSegments) --s.monitorIndex;
}

void plotHealthHour() {
    if (trialState.clockMinute != 0) return;
    plotHealth();
    plotHealth();
}

void hurtPatient() {
    plotHealth();
    trialState.health -= harm;
    plotHealth();
}

}  // namespace modHealth
