// What check finds in a study: the sample, which is sound, with one fault at a time. A fault must be named at
// its place, and nothing else may be an error.
#include <gtest/gtest.h>

#include <filesystem>

#include "study/check.h"
#include "study/createStore.h"
#include "tests/temporaryStudy.h"

namespace {

namespace fs = std::filesystem;

constexpr const char* sample = TAVIX_TESTS "/../sample";

struct SampleStudy : TemporaryStudy {
    SampleStudy() : TemporaryStudy(false) {
        fs::remove(folder + "/Patients");
        fs::copy(std::string(sample) + "/Patients", folder + "/Patients");
        createStore::create(std::string(sample) + "/tables", storePath(), false);
    }
    /// The findings above a note, or all if there is no such; without their texts.
    [[nodiscard]] std::string found() const {
        std::string severe, notes;
        for (const check::Finding& f : check::look(storePath(), check::folderOf(storePath()))) {
            std::string& list = f.grade == check::Grade::Note ? notes : severe;
            list += (list.empty() ? "" : ", ") + std::string(check::wordFor(f.grade)) + " " + f.table + " " +
                    std::to_string(f.row) + " " + f.column;
        }
        return severe.empty() ? notes : severe;
    }
};

TEST(StudyCheck, NamesEachFaultAtItsPlaceAndNothingElse) {
    const SampleStudy study;
    EXPECT_EQ(study.found(), "");
    struct Fault {
        const char *change, *wanted;
    };
    for (const Fault& fault : {
             // Names, and rows that belong together.
             Fault{"UPDATE tblAppDefault SET Setting='9' WHERE rowid=8; DELETE FROM tblDiseaseSymptom WHERE "
                   "Setting LIKE '8%'; DELETE FROM tblTreatments WHERE Setting LIKE '8%'",
                   "error tblAppDefault 8 Setting, warning tblBaseRates 8 Setting"},
             {"INSERT INTO tblAppDefault SELECT * FROM tblAppDefault WHERE rowid=8",
              "error tblAppDefault 9 Setting"},
             {"UPDATE tblAppDefault SET Setting=NULL WHERE rowid=8; DELETE FROM tblDiseaseSymptom WHERE "
              "Setting "
              "LIKE '8%'; DELETE FROM tblTreatments WHERE Setting LIKE '8%'",
              "error tblAppDefault 8 Setting, warning tblBaseRates 8 Setting"},
             {"DELETE FROM tblBaseRates WHERE rowid=2", "error tblBaseRates 0 Setting"},
             {"UPDATE tblBaseRates SET Setting='2 D' WHERE rowid=2", "warning tblBaseRates 2 Setting"},
             {"UPDATE tblBaseRates SET Setting='9' WHERE rowid=2", "error tblBaseRates 2 Setting"},
             {"UPDATE tblTreatments SET Setting='x' WHERE rowid=1", "warning tblTreatments 1 Setting"},
             {"DELETE FROM tblTreatments WHERE Setting LIKE '2%'", "error tblTreatments 0 Setting"},
             {"DELETE FROM tblDiseaseSymptom WHERE Setting LIKE '2%'", "error tblDiseaseSymptom 0 Setting"},
             {"DROP TABLE dataEvents", "error dataEvents 0 "},
             {"CREATE TABLE x AS SELECT SETTING FROM tblTests; DROP TABLE tblTests; ALTER TABLE x RENAME TO "
              "tblTests",
              "error tblTests 0 Length"},
             // Counts and percents.
             {"UPDATE tblBaseRates SET D1=35 WHERE rowid=2", "error tblBaseRates 2 D1"},
             {"UPDATE tblBaseRates SET D1=44.6 WHERE rowid=2", "warning tblBaseRates 2 D1"},
             {"UPDATE tblBaseRates SET D3=NULL WHERE rowid=2", "error tblBaseRates 2 D3"},
             {"UPDATE tblBaseRates SET Count=2 WHERE rowid=2", "error tblBaseRates 2 Count"},
             {"UPDATE tblBaseRates SET Count=5 WHERE rowid=3", "error tblBaseRates 3 Count"},
             {"UPDATE tblDiseaseSymptom SET Count=2 WHERE rowid=6", "error tblDiseaseSymptom 6 Count"},
             {"UPDATE tblDiseaseSymptom SET Count=3, D3=5 WHERE rowid=1", "error tblDiseaseSymptom 1 Count"},
             {"UPDATE tblDiseaseSymptom SET Count=3, D3=5 WHERE rowid=2",
              "warning tblDiseaseSymptom 2 Count"},
             {"UPDATE tblDiseaseSymptom SET D2=101 WHERE rowid=2", "error tblDiseaseSymptom 2 D2"},
             {"INSERT INTO tblDiseaseSymptom VALUES('3 One treatment',1,4,1,2,3,4)",
              "error tblDiseaseSymptom 35 Setting"},
             {"UPDATE tblAppDefault SET DiagnoseAllDiseases=1 WHERE rowid=2",
              "error tblDiseaseSymptom 8 Setting"},
             {"UPDATE tblTreatments SET [D4-]=NULL WHERE rowid=8", "error tblTreatments 8 D4-"},
             // Options, costs, clock and meters.
             {"UPDATE tblAppDefault SET Time=31 WHERE rowid=2", "error tblAppDefault 2 Time"},
             {"UPDATE tblAppDefault SET Time=28, SimRate=20 WHERE rowid=2", "error tblAppDefault 2 Time"},
             {"UPDATE tblAppDefault SET StartHour=-1 WHERE rowid=1", "error tblAppDefault 1 StartHour"},
             {"UPDATE tblAppDefault SET StartMin='x' WHERE rowid=1", "warning tblAppDefault 1 StartMin"},
             {"UPDATE tblAppDefault SET StartHour=9 WHERE rowid=1", "warning tblAppDefault 1 StartHour"},
             {"UPDATE tblAppDefault SET StartHour=11, Time=1 WHERE rowid=1",
              "error tblAppDefault 1 StartHour"},
             {"UPDATE tblAppDefault SET HealAward=328 WHERE rowid=3", "error tblAppDefault 3 HealAward"},
             {"UPDATE tblAppDefault SET TestCost='x' WHERE rowid=3", "warning tblAppDefault 3 TestCost"},
             {"UPDATE tblAppDefault SET TestCost=30000 WHERE rowid=3", "error tblAppDefault 3 TestCost"},
             {"UPDATE tblAppDefault SET MaxBeliefCost=32700 WHERE rowid=3",
              "error tblAppDefault 3 MaxBeliefCost"},
             {"UPDATE tblAppDefault SET TreatmentProperty=2 WHERE rowid=3",
              "error tblAppDefault 3 TreatmentProperty"},
             {"UPDATE tblAppDefault SET YokeBeliefMeters=1 WHERE rowid=3",
              "note tblAppDefault 3 YokeBeliefMeters"},
             {"UPDATE tblAppDefault SET YokeBeliefMeters=1, InitToBaseRates=1 WHERE rowid=6; UPDATE "
              "tblBaseRates SET "
              "D1=17, D2=72, D3=97 WHERE rowid=6",
              "error tblAppDefault 6 YokeBeliefMeters, error tblBaseRates 6 D1"},
             // Words, persons, tests, subjects.
             {"UPDATE tblVocabulary SET Term='a,b' WHERE rowid=6", "error tblVocabulary 6 Term"},
             {"UPDATE tblVocabulary SET Term='a''b' WHERE rowid=6", "warning tblVocabulary 6 Term"},
             {"UPDATE tblVocabulary SET Term='twelve chars' WHERE rowid=4", "error tblVocabulary 4 Term"},
             {"UPDATE tblVocabulary SET Type='Sympton' WHERE rowid=6", "error tblVocabulary 6 Type"},
             {"DELETE FROM tblVocabulary WHERE rowid=6", "error tblVocabulary 0 Term"},
             {"UPDATE tblPatients SET Health=101 WHERE rowid=2", "error tblPatients 2 Health"},
             {"UPDATE tblPatients SET Picture='hale.txt' WHERE rowid=2", "error tblPatients 2 Picture"},
             {"UPDATE tblPatients SET Intro='no.txt' WHERE rowid=2", "error tblPatients 2 Intro"},
             {"UPDATE tblAppDefault SET TestLengthSetting='a''b' WHERE rowid=1",
              "error tblAppDefault 1 TestLengthSetting"},
             {"UPDATE tblTests SET Length='720' WHERE rowid=1", "warning tblTests 1 Length"},
             {"UPDATE tblTests SET Length='200' WHERE rowid=1", "note tblTests 1 Length"},
             {"DELETE FROM tblTests WHERE rowid=13", "warning tblTests 0 Length"},
             {"INSERT INTO SubjectInfo(Subject) VALUES('kim'),('KIM1'),('kim02')",
              "warning SubjectInfo 2 Subject"},
         }) {
        const std::string bytes = outputOf("cat " + study.storePath());
        for (std::string rest = fault.change; !rest.empty();) {
            const std::size_t end = std::min(rest.find("; "), rest.size());
            study.change(rest.substr(0, end));
            rest.erase(0, end + 2);
        }
        EXPECT_EQ(study.found(), fault.wanted) << fault.change;
        writeFile(study.storePath(), bytes);
    }
    writeFile(study.folder + "/Patients/hale.txt", "it's");
    EXPECT_EQ(study.found(), "warning tblPatients 4 Intro");
    fs::remove_all(study.folder + "/Patients");
    EXPECT_EQ(study.found(), "error tblPatients 0 Picture");
    const std::string answer = outputOf(TAVIX_BIN "/tavixdb check --json " + study.storePath() + "; echo $?");
    EXPECT_NE(answer.find("\"row\": null,\n      \"column\": \"Picture\""), std::string::npos) << answer;
    EXPECT_TRUE(answer.ends_with("]\n}\n2\n"));
    EXPECT_EQ(
        outputOf(TAVIX_BIN "/tavixdb check /dev/null 2>&1; " TAVIX_BIN "/tavixdb check 2>/dev/null; echo $?"),
        "/dev/null: holds no table; it is no store\n3\n");
}

}  // namespace
