// A store made from tables as experimenters write them: what goes in, what is refused and where it is said.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "platform/files.h"
#include "store/layer/engine.h"
#include "store/layer/openTable.h"
#include "tests/temporaryStudy.h"
#include "tools/createStore.h"

namespace {

namespace fs = std::filesystem;

class Tools : public testing::Test {
protected:
    TemporaryStudy study{false};
    std::string tables = study.folder + "/tables";

    void SetUp() override { fs::copy(TAVIX_TESTS "/tables", tables); }

    /// All complaints about the tables with this one in it, one a line; a store is made only without one.
    std::string made(const std::string& table, const std::string& bytes) {
        fs::remove(study.storePath());
        const std::string file = tables + "/" + table + ".csv";
        const std::string before = fs::exists(file) ? files::read(file) : "";
        writeFile(file, bytes);
        std::string all;
        for (const std::string& problem : createStore::create(tables, study.storePath(), false))
            all += problem + "\n";
        EXPECT_EQ(fs::exists(study.storePath()), all.empty());
        EXPECT_FALSE(fs::exists(study.storePath() + ".new"));
        before.empty() ? static_cast<void>(fs::remove(file)) : writeFile(file, before);
        return all;
    }
    /// What `tavixdb create` with these arguments writes to standard output and to standard error, and its
    /// status.
    std::string tavixdb(const std::string& arguments) const {
        return outputOf("cd " + study.folder + "; " TAVIX_BIN "/tavixdb " + arguments +
                        " 2>err; printf '|%s|' $?; cat err");
    }
};

TEST_F(Tools, RefuseWhatCannotGoInByFileLineAndColumn) {
    struct Case {
        const char *table, *bytes, *complaints;
    };
    for (const Case& c : {
             Case{"tblPatents", "Name\nx\n", "tblPatents.csv, line 1: there is no table \"tblPatents\"\n"},
             Case{"tblTests", "", "tblTests.csv, line 1: the first line must name the columns\n"},
             Case{"tblTests", "SETTING,Lenght\n",
                  "tblTests.csv, line 1: tblTests has no column \"Lenght\"\n"},
             Case{"tblTests", "SETTING,setting\n", "tblTests.csv, line 1: column SETTING stands twice\n"},
             Case{"tblTests", "SETTING,Length\na,3\n\"b\n\nb\"\n",
                  "tblTests.csv, line 3: 1 fields where the first line names 2 columns\n"},
             Case{"tblTests", "SETTING,Length\r\n\"a\r\n\r\nb\",3\r\nc,\"d\"e\r\n",
                  "tblTests.csv, line 5: text behind a closing double quote\n"},
             Case{"tblTests", "SETTING,Length\na,3\n\"b,3\nc,3\n",
                  "tblTests.csv, line 3: a double quote is not closed\n"},
             Case{"tblPatients", "Name,Age\na,old\nb,32768\nc,3.5\nd,0x10\n",
                  "tblPatients.csv, line 2: column Age: \"old\" is no number\n"
                  "tblPatients.csv, line 3: column Age: \"32768\" does not fit 16 bits\n"
                  "tblPatients.csv, line 4: column Age: \"3.5\" is no whole number\n"
                  "tblPatients.csv, line 5: column Age: \"0x10\" is no number\n"},
             Case{"tblPatients", "Male?\nmaybe\n",
                  "tblPatients.csv, line 2: column Male?: \"maybe\" is neither yes nor no\n"},
             Case{"dataTrial",
                  "Score,Date,Penalty\n-2147483649,5.1.2026,\"1,5\"\n2147483647,2026-01-05,1e999\n",
                  "dataTrial.csv, line 2: column Score: \"-2147483649\" does not fit 32 bits\n"
                  "dataTrial.csv, line 2: column Date: \"5.1.2026\" is no date (yyyy-mm-dd)\n"
                  "dataTrial.csv, line 2: column Penalty: \"1,5\" is no number\n"
                  "dataTrial.csv, line 3: column Penalty: \"1e999\" is too large\n"},
             Case{"dataHypothesisState", "H6,H7\n",
                  "dataHypothesisState.csv, line 1: dataHypothesisState has no column \"H7\"\n"},
             Case{"tblBaseRates", "D401\n",
                  "tblBaseRates.csv, line 1: column D401: a store holds at most 400 diseases\n"},
             // Latin-1 as a whole, UTF-8 as a whole, and no mixture or other code.
             Case{"tblTests", "SETTING\nna\xEFve\n", ""},
             Case{"tblTests", "SETTING\nna\xC3\xAFve\nna\xEFve\n",
                  "tblTests.csv, line 3: is no UTF-8 text; save the file as UTF-8\n"},
             Case{"tblTests", "SETTING\na\x84z\n",
                  "tblTests.csv, line 2: is no UTF-8 text; save the file as UTF-8\n"},
         })
        EXPECT_EQ(made(c.table, c.bytes), c.complaints);
    EXPECT_EQ(made("tblTests", std::string("SETTING\na\0b\n", 12)),
              "tblTests.csv, line 2: holds a zero byte; save the file as UTF-8 text\n");
}

TEST_F(Tools, KeepTextsToTheByteAndNumbersToTheBit) {
    EXPECT_EQ(
        made("tblVocabulary",
             "\xEF\xBB\xBFtype , Term\r\nDisease,\"two\r\n\r\nlines\"\r\n\r\nDisease,\" a, \"\"b\"\" \"\r\n"
             "Symptom,5'10\" tall \r\nSymptom,\"\"\r\nSymptom,Fi\xC3\xA8vre"),
        "");
    EXPECT_EQ(study.rows("SELECT quote(Term) FROM tblVocabulary"),
              "'two\r\n\r\nlines'/' a, \"b\" '/'5''10\" tall '/NULL/'Fi\xC3\xA8vre'");
    EXPECT_EQ(made("tblVocabulary", "Type,Term\nDisease,Fi\xE8vre\n"), "");
    EXPECT_EQ(study.rows("SELECT Term FROM tblVocabulary"), "Fi\xC3\xA8vre") << "no UTF-8: read as Latin-1";
    EXPECT_EQ(made("tblPatients",
                   "Name,Age,Height,Weight,Male?\n a ,-32768,32767, 5 ,YES\nb,,+3,1e2,true\nc,1.0,-0,1,1\n"
                   "d,,,,-1\ne,,,,No\nf,,,,False\ng,,,,0\nh,,,,\n"),
              "");
    EXPECT_EQ(study.rows("SELECT quote(Name), Age, Height, Weight FROM tblPatients LIMIT 3"),
              "' a '|-32768|32767|5/'b'|-|3|100/'c'|1|0|1");
    EXPECT_EQ(study.rows("SELECT quote([Male?]) FROM tblPatients"), "-1/-1/-1/-1/0/0/0/NULL");
    EXPECT_EQ(made("dataTrial", "Score,Penalty,Date\n-2147483648,-1.25e1,2026-01-05\n2147483647,,\n"), "");
    EXPECT_EQ(study.rows("SELECT Score, Penalty, Date FROM dataTrial"),
              "-2147483648|-12.5|2026-01-05/2147483647|-|-");
}

TEST_F(Tools, MakeEveryTableWithAsManyDiseasesAsTheFilesName) {
    EXPECT_EQ(made("tblTreatments", "Setting,Type,D6+\nPlain,Ambrol,100\n"), "");
    const engine::Database database = engine::open(study.storePath(), store::password, engine::Access::Read);
    EXPECT_EQ(engine::columnsOf(*database, "SELECT * FROM tblBaseRates").back(), "D6");
    EXPECT_EQ(engine::columnsOf(*database, "SELECT * FROM dataHypothesisState").size(), 7U);
    EXPECT_EQ(study.rows("SELECT name FROM sqlite_master WHERE name LIKE 'data%' ORDER BY name"),
              "dataEvents/dataGetSymptoms/dataGetTests/dataHypotheses/dataHypothesisState/dataTreatments/"
              "dataTrial");
}

TEST_F(Tools, AnswerOnTheCommandLine) {
    fs::rename(tables + "/tblTests.csv", tables + "/tblTests.CSV");
    EXPECT_EQ(tavixdb("create tables data/a.mdb"), "|0|");
    EXPECT_EQ(tavixdb("create tables data/a.mdb"), "|1|data/a.mdb exists already; --force replaces it\n");
    writeFile(study.storePath(), "precious");
    fs::create_symlink(study.storePath(), study.folder + "/link.mdb");
    EXPECT_EQ(tavixdb("create tables link.mdb"), "|1|link.mdb exists already; --force replaces it\n");
    EXPECT_EQ(fs::file_size(study.storePath()), 8U);
    EXPECT_EQ(tavixdb("create --force tables link.mdb"), "|0|");
    EXPECT_TRUE(fs::is_symlink(study.folder + "/link.mdb"));
    EXPECT_EQ(study.rows("SELECT Name FROM tblPatients"), "Anna Bell/Karl Dorn");

    EXPECT_EQ(tavixdb("create --force tables data"), "|1|data is no plain file and is not replaced\n");
    EXPECT_EQ(tavixdb("create tables no/x.mdb"), "|1|no/x.mdb: there is no folder " + study.folder + "/no\n");
    EXPECT_TRUE(tavixdb("create no x.mdb").starts_with("|1|no: "));
    EXPECT_EQ(tavixdb("create tables \"\""), "|1|\"\" is no file's name\n");
    fs::remove(tables + "/tblPatients.csv");
    EXPECT_EQ(tavixdb("create tables x.mdb"), "|1|tables: the file tblPatients.csv is missing\n");
    EXPECT_FALSE(fs::exists(study.folder + "/x.mdb"));
    EXPECT_TRUE(tavixdb("make").starts_with("|10"));
    EXPECT_TRUE(tavixdb("--help").ends_with("|0|"));
}

// A killed program leaves the journal of its last operation. It belongs to the store that is replaced: the
// engine would play it into the new one.
TEST_F(Tools, RidAReplacedStoreOfTheOldJournal) {
    ASSERT_TRUE(createStore::create(tables, study.storePath(), false).empty());
    {
        const engine::Database database =
            engine::open(study.storePath(), store::password, engine::Access::Write);
        engine::query(*database, "PRAGMA cache_size = 1");
        engine::execute(*database, "BEGIN IMMEDIATE");
        for (int i = 0; i < 100; ++i)
            engine::execute(*database, "INSERT INTO SubjectInfo (Subject) VALUES (zeroblob(900))");
        fs::copy_file(study.storePath() + "-journal", study.folder + "/killed-journal");
    }
    fs::rename(study.folder + "/killed-journal", study.storePath() + "-journal");
    ASSERT_TRUE(createStore::create(tables, study.storePath(), true).empty());
    EXPECT_FALSE(fs::exists(study.storePath() + "-journal"));
    EXPECT_EQ(study.rows("SELECT Name FROM tblPatients"), "Anna Bell/Karl Dorn");
}

}  // namespace
