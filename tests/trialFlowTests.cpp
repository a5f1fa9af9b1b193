#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "diagnosis/modHypotheses.h"
#include "forms/frmDiagnosis.h"
#include "forms/frmOptions.h"
#include "forms/frmTavix.h"
#include "forms/person.h"
#include "forms/windows.h"
#include "platform/randomSource.h"
#include "state/TrialState.h"
#include "tests/faults.h"
#include "tests/stage.h"
#include "trial/course/endings.h"
#include "trial/course/modClock.h"
#include "trial/course/modHealth.h"
#include "trial/course/runHooks.h"
#include "trial/run/run.h"

namespace {

/// A running trial without a store: one patient with the only disease, three tests, 1:00 to 2:00.
class TrialFlow : public testing::Test {
protected:
    Stage stage;

    void SetUp() override {
        TrialState& s = trialState;
        s.diseaseTerms.items = {{"Aavo"}};
        s.diseaseCount = 1;
        s.testTypeCount = 3;
        s.tests.renew(3);
        s.patients.add({});
        s.patients[0].name = "Anna";
        s.patients[0].health = 75;
        Treatment treatment{"Ambrol", {}, {}};
        treatment.heal.items = treatment.hurt.items = {80};
        s.treatments.add(treatment);
        setValue(frmOptions.hsbRate, 1);
        setValue(frmOptions.hsbLength, 1);
        setText(frmOptions.txtTestCost, "0");
        windows::show(frmTavix.form);
        runHook(runHooks().showTrialFrames);
        setVisible(frmTavix.cmdNextPatient, false);
        endings::onEndTrial([](bool) { run::endTrial(false); });
        modHealth::initHealthMonitor();
        modClock::startOptions();
        modHealth::resetHealth();
        setEnabled(frmTavix.tmrHealthMonitor, true);
    }

    static void ticks(int count) {
        for (int i = 0; i < count; ++i) frmTavix.tmrClock.on.timer();
    }
};

TEST_F(TrialFlow, AnEndFreezesWhatWasInUse) {
    windows::showModal(frmDiagnosis.form);
    modHypotheses::ensureLoaded();
    ticks(3);
    run::endTrial(false);
    EXPECT_EQ(frmTavix.lblClock.caption, "01:04");
    EXPECT_EQ(trialState.elapsedMinutes.raw, 4);
    const FrmTavix& f = frmTavix;
    for (const Control* control :
         {&f.tmrClock, &f.tmrHealth, &f.tmrHealthMonitor, &f.cmdDiagnosis, &f.cmdEvidence, &f.cmdIssue,
          &f.cmdNoteSymptom, &f.cboTreatment, &f.cmdPrescribe, &f.cmdRemove, &f.cmdChange, &f.lstTreatments,
          &f.optTest.items[0], &f.optTest.items[2]}) {
        EXPECT_FALSE(control->enabled) << fullName(*control);
    }
    EXPECT_TRUE(f.optTest.items[3].enabled) << "a slot without a test";
    EXPECT_FALSE(frmDiagnosis.form.visible);
    for (const Control& frame : frmDiagnosis.fraHypothesis) EXPECT_FALSE(frame.enabled);
    for (const Control& button : frmDiagnosis.cmdAdd) EXPECT_FALSE(button.visible);
    EXPECT_EQ(frmOptions.txtInitScore.text, "2000");
    EXPECT_TRUE(windows::hasFocus(frmTavix.cmdNextPatient));
}

TEST_F(TrialFlow, ElapsedTimesAsTexts) {
    struct Case {
        std::uint32_t milliseconds;
        const char* actual;
    };
    for (const Case& c : {Case{500, "0:00"}, Case{1500, "0:02"}, Case{2500, "0:02"}, Case{59499, "0:59"},
                          Case{59500, "1:00"}, Case{3661000, "61:01"}}) {
        stage.now = c.milliseconds;
        run::endTrial(false);
        EXPECT_EQ(trialState.actualTimeText, c.actual) << c.milliseconds;
    }
    trialState.elapsedMinutes = 599;
    trialState.elapsedHours = 9;
    trialState.clockHour = 5;
    trialState.clockMinute = 59;
    run::endTrial(false);
    EXPECT_EQ(trialState.simTimeText, "10:00");
    trialState.elapsedMinutes = 6004;
    trialState.elapsedHours = 100;
    run::endTrial(false);
    EXPECT_EQ(trialState.simTimeText, "100:05");
    trialState.trialStartTick = stage.now + 1;
    EXPECT_FAULT(run::endTrial(false), FaultNumber::Overflow);
}

TEST_F(TrialFlow, AnEndThatFaultsHasStoppedTheTrial) {
    setText(frmOptions.txtTestCost, "40000");
    trialState.testCount = 1;
    const std::string actual = trialState.actualTimeText;
    EXPECT_FAULT(run::endTrial(false), FaultNumber::Overflow);
    EXPECT_FALSE(frmTavix.tmrClock.enabled);
    EXPECT_FALSE(frmTavix.cmdChange.enabled);
    EXPECT_FALSE(frmTavix.cmdNextPatient.visible);
    EXPECT_TRUE(frmDiagnosis.cmdAdd[0].visible) << "the dialog freezes after the evaluation";
    EXPECT_EQ(frmOptions.txtInitScore.text, "2000");
    EXPECT_EQ(trialState.score.raw, -38000);
    EXPECT_EQ(trialState.actualTimeText, actual);
}

TEST_F(TrialFlow, TheTimeLimitInsideAnotherEndKeepsItsWord) {
    ticks(59);
    trialState.health = 1;
    randomSource::queueDraws(std::vector<double>{0.0});
    frmTavix.tmrHealth.on.timer();
    ASSERT_EQ(stage.boxes.size(), 2U);
    EXPECT_EQ(stage.boxes[0].text, "Time End");
    EXPECT_EQ(stage.boxes[1].text, "Patient Anna has died");
    EXPECT_EQ(trialState.patients[0].status, "Time End");
    EXPECT_EQ(trialState.elapsedMinutes.raw, 61);
    EXPECT_EQ(frmTavix.lblClock.caption, "02:01");
    EXPECT_EQ(frmTavix.lblHealth.caption, "0.0 ");
}

TEST_F(TrialFlow, AFullHourIsPlottedTwiceAlsoPastThePlan) {
    ticks(59);
    EXPECT_EQ(trialState.monitorIndex.raw, 0);
    // The end moves the clock to 2:01, so that the hour is over when it would be plotted.
    ticks(1);
    EXPECT_EQ(trialState.patients[0].status, "Time End");
    EXPECT_EQ(trialState.monitorIndex.raw, 0);
    ticks(59);
    EXPECT_EQ(frmTavix.lblClock.caption, "03:00");
    EXPECT_EQ(trialState.monitorIndex.raw, 2);
    // Past the plan nothing clips the trace at the right: 120 minutes were counted, and one more by the end.
    EXPECT_EQ(frmTavix.linHealth[1].x2, 8280 + 13470);
}

TEST_F(TrialFlow, EveryCauseHasItsWordBoxAndOrder) {
    struct Case {
        EndCause cause;
        const char* status;
        bool saved;
        std::size_t boxesBefore;
        const char* box;
    };
    for (const Case& c :
         {Case{EndCause::Death, "Dead", false, 0, "Patient Anna has died"},
          Case{EndCause::Recovery, "Saved", true, 0, "Patient Anna has recovered"},
          Case{EndCause::TimeLimit, "Time End", false, 1, "Time End"},
          Case{EndCause::HelpfulTreatment, "Correct Treatment", true, 0, "Helpful Treatment Prescribed"},
          Case{EndCause::UselessTreatment, "Wrong Treatment", false, 0, "Uneffective Treatment Prescribed"},
          Case{EndCause::RightDiagnosis, "Diagnosed Right", true, 0, "Diagnosis was correct"},
          Case{EndCause::WrongDiagnosis, "Diagnosed Wrong", false, 0, "Diagnosis was incorrect"},
          Case{EndCause::AbortedByOptions, "Aborted by Options", false, 0, nullptr}}) {
        for (const bool savedBefore : {false, true}) {
            trialState.patientSaved = savedBefore;
            stage.boxes.clear();
            endings::onEndTrial([&](bool record) {
                EXPECT_TRUE(record);
                EXPECT_EQ(trialState.patients[0].status, c.status);
                EXPECT_EQ(trialState.patientSaved, c.saved || savedBefore);
                EXPECT_EQ(stage.boxes.size(), c.boxesBefore) << c.status;
            });
            endings::endPatient(c.cause);
            ASSERT_EQ(stage.boxes.size(), c.box == nullptr ? 0U : 1U) << c.status;
            if (c.box == nullptr) continue;
            EXPECT_EQ(stage.boxes[0].text, c.box);
            EXPECT_EQ(stage.boxes[0].title, "Results");
            EXPECT_EQ(stage.boxes[0].buttons, Buttons::Ok);
        }
    }
}

class Start : public TrialFlow {};

TEST_F(Start, AScoreThatDoesNotFitFindsTheClockSetAndNotStarted) {
    setEnabled(frmTavix.tmrClock, false);
    setText(frmOptions.txtTime[0], "7");
    setText(frmOptions.txtInitScore, "2147483648");
    windows::showModal(frmOptions.form);
    EXPECT_FAULT(modClock::startOptions(), FaultNumber::Overflow);
    EXPECT_EQ(trialState.clockHour.raw, 7);
    EXPECT_EQ(frmTavix.lblX[0].caption, "07:07");
    EXPECT_EQ(frmTavix.lblClock.caption, "01:00");
    EXPECT_EQ(trialState.score.raw, 2000);
    EXPECT_FALSE(frmTavix.tmrClock.enabled);
    EXPECT_TRUE(frmOptions.form.visible);
    setText(frmOptions.txtInitScore, "-0.5");
    modClock::startOptions();
    EXPECT_EQ(frmTavix.lblScore.caption, "-1");
    EXPECT_FALSE(frmOptions.form.visible);
}

TEST_F(Start, TimesBeforeTheDayAreTakenAsTheyAre) {
    setText(frmOptions.txtTime[0], "-2");
    setText(frmOptions.txtTime[1], "-5");
    modClock::startOptions();
    EXPECT_TRUE(stage.boxes.empty());
    EXPECT_EQ(trialState.endHour.raw, -1);
    EXPECT_EQ(trialState.endPasses.raw, -1);
    EXPECT_EQ(frmTavix.lblClock.caption, "0-2:0-5");
    EXPECT_EQ(modClock::tickClock(), "0-2:0-4");
    setText(frmOptions.txtTime[0], "-32769");
    EXPECT_FAULT(modClock::startOptions(), FaultNumber::Overflow);
}

TEST_F(Start, TheEndIsComputedFromTheHourZero) {
    Int16 hour = 0;
    modClock::initClock(hour, 30, 4, 6);
    EXPECT_EQ(hour.raw, 12);
    EXPECT_EQ(trialState.clockHour.raw, 12);
    EXPECT_EQ(trialState.endHour.raw, 0);
    EXPECT_EQ(trialState.endPasses.raw, 2);
    // Three hours on from 12:30, seven times.
    EXPECT_EQ(frmTavix.lblX[0].caption, "03:30");
    EXPECT_EQ(frmTavix.lblX[3].caption, "12:30");
    EXPECT_EQ(frmTavix.lblX[6].caption, "09:30");
}

class Health : public TrialFlow {};

TEST_F(Health, ADrawIsOneOfTenSteps) {
    for (int tenth = 0; tenth < 10; ++tenth) {
        for (const double within : {0.0, 0.0999}) {
            trialState.health = 500;
            randomSource::queueDraws(std::vector<double>{tenth / 10.0 + within});
            modHealth::updateHealth();
            EXPECT_EQ(trialState.health.raw, 500 + tenth - 5) << tenth << " " << within;
        }
    }
}

TEST_F(Health, BothSignalsAreTakenInOneStep) {
    frmTavix.cmdHeal.on.click();
    frmTavix.cmdHurt.on.click();
    randomSource::queueDraws(std::vector<double>{0.5});
    frmTavix.tmrHealth.on.timer();
    EXPECT_EQ(trialState.health.raw, 750);
    EXPECT_EQ(trialState.healthTrend.raw, -5);
    EXPECT_FALSE(trialState.healPending);
    EXPECT_FALSE(trialState.hurtPending);
    frmTavix.cmdHurt.on.click();
    modHealth::resetHealth();
    EXPECT_FALSE(trialState.hurtPending) << "a signal does not reach the next patient";
}

TEST_F(Health, HarmFallsBelowNothingUntilTheNextStep) {
    trialState.health = 150;
    modHealth::hurtPatient();
    EXPECT_EQ(trialState.health.raw, -50);
    EXPECT_EQ(trialState.monitorIndex.raw, 2);
    EXPECT_FLOAT_EQ(frmTavix.linHealth[1].y1, 600 + 2895 * 0.85F);
    EXPECT_FLOAT_EQ(frmTavix.linHealth[1].y2, 600 + 2895 * 1.05F);
    EXPECT_TRUE(stage.boxes.empty());
    randomSource::queueDraws(std::vector<double>{0.999});
    frmTavix.tmrHealth.on.timer();
    EXPECT_EQ(trialState.patients[0].status, "Dead");
    EXPECT_EQ(frmTavix.lblHealth.caption, "0.0 ");
    // Above the range too, until a step is made: 100.0 and more stand above the panel.
    trialState.patients[0].health = 110;
    modHealth::resetHealth();
    EXPECT_LT(frmTavix.linHealth[0].y1, 600);
    EXPECT_EQ(trialState.health.raw, 1100);
}

}  // namespace
