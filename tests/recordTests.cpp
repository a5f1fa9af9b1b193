// Identifiers of events, and rows that cannot be written.
#include "forms/frmTavix.h"
#include "knowledge/modSymptom.h"
#include "knowledge/modTests.h"
#include "knowledge/modTreatments.h"
#include "store/record/modAppRecord.h"
#include "tests/stage.h"
#include "trial/course/modClock.h"

namespace {

/// Subject kim in trial 3.
class Record : public Logic {
protected:
    FrmTavix& f = frmTavix;

    Record() {
        setScenario({50, 50});
        s.subjectName = "kim";
        s.trialNumber = 3;
        s.diagnosisStateId = "kim03_00";
    }
};

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

TEST_F(Record, AnEndWithoutItsStartEndsTheProgram) {
    study.change("INSERT INTO dataTrial (Subject, Trial) VALUES ('kim', 2), ('kim2', 3)");
    EXPECT_THROW(modAppRecord::recordTrialEnd(), ProgramEnded);
    EXPECT_EQ(said(), "Error post-recording trial|Trial start index somehow was not stored");
}

TEST_F(Record, AHundredNotesAreHeldAndTheLastPrefixIsOneTooWide) {
    modSymptom::resetSymptomNotes();
    for (int i = 1; i < 100; ++i) addItem(f.lstSymptoms, "xx) n");
    for (const char* note : {"last", "one more"}) modSymptom::addSymptomNote(note, false);
    EXPECT_EQ(said(), "|Cannot add more than 100 items.  Please delete some first");
    modSymptom::removeSelectedNotes();  // numbers anew, also without a selection
    EXPECT_EQ(f.lstSymptoms.items.at(8) + f.lstSymptoms.items.back(), "09) n100)  last");
    EXPECT_EQ(study.rows("SELECT ListItem FROM dataGetSymptoms"), "last");
}

TEST_F(Record, ATestIsDueOnTheDial) {
    s.testTypeCount = 3;
    s.symptomFindings.renew(3);
    const auto issued = [this](int hour, int minute, const char* length) {
        s.tests.renew(3);
        s.testCount = 0;
        s.clockHour = hour;
        s.clockMinute = minute;
        setCaption(f.lblTestTime[2], length);
        const std::string eta = modTests::issueTest(2);
        int ticks = 0;
        while (!s.tests[2].completed && ++ticks < 1000) {
            modClock::tickClock();
            modTests::checkTests();
        }
        return eta + " after " + std::to_string(ticks);
    };
    EXPECT_EQ(issued(12, 30, "30"), "01:00 after 30");
    EXPECT_EQ(issued(12, 50, "45"), "01:35 after 45");
    EXPECT_EQ(issued(11, 50, "130x"), "02:00 after 130");
    EXPECT_EQ(issued(1, 10, "720"), "01:10 after 720");
    EXPECT_EQ(issued(3, 0, "3.5"), "03:04 after 4");
    EXPECT_EQ(issued(1, 59, "none"), "01:59 after 60");
}

// Only a treatment's row that cannot be written is a matter of a box: the run goes on, and the file is free.
TEST_F(Record, AFailingWriteIsAFaultOrABox) {
    s.treatments.items = {{"Ambrol", {{80, 0}}, {{5, 0}}}};
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
