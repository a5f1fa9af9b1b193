// What an experimenter's files may look like, and what a new store must not leave behind or take over.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "store/layer/engine.h"
#include "store/layer/openTable.h"
#include "tests/temporaryStudy.h"
#include "tools/createStore.h"

namespace {

namespace fs = std::filesystem;

class TableImport : public testing::Test {
protected:
    TemporaryStudy study{false};
    std::string tables = study.folder + "/tables";

    void SetUp() override { fs::copy(TAVIX_TESTS "/tables", tables); }

    /// All complaints about the tables with this one in it, one a line.
    std::string made(const std::string& table, const std::string& bytes) {
        writeFile(tables + "/" + table + ".csv", bytes);
        std::string all;
        for (const std::string& problem : createStore::create(tables, study.storePath(), true))
            all += problem + "\n";
        return all;
    }

    /// One column of a table as the engine quotes its values, parted by "/".
    [[nodiscard]] std::string column(const std::string& name, const std::string& table) const {
        const engine::Database database =
            engine::open(study.storePath(), store::password, engine::Access::Read);
        std::string all;
        for (const auto& row :
             engine::query(*database, fmt::format("SELECT quote({}) || '' FROM {}", name, table)).rows)
            all += (all.empty() ? "" : "/") + std::get<std::string>(row[0]);
        return all;
    }
};

TEST_F(TableImport, KeepsTextsToTheByte) {
    EXPECT_EQ(made("tblVocabulary",
                   "Type,Term\r\n"
                   "Disease,\"two\r\n\r\nlines\"\r\n"
                   "Disease,\" a, \"\"b\"\" \"\r\n"
                   "Symptom,5'10\" tall \r\n"
                   "Symptom,\"\"\r\n"
                   "Symptom,Fi\xC3\xA8vre"),
              "");
    EXPECT_EQ(column("Term", "tblVocabulary"),
              "'two\r\n\r\nlines'/' a, \"b\" '/'5''10\" tall '/NULL/'Fi\xC3\xA8vre'");
    EXPECT_EQ(made("tblVocabulary", "Type,Term\nDisease,Fi\xE8vre\n"), "");
    EXPECT_EQ(column("Term", "tblVocabulary"), "'Fi\xC3\xA8vre'") << "no UTF-8: read as Latin-1";
}

TEST_F(TableImport, CountsTheLinesInsideQuotes) {
    EXPECT_EQ(made("tblVocabulary", "Type,Term\nDisease,\"a\n\nb\"\n\nSymptom\n"),
              "tblVocabulary.csv, line 6: 1 fields where the first line names 2 columns\n");
    EXPECT_EQ(made("tblVocabulary", "Type,Term\r\nDisease,\"a\r\nb\"\r\nSymptom,\"c\"d\r\n"),
              "tblVocabulary.csv, line 4: text behind a closing double quote\n");
    EXPECT_EQ(made("tblVocabulary", "Type,Term\nDisease,a\nSymptom,\"b\nSymptom,c\n"),
              "tblVocabulary.csv, line 3: a double quote is not closed\n");
}

TEST_F(TableImport, TakesNumbersUpToTheirBits) {
    EXPECT_EQ(made("tblPatients", "Name,Age,Height,Weight,Health\n a ,-32768,32767, 5 ,1e2\nb,,+3,1.0,-0\n"),
              "");
    EXPECT_EQ(column("Name", "tblPatients"), "' a '/'b'");
    EXPECT_EQ(column("Age", "tblPatients"), "-32768/NULL");
    EXPECT_EQ(column("Height", "tblPatients"), "32767/3");
    EXPECT_EQ(column("Weight", "tblPatients"), "5/1");
    EXPECT_EQ(column("Health", "tblPatients"), "100/0");
    EXPECT_EQ(made("dataTrial", "Score,Penalty\n-2147483648,-1.25e1\n2147483647,\n"), "");
    EXPECT_EQ(column("Score", "dataTrial"), "-2147483648/2147483647");
    EXPECT_EQ(column("Penalty", "dataTrial"), "-12.5/NULL");
    EXPECT_EQ(made("dataTrial", "Score,Penalty\n-2147483649,1e\n0x10,\"1,5\"\n"),
              "dataTrial.csv, line 2: column Score: \"-2147483649\" does not fit 32 bits\n"
              "dataTrial.csv, line 2: column Penalty: \"1e\" is no number\n"
              "dataTrial.csv, line 3: column Score: \"0x10\" is no number\n"
              "dataTrial.csv, line 3: column Penalty: \"1,5\" is no number\n");
}

TEST_F(TableImport, NamesAColumnBeyondWhatAStoreCanHold) {
    EXPECT_TRUE(
        made("tblBaseRates", "Setting,Count,D99999\nPlain,3,5\n").starts_with("tblBaseRates.csv, line 1: "));
}

TEST_F(TableImport, ARefusedTargetKeepsWhatItIs) {
    fs::create_directory(study.storePath());
    EXPECT_EQ(createStore::create(tables, study.storePath(), false).size(), 1U);
    EXPECT_EQ(createStore::create(tables, study.storePath(), true).size(), 1U);
    EXPECT_TRUE(fs::is_directory(study.storePath()));
    EXPECT_FALSE(fs::exists(study.storePath() + ".new"));
}

// A killed program leaves the journal of its last operation. It belongs to the store that is replaced: the
// engine would play it into the new one.
TEST_F(TableImport, AReplacedStoreIsRidOfTheOldJournal) {
    ASSERT_TRUE(createStore::create(tables, study.storePath(), false).empty());
    {
        const engine::Database database =
            engine::open(study.storePath(), store::password, engine::Access::Write);
        engine::query(*database, "PRAGMA cache_size = 1");
        engine::execute(*database, "BEGIN IMMEDIATE");
        for (int i = 0; i < 500; ++i) {
            const engine::Value text = std::string(900, 'x');
            engine::execute(*database, "INSERT INTO SubjectInfo (Subject) VALUES (?)", {&text, 1});
        }
        fs::copy_file(study.storePath() + "-journal", study.folder + "/killed-journal");
    }
    fs::rename(study.folder + "/killed-journal", study.storePath() + "-journal");
    ASSERT_TRUE(createStore::create(tables, study.storePath(), true).empty());
    EXPECT_FALSE(fs::exists(study.storePath() + "-journal"));
    std::string names;
    EXPECT_NO_THROW(names = column("Name", "tblPatients"));
    EXPECT_EQ(names, "'Anna Bell'/'Karl Dorn'");
}

}  // namespace
