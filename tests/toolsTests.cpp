// A store made from tables as experimenters write them: what goes in, what is refused and where it is said.
#include <filesystem>

#include "platform/files.h"
#include "store/layer/schema.h"
#include "tests/faults.h"
#include "tests/temporaryStudy.h"
#include "tools/createStore.h"

namespace {

namespace fs = std::filesystem;

class Tools : public testing::Test {
protected:
    TemporaryStudy study{false};
    std::string tables = study.folder + "/tables";

    void layTables() const {
        fs::remove_all(tables);
        fs::copy(TAVIX_TESTS "/tables", tables);
    }
    /// The complaints about this table, parted by "/", without its name; a store is made only without one.
    std::string made(const std::string& table, const std::string& bytes) const {
        layTables();
        fs::remove(study.storePath());
        writeFile(tables + "/" + table + ".csv", bytes);
        std::string all;
        const std::string begin = table + ".csv, line ";
        for (const std::string& problem : createStore::create(tables, study.storePath(), false)) {
            EXPECT_TRUE(problem.starts_with(begin)) << problem;
            all += (all.empty() ? "" : "/") + problem.substr(begin.size());
        }
        EXPECT_EQ(fs::exists(study.storePath()), all.empty());
        return all;
    }
    /// What tavixdb writes to standard output, its status, and what it writes to standard error.
    [[nodiscard]] std::string tavixdb(const std::string& arguments) const {
        return outputOf("cd " + study.folder + "; " TAVIX_BIN "/tavixdb " + arguments +
                        " 2>err; printf '|%s|' $?; cat err");
    }
};

TEST_F(Tools, RefuseWhatCannotGoInByFileLineAndColumn) {
    struct Case {
        const char *table, *bytes, *complaints;
    };
    for (const Case& c :
         {Case{"tblPatents", "Name\nx\n", "1: there is no table \"tblPatents\""},
          Case{"tblTests", "", "1: the first line must name the columns"},
          Case{"tblTests", "SETTING,Lenght,setting\n",
               "1: tblTests has no column \"Lenght\"/1: column SETTING stands twice"},
          Case{"dataHypothesisState", "H6,H7\n", "1: dataHypothesisState has no column \"H7\""},
          Case{"tblBaseRates", "D401\n", "1: column D401: a store holds at most 400 diseases"},
          Case{"tblTests", "SETTING,Length\na,3\n\"b\n\nb\"\n",
               "3: 1 fields where the first line names 2 columns"},
          Case{"tblTests", "SETTING\r\n\"a\r\n\r\nb\"\r\n\"d\"e\r\n",
               "5: text behind a closing double quote"},
          Case{"tblTests", "SETTING\na\n\"b\nc\n", "3: a double quote is not closed"},
          Case{"tblPatients", "Age\nold\n32768\n3.5\n0x10\n",
               "2: column Age: \"old\" is no number/3: column Age: \"32768\" does not fit 16 bits/"
               "4: column Age: \"3.5\" is no whole number/5: column Age: \"0x10\" is no number"},
          Case{"tblPatients", "Male?\nmaybe\n", "2: column Male?: \"maybe\" is neither yes nor no"},
          Case{
              "dataTrial", "Score,Date,Penalty\n-2147483649,5.1.2026,\"1,5\"\n2147483647,2026-01-055,1e999\n",
              "2: column Score: \"-2147483649\" does not fit 32 bits/2: column Date: \"5.1.2026\" is no date "
              "(yyyy-mm-dd)/2: column Penalty: \"1,5\" is no number/3: column Date: \"2026-01-055\" is no "
              "date "
              "(yyyy-mm-dd)/3: column Penalty: \"1e999\" is too large"},
          // Latin-1 as a whole, UTF-8 as a whole, and no mixture or other code.
          Case{"tblTests", "SETTING\nna\xEFve\n", ""},
          Case{"tblTests", "SETTING\nna\xC3\xAFve\nna\xEFve\n",
               "3: is no UTF-8 text; save the file as UTF-8"},
          Case{"tblTests", "SETTING\na\x84z\n", "2: is no UTF-8 text; save the file as UTF-8"}})
        EXPECT_EQ(made(c.table, c.bytes), c.complaints);
    EXPECT_EQ(made("tblTests", std::string("SETTING\na\0b\n", 12)),
              "2: holds a zero byte; save the file as UTF-8 text");
}

TEST_F(Tools, KeepTextsToTheByteAndNumbersToTheBit) {
    EXPECT_EQ(
        made("tblVocabulary",
             "\xEF\xBB\xBFtype , Term\r\nDisease,\"two\r\n\r\nlines\"\r\n\r\nDisease,\" a, \"\"b\"\" \"\r\n"
             "Symptom,5'10\" tall \r\nSymptom,\"\"\r\nSymptom,Fi\xC3\xA8vre"),
        "");
    EXPECT_EQ(study.rows("SELECT quote(Term) FROM tblVocabulary"),
              "'two\r\n\r\nlines'/' a, \"b\" '/'5''10\" tall '/NULL/'Fi\xC3\xA8vre'");
    EXPECT_EQ(
        made("tblPatients",
             "Name,Age,Height,Weight,Male?\nFi\xE8vre ,-32768,32767, 5 ,YES\nb,,+3,1e2,true\nc,1.0,-0,1,1\n"
             "d,,,,-1\ne,,,,No\nf,,,,False\ng,,,,0\nh,,,,\n"),
        "");
    EXPECT_EQ(study.rows("SELECT quote(Name), Age, Height, Weight FROM tblPatients LIMIT 3"),
              "'Fi\xC3\xA8vre '|-32768|32767|5/'b'|-|3|100/'c'|1|0|1");
    EXPECT_EQ(study.rows("SELECT quote([Male?]) FROM tblPatients"), "-1/-1/-1/-1/0/0/0/NULL");
    EXPECT_EQ(made("dataTrial", "Score,Penalty,Date\n-2147483648,-1.25e1,2026-01-05\n2147483647,,\n"), "");
    EXPECT_EQ(study.rows("SELECT Score, Penalty, Date FROM dataTrial"),
              "-2147483648|-12.5|2026-01-05/2147483647|-|-");
}

TEST_F(Tools, MakeEveryTableWithAsManyDiseasesAsTheFilesNameAndFourAtLeast) {
    EXPECT_EQ(schema::columnsOf(*schema::find("TBLBASERATES"), 0).back().name, "D4");
    EXPECT_EQ(made("tblTreatments", "Setting,Type,d6+\nPlain,Ambrol,100\n"), "");
    EXPECT_EQ(study.rows("SELECT count(*), sum(sql LIKE '%D6%'), sum(sql LIKE '%H6]%') FROM sqlite_master"),
              "16|3|1");
}

TEST_F(Tools, AnswerOnTheCommandLine) {
    layTables();
    fs::rename(tables + "/tblTests.csv", tables + "/tblTests.CSV");
    EXPECT_EQ(tavixdb("create tables a.mdb"), "|0|");
    EXPECT_EQ(tavixdb("create tables a.mdb"), "|1|a.mdb exists already; --force replaces it\n");
    // A link stays one, also to a store beside the journal of a killed program, which belongs to the old
    // store.
    writeFile(study.storePath(), "precious");
    writeFile(study.storePath() + "-journal", "old");
    fs::create_symlink(study.storePath(), study.folder + "/link.mdb");
    EXPECT_EQ(tavixdb("create tables link.mdb"), "|1|link.mdb exists already; --force replaces it\n");
    EXPECT_EQ(files::read(study.storePath()), "precious");
    EXPECT_EQ(tavixdb("create --force tables link.mdb"), "|0|");
    EXPECT_TRUE(fs::is_symlink(study.folder + "/link.mdb"));
    EXPECT_FALSE(fs::exists(study.storePath() + "-journal"));
    EXPECT_EQ(study.rows("SELECT Name FROM tblPatients"), "Anna Bell/Karl Dorn");

    EXPECT_EQ(tavixdb("create --force tables data"), "|1|data is no plain file and is not replaced\n");
    EXPECT_EQ(tavixdb("create tables no/x.mdb"), "|1|no/x.mdb: there is no folder " + study.folder + "/no\n");
    EXPECT_TRUE(tavixdb("create no x.mdb").starts_with("|1|no: "));
    fs::remove(tables + "/tblPatients.csv");
    EXPECT_EQ(tavixdb("create tables x.mdb"), "|1|tables: the file tblPatients.csv is missing\n");
    EXPECT_EQ(outputOf("ls " + study.folder), "Patients\na.mdb\ndata\nerr\nlink.mdb\ntables\n");
    EXPECT_FALSE(tavixdb("make").starts_with("|0"));
}

}  // namespace
