// What a run loads from its store: options, words, the model's tables, the roster and the subject's last
// trial.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "forms/frmLogin.h"
#include "forms/frmOptions.h"
#include "forms/frmTavix.h"
#include "knowledge/modDisease.h"
#include "knowledge/modPatient.h"
#include "knowledge/modTests.h"
#include "knowledge/termOrders.h"
#include "platform/randomSource.h"
#include "state/TrialState.h"
#include "store/loading/modAppLoad.h"
#include "store/record/Options.h"
#include "tests/faults.h"
#include "tests/stage.h"
#include "tests/temporaryStudy.h"
#include "trial/course/modHealth.h"
#include "trial/run/run.h"

namespace {

/// Subject kim at the sign-in, in the scenario "Plain".
class Load : public testing::Test {
protected:
    TemporaryStudy study;
    Stage stage{study.folder};
    TrialState& s = trialState;

    void SetUp() override {
        s.subjectName = "kim";
        signIn("Plain");
    }
    void signIn(const std::string& setting) {
        clearItems(frmLogin.cboType);
        modAppLoad::listSettings();
        setText(frmLogin.cboType, setting);
        s.settingName = setting;
        s.settingIndex = findItem(frmLogin.cboType, setting);
    }
    static void loadModel() {
        modDisease::loadBaseRates();
        modDisease::loadDiseaseSymptom();
    }
    [[nodiscard]] std::string orders() const {
        return study.rows("SELECT Subject,Setting,TestOrder,DiseaseOrder FROM SubjectSettings");
    }
    template <class Term>
    static std::string words(const List<Term>& terms) {
        std::string all;
        for (const Term& term : terms) all += (all.empty() ? "" : ",") + term.term;
        return all;
    }
};

TEST_F(Load, OptionsBeforeAScenarioIsLoaded) {
    EXPECT_EQ(Options.Time.value(), 4);
    EXPECT_EQ(Options.SimRate.value(), 4);
    std::string texts = Options.StartHour.text() + ":" + Options.StartMin.text();
    for (const TextColumn& column : textColumns()) texts += " " + (Options.*column.field).text();
    EXPECT_EQ(texts, "01:00 2000 0 0 25 50 100");
    for (const FlagColumn& column : flagColumns()) EXPECT_FALSE(Options.*column.flag) << column.column;
    setValue(Options.Normalize.box, 2);
    EXPECT_FALSE(Options.Normalize) << "on only when it is 1";
}

TEST_F(Load, EachColumnHasItsOwnFlag) {
    for (const FlagColumn& column : flagColumns())
        study.change(std::string("UPDATE tblAppDefault SET TreatmentProperty = 0, ") + column.column +
                     " = 0");
    const std::vector<std::pair<const char*, Control*>> boxes{
        {"CyclePatients", &frmOptions.chkCycle},
        {"ShowOptions", &frmOptions.chkOptionsFrequency},
        {"DiagnoseAfterTests", &frmOptions.chkForce},
        {"TimeStopDiagnosis", &frmOptions.chkStopTime},
        {"DiagnoseAllDiseases", &frmOptions.chkDiagnoseAll},
        {"YokeBeliefMeters", &frmOptions.chkYoke},
        {"Normalize", &frmOptions.chkNormalize},
        {"InitToBaseRates", &frmOptions.chkInitToBaseRates},
        {"ViewBaseRates", &frmOptions.chkBaseRates},
        {"ViewSymptomDisease", &frmOptions.chkSVD},
        {"ViewTreatmentDisease", &frmOptions.chkTreatmentTable},
        {"DoTreatments", &frmOptions.chkTreatments},
        {"FeedbackSymptomsP", &frmOptions.chkFeedbackSymptom},
        {"BestTreatment", &frmOptions.chkBestTreatment},
        {"FeedbackTestsResults", &frmOptions.chkFeedbackTests},
        {"ShowNormalize", &frmOptions.chkShowNormalize},
        {"FeedbackDiseaseP", &frmOptions.chkDiseaseProbability},
        {"UseNormalizeScore", &frmOptions.chkUseNormalize}};
    int count = 0;
    for (const auto& [column, box] : boxes) {
        study.change(std::string("UPDATE tblAppDefault SET ") + column + " = -1");
        modAppLoad::loadOptions();
        EXPECT_TRUE(isTicked(*box)) << column;
        const auto ticked = [](const Control* control) {
            return control->kind == Kind::TickBox && isTicked(*control);
        };
        EXPECT_EQ(std::count_if(allControls().begin(), allControls().end(), ticked), ++count) << column;
    }
}

TEST_F(Load, OptionsOfAScenario) {
    // A flag that is off in the row stays as it stands; an empty treatment column leaves both flags.
    Options.Normalize.set(true);
    study.change(
        "UPDATE tblAppDefault SET DoTreatments = 0, TreatmentProperty = -1, StartHour = '11', "
        "StartMin = '5', TestCost = NULL, HealAward = '1x' WHERE Setting = 'Plain'");
    modAppLoad::loadOptions();
    EXPECT_TRUE(Options.Normalize);
    EXPECT_FALSE(Options.DoTreatments || Options.OneTreatment);
    EXPECT_TRUE(Options.Risk);
    EXPECT_EQ(Options.StartHour.text() + ":" + Options.StartMin.text(), "011:05");
    EXPECT_EQ(Options.TestCost.text() + "|" + Options.HealAward.text(), "|1x");

    const auto loadWith = [this](const std::string& values) {
        study.change("UPDATE tblAppDefault SET " + values + " WHERE Setting = 'Plain'");
        modAppLoad::loadOptions();
    };
    loadWith("DoTreatments = -1, TreatmentProperty = NULL, StartHour = '9', StartMin = '10'");
    EXPECT_TRUE(Options.OneTreatment && !Options.Risk) << "as the treatment stage ticks them";
    EXPECT_EQ(Options.StartHour.text() + ":" + Options.StartMin.text(), "9:10");
    loadWith("TreatmentProperty = 0");
    EXPECT_FALSE(Options.OneTreatment || Options.Risk);
    for (const char* property : {"-2", "2"}) {
        EXPECT_THROW(loadWith(std::string("TreatmentProperty = ") + property), ProgramEnded);
        EXPECT_EQ(stage.said(),
                  "|Error in TreatmentProperty of options in database file, table tblAppDefault");
    }
    EXPECT_FAULT(loadWith("SimRate = 21"), FaultNumber::InvalidPropertyValue);
    EXPECT_FAULT(loadWith("SimRate = NULL"), FaultNumber::InvalidUseOfNull);
    study.change("ALTER TABLE tblAppDefault RENAME TO kept");
    study.change("CREATE TABLE tblAppDefault AS SELECT Setting, TestLengthSetting, 4 AS Time FROM kept");
    EXPECT_FAULT(modAppLoad::loadOptions(), FaultNumber::ItemNotFound);
    study.change("DELETE FROM tblAppDefault");
    EXPECT_THROW(modAppLoad::loadOptions(), ProgramEnded);
    EXPECT_EQ(stage.said(), "Weird option load error|Settings in tblappdefault were somehow deleted");
}

TEST_F(Load, RatesAreReachedByThePlaceInTheSortedList) {
    study.change("INSERT INTO tblAppDefault (Setting) VALUES ('aaa')");
    study.change("INSERT INTO tblBaseRates (Setting, Count, D1) VALUES ('aaa', 1, 77)");
    signIn("aaa");
    loadModel();
    EXPECT_EQ(s.settingIndex.raw, 0);
    EXPECT_EQ(modDisease::currentBaseRates().percents[0], 77);
    EXPECT_EQ(s.baseRateRows, 3);
}

TEST_F(Load, ModelTables) {
    loadModel();
    EXPECT_EQ(modDisease::currentBaseRates().setting, "Plain");
    EXPECT_EQ(s.symptomCount, 3);
    EXPECT_EQ(s.tableDiseaseCount, 3);
    EXPECT_EQ(s.diseaseSymptom[2].percents[1], 50);
    EXPECT_TRUE(s.diseaseSymptom[0].initVisible);
    // Without rows all stays as it was, and nothing is said.
    signIn("No such scenario");
    study.change("DELETE FROM tblBaseRates");
    loadModel();
    EXPECT_EQ(s.baseRateRows, 2);
    EXPECT_EQ(s.symptomCount, 3);
    EXPECT_EQ(stage.said(), "");

    signIn("Plain");
    const auto loadWith = [this](const std::string& values) {
        study.change("UPDATE tblDiseaseSymptom SET " + values);
        modDisease::loadDiseaseSymptom();
    };
    loadWith("InitVisible = NULL");
    EXPECT_FALSE(s.diseaseSymptom[0].initVisible);
    EXPECT_FAULT(loadWith("D2 = 32768"), FaultNumber::Overflow);
    EXPECT_FAULT(loadWith("D2 = NULL"), FaultNumber::InvalidUseOfNull);
    EXPECT_FAULT(loadWith("D2 = 1, Count = 5, D4 = 1"), FaultNumber::ItemNotFound);  // there is no D5
    // A slot for which no row comes keeps the length that it comes with.
    s.testLengthSetting = "slow";
    modTests::loadTests();
    EXPECT_EQ(
        frmTavix.lblTestTime[0].caption + frmTavix.lblTestTime[1].caption + frmTavix.lblTestTime[2].caption,
        "90030");
}

TEST_F(Load, WordsAreDealtSymptomsFirstAndStored) {
    loadModel();
    // Six symptoms, of which three are stored; then three diseases of five.
    draw({0.99, 0, 0, 0, 0, 0, 0.4, 0.5, 0});
    termOrders::loadVocabulary();
    EXPECT_EQ(words(s.symptomTerms), "Unrest,Quiver,Rash,Stupor,Tremor,Pallor");
    EXPECT_EQ(orders(), "kim|Plain|Unrest,Quiver,Rash|Brill,Corvex,Aavo");

    // A word that is dropped may be empty; an empty vocabulary leaves the words, which are dealt again.
    study.change("UPDATE tblVocabulary SET Term = NULL WHERE Term = 'Extra'");
    study.change("DELETE FROM tblVocabulary WHERE Type = 'Symptom'");
    draw({0.2, 0, 0, 0, 0, 0, 0, 0, 0});
    termOrders::loadVocabulary();
    EXPECT_EQ(words(s.symptomTerms), "Quiver,Unrest,Rash,Stupor,Tremor,Pallor");

    // Of two rows the first; a subject without one is dealt words.
    s.subjectName = "KIM";
    termOrders::restoreTermOrders();
    EXPECT_EQ(words(s.symptomTerms) + "|" + words(s.diseaseTerms), "Unrest,Quiver,Rash|Brill,Corvex,Aavo");
    EXPECT_EQ(s.symptomTermCount, 3);
    s.subjectName = "lea";
    termOrders::restoreTermOrders();
    EXPECT_TRUE(orders().ends_with("/lea|Plain|" + words(s.symptomTerms) + "|" + words(s.diseaseTerms)));

    study.change("UPDATE SubjectSettings SET TestOrder = NULL");
    EXPECT_FAULT(termOrders::restoreTermOrders(), FaultNumber::InvalidUseOfNull);
}

TEST_F(Load, FourDiseasesAtMostAndNoFewerSymptomsThanRows) {
    study.change("UPDATE tblBaseRates SET Count = 5, D4 = 0");
    study.change("ALTER TABLE tblBaseRates ADD COLUMN D5 DEFAULT 0");
    loadModel();
    draw({0, 0, 0, 0, 0, 0, 0, 0, 0, 0});
    termOrders::loadVocabulary();
    EXPECT_EQ(words(s.diseaseTerms), "Aavo,Brill,Corvex,Dunnit");
    study.change("DELETE FROM tblVocabulary WHERE Term > 'R'");
    EXPECT_FAULT(termOrders::loadVocabulary(), FaultNumber::SubscriptOutOfRange);
    EXPECT_EQ(study.rows("SELECT count(*) FROM SubjectSettings"), "1");
    study.change("UPDATE tblVocabulary SET Term = NULL");
    EXPECT_FAULT(termOrders::loadVocabulary(), FaultNumber::InvalidUseOfNull);
}

TEST_F(Load, ARosterIsDrawnFromWithFiftyTries) {
    Options.InitScore.set("25");
    s.trialNumber = 9;
    modPatient::loadPatients();
    EXPECT_EQ(s.trialNumber.raw, 0);
    EXPECT_EQ(Options.InitScore.text(), "25");
    for (const char* row : {"'kim', 9, 100", "'KIM', 12, -7", "'kim', 10, 300", "'kim1', 20, 5"})
        study.change(std::string("INSERT INTO dataTrial (Subject, Trial, Score) VALUES (") + row + ")");
    modAppLoad::loadOptions();
    frmLogin.IsNew = true;
    modAppLoad::loadCaseData();
    EXPECT_EQ(s.trialNumber.raw, 12);
    EXPECT_EQ(Options.InitScore.text(), "-7");

    const auto nextAfter = [this](std::size_t tries) {
        std::vector<double> draws(tries, 0.0);
        draws.push_back(0.995);
        draw({});
        randomSource::queueDraws(draws);
        modPatient::nextPatient();
        return frmTavix.lblPatientName.caption + " " + std::to_string(s.trialNumber.raw);
    };
    s.patients[0].status = "Dead";
    EXPECT_EQ(nextAfter(50), " 12");
    EXPECT_EQ(stage.said(), "|Could not retrieve patient info");
    EXPECT_EQ(nextAfter(49), "Karl Dorn 13");
    EXPECT_EQ(frmTavix.lblHeight.caption + frmTavix.lblGender.caption + frmTavix.lblWeight.caption,
              "5'10\"Male180 lbs");
    EXPECT_EQ(frmTavix.txtIntro.text.find("\r\r"), std::string::npos) << "whatever its line ends";
    EXPECT_TRUE(frmTavix.txtIntro.text.ends_with(".\r\n"));
    EXPECT_EQ(s.patients[1].status, "Under Surveillance");
    s.patientsSeen = 2;
    Options.CyclePatients.set(false);
    EXPECT_EQ(nextAfter(0), "Karl Dorn 14");
    EXPECT_EQ(stage.said(),
              "All Patients Diagnosed|Please alert moderator to click Yes to cycle again or No to quit");
    EXPECT_EQ(s.patients[0].status, "Untreated");
    s.patientsSeen = 2;
    stage.answers = {Answer::No};
    EXPECT_THROW(nextAfter(0), ProgramEnded);
    study.change("UPDATE tblPatients SET Intro = 'nowhere.txt', Picture = 'anna.txt'");
    modPatient::loadPatients();
    EXPECT_FAULT(nextAfter(0), FaultNumber::FileNotFound);
    study.change("UPDATE tblPatients SET Intro = NULL, Age = NULL WHERE Age < 50");
    EXPECT_FAULT(modPatient::loadPatients(), FaultNumber::InvalidUseOfNull);
    study.change("DELETE FROM tblPatients WHERE Age IS NULL");
    study.change("UPDATE tblPatients SET Intro = NULL");
    modPatient::loadPatients();
    EXPECT_FAULT(nextAfter(0), FaultNumber::InvalidPicture);
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
    EXPECT_EQ(s.settingName, "Four");
    EXPECT_EQ(s.settingIndex, 0);
    EXPECT_EQ(s.symptomCount, 6);
    EXPECT_EQ(s.likelihoodRows, 64.0);
    EXPECT_EQ(Options.TestCost.text(), "7") << "the options stay";
    // Stored under the scenario of the sign-in, also for a new subject, who is dealt words again.
    EXPECT_EQ(study.rows("SELECT Setting FROM SubjectSettings"), "Plain/Plain");
}

TEST_F(Load, EachTrialBeginsItsCountsAnew) {
    modHealth::initHealthMonitor();
    modAppLoad::loadOptions();
    modAppLoad::loadCaseData();
    for (Int16 TrialState::*count :
         {&TrialState::eventCount, &TrialState::noteSymptomCount, &TrialState::evidenceCount,
          &TrialState::removeCount, &TrialState::testCount, &TrialState::diagnosisCount,
          &TrialState::treatmentCount, &TrialState::elapsedHours}) {
        s.*count = 7;
        s.elapsedMinutes = 7;
        s.patientSaved = true;
        run::startTrial();
        EXPECT_EQ(s.*count, 0);
        EXPECT_EQ(s.elapsedMinutes, 0);
        EXPECT_FALSE(s.patientSaved);
    }
    EXPECT_EQ(s.diagnosisStateId, "kim08_00");
}

}  // namespace
