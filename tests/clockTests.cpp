#include <gtest/gtest.h>

#include <vector>

#include "forms/frmOptions.h"
#include "forms/frmTavix.h"
#include "platform/randomSource.h"
#include "state/TrialState.h"
#include "tests/faults.h"
#include "tests/stage.h"
#include "trial/course/endings.h"
#include "trial/course/modClock.h"
#include "trial/course/modHealth.h"

namespace {

/// A patient and a clock, and an end of the trial that only counts.
class Clock : public testing::Test {
protected:
    Stage stage;
    int ends = 0;

    void SetUp() override {
        trialState.patients.add({});
        endings::onEndTrial([this](bool) { ++ends; });
    }

    /// Ticks until the time limit; simulated minutes, or -1 if it does not come within 60 hours.
    static int minutesToLimit(int hour, int minute, int rate, int length) {
        Int16 startHour = hour;
        modClock::initClock(startHour, minute, rate, length);
        trialState.patients[0].status = "";
        for (int ticks = 1; ticks <= 60 * 60; ++ticks) {
            modClock::tickClock();
            if (trialState.patients[0].status == "Time End") return ticks;
        }
        return -1;
    }
};

TEST_F(Clock, TheEndIsMetOnTheDial) {
    struct Case {
        int hour, minute, rate, length;
        int hours;  // -1: never
    };
    for (const Case& c : {Case{1, 0, 4, 4, 16},      // 5:00 after four hours is let go by
                          Case{0, 30, 1, 4, 4},      // a start at 0 reads 12:30
                          Case{12, 0, 1, 4, 16},     // the sum counts the 12
                          Case{8, 0, 1, 4, -1},      // the end hour 0 never shows
                          Case{10, 0, 1, 4, 16},     // past twelve: twelve hours more than planned
                          Case{1, 0, 1, 3, 3},       // as planned
                          Case{3, 15, 3, 3, -1},     // 12 again
                          Case{11, 59, 1, 2, 14},    // 13 passes one twelve
                          Case{2, 0, 12, 2, 36}}) {  // 26: two passes let go by, and on the dial at once
        const int minutes = minutesToLimit(c.hour, c.minute, c.rate, c.length);
        EXPECT_EQ(minutes, c.hours < 0 ? -1 : c.hours * 60)
            << c.hour << ":" << c.minute << " " << c.rate * c.length;
    }
}

TEST_F(Clock, TheTimeLimitShowsItsBoxBeforeTheEnd) {
    stage.boxes.clear();
    int boxesAtEnd = -1;
    endings::onEndTrial([&](bool) { boxesAtEnd = static_cast<int>(stage.boxes.size()); });
    setEnabled(frmTavix.tmrClock, true);
    EXPECT_EQ(minutesToLimit(1, 0, 1, 1), 60);
    EXPECT_EQ(boxesAtEnd, 1);
    EXPECT_EQ(stage.boxes.at(0).text, "Time End");
    EXPECT_EQ(stage.boxes.at(0).title, "Results");
    EXPECT_FALSE(frmTavix.tmrClock.enabled);
    EXPECT_EQ(frmTavix.lblClock.caption, "02:00");
}

TEST_F(Clock, TwelveIsFollowedByOne) {
    Int16 hour = 12;
    modClock::initClock(hour, 59, 1, 4);
    EXPECT_EQ(modClock::tickClock(), "01:00");
    EXPECT_EQ(trialState.elapsedHours.raw, 1);
    EXPECT_EQ(trialState.elapsedMinutes.raw, 1);
}

TEST_F(Clock, PlansBeyondSixteenBitsFault) {
    Int16 hour = 1;
    EXPECT_FAULT(modClock::initClock(hour, 0, 20, 28), FaultNumber::Overflow);
    modClock::initClock(hour, 0, 20, 27);
    EXPECT_EQ(trialState.trialMinutes, 32400.0);
}

TEST_F(Clock, AStartRefusesOnlyTimesTooLate) {
    const auto start = [](const char* hour, const char* minute) {
        setText(frmOptions.txtTime[0], hour);
        setText(frmOptions.txtTime[1], minute);
        setEnabled(frmTavix.tmrClock, false);
        modClock::startOptions();
        return frmTavix.tmrClock.enabled;
    };
    EXPECT_FALSE(start("13", "00"));
    EXPECT_FALSE(start("12", "60"));
    EXPECT_EQ(stage.boxes.at(1).text, "Invalid Start Time");
    EXPECT_EQ(stage.boxes.at(1).title, "");
    EXPECT_TRUE(start("012", "59"));
    EXPECT_EQ(frmTavix.lblClock.caption, "12:59");
    EXPECT_TRUE(start("0", "5"));
    EXPECT_EQ(frmTavix.lblClock.caption, "12:05");
    EXPECT_TRUE(start("-3", "x"));
    setText(frmOptions.txtInitScore, "1999.9 points");
    EXPECT_TRUE(start("1", "0"));
    EXPECT_EQ(trialState.score.raw, 1999);
}

TEST_F(Clock, IntervalsRoundHalvesToEven) {
    struct Case {
        int rate, clock, health;
    };
    for (const Case& c :
         {Case{1, 1000, 250}, Case{3, 333, 83}, Case{4, 250, 62}, Case{16, 62, 16}, Case{20, 50, 12}}) {
        setValue(frmOptions.hsbRate, c.rate);
        modClock::startOptions();
        EXPECT_EQ(frmTavix.tmrClock.interval.raw, c.clock);
        EXPECT_EQ(frmTavix.tmrHealth.interval.raw, c.health);
    }
}

TEST_F(Clock, ThePlotReusesItsLastSegment) {
    Int16 hour = 1;
    modClock::initClock(hour, 0, 4, 4);
    trialState.patients[0].health = 75;
    modHealth::initHealthMonitor();
    EXPECT_EQ(trialState.monitorSegments.raw, 1347);
    EXPECT_EQ(frmTavix.linTimeScale[6].box.left, 9122 + 6 * 842);
    modHealth::resetHealth();
    EXPECT_EQ(frmTavix.tmrHealthMonitor.interval.raw, 178);
    for (int i = 0; i < 1347; ++i) modHealth::plotHealth();
    EXPECT_EQ(trialState.monitorIndex.raw, 1346);
    const float nearEnd = frmTavix.linHealth[1346].x1;
    trialState.elapsedMinutes = 480;
    modHealth::plotHealth();
    EXPECT_EQ(trialState.monitorIndex.raw, 1346);
    EXPECT_EQ(frmTavix.linHealth[1346].x1, nearEnd);
    EXPECT_EQ(frmTavix.linHealth[1346].x2, 8280 + 3368);  // half of 6735, halves to even
    EXPECT_FLOAT_EQ(frmTavix.linHealth[1346].y2, 600 + 2895 * 0.25F);
    EXPECT_FALSE(frmTavix.linHealth[0].visible);
    // A trial that outruns its plan: the 16 bits of the trace's x end at about 4.9 times the length.
    trialState.elapsedMinutes = 960 * 5;
    EXPECT_FAULT(modHealth::plotHealth(), FaultNumber::Overflow);
    trialState.trialMinutes = 0;
    EXPECT_FAULT(modHealth::plotHealth(), FaultNumber::DivisionByZero);
}

TEST_F(Clock, HealthEndsTheTrialAtEitherLimit) {
    trialState.patients[0].name = "Anna";
    const auto tick = [](int health, double draw) {
        trialState.health = health;
        trialState.patientSaved = false;
        randomSource::queueDraws(std::vector<double>{draw});
        modHealth::updateHealth();
        modHealth::showHealth();
    };
    tick(1, 0.0);
    EXPECT_EQ(trialState.health.raw, 0);
    EXPECT_EQ(trialState.patients[0].status, "Dead");
    EXPECT_EQ(frmTavix.lblHealth.caption, "0.0 ");
    EXPECT_EQ(stage.boxes.back().text, "Patient Anna has died");
    tick(998, 0.9);
    EXPECT_EQ(trialState.health.raw, 1000);
    EXPECT_TRUE(trialState.patientSaved);
    EXPECT_EQ(stage.boxes.back().text, "Patient Anna has recovered");
    EXPECT_EQ(frmTavix.lblHealth.caption, "100.0 ");
    tick(-50, 0.9);
    EXPECT_EQ(trialState.patients[0].status, "Dead");
    // A patient who begins at 0 may survive the first step.
    ends = 0;
    tick(0, 0.9);
    EXPECT_EQ(ends, 0);
    EXPECT_EQ(frmTavix.lblHealth.caption, "0.4 ");
    // A heal signal moves the trend and never the health.
    trialState.healPending = true;
    const Int16 trend = trialState.healthTrend;
    tick(750, 0.5);
    EXPECT_EQ(trialState.health.raw, 750);
    EXPECT_EQ(trialState.healthTrend.raw, trend.raw + 1);
    EXPECT_FALSE(trialState.healPending);
    trialState.patients[0].health = 3277;
    EXPECT_FAULT(modHealth::resetHealth(), FaultNumber::Overflow);
}

}  // namespace
