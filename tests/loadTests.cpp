// What a run loads from its store: options, words and the model's tables.
#include <algorithm>

#include "forms/frmLogin.h"
#include "forms/frmTavix.h"
#include "forms/registry.h"
#include "knowledge/modDisease.h"
#include "knowledge/modTests.h"
#include "knowledge/termOrders.h"
#include "store/loading/modAppLoad.h"
#include "store/record/Options.h"
#include "tests/stage.h"

namespace {

/// Subject kim at the sign-in, in the scenario "Plain".
class Load : public Logic {
protected:
    Load() {
        s.subjectName = "kim";
        signIn("Plain");
    }
    void signIn(const std::string& setting) {
        clearItems(frmLogin.cboType);
        modAppLoad::listSettings();
        setText(frmLogin.cboType, setting);
        s.settingName = setting;
        s.settingIndex = findItem(frmLogin.cboType, setting);
        modDisease::loadBaseRates();
        modDisease::loadDiseaseSymptom();
    }
    [[nodiscard]] std::string orders() const {
        return study.rows("SELECT Subject,Setting,TestOrder,DiseaseOrder FROM SubjectSettings");
    }
    [[nodiscard]] std::string words() const {
        std::string all;
        for (const Symptom& symptom : s.symptomTerms) all += symptom.term + ",";
        for (const Disease& disease : s.diseaseTerms) all += "|" + disease.term;
        return all;
    }
};

TEST_F(Load, EachColumnHasItsOwnFlag) {
    for (const FlagColumn& column : flagColumns()) {
        study.change(std::string("UPDATE tblAppDefault SET ") + column.column + " = 0");
    }
    std::ptrdiff_t ticked = 0;
    for (const std::string pair :
         {"CyclePatients Cycle", "ShowOptions OptionsFrequency", "DiagnoseAfterTests Force",
          "TimeStopDiagnosis StopTime", "DiagnoseAllDiseases DiagnoseAll", "YokeBeliefMeters Yoke",
          "Normalize Normalize", "InitToBaseRates InitToBaseRates", "ViewBaseRates BaseRates",
          "ViewSymptomDisease SVD", "ViewTreatmentDisease TreatmentTable", "DoTreatments Treatments",
          "FeedbackSymptomsP FeedbackSymptom", "FeedbackTestsResults FeedbackTests",
          "FeedbackDiseaseP DiseaseProbability", "UseNormalizeScore UseNormalize",
          "ShowNormalize ShowNormalize", "BestTreatment BestTreatment"}) {
        const std::size_t blank = pair.find(' ');
        study.change("UPDATE tblAppDefault SET " + pair.substr(0, blank) + " = -1");
        modAppLoad::loadOptions();
        EXPECT_TRUE(isTicked(*registry::find("frmOptions.chk" + pair.substr(blank + 1)))) << pair;
        const auto isOn = [](const Control* c) { return c->kind == Kind::TickBox && isTicked(*c); };
        EXPECT_EQ(std::count_if(allControls().begin(), allControls().end(), isOn), ++ticked) << pair;
    }
    setValue(Options.Normalize.box, 2);
    EXPECT_FALSE(Options.Normalize) << "on only when it is 1";
}

TEST_F(Load, OptionsThatAreGone) {
    study.change("DELETE FROM tblAppDefault");
    EXPECT_THROW(modAppLoad::loadOptions(), ProgramEnded);
    EXPECT_EQ(said(), "Weird option load error|Settings in tblappdefault were somehow deleted");
}

TEST_F(Load, ModelTables) {
    EXPECT_EQ(modDisease::currentBaseRates().setting, "Plain");
    EXPECT_EQ(s.tableDiseaseCount, 3);
    EXPECT_EQ(s.diseaseSymptom[2].percents[1], 50);
    // Rates are reached by the scenario's place in the sorted list; without rows all stays as it was.
    study.change("INSERT INTO tblAppDefault (Setting) VALUES ('aaa')");
    study.change("INSERT INTO tblBaseRates (Setting, Count, D1) VALUES ('aaa', 1, 77)");
    signIn("aaa");
    study.change("DELETE FROM tblBaseRates");
    signIn("aaa");
    EXPECT_EQ(modDisease::currentBaseRates().percents[0], 77);
    EXPECT_EQ(s.baseRateRows, 3);
    EXPECT_EQ(s.symptomCount, 3);
    EXPECT_EQ(said(), "");
    // A slot for which no row comes keeps the length that it comes with.
    s.testLengthSetting = "slow";
    modTests::loadTests();
    EXPECT_EQ(frmTavix.lblTestTime[1].caption + frmTavix.lblTestTime[2].caption, "030");
    study.change("UPDATE tblDiseaseSymptom SET Count = -1");
    EXPECT_FAULT(signIn("Plain"), SubscriptOutOfRange);
}

TEST_F(Load, WordsAreDealtSymptomsFirstAndStored) {
    // Six symptoms, of which three are stored; then three diseases of five.
    draw({0.99, 0, 0, 0, 0, 0, 0.4, 0.5, 0});
    termOrders::loadVocabulary();
    EXPECT_EQ(words(), "Unrest,Quiver,Rash,Stupor,Tremor,Pallor,|Brill|Corvex|Aavo");
    EXPECT_EQ(orders(), "kim|Plain|Unrest,Quiver,Rash|Brill,Corvex,Aavo");
    // A word that is dropped may be empty; an empty vocabulary leaves the words, which are dealt again.
    study.change("UPDATE tblVocabulary SET Term = NULL WHERE Term = 'Extra'");
    study.change("DELETE FROM tblVocabulary WHERE Type = 'Symptom'");
    draw({0.2, 0, 0, 0, 0, 0, 0, 0, 0});
    termOrders::loadVocabulary();
    EXPECT_EQ(words(), "Quiver,Unrest,Rash,Stupor,Tremor,Pallor,|Aavo|Brill|Corvex");
    // Of two rows the first, in either letter case.
    s.subjectName = "KIM";
    termOrders::restoreTermOrders();
    EXPECT_EQ(words(), "Unrest,Quiver,Rash,|Brill|Corvex|Aavo");
    study.change("ALTER TABLE tblBaseRates ADD COLUMN D5 DEFAULT 0");
    study.change("UPDATE tblBaseRates SET Count = 5, D4 = 0");
    signIn("Plain");
    termOrders::loadVocabulary();
    EXPECT_EQ(s.diseaseCount, 4) << "four at most";
    s.symptomCount = 4;
    EXPECT_FAULT(termOrders::recordTermOrders(), SubscriptOutOfRange);
    EXPECT_EQ(study.rows("SELECT count(*) FROM SubjectSettings"), "3");
    study.change(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 32768) "
        "INSERT INTO tblVocabulary (Type, Term) SELECT 'Disease', 'x' FROM n");
    EXPECT_FAULT(termOrders::loadVocabulary(), Overflow);  // rows are counted with 16 bits
}

TEST_F(Load, AnotherScenarioInMidRun) {
    frmLogin.IsNew = true;
    modAppLoad::loadOptions();
    modAppLoad::loadCaseData();
    setText(frmTavix.cboT, "Four");
    EXPECT_EQ(s.settingName, "Plain") << "a text that is not on the list";
    for (const char* item : {"Four", "Plain", "Four"}) addItem(frmTavix.cboT, item);
    Options.TestCost.set("7");
    modAppLoad::changeSetting();
    EXPECT_EQ(s.settingIndex, 0);
    EXPECT_EQ(s.likelihoodRows, 64.0);
    EXPECT_EQ(Options.TestCost.text(), "7") << "the options stay";
    // Stored under the scenario of the sign-in, also for a new subject, who is dealt words again.
    EXPECT_EQ(study.rows("SELECT Setting FROM SubjectSettings"), "Plain/Plain");
}

}  // namespace
