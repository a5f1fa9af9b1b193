// Rows of a trial and of its events, and what an action of the subject computes for them.
#include "forms/frmTavix.h"
#include "forms/windows.h"
#include "knowledge/modTests.h"
#include "knowledge/modTreatments.h"
#include "state/TrialEvaluation.h"
#include "store/record/Options.h"
#include "store/record/modAppRecord.h"
#include "tests/stage.h"

namespace {

/// Subject kim in trial 3 with the second person of the roster.
class Record : public Logic {
protected:
    FrmTavix& f = frmTavix;

    Record() {
        setScenario({50, 50}, {{50, 50}, {50, 50}, {50, 50}});
        s.subjectName = "kim";
        s.settingName = "Plain";
        s.trialNumber = 3;
        s.diagnosisStateId = "kim03_00";
        s.score = 2000;
        s.currentPatient = 1;
        s.patients.add(s.patients[0]);
        s.patients[1].disease = "Brill";
        s.patients[1].guess = "None";
        s.patients[1].status = "Dead";
        windows::show(f.form);
    }
};

constexpr const char* endColumns =
    "SELECT EndTime,SimTime,ActualTime,EndHealth,Tests,Diagnoses,Treatments,Guess,GuessBelief,DiseaseBelief,"
    "pGuess,pDisease,LastTreatment,CorrectTreatment,pLastHeal,pCorrectHeal,pLastHarm,pCorrectHarm,Penalty,"
    "Score,Result,Saved FROM dataTrial ";

TEST_F(Record, AStartLeavesTheColumnsOfTheEndEmpty) {
    EXPECT_EQ(modAppRecord::recordTrialStart("001"), "kim03_");
    EXPECT_EQ(study.rows(
                  "SELECT Subject,Setting,Date,StartTime,Trial,PatientID,TestResults,Disease FROM dataTrial"),
              "kim|Plain|2026-01-05|09:30:00|3|2|001|Brill");
    EXPECT_EQ(study.rows(endColumns), "-|-|-|-|-|-|-|-|-|-|-|-|-|-|-|-|-|-|-|2000|-|-");
    EXPECT_EQ(study.rows("SELECT StateID FROM dataHypothesisState"), "");
    // With all diseases at once also the main screen's meters, one for each symptom of the model.
    Options.DiagnoseAllDiseases.set(true);
    for (int i = 0; i < 4; ++i) setValue(f.hsbBelief[i], 10 + i);
    modAppRecord::recordTrialStart("001");
    EXPECT_EQ(study.rows("SELECT StateID,H1,H2,H3,H4,H5,H6 FROM dataHypothesisState"),
              "kim03_00|10|11|12|-|-|-");
    s.symptomCount = 5;
    EXPECT_FAULT(modAppRecord::recordTrialStart("001"), SubscriptOutOfRange);
}

TEST_F(Record, AnEndCompletesTheRowOfItsOwnTrialAlone) {
    study.change("INSERT INTO dataTrial (Subject, Trial) VALUES ('kim', 2), ('kim2', 3), ('KIM', 3)");
    s.simTimeText = "00:07";
    s.actualTimeText = "12:03";
    s.health = 7;
    s.testCount = 2;
    s.diagnosisCount = 100;
    s.penalty = 21.875;
    s.score = -17;
    trialEvaluation.beliefText = "0";
    trialEvaluation.diseaseChanceText = "0.10";
    const std::vector<Control*> labels{&f.lblDiagnosisBelief, &f.lblYourTreatment, &f.lblBestTreatment,
                                       &f.lblYourHeal,        &f.lblActualHeal,    &f.lblYourHurt,
                                       &f.lblActualHurt,      &f.lblDiseaseBelief, &f.lblDiagChance,
                                       &f.lblDiseaseChance};
    for (std::size_t i = 0; i < labels.size(); ++i)
        setCaption(*labels[i], std::string(1, static_cast<char>('a' + i)));
    const auto ended = [this] {
        modAppRecord::recordTrialEnd();
        return study.rows(std::string(endColumns) + "WHERE Subject = 'kim' AND Trial = 3");
    };
    const std::string begins = "09:30:00|00:07|12:03|0.7|2|100|0|None|a|0||0.10|b|c|d|e|";
    EXPECT_EQ(ended(), begins + "-|-|21.875|-17|Dead|-");
    Options.Risk.set(true);
    s.patientSaved = true;
    EXPECT_EQ(ended(), begins + "f|g|21.875|-17|Dead|1");
    EXPECT_EQ(study.rows("SELECT Result FROM dataTrial"), "-/-/Dead");
    s.trialNumber = 4;
    EXPECT_THROW(ended(), ProgramEnded);
    EXPECT_EQ(said(), "Error post-recording trial|Trial start index somehow was not stored");
}

TEST_F(Record, IdentifiersGrowAndAreNeverCut) {
    setCaption(f.lblClock, "12:59");
    setCaption(f.lblHealth, "0.3 ");
    EXPECT_EQ(modAppRecord::recordEvent("Testing", 1, "can't", true), "kim03_001");
    EXPECT_EQ(study.rows("SELECT * FROM dataEvents"),
              "kim03_001|kim|3|2026-01-05|09:30:00|12:59|0.3 |Testing|1|can't|-1|kim03_00");
    s.trialNumber = 100;
    s.eventCount = 999;
    s.diagnosisCount = 123;
    EXPECT_EQ(modAppRecord::stateId(), "kim100_123");
    EXPECT_EQ(modAppRecord::recordEvent("AddSymptom", 8, "", false), "kim100_1000");
    s.eventCount = 32767;
    EXPECT_FAULT(modAppRecord::recordEvent("Diagnose", 1, "", false), Overflow);
}

TEST_F(Record, ATestIsDueOnTheDial) {
    s.testTypeCount = 3;
    s.tests.renew(3);
    s.symptomFindings.renew(3);
    s.symptomFindings[2].result = "Present";
    const auto due = [this](int hour, int minute, const char* length) {
        s.clockHour = hour;
        s.clockMinute = minute;
        setCaption(f.lblTestTime[2], length);
        modTests::resetTests();
        const std::string eta = modTests::issueTest(2);
        return eta + (s.tests[2].pastTwelve ? " past twelve" : "");
    };
    EXPECT_EQ(due(1, 30, "30"), "02:00");
    EXPECT_EQ(due(11, 50, "130x"), "02:00 past twelve");
    EXPECT_EQ(due(3, 0, "3.5"), "03:04");
    EXPECT_EQ(due(12, 59, "none"), "12:59");
    EXPECT_EQ(study.rows("SELECT * FROM dataGetTests LIMIT 1"), "kim03_001|1|3|Rash|Present");
    EXPECT_EQ(study.rows("SELECT ActionNum,Input,Output FROM dataEvents LIMIT 1"), "1|TestPosition3|-1");
}

// Only a treatment's row that cannot be written is a matter of a box: the run goes on, and the file is free.
TEST_F(Record, AFailingWriteIsAFaultOrABox) {
    s.treatments.items = {{"Ambrol", {{80, 10}}, {{5, 20}}}};
    addItem(f.cboTreatment, "Ambrol");
    setText(f.cboTreatment, "Ambrol");
    const auto prescribed = [this] {
        draw({0.795});
        modTreatments::prescribe();
        return said() + study.rows("SELECT Number,Treatment,Help,Heal,Hurt,Harm FROM dataTreatments");
    };
    const std::string full = " BEGIN SELECT RAISE(ABORT, 'full'); END";
    EXPECT_EQ(prescribed(), "1|Ambrol|80|1|5|-");
    study.change("CREATE TRIGGER t BEFORE INSERT ON dataTreatments" + full);
    EXPECT_EQ(prescribed(),
              "Problems reading from treatment table|Please check database file1|Ambrol|80|1|5|-");
    study.change("DROP TRIGGER t");
    EXPECT_EQ(prescribed(), "1|Ambrol|80|1|5|-/3|Ambrol|80|1|5|-");
    EXPECT_EQ(study.rows("SELECT ActionNum,Input,Output FROM dataEvents"),
              "1|Ambrol|-1/2|Ambrol|-1/3|Ambrol|-1");
    study.change("CREATE TRIGGER t BEFORE INSERT ON dataEvents" + full);
    EXPECT_FAULT(prescribed(), 19);  // the engine's number
}

}  // namespace
