#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "forms/frmOptions.h"
#include "forms/frmTavix.h"
#include "forms/windows.h"
#include "knowledge/caseDraw.h"
#include "knowledge/modSymptom.h"
#include "state/TrialEvaluation.h"
#include "state/TrialState.h"
#include "store/layer/openTable.h"
#include "store/record/modAppRecord.h"
#include "tests/faults.h"
#include "tests/stage.h"
#include "tests/temporaryStudy.h"
#include "trial/course/runHooks.h"

namespace {

/// Subject kim in trial 3 with the second person of the roster.
class Record : public testing::Test {
protected:
    TemporaryStudy study;
    Stage stage{study.folder};

    void SetUp() override {
        TrialState& s = trialState;
        s.subjectName = "kim";
        s.settingName = "Plain";
        s.trialNumber = 3;
        s.diagnosisStateId = "kim03_00";
        s.score = 2000;
        s.patients.items.resize(2);
        s.currentPatient = 1;
        s.patients[1].disease = "Brill";
        s.patients[1].status = "Dead";
        s.patients[1].guess = "None";
        s.symptomCount = s.symptomTermCount = 3;
        s.findingsMask = 1;
        windows::show(frmTavix.form);
        runHook(runHooks().showTrialFrames);
    }

    /// The rows of a selection, fields parted by "|" and rows by "/"; an empty field reads "-".
    static std::string rows(const std::string& columns, const std::string& from) {
        RecordSet set = openTable("SELECT " + columns + " FROM " + from, true, "test");
        std::string result;
        for (; !set.isEOF(); set.MoveNext()) {
            if (!result.empty()) result += "/";
            std::size_t at = 0;
            while (at < columns.size()) {
                const std::size_t end = std::min(columns.find(',', at), columns.size());
                const Field field = set.Fields(columns.substr(at, end - at));
                result += (at == 0 ? "" : "|") + (field.isNull() ? "-" : field.text());
                at = end + 1;
            }
        }
        return result;
    }
};

constexpr const char* endColumns =
    "EndTime,SimTime,ActualTime,EndHealth,Tests,Diagnoses,Treatments,Guess,GuessBelief,DiseaseBelief,pGuess,"
    "pDisease,LastTreatment,CorrectTreatment,pLastHeal,pCorrectHeal,pLastHarm,pCorrectHarm,Penalty,Score,"
    "Result,Saved";

TEST_F(Record, AStartLeavesTheColumnsOfTheEndEmpty) {
    EXPECT_EQ(modAppRecord::recordTrialStart(modPatient::findingsText()), "kim03_");
    EXPECT_EQ(rows("Subject,Setting,Date,StartTime,Trial,PatientID,TestResults,Disease,Score", "dataTrial"),
              "kim|Plain|2026-01-05|09:30:00|3|2|001|Brill|2000");
    EXPECT_EQ(rows(endColumns, "dataTrial"), "-|-|-|-|-|-|-|-|-|-|-|-|-|-|-|-|-|-|-|2000|-|-");
    EXPECT_EQ(rows("StateID", "dataHypothesisState"), "");
}

TEST_F(Record, AnEndCompletesTheRowOfItsOwnTrialAlone) {
    TrialState& s = trialState;
    s.trialNumber = 2;
    modAppRecord::recordTrialStart(modPatient::findingsText());
    s.trialNumber = 3;
    s.subjectName = "kim2";
    modAppRecord::recordTrialStart(modPatient::findingsText());
    s.subjectName = "kim";
    modAppRecord::recordTrialStart(modPatient::findingsText());
    s.simTimeText = "00:07";
    s.actualTimeText = "12:03";
    s.health = 7;
    s.testCount = 2;
    s.diagnosisCount = 100;
    s.penalty = 21.875;
    s.score = -17;
    trialEvaluation.beliefText = "0";
    trialEvaluation.diseaseChanceText = "0.10";
    setCaption(frmTavix.lblDiagnosisBelief, "0.50");
    setCaption(frmTavix.lblDiseaseBelief, "not read");
    setCaption(frmTavix.lblDiseaseChance, "not read");
    setCaption(frmTavix.lblBestTreatment, "Ambrol");
    setCaption(frmTavix.lblYourHeal, "0.80");
    setCaption(frmTavix.lblActualHeal, "1.00");
    setCaption(frmTavix.lblYourHurt, "0.20");
    setCaption(frmTavix.lblActualHurt, "0.00");
    modAppRecord::recordTrialEnd();
    const std::string begins = "09:30:00|00:07|12:03|0.7|2|100|0|None|0.50|0||0.10||Ambrol|0.80|1.00|";
    EXPECT_EQ(rows(endColumns, "dataTrial WHERE Subject = 'kim' AND Trial = 3"),
              begins + "-|-|21.875|-17|Dead|-");
    EXPECT_EQ(rows("Result", "dataTrial ORDER BY Subject, Trial"), "-/Dead/-");

    setValue(frmOptions.chkRisk, 1);
    s.patientSaved = true;
    modAppRecord::recordTrialEnd();
    EXPECT_EQ(rows(endColumns, "dataTrial WHERE Subject = 'kim' AND Trial = 3"),
              begins + "0.20|0.00|21.875|-17|Dead|1");
}

TEST_F(Record, AnEndWithoutItsStartEndsTheProgram) {
    EXPECT_THROW(modAppRecord::recordTrialEnd(), ProgramEnded);
    ASSERT_EQ(stage.boxes.size(), 1U);
    EXPECT_EQ(stage.boxes[0].text, "Trial start index somehow was not stored");
    EXPECT_EQ(stage.boxes[0].title, "Error post-recording trial");
    EXPECT_EQ(stage.boxes[0].buttons, Buttons::Ok);
}

TEST_F(Record, IdentifiersGrowAndAreNeverCut) {
    setCaption(frmTavix.lblClock, "12:59");
    setCaption(frmTavix.lblHealth, "0.3 ");
    EXPECT_EQ(modAppRecord::recordEvent("Testing", 1, "TestPosition1", true), "kim03_001");
    trialState.trialNumber = 100;
    trialState.eventCount = 998;
    trialState.diagnosisCount = 123;
    EXPECT_EQ(modAppRecord::stateId(), "kim100_123");
    EXPECT_EQ(modAppRecord::recordEvent("AddSymptom", 7, "can't", false), "kim100_999");
    EXPECT_EQ(modAppRecord::recordEvent("AddSymptom", 8, "", false), "kim100_1000");
    EXPECT_EQ(rows("EventID,Subject,Trial,Date,Time,SimTime,Health,Action,ActionNum,Input,Output,DiagnosisID",
                   "dataEvents"),
              "kim03_001|kim|3|2026-01-05|09:30:00|12:59|0.3 |Testing|1|TestPosition1|-1|kim03_00/"
              "kim100_999|kim|100|2026-01-05|09:30:00|12:59|0.3 |AddSymptom|7|can't|0|kim03_00/"
              "kim100_1000|kim|100|2026-01-05|09:30:00|12:59|0.3 |AddSymptom|8||0|kim03_00");
    trialState.eventCount = 32767;
    EXPECT_FAULT(modAppRecord::recordEvent("Diagnose", 1, "", false), FaultNumber::Overflow);
    EXPECT_EQ(rows("Action", "dataEvents WHERE Action = 'Diagnose'"), "");
}

class Notes : public Record {
protected:
    void SetUp() override {
        Record::SetUp();
        modSymptom::resetSymptomNotes();
    }
    static void take(const std::string& note) {
        setText(frmTavix.txtReasoning, note);
        modSymptom::noteReasoning();
    }
    static void press(const std::vector<int>& lines) {
        selectItems(frmTavix.lstSymptoms, lines);
        modSymptom::removeSelectedNotes();
    }
    static const std::vector<std::string>& lines() { return frmTavix.lstSymptoms.items; }
};

TEST_F(Notes, TheHundredthIsTakenAndItsPrefixIsOneTooWide) {
    for (int i = 1; i <= 100; ++i) take("n" + std::to_string(i));
    EXPECT_EQ(lines().at(8), "09) n9");
    EXPECT_EQ(lines().at(99), "100) n100");
    EXPECT_EQ(trialState.symptomNotes[99], "n100");

    // Refused: counted by the press, neither recorded nor kept, and the words are gone.
    take("one too many");
    EXPECT_EQ(stage.boxes.back().text, "Cannot add more than 100 items.  Please delete some first");
    EXPECT_EQ(stage.boxes.back().title, "");
    EXPECT_EQ(trialState.noteSymptomCount.raw, 101);
    EXPECT_EQ(trialState.symptomNoteCount.raw, 100);
    EXPECT_EQ(trialState.eventCount.raw, 100);
    EXPECT_EQ(frmTavix.txtReasoning.text, "");

    // Every press numbers anew, also one without a selection: the hundredth grows by a blank each time.
    press({});
    press({});
    EXPECT_EQ(lines().at(99), "100)   n100");
    EXPECT_EQ(lines().at(98), "99) n99");
    EXPECT_EQ(trialState.removeCount.raw, 0);
    press({0});
    EXPECT_EQ(lines().at(98), "99)    n100");
    press({98});
    EXPECT_EQ(rows("ListItem", "dataGetSymptoms WHERE Deleted = 6"), "n1") << "with its blanks it has no row";
    EXPECT_EQ(rows("ActionNum,Input", "dataEvents WHERE Action = 'RemoveSymptom'"), "1|n1/2|   n100");
    EXPECT_EQ(trialState.symptomNoteCount.raw, 98);
}

TEST_F(Notes, ARemovalMarksARowOfThisSubjectAndTrialOnly) {
    struct Case {
        const char* subject;
        int trial;
    };
    // An underscore or a percent sign in a name stands for itself.
    for (const Case& c : {Case{"kxm", 3}, Case{"kim", 3}, Case{"kim0", 3}, Case{"k_m", 4}, Case{"k_m", 3}}) {
        trialState.subjectName = c.subject;
        trialState.trialNumber = c.trial;
        trialState.eventCount = 0;
        setText(frmTavix.txtReasoning, "fever");
        modSymptom::noteReasoning();
    }
    press({4});
    EXPECT_EQ(rows("EventID", "dataGetSymptoms WHERE Deleted = 6"), "k_m03_001");
    trialState.subjectName = "k%";
    press({3});
    EXPECT_EQ(rows("EventID", "dataGetSymptoms WHERE Deleted = 6"), "k_m03_001");
    trialState.subjectName = "KIM";
    press({1});
    EXPECT_EQ(rows("EventID", "dataGetSymptoms WHERE Deleted = 6"), "kim03_001/k_m03_001");
}

}  // namespace
