// The course of a trial: the clock on its dial, health and its trace.
#include <fmt/format.h>

#include "forms/frmOptions.h"
#include "forms/frmTavix.h"
#include "tests/stage.h"
#include "trial/course/modClock.h"
#include "trial/course/modHealth.h"
#include "trial/course/runHooks.h"
#include "trial/run/run.h"

namespace {

/// Anna and a clock, and an end of the trial that only counts.
class Course : public Logic {
protected:
    FrmTavix& f = frmTavix;
    Patient& anna;
    int ends = 0;

    Course() : anna((setScenario({100}), trialState.patients[0])) {
        runHooks().endTrial.action = [this] { ++ends; };
        modHealth::initHealthMonitor();
    }
    /// Puts the clock there; the hour as it is shown.
    static int setClock(int hour, int minute, int rate, int length) {
        Int16 shown = hour;
        modClock::initClock(shown, minute, rate, length);
        return shown.toInt();
    }
    /// Hours until the time limit, or -1 if it does not come within 60.
    int hours(int hour, int minute, int rate, int length) {
        setClock(hour, minute, rate, length);
        anna.status = "";
        for (int ticks = 1; ticks <= 60 * 60; ++ticks) {
            modClock::tickClock();
            if (anna.status == "Time End") return ticks % 60 == 0 ? ticks / 60 : 99;
        }
        return -1;
    }
};

TEST_F(Course, TheEndIsMetOnTheDial) {
    EXPECT_EQ(hours(1, 0, 4, 4), 16);   // 5:00 after four hours is let go by
    EXPECT_EQ(hours(0, 30, 1, 4), 4);   // a start at 0 reads 12:30
    EXPECT_EQ(hours(12, 0, 1, 4), 16);  // the sum counts the 12
    EXPECT_EQ(hours(8, 0, 1, 4), -1);   // the end hour 0 never shows
    EXPECT_EQ(hours(2, 0, 12, 2), 36);  // two passes let go by, and on the dial at once
    for (Control* timer : {&f.tmrClock, &f.tmrHealth}) setEnabled(*timer, true);
    EXPECT_EQ(hours(1, 0, 1, 1), 1);
    EXPECT_FALSE(f.tmrClock.enabled || f.tmrHealth.enabled);
    EXPECT_EQ(f.lblClock.caption, "02:00");
}

TEST_F(Course, APlanOfHours) {
    EXPECT_EQ(setClock(0, 30, 4, 6), 12);
    EXPECT_EQ(s.endHour, 0) << "computed from the 0";
    EXPECT_EQ(s.endPasses, 2);
    // Three hours on from 12:30, seven times.
    EXPECT_EQ(f.lblX[0].caption + f.lblX[3].caption + f.lblX[6].caption, "03:3012:3009:30");
    setClock(1, 0, 20, 27);
    EXPECT_EQ(s.trialMinutes, 32400.0);
    EXPECT_FAULT(setClock(1, 0, 20, 28), Overflow);
    setClock(12, 59, 1, 4);
    s.elapsedMinutes = 32767;
    EXPECT_EQ(modClock::tickClock(), "01:00");
    EXPECT_EQ(s.elapsedHours, 1);
    EXPECT_EQ(s.elapsedMinutes, 32768);
}

TEST_F(Course, AStartTakesNegativeTimesAndRoundsItsIntervals) {
    const auto started = [this](const char* hour, const char* minute, const char* score) {
        setText(frmOptions.txtTime[0], hour);
        setText(frmOptions.txtTime[1], minute);
        setText(frmOptions.txtInitScore, score);
        setEnabled(f.tmrClock, false);
        modClock::startOptions();
        return f.lblClock.caption + " " + f.lblScore.caption;
    };
    EXPECT_EQ(started("-2", "-5", "-0.5"), "0-2:0-5 -1");
    EXPECT_EQ(started("0.5", "58.5", "0"), "12:58 0") << "halves to even, and no hour 0 on the dial";
    std::string intervals;
    for (const int rate : {1, 3, 4, 16, 20}) {
        setValue(frmOptions.hsbRate, rate);
        started("12", "59", "x");
        intervals += fmt::format(" {}/{}", f.tmrClock.interval.raw, f.tmrHealth.interval.raw);
    }
    EXPECT_EQ(intervals, " 1000/250 333/83 250/62 62/16 50/12") << "halves to even";
    EXPECT_FAULT(started("-32769", "0", "0"), Overflow);
    EXPECT_FAULT(started("7", "0", "2147483648"), Overflow);
    EXPECT_EQ(s.clockHour, 7) << "the clock was set before the score";
    EXPECT_FALSE(f.tmrClock.enabled);
}

TEST_F(Course, HealthMovesByOneOfTenStepsAndEndsAtEitherLimit) {
    const auto ticked = [this](int health, double drawn) {
        s.health = health;
        s.patientSaved = false;
        anna.status = "";
        draw({drawn});
        f.tmrHealth.on.timer();
        EXPECT_EQ(s.patientSaved, anna.status == "Saved");
        return f.lblHealth.caption + anna.status;
    };
    for (int tenth = 0; tenth < 10; ++tenth) {
        for (const double within : {0.0, 0.0999}) {
            ticked(500, tenth / 10.0 + within);
            EXPECT_EQ(s.health.raw, 500 + tenth - 5) << tenth << " " << within;
        }
    }
    EXPECT_EQ(ticked(733, 0.6), "73.4 ");
    EXPECT_EQ(ticked(750, 0.5), "75.0 ");
    EXPECT_EQ(ticked(0, 0.9), "0.4 ");
    EXPECT_EQ(ticked(5, 0.0), "0.0 Dead");
    EXPECT_EQ(ticked(-50, 0.9), "0.0 Dead");
    EXPECT_EQ(ticked(999, 0.6), "100.0 Saved");
    EXPECT_EQ(ticked(998, 0.9), "100.0 Saved");
    EXPECT_EQ(ends, 4);
    // Signals move the trend and never the health, and those of a former patient do not reach this one.
    f.cmdHeal.on.click();
    f.cmdHurt.on.click();
    modHealth::resetHealth();
    EXPECT_FALSE(s.healPending || s.hurtPending);
    f.cmdHurt.on.click();
    for (int i = 0; i < 2; ++i) EXPECT_EQ(ticked(750, 0.5), "75.0 ");
    EXPECT_EQ(s.healthTrend, -6);
    anna.health = 3277;
    EXPECT_FAULT(modHealth::resetHealth(), Overflow);
}

TEST_F(Course, TheTraceFollowsTheSimulatedTime) {
    const auto& segments = f.linHealth;
    EXPECT_FAULT(modHealth::plotHealth(), DivisionByZero);
    setClock(1, 58, 4, 4);
    EXPECT_EQ(f.linTimeScale[6].place.left, 9122 + 6 * 842);
    modHealth::resetHealth();
    for (int i = 0; i < 1347; ++i) modHealth::plotHealth();
    s.elapsedMinutes = 480;
    s.health = 1000;
    modHealth::plotHealth();
    EXPECT_EQ(s.monitorIndex, 1346) << "the last segment is used again";
    EXPECT_EQ(segments[1346].x1, 8280);
    EXPECT_EQ(segments[1346].x2, 8280 + 3368) << "half of 6735, halves to even";
    EXPECT_EQ(segments[1346].y1, 600 + 2895 * 0.25F);
    EXPECT_EQ(segments[1346].y2, 600);
    EXPECT_TRUE(segments[1].visible && !segments[0].visible);
    // A trial that outruns its plan is not clipped; the 16 bits of x end at about 4.9 times the length.
    s.elapsedMinutes = 960 * 4;
    modHealth::plotHealth();
    EXPECT_EQ(segments[1346].x2, 8280 + 4 * 6735);
    s.elapsedMinutes = 960 * 5;
    EXPECT_FAULT(modHealth::plotHealth(), Overflow);

    // The next patient begins with all segments on the start; harm is a stroke, a full hour two steps.
    anna.health = 15;
    modHealth::resetHealth();
    for (const PlotSegment& segment : segments) {
        EXPECT_EQ(segment.x1 + segment.x2, 2 * 8280);
        EXPECT_FLOAT_EQ(segment.y1 + segment.y2, 2 * (600 + 2895 * 0.85F));
        EXPECT_FALSE(segment.visible);
    }
    s.elapsedMinutes = 0;
    modHealth::hurtPatient();
    EXPECT_EQ(s.health, -50) << "judged at the next step only";
    EXPECT_FLOAT_EQ(segments[1].y2 - segments[1].y1, 2895 * 0.2F);
    f.tmrClock.on.timer();
    EXPECT_EQ(s.monitorIndex, 2);
    f.tmrClock.on.timer();
    EXPECT_EQ(f.lblClock.caption, "02:00");
    EXPECT_EQ(s.monitorIndex, 4);
}

TEST_F(Course, LengthsOfATrialAsTexts) {
    s.treatments.add({"Ambrol", {{80}}, {{80}}});
    const auto lengths = [this](std::uint32_t end, int minutes, int hours) {
        now = end;
        s.trialStartTick = 77;
        s.elapsedMinutes = minutes;
        s.elapsedHours = hours;
        run::endTrial(false);
        return s.actualTimeText + " " + s.simTimeText;
    };
    EXPECT_EQ(lengths(2577, 6004, 100), "0:02 100:05") << "halves to even, and a minute more by the end";
    EXPECT_EQ(lengths(3659577, 0, 0), "61:00 00:01");
    EXPECT_FAULT(lengths(76, 0, 0), Overflow);
}

}  // namespace
