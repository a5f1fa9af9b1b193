// Rows of a trial and of its events, and what an action of the subject computes for them.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "forms/frmOptions.h"
#include "forms/frmTavix.h"
#include "forms/windows.h"
#include "knowledge/modSymptom.h"
#include "knowledge/modTests.h"
#include "knowledge/modTreatments.h"
#include "state/TrialEvaluation.h"
#include "state/TrialState.h"
#include "store/record/Options.h"
#include "store/record/modAppRecord.h"
#include "tests/faults.h"
#include "tests/stage.h"
#include "tests/temporaryStudy.h"
#include "trial/course/modClock.h"
#include "trial/course/runHooks.h"

namespace {

/// Subject kim in trial 3 with the second person of the roster.
class Record : public testing::Test {
protected:
    TemporaryStudy study;
    Stage stage{study.folder};
    TrialState& s = trialState;

    void SetUp() override {
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
        windows::show(frmTavix.form);
        runHook(runHooks().showTrialFrames);
    }
    static const std::vector<std::string>& notes() { return frmTavix.lstSymptoms.items; }
    static void take(const std::string& note) {
        setText(frmTavix.txtReasoning, note);
        modSymptom::noteReasoning();
    }
    static void remove(const std::vector<int>& lines) {
        selectItems(frmTavix.lstSymptoms, lines);
        modSymptom::removeSelectedNotes();
    }
    [[nodiscard]] std::string deleted() const {
        return study.rows("SELECT EventID FROM dataGetSymptoms WHERE Deleted = 6");
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
    for (int i = 0; i < 4; ++i) setValue(frmTavix.hsbBelief[i], 10 + i);
    modAppRecord::recordTrialStart("001");
    EXPECT_EQ(study.rows("SELECT StateID,H1,H2,H3,H4,H5,H6 FROM dataHypothesisState"),
              "kim03_00|10|11|12|-|-|-");
    s.symptomCount = 5;
    EXPECT_FAULT(modAppRecord::recordTrialStart("001"), FaultNumber::SubscriptOutOfRange);
}

TEST_F(Record, AnEndCompletesTheRowOfItsOwnTrialAlone) {
    for (const auto& [subject, trial] :
         std::vector<std::pair<const char*, int>>{{"kim", 2}, {"kim2", 3}, {"kim", 3}}) {
        s.subjectName = subject;
        s.trialNumber = trial;
        modAppRecord::recordTrialStart("001");
    }
    s.simTimeText = "00:07";
    s.actualTimeText = "12:03";
    s.health = 7;
    s.testCount = 2;
    s.diagnosisCount = 100;
    s.penalty = 21.875;
    s.score = -17;
    trialEvaluation.beliefText = "0";
    trialEvaluation.diseaseChanceText = "0.10";
    FrmTavix& f = frmTavix;
    for (const auto& [label, caption] :
         std::vector<std::pair<Control*, const char*>>{{&f.lblDiagnosisBelief, "0.50"},
                                                       {&f.lblDiseaseBelief, "not read"},
                                                       {&f.lblDiseaseChance, "not read"},
                                                       {&f.lblBestTreatment, "Ambrol"},
                                                       {&f.lblYourHeal, "0.80"},
                                                       {&f.lblActualHeal, "1.00"},
                                                       {&f.lblYourHurt, "0.20"},
                                                       {&f.lblActualHurt, "0.00"}})
        setCaption(*label, caption);
    modAppRecord::recordTrialEnd();
    const std::string own = std::string(endColumns) + "WHERE Subject = 'kim' AND Trial = 3";
    const std::string begins = "09:30:00|00:07|12:03|0.7|2|100|0|None|0.50|0||0.10||Ambrol|0.80|1.00|";
    EXPECT_EQ(study.rows(own), begins + "-|-|21.875|-17|Dead|-");
    EXPECT_EQ(study.rows("SELECT Result FROM dataTrial ORDER BY Subject, Trial"), "-/Dead/-");
    setValue(frmOptions.chkRisk, 1);
    s.patientSaved = true;
    modAppRecord::recordTrialEnd();
    EXPECT_EQ(study.rows(own), begins + "0.20|0.00|21.875|-17|Dead|1");

    s.trialNumber = 4;
    EXPECT_THROW(modAppRecord::recordTrialEnd(), ProgramEnded);
    EXPECT_EQ(stage.said(), "Error post-recording trial|Trial start index somehow was not stored");
}

TEST_F(Record, IdentifiersGrowAndAreNeverCut) {
    setCaption(frmTavix.lblClock, "12:59");
    setCaption(frmTavix.lblHealth, "0.3 ");
    EXPECT_EQ(modAppRecord::recordEvent("Testing", 1, "TestPosition1", true), "kim03_001");
    s.trialNumber = 100;
    s.eventCount = 998;
    s.diagnosisCount = 123;
    EXPECT_EQ(modAppRecord::stateId(), "kim100_123");
    EXPECT_EQ(modAppRecord::recordEvent("AddSymptom", 7, "can't", false), "kim100_999");
    EXPECT_EQ(modAppRecord::recordEvent("AddSymptom", 8, "", false), "kim100_1000");
    EXPECT_EQ(
        study.rows("SELECT EventID,Subject,Trial,Date,Time,SimTime,Health,Action,ActionNum,Input,Output,"
                   "DiagnosisID FROM dataEvents"),
        "kim03_001|kim|3|2026-01-05|09:30:00|12:59|0.3 |Testing|1|TestPosition1|-1|kim03_00/"
        "kim100_999|kim|100|2026-01-05|09:30:00|12:59|0.3 |AddSymptom|7|can't|0|kim03_00/"
        "kim100_1000|kim|100|2026-01-05|09:30:00|12:59|0.3 |AddSymptom|8||0|kim03_00");
    s.eventCount = 32767;
    EXPECT_FAULT(modAppRecord::recordEvent("Diagnose", 1, "", false), FaultNumber::Overflow);
    study.change("CREATE TRIGGER full BEFORE INSERT ON dataEvents BEGIN SELECT RAISE(ABORT, 'full'); END");
    s.eventCount = 0;
    EXPECT_FAULT(modAppRecord::recordEvent("Diagnose", 1, "", false), 19);  // the engine's number
    EXPECT_EQ(study.rows("SELECT Action FROM dataEvents WHERE Action = 'Diagnose'"), "");
}

TEST_F(Record, TheHundredthNoteIsTakenAndItsPrefixIsOneTooWide) {
    modSymptom::resetSymptomNotes();
    take("n1");
    for (int i = 2; i <= 98; ++i) addItem(frmTavix.lstSymptoms, "xx) n" + std::to_string(i));
    s.symptomNoteCount = 98;
    take("n99");
    take("n100");
    EXPECT_EQ(notes().at(98) + notes().at(99) + s.symptomNotes[99], "99) n99100) n100n100");
    // Refused: counted by the press, neither recorded nor kept, and the words are gone.
    take("one too many");
    EXPECT_EQ(stage.said(), "|Cannot add more than 100 items.  Please delete some first");
    EXPECT_EQ(s.noteSymptomCount.raw, 4);
    EXPECT_EQ(s.symptomNoteCount.raw, 100);
    EXPECT_EQ(s.eventCount.raw, 3);
    EXPECT_EQ(frmTavix.txtReasoning.text, "");

    // Every press numbers anew, also one without a selection: the hundredth grows by a blank each time.
    remove({});
    remove({});
    EXPECT_EQ(notes().at(7) + notes().at(99), "08) n8100)   n100");
    EXPECT_EQ(s.removeCount.raw, 0);
    remove({0});
    EXPECT_EQ(notes().at(98), "99)    n100");
    remove({97, 98});
    EXPECT_EQ(deleted(), "kim03_001/kim03_002") << "with its blanks the hundredth has no row";
    EXPECT_EQ(study.rows("SELECT ActionNum,Input FROM dataEvents WHERE Action = 'RemoveSymptom'"),
              "1|n1/2|n99/3|   n100");
    EXPECT_EQ(s.symptomNoteCount.raw, 97);
}

TEST_F(Record, ARemovalMarksOneRowOfThisSubjectAndTrial) {
    modSymptom::resetSymptomNotes();
    // An underscore or a percent sign in a name stands for itself.
    for (const auto& [subject, trial] : std::vector<std::pair<const char*, int>>{
             {"kxm", 3}, {"kim", 3}, {"kim0", 3}, {"k_m", 4}, {"k_m", 3}, {"k_m", 3}}) {
        s.subjectName = subject;
        s.trialNumber = trial;
        take("fever");
    }
    remove({4});
    EXPECT_EQ(deleted(), "k_m03_005");
    s.subjectName = "k%";
    remove({3});
    EXPECT_EQ(deleted(), "k_m03_005");
    s.subjectName = "KIM";
    remove({1});
    EXPECT_EQ(deleted(), "kim03_002/k_m03_005");
}

TEST_F(Record, EvidenceIsTakenUpTo99Characters) {
    modSymptom::resetSymptomNotes();
    setText(frmTavix.txtIntro, "   " + std::string(101, 'e'));
    const auto takeMarked = [&](int start, int length) {
        select(frmTavix.txtIntro, start, length);
        modSymptom::noteEvidence();
        return stage.said();
    };
    EXPECT_EQ(takeMarked(0, 3), "|Please highlight background text you wish to note");
    EXPECT_EQ(takeMarked(3, 100),
              "Text highlighted is too long|Length: 100  Max: 100\r\nPlease add in parts.");
    EXPECT_EQ(takeMarked(0, 102), "");
    EXPECT_EQ(s.evidenceCount.raw, 1);
    EXPECT_EQ(study.rows("SELECT EventID,length(ListItem),FromIntro,Deleted FROM dataGetSymptoms"),
              "kim03_001|99|6|-");
}

TEST_F(Record, ATestIsDueOnTheDial) {
    struct Case {
        int hour, minute;
        const char *length, *eta;
        int ticks;
    };
    s.testTypeCount = 3;
    s.tests.renew(3);
    s.symptomFindings.renew(3);
    s.symptomFindings[2].result = "Present";
    setCaption(frmTavix.optTest[2], "Rash");
    for (const Case& c :
         {Case{2, 40, "30", "03:10", 30}, Case{12, 30, "20", "12:50", 20}, Case{12, 50, "20", "01:10", 20},
          Case{12, 30, "30", "01:00", 30}, Case{1, 30, "30", "02:00", 30}, Case{12, 50, "45", "01:35", 45},
          Case{1, 0, "90x", "02:30", 90}, Case{11, 50, "90", "01:20", 90}, Case{3, 0, "3.5", "03:04", 4},
          Case{2, 0, "none", "02:00", 1}, Case{1, 59, "0", "01:59", 60}}) {
        s.clockHour = c.hour;
        s.clockMinute = c.minute;
        s.testCount = 0;
        setCaption(frmTavix.lblTestTime[2], c.length);
        modTests::resetTests();
        EXPECT_EQ(modTests::issueTest(2), c.eta);
        int ticks = 0;
        while (!s.tests[2].completed && ++ticks < 200) {
            modClock::tickClock();
            modTests::checkTests();
        }
        EXPECT_EQ(ticks, c.ticks) << c.eta;
        EXPECT_EQ(frmTavix.chartETA[2].columns[0], std::to_string(ticks));
    }
    EXPECT_EQ(study.rows("SELECT * FROM dataGetTests LIMIT 1"), "kim03_001|1|3|Rash|Present");
    EXPECT_EQ(study.rows("SELECT ActionNum,Input,Output FROM dataEvents LIMIT 1"), "1|TestPosition3|-1");
}

TEST_F(Record, PrescriptionsDrawAgainstTheirChances) {
    s.treatments.items = {{"Ambrol", {{80, 10}}, {{5, 20}}}};
    addItem(frmTavix.cboTreatment, "Ambrol");
    s.health = 900;
    s.clockHour = 1;
    s.trialMinutes = 60;
    frmTavix.linHealth.renew(20);
    s.monitorSegments = 20;
    struct Case {
        const char* name;
        bool risk;
        double heal, hurt;
        const char* row;  // Number to Harm
        int health;
    };
    for (const Case& c :
         {Case{"ambrol", true, 0, 0, "", 900}, Case{"Ambrol", false, 0.805, 0, "1|80|-|5|-", 900},
          Case{"Ambrol", true, 0.795, 0.055, "2|80|1|5|-", 900},
          Case{"Ambrol", true, 0.995, 0.045, "3|80|1|5|1", 700},  // the signal stays until a tick
          Case{"Ambrol", false, 0.995, 0, "4|80|1|5|1", 700}}) {  // and harm without risk
        Options.Risk.set(c.risk);
        setText(frmTavix.cboTreatment, c.name);
        draw({c.heal, c.hurt});
        modTreatments::prescribe();
        EXPECT_EQ(
            study.rows("SELECT Number,Help,Heal,Hurt,Harm FROM dataTreatments ORDER BY Number DESC LIMIT 1"),
            c.row);
        EXPECT_EQ(s.health.raw, c.health);
    }
    EXPECT_EQ(stage.said(), "|Please choose one of the given treatments");
    EXPECT_EQ(study.rows("SELECT ActionNum,Input,Output FROM dataEvents"),
              "1|Ambrol|0/2|Ambrol|-1/3|Ambrol|-1/4|Ambrol|-1");

    // The one operation that traps its own failure: the run goes on, and the file is free.
    study.change(
        "CREATE TRIGGER full BEFORE INSERT ON dataTreatments BEGIN SELECT RAISE(ABORT, 'full'); END");
    modTreatments::prescribe();
    study.change("DROP TRIGGER full");
    study.change("ALTER TABLE dataTreatments RENAME TO kept");
    study.change("CREATE TABLE dataTreatments (EventID)");
    modTreatments::prescribe();
    const std::string trapped = "Problems reading from treatment table|Please check database file";
    EXPECT_EQ(stage.said(), trapped + "/" + trapped);
    EXPECT_EQ(s.treatmentCount.raw, 6);
    EXPECT_EQ(study.rows("SELECT count(*) FROM kept"), "4");
    EXPECT_EQ(study.rows("SELECT count(*) FROM dataEvents"), "6");
}

}  // namespace
