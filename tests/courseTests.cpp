// The course of a trial: the clock on its dial, health and its trace, and the causes that end a patient.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "forms/frmOptions.h"
#include "forms/frmTavix.h"
#include "forms/windows.h"
#include "state/TrialState.h"
#include "tests/faults.h"
#include "tests/stage.h"
#include "trial/course/endings.h"
#include "trial/course/modClock.h"
#include "trial/course/modHealth.h"
#include "trial/course/runHooks.h"
#include "trial/run/run.h"

namespace {

/// Anna and a clock, and an end of the trial that only counts.
class Course : public testing::Test {
protected:
    Stage stage;
    int ends = 0;
    TrialState& s = trialState;
    Patient& anna() { return s.patients[0]; }

    void SetUp() override {
        setScenario({100});
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
    int hoursToLimit() {
        anna().status = "";
        for (int ticks = 1; ticks <= 60 * 60; ++ticks) {
            modClock::tickClock();
            if (anna().status == "Time End") return ticks % 60 == 0 ? ticks / 60 : 99;
        }
        return -1;
    }
    static PlotSegment& segment(int index) { return frmTavix.linHealth[index]; }
};

TEST_F(Course, TheEndIsMetOnTheDial) {
    struct Case {
        int hour, minute, rate, length, hours;
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
        setClock(c.hour, c.minute, c.rate, c.length);
        EXPECT_EQ(hoursToLimit(), c.hours) << c.hour << ":" << c.minute << " " << c.rate * c.length;
    }
    std::string boxAtEnd;
    runHooks().endTrial.action = [&] { boxAtEnd = stage.said(); };
    for (Control* timer : {&frmTavix.tmrClock, &frmTavix.tmrHealth}) setEnabled(*timer, true);
    stage.said();
    setClock(1, 0, 1, 1);
    EXPECT_EQ(hoursToLimit(), 1);
    EXPECT_EQ(boxAtEnd, "Results|Time End");
    EXPECT_FALSE(frmTavix.tmrClock.enabled || frmTavix.tmrHealth.enabled);
    EXPECT_EQ(frmTavix.lblClock.caption, "02:00");
}

TEST_F(Course, APlanOfHours) {
    EXPECT_EQ(setClock(0, 30, 4, 6), 12);
    EXPECT_EQ(s.endHour.raw, 0) << "computed from the 0";
    EXPECT_EQ(s.endPasses.raw, 2);
    // Three hours on from 12:30, seven times.
    EXPECT_EQ(frmTavix.lblX[0].caption + frmTavix.lblX[3].caption + frmTavix.lblX[6].caption,
              "03:3012:3009:30");
    EXPECT_EQ(setClock(1, 0, 20, 27), 1);
    EXPECT_EQ(s.trialMinutes, 32400.0);
    EXPECT_FAULT(setClock(1, 0, 20, 28), FaultNumber::Overflow);

    setClock(12, 59, 1, 4);
    s.elapsedMinutes = 32767;
    EXPECT_EQ(modClock::tickClock(), "01:00");
    EXPECT_EQ(s.elapsedHours.raw, 1);
    EXPECT_EQ(s.elapsedMinutes.raw, 32768);
}

TEST_F(Course, AStartRefusesOnlyTimesTooLate) {
    struct Case {
        const char *hour, *minute, *score, *clock;
        int scored;
    };
    const auto start = [](const Case& c) {
        setText(frmOptions.txtTime[0], c.hour);
        setText(frmOptions.txtTime[1], c.minute);
        setText(frmOptions.txtInitScore, c.score);
        setEnabled(frmTavix.tmrClock, false);
        windows::show(frmOptions.form);
        modClock::startOptions();
    };
    for (const Case& c : {Case{"13", "00", "1", nullptr, 0}, Case{"12", "60", "1", nullptr, 0},
                          Case{"012", "59", "1999.9 points", "12:59", 1999},
                          Case{"0", "5", "-0.5", "12:05", -1}, Case{"-2", "-5", "x", "0-2:0-5", 0}}) {
        start(c);
        const bool starts = c.clock != nullptr;
        EXPECT_EQ(stage.said(), starts ? "" : "|Invalid Start Time");
        EXPECT_EQ(frmTavix.tmrClock.enabled, starts) << c.hour;
        EXPECT_EQ(frmOptions.form.visible, !starts);
        if (!starts) continue;
        EXPECT_EQ(frmTavix.lblClock.caption, c.clock);
        EXPECT_EQ(frmTavix.lblScore.caption, std::to_string(c.scored));
    }
    EXPECT_EQ(frmTavix.lblX[0].caption, "0-1:0-5") << "each eighth is two hours on";
    EXPECT_FAULT(start({"-32769", "0", "0", "", 0}), FaultNumber::Overflow);
    EXPECT_FAULT(start({"7", "0", "2147483648", "", 0}), FaultNumber::Overflow);
    EXPECT_EQ(s.clockHour.raw, 7) << "the clock was set before the score";
    EXPECT_FALSE(frmTavix.tmrClock.enabled);
}

TEST_F(Course, IntervalsRoundHalvesToEven) {
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

TEST_F(Course, HealthMovesByOneOfTenStepsAndEndsAtEitherLimit) {
    const auto tick = [this](int health, double drawn) {
        s.health = health;
        s.patientSaved = false;
        anna().status = "";
        draw({drawn});
        frmTavix.tmrHealth.on.timer();
    };
    for (int tenth = 0; tenth < 10; ++tenth) {
        for (const double within : {0.0, 0.0999}) {
            tick(500, tenth / 10.0 + within);
            EXPECT_EQ(s.health.raw, 500 + tenth - 5) << tenth << " " << within;
        }
    }
    struct Case {
        int health;
        double draw;
        const char *shown, *status;
    };
    for (const Case& c : {Case{733, 0.6, "73.4 ", ""}, Case{750, 0.5, "75.0 ", ""}, Case{0, 0.9, "0.4 ", ""},
                          Case{1, 0.0, "0.0 ", "Dead"}, Case{5, 0.0, "0.0 ", "Dead"},
                          Case{-50, 0.9, "0.0 ", "Dead"}, Case{998, 0.9, "100.0 ", "Saved"},
                          Case{999, 0.6, "100.0 ", "Saved"}, Case{998, 0.6, "99.9 ", ""}}) {
        tick(c.health, c.draw);
        EXPECT_EQ(frmTavix.lblHealth.caption, c.shown);
        EXPECT_EQ(anna().status, c.status) << c.health;
        EXPECT_EQ(s.patientSaved, anna().status == "Saved");
    }
    EXPECT_EQ(ends, 5);
}

TEST_F(Course, SignalsMoveTheTrendAndNeverTheHealth) {
    modClock::startOptions();
    modHealth::resetHealth();
    const auto trendAfterTick = [&] {
        draw({0.5});
        frmTavix.tmrHealth.on.timer();
        EXPECT_FALSE(s.healPending || s.hurtPending);
        EXPECT_EQ(s.health.raw, 750);
        return s.healthTrend.toInt();
    };
    frmTavix.cmdHeal.on.click();
    EXPECT_EQ(trendAfterTick(), -4);
    frmTavix.cmdHeal.on.click();
    frmTavix.cmdHurt.on.click();
    EXPECT_EQ(trendAfterTick(), -4);
    frmTavix.cmdHurt.on.click();
    EXPECT_EQ(trendAfterTick(), -5);
    frmTavix.cmdHeal.on.click();
    frmTavix.cmdHurt.on.click();
    modHealth::resetHealth();
    EXPECT_FALSE(s.healPending || s.hurtPending) << "a signal does not reach the next patient";
    anna().health = 3277;
    EXPECT_FAULT(modHealth::resetHealth(), FaultNumber::Overflow);
}

TEST_F(Course, TheTraceFollowsTheSimulatedTime) {
    setClock(1, 0, 4, 4);
    EXPECT_EQ(s.monitorSegments.raw, 1347);
    EXPECT_EQ(frmTavix.linTimeScale[6].box.left, 9122 + 6 * 842);
    modHealth::resetHealth();
    EXPECT_EQ(frmTavix.tmrHealthMonitor.interval.raw, 178);
    EXPECT_TRUE(frmTavix.tmrHealth.enabled);
    for (int i = 0; i < 1347; ++i) modHealth::plotHealth();
    const float nearEnd = segment(1346).x1;
    s.elapsedMinutes = 480;
    s.health = 1000;
    modHealth::plotHealth();
    EXPECT_EQ(s.monitorIndex.raw, 1346) << "the last segment is used again";
    EXPECT_EQ(segment(1346).x1, nearEnd);
    EXPECT_EQ(segment(1346).x2, 8280 + 3368) << "half of 6735, halves to even";
    EXPECT_FLOAT_EQ(segment(1346).y2, 600);
    EXPECT_FLOAT_EQ(segment(1346).y1, 600 + 2895 * 0.25F);
    EXPECT_FALSE(segment(0).visible);
    EXPECT_TRUE(segment(1).visible);
    // A trial that outruns its plan: the 16 bits of the trace's x end at about 4.9 times the length.
    s.elapsedMinutes = 960 * 4;
    modHealth::plotHealth();
    EXPECT_EQ(segment(1346).x2, 8280 + 4 * 6735) << "nothing clips it at the right";
    s.elapsedMinutes = 960 * 5;
    EXPECT_FAULT(modHealth::plotHealth(), FaultNumber::Overflow);

    anna().health = 110;
    modHealth::resetHealth();
    for (const PlotSegment& each : frmTavix.linHealth) {
        EXPECT_EQ(each.x1 + each.x2, 2 * 8280);
        EXPECT_FLOAT_EQ(each.y1 + each.y2, 2 * (600 - 2895 * 0.1F)) << "above the panel until a step is made";
        EXPECT_FALSE(each.visible);
    }
    EXPECT_EQ(s.monitorIndex.raw, 0);
    s.trialMinutes = 0;
    EXPECT_FAULT(modHealth::plotHealth(), FaultNumber::DivisionByZero);
}

TEST_F(Course, HarmIsAStrokeAndAFullHourTwoSteps) {
    setClock(1, 58, 4, 4);
    s.health = 150;
    modHealth::hurtPatient();
    EXPECT_EQ(s.health.raw, -50) << "judged at the next step only";
    EXPECT_FLOAT_EQ(segment(1).y1, 600 + 2895 * 0.85F);
    EXPECT_FLOAT_EQ(segment(1).y2, 600 + 2895 * 1.05F);
    frmTavix.tmrClock.on.timer();
    EXPECT_EQ(s.monitorIndex.raw, 2);
    frmTavix.tmrClock.on.timer();
    EXPECT_EQ(frmTavix.lblClock.caption, "02:00");
    EXPECT_EQ(s.monitorIndex.raw, 4);
    EXPECT_EQ(stage.said(), "");
}

TEST_F(Course, EveryCauseHasItsWordBoxAndOrder) {
    struct Case {
        EndCause cause;
        const char* status;
        bool saved;
        const char* box;
    };
    for (const Case& c :
         {Case{EndCause::Death, "Dead", false, "Results|Patient Anna has died"},
          Case{EndCause::Recovery, "Saved", true, "Results|Patient Anna has recovered"},
          Case{EndCause::TimeLimit, "Time End", false, "Results|Time End"},
          Case{EndCause::HelpfulTreatment, "Correct Treatment", true, "Results|Helpful Treatment Prescribed"},
          Case{EndCause::UselessTreatment, "Wrong Treatment", false,
               "Results|Uneffective Treatment Prescribed"},
          Case{EndCause::RightDiagnosis, "Diagnosed Right", true, "Results|Diagnosis was correct"},
          Case{EndCause::WrongDiagnosis, "Diagnosed Wrong", false, "Results|Diagnosis was incorrect"},
          Case{EndCause::AbortedByOptions, "Aborted by Options", false, ""}}) {
        for (const bool savedBefore : {false, true}) {
            s.patientSaved = savedBefore;
            runHooks().endTrial.action = [&] {
                EXPECT_EQ(anna().status, c.status);
                EXPECT_EQ(s.patientSaved, c.saved || savedBefore);
                EXPECT_EQ(stage.boxes.size(), c.cause == EndCause::TimeLimit ? 1U : 0U) << c.status;
            };
            endings::endPatient(c.cause);
            EXPECT_EQ(stage.said(), c.box);
        }
    }
}

TEST_F(Course, LengthsOfATrialAsTexts) {
    Treatment treatment{"Ambrol", {}, {}};
    treatment.heal.items = treatment.hurt.items = {80};
    s.treatments.add(treatment);
    struct Case {
        std::uint32_t milliseconds;
        int minutes, hours;
        const char* lengths;
    };
    for (const Case& c : {Case{500, 0, 0, "0:00 00:01"}, Case{1500, 599, 9, "0:02 09:00"},
                          Case{2500, 600, 10, "0:02 10:01"}, Case{59499, 6004, 100, "0:59 100:05"},
                          Case{59500, 0, 0, "1:00 00:01"}, Case{3661000, 0, 0, "61:01 00:01"}}) {
        stage.now = 77 + c.milliseconds;
        s.trialStartTick = 77;
        s.elapsedMinutes = c.minutes;
        s.elapsedHours = c.hours;
        run::endTrial(false);
        EXPECT_EQ(s.actualTimeText + " " + s.simTimeText, c.lengths);
    }
    s.trialStartTick = stage.now + 1;
    EXPECT_FAULT(run::endTrial(false), FaultNumber::Overflow);
}

}  // namespace
