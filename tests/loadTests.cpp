// What a run loads from its store: options, words, the model's tables; and how long it waits for a lock.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "forms/frmLogin.h"
#include "forms/frmTavix.h"
#include "knowledge/modDisease.h"
#include "knowledge/termOrders.h"
#include "platform/randomSource.h"
#include "state/TrialState.h"
#include "store/layer/openTable.h"
#include "store/loading/modAppLoad.h"
#include "store/record/Options.h"
#include "tests/faults.h"
#include "tests/stage.h"
#include "tests/temporaryStudy.h"

namespace {

/// Subject kim at the sign-in, in the scenario "Plain".
class Load : public testing::Test {
protected:
    TemporaryStudy study;
    Stage stage{study.folder};

    void SetUp() override {
        trialState.subjectName = "kim";
        modAppLoad::listSettings();
        choose("Plain");
    }

    static void choose(const std::string& setting) {
        setText(frmLogin.cboType, setting);
        trialState.settingName = setting;
        trialState.settingIndex = findItem(frmLogin.cboType, setting);
    }

    /// Runs statements on the store beside the program.
    void change(const std::vector<std::string>& statements) const {
        const engine::Database database =
            engine::open(study.storePath(), store::password, engine::Access::Write);
        for (const std::string& statement : statements) engine::execute(*database, statement);
    }

    static void loadModel() {
        modDisease::loadBaseRates();
        modDisease::loadDiseaseSymptom();
    }

    /// Subject, scenario, symptom and disease words of all stored orders, one a line.
    static std::string orders() {
        RecordSet rows = openTable("SubjectSettings", true, "test");
        std::string all;
        for (; !rows.isEOF(); rows.MoveNext()) {
            for (const char* column : {"Subject", "Setting", "TestOrder", "DiseaseOrder"})
                all += rows.Fields(column).text() + "|";
            all += "\n";
        }
        return all;
    }

    static std::string words(const List<Symptom>& terms) {
        std::string all;
        for (const Symptom& symptom : terms) all += symptom.term + " ";
        return all;
    }
};

TEST_F(Load, OptionsBeforeAScenarioIsLoaded) {
    EXPECT_EQ(Options.Time.value(), 4);
    EXPECT_EQ(Options.SimRate.value(), 4);
    EXPECT_EQ(Options.StartHour.text() + ":" + Options.StartMin.text(), "01:00");
    const std::vector<std::string> texts{"2000", "0", "0", "25", "50", "100"};
    for (std::size_t i = 0; i < texts.size(); ++i)
        EXPECT_EQ((Options.*textColumns()[i].field).text(), texts[i]);
    for (const FlagColumn& column : flagColumns()) EXPECT_FALSE(Options.*column.flag) << column.column;
    setValue(Options.Normalize.box, 2);
    EXPECT_FALSE(Options.Normalize) << "on only when it is 1";
}

TEST_F(Load, OptionsOfAScenario) {
    // A flag that is off in the row stays as it stands; an empty treatment column leaves both flags.
    Options.Normalize.set(true);
    change(
        {"UPDATE tblAppDefault SET DoTreatments = 0, TreatmentProperty = -1, StartHour = '11', "
         "StartMin = '5', TestCost = NULL WHERE Setting = 'Plain'"});
    modAppLoad::loadOptions();
    EXPECT_TRUE(Options.Normalize);
    EXPECT_FALSE(Options.DoTreatments);
    EXPECT_FALSE(Options.OneTreatment);
    EXPECT_TRUE(Options.Risk);
    EXPECT_EQ(Options.StartHour.text() + ":" + Options.StartMin.text(), "011:05");
    EXPECT_EQ(Options.TestCost.number(), 0.0);

    change({"UPDATE tblAppDefault SET SimRate = NULL WHERE Setting = 'Plain'"});
    EXPECT_FAULT((modAppLoad::loadOptions(), 0), FaultNumber::InvalidUseOfNull);
    change({"CREATE TABLE x AS SELECT Setting, TestLengthSetting, Time FROM tblAppDefault",
            "DROP TABLE tblAppDefault", "ALTER TABLE x RENAME TO tblAppDefault"});
    EXPECT_FAULT((modAppLoad::loadOptions(), 0), FaultNumber::ItemNotFound);

    change({"DELETE FROM tblAppDefault"});
    EXPECT_THROW(modAppLoad::loadOptions(), ProgramEnded);
    EXPECT_EQ(stage.boxes.at(0).title, "Weird option load error");
    EXPECT_EQ(stage.boxes.at(0).text, "Settings in tblappdefault were somehow deleted");
}

TEST_F(Load, ModelTables) {
    loadModel();
    TrialState& s = trialState;
    EXPECT_EQ(s.baseRateRows, 9);
    EXPECT_EQ(modDisease::currentBaseRates().setting, "Plain");
    EXPECT_EQ(s.symptomCount, 3);
    EXPECT_EQ(s.tableDiseaseCount, 3);
    EXPECT_EQ(s.diseaseSymptom[2].percents[1], 50);
    EXPECT_TRUE(s.diseaseSymptom[0].initVisible);
    EXPECT_EQ(s.diseaseSymptom[0].setting, "");

    // Without rows all stays as it was, and nothing is said.
    choose("No such scenario");
    change({"DELETE FROM tblBaseRates"});
    loadModel();
    EXPECT_EQ(s.baseRateRows, 9);
    EXPECT_EQ(s.symptomCount, 3);
    EXPECT_TRUE(stage.boxes.empty());

    choose("Plain");
    change({"UPDATE tblDiseaseSymptom SET InitVisible = NULL"});
    modDisease::loadDiseaseSymptom();
    EXPECT_FALSE(s.diseaseSymptom[0].initVisible);
    change({"UPDATE tblDiseaseSymptom SET D2 = 32768"});
    EXPECT_FAULT((modDisease::loadDiseaseSymptom(), 0), FaultNumber::Overflow);
    change({"UPDATE tblDiseaseSymptom SET D2 = NULL"});
    EXPECT_FAULT((modDisease::loadDiseaseSymptom(), 0), FaultNumber::InvalidUseOfNull);
    change({"UPDATE tblDiseaseSymptom SET D2 = 1, Count = 5, D4 = 1"});
    // there is no D5
    EXPECT_FAULT((modDisease::loadDiseaseSymptom(), 0), FaultNumber::ItemNotFound);
}

TEST_F(Load, WordsAreDealtSymptomsFirstAndStored) {
    loadModel();
    // Six symptoms, of which three are stored; then three diseases of five.
    randomSource::queueDraws(std::vector<double>{0.99, 0, 0, 0, 0, 0, 0.4, 0.5, 0});
    termOrders::loadVocabulary();
    EXPECT_EQ(words(trialState.symptomTerms), "Unrest Quiver Rash Stupor Tremor Pallor ");
    EXPECT_EQ(orders(), "kim|Plain|Unrest,Quiver,Rash|Brill,Corvex,Aavo|\n");

    // A word that is dropped may be empty; an empty vocabulary leaves the words, which are dealt again.
    change({"UPDATE tblVocabulary SET Term = NULL WHERE Term = 'Extra'",
            "DELETE FROM tblVocabulary WHERE Type = 'Symptom'"});
    randomSource::queueDraws(std::vector<double>{0.2, 0, 0, 0, 0, 0, 0, 0, 0});
    termOrders::loadVocabulary();
    EXPECT_EQ(words(trialState.symptomTerms), "Quiver Unrest Rash Stupor Tremor Pallor ");
    EXPECT_EQ(trialState.symptomTermCount, 6);

    // Of two rows the first; a subject without one is dealt words.
    trialState.subjectName = "KIM";
    termOrders::restoreTermOrders();
    EXPECT_EQ(words(trialState.symptomTerms), "Unrest Quiver Rash ");
    EXPECT_EQ(trialState.symptomTermCount, 3);
    trialState.subjectName = "lea";
    termOrders::restoreTermOrders();
    EXPECT_TRUE(orders().ends_with(
        "|\nlea|Plain|" + trialState.symptomTerms[0].term + "," + trialState.symptomTerms[1].term + "," +
        trialState.symptomTerms[2].term + "|" + trialState.diseaseTerms[0].term + "," +
        trialState.diseaseTerms[1].term + "," + trialState.diseaseTerms[2].term + "|\n"));

    change({"UPDATE SubjectSettings SET TestOrder = NULL"});
    EXPECT_FAULT((termOrders::restoreTermOrders(), 0), FaultNumber::InvalidUseOfNull);
}

TEST_F(Load, TooFewWordsStoreNothing) {
    loadModel();
    change({"DELETE FROM tblVocabulary WHERE Term > 'R'"});
    EXPECT_FAULT((termOrders::loadVocabulary(), 0), FaultNumber::SubscriptOutOfRange);
    EXPECT_EQ(orders(), "");
    change({"UPDATE tblVocabulary SET Term = NULL"});
    EXPECT_FAULT((termOrders::loadVocabulary(), 0), FaultNumber::InvalidUseOfNull);
}

TEST_F(Load, AnotherScenarioInMidRun) {
    frmLogin.IsNew = true;
    modAppLoad::loadOptions();
    modAppLoad::loadCaseData();
    setText(frmTavix.cboT, "Four");
    modAppLoad::changeSetting();
    EXPECT_EQ(trialState.settingName, "Plain") << "a text that is not on the list";
    for (const char* item : {"x", "Four", "Four"}) addItem(frmTavix.cboT, item);
    Options.TestCost.set("7");
    modAppLoad::changeSetting();
    EXPECT_EQ(trialState.settingName, "Four");
    EXPECT_EQ(trialState.settingIndex, 1);
    EXPECT_EQ(trialState.symptomCount, 6);
    EXPECT_EQ(trialState.likelihoodRows, 64.0);
    EXPECT_EQ(Options.TestCost.text(), "7") << "the options stay";
    // Stored under the scenario of the sign-in, also for a new subject, who is dealt words again.
    const std::string stored = orders();
    EXPECT_EQ(std::count(stored.begin(), stored.end(), '\n'), 2);
    EXPECT_EQ(stored.find("Four"), std::string::npos);
}

// The pause is 1000 to 3999 rounds times the square of the attempt, in 16 bits: 9 x 3640 and 25 x 1000 fit,
// 36 x 1000 does not.
TEST_F(Load, TheSixthAttemptAtALockOverflowsAtTheLatest) {
    int yields = 0;
    host().yield = [&yields] { ++yields; };
    const engine::Database other = engine::open(study.storePath(), store::password, engine::Access::Write);
    engine::lock(*other);
    randomSource::queueDraws(std::vector<double>{0.999, 0.999, 0.8801, 0, 0, 0, 0.25});
    EXPECT_FAULT((modAppLoad::loadOptions(), 0), FaultNumber::Overflow);
    EXPECT_EQ(yields, 6);
    EXPECT_EQ(randomSource::draw(), 0.25) << "one draw an attempt";
    EXPECT_TRUE(stage.boxes.empty());
}

}  // namespace
