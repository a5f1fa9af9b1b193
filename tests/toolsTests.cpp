// A store made from tables as experimenters write them: what goes in, what is refused and where it is said.
#include <filesystem>

#include "platform/files.h"
#include "store/layer/schema.h"
#include "study/createStore.h"
#include "tests/faults.h"
#include "tests/temporaryStudy.h"

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
        for (const std::string& problem : createStore::create(tables, study.storePath(), false).problems) {
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
               "1: tblTests has no column \"Lenght\"/1: column SETTING stands twice/1: column Length is "
               "missing"},
          Case{"tblBaseRates", "Setting,Count,D1,D2,D3,D6\nFour,5,1,1,1,1\n",
               "1: column D4 is missing/1: column D5 is missing"},
          Case{"dataHypothesisState", "H6,H7\n", "1: dataHypothesisState has no column \"H7\""},
          Case{"tblBaseRates", "Setting,Count,D1,D2,D3,D4,D401\n",
               "1: column D401: a store holds at most 400 diseases"},
          Case{"dataEvents", "Trial,Time\n1,3\n2,\"b\r\rb\"\n3\n",
               "6: 1 fields where the first line names 2 columns"},
          Case{"dataEvents", "Time\r\n\"a\r\n\r\nb\"\r\n\"d\"e\r\n", "5: text behind a closing double quote"},
          Case{"dataEvents", "Time\na\n\"b\nc\n", "3: a double quote is not closed"},
          Case{"dataEvents", "Trial\nold\n32768\n3.5\n0x10\n\"\"\n",
               "2: column Trial: \"old\" is no number/3: column Trial: \"32768\" does not fit 16 bits/"
               "4: column Trial: \"3.5\" is no whole number/5: column Trial: \"0x10\" is no number/"
               "6: column Trial: \"\" is no number"},
          Case{"dataEvents", "Output\nmaybe\n", "2: column Output: \"maybe\" is neither yes nor no"},
          Case{"dataTrial", "Score,Date,Penalty\n-2147483649,2026-02-29,\"1,5\"\n,5.1.2026,1e999\n",
               "2: column Score: \"-2147483649\" does not fit 32 bits/2: column Date: \"2026-02-29\" is no "
               "date "
               "(yyyy-mm-dd)/2: column Penalty: \"1,5\" is no number/3: column Date: \"5.1.2026\" is no date "
               "(yyyy-mm-dd)/3: column Penalty: \"1e999\" is too large"},
          // Windows-1252 as a whole, UTF-8 as a whole, and no mixture or other code.
          Case{"dataEvents", "Time\nna\xEFve\x84\n", ""},
          Case{"dataEvents", "Time\n\xC3\xAF\n\xC3\xAF\rna\xEFve\n\xC3\xAF",
               "4: is in another encoding than the lines above; save the file as UTF-8"},
          Case{"dataEvents", "Time\nna\xEFve\n\xC3\xAF\n",
               "3: is in another encoding than the lines above; save the file as UTF-8"},
          Case{"dataEvents", "Time\na\x81z\n", "2: is no UTF-8 text; save the file as UTF-8"}})
        EXPECT_EQ(made(c.table, c.bytes), c.complaints);
    EXPECT_EQ(made("dataEvents", std::string("Time\na\0b\n", 9)),
              "2: holds a zero byte; save the file as UTF-8 text");
}

TEST_F(Tools, KeepTextsToTheByteAndNumbersToTheBit) {
    EXPECT_EQ(
        made(
            "tblVocabulary",
            "\xEF\xBB\xBFtype , Term\r\nDisease,\"two\r\n\r\nlines\"\r\n,\r\nDisease, \" a, \"\"b\"\" \" \r\n"
            "Symptom, 5'10\" tall \r\nSymptom,\"\"\r\nSymptom,\r\n , \rSymptom,Fi\xC3\xA8vre"),
        "");
    EXPECT_EQ(study.rows("SELECT quote(Term) FROM tblVocabulary"),
              "'two\r\n\r\nlines'/' a, \"b\" '/'5''10\" tall'/''/NULL/'Fi\xC3\xA8vre'");
    EXPECT_EQ(made("dataEvents",
                   "Time,Trial,ActionNum,Output\nFi\xE8vre,-32768,32767,YES\nb,, 5 ,true\nc,+1e2,1.0,1\n"
                   "d,-0,,-1\ne,,,No\nf,,,False\ng,,,0\nh,,,\n"),
              "");
    EXPECT_EQ(study.rows("SELECT quote(Time), Trial, ActionNum FROM dataEvents LIMIT 4"),
              "'Fi\xC3\xA8vre'|-32768|32767/'b'|-|5/'c'|100|1/'d'|0|-");
    EXPECT_EQ(study.rows("SELECT quote(Output) FROM dataEvents"), "-1/-1/-1/-1/0/0/0/NULL");
    // As spreadsheets of other countries part them, with what spreadsheets leave at the right.
    EXPECT_EQ(made("dataEvents", "Time;\"Trial\";;\r\n\"a;b\";1;;\r\nc,d;;\r\ne;2\r\n"), "");
    EXPECT_EQ(study.rows("SELECT Time, Trial FROM dataEvents"), "a;b|1/c,d|-/e|2");
    EXPECT_EQ(made("dataEvents", "Time;;\na;;x\n"), "2: \"x\" stands in a column without a name");
    EXPECT_EQ(made("dataTrial", "Score,Penalty,Date\n-2147483648,-1.25e1,2026-01-05\n2147483647,,\n"), "");
    EXPECT_EQ(study.rows("SELECT Score, Penalty, Date FROM dataTrial"),
              "-2147483648|-12.5|2026-01-05/2147483647|-|-");
}

TEST_F(Tools, MakeEveryTableWithAsManyDiseasesAsTheFilesNameAndFourAtLeast) {
    EXPECT_EQ(schema::columnsOf(*schema::find("TBLBASERATES"), 0).back().name, "D4");
    EXPECT_EQ(made("tblTreatments", "Setting,Type,D1+,D2+,D3+,D4+,D1-,D2-,D3-,D4-,d6+\n"), "");
    EXPECT_EQ(study.rows("SELECT count(*), sum(sql LIKE '%D6%'), sum(sql LIKE '%H6]%') FROM sqlite_master"),
              "19|3|1");
}

TEST_F(Tools, WriteTablesThatMakeTheSameStoreAgain) {
    layTables();
    EXPECT_EQ(tavixdb("create tables data/TavixData.mdb >told"), "|0|");
    study.change("UPDATE tblVocabulary SET Term = ' \"a\";,\r\n\r\xC3\xA9 ' WHERE rowid = 1");
    study.change("UPDATE tblVocabulary SET Term = CASE rowid WHEN 2 THEN '' END WHERE rowid IN (2, 3)");
    study.change("UPDATE tblAppDefault SET HealAward = '007', TestCost = ' 0.1', Normalize = NULL");
    study.change("ALTER TABLE tblBaseRates ADD D5 INTEGER");
    study.change("UPDATE tblBaseRates SET D5 = -32768");
    const auto all = [&] {
        std::string rows;
        for (const char* table : {"tblAppDefault", "tblBaseRates", "tblPatients"})
            rows += study.rows(std::string("SELECT * FROM ") + table) + "\n";
        return rows + study.rows("SELECT quote(Term) FROM tblVocabulary");
    };
    EXPECT_EQ(tavixdb("tables data/TavixData.mdb out"), "|0|");
    const std::string before = all();
    EXPECT_EQ(tavixdb("create --force out data/TavixData.mdb >told"), "|0|");
    EXPECT_EQ(all(), before);
    // What is there stays, and what a file cannot give back is told.
    study.change("UPDATE tblPatients SET Age = 'old' WHERE rowid = 2");
    EXPECT_TRUE(tavixdb("tables data/TavixData.mdb out").starts_with("|1|out/tblAppDefault.csv exists"));
    EXPECT_EQ(tavixdb("tables --force data/TavixData.mdb out"),
              "|0|note: tblPatients, row 2, column Age: \"old\" is no number\n");
    EXPECT_EQ(outputOf("ls -A " + study.folder + "/out | wc -l"), "7\n");
}

TEST_F(Tools, ReplaceTablesUnderResultsAndKeepTheOldOnes) {
    layTables();
    EXPECT_EQ(tavixdb("create tables data/TavixData.mdb >told"), "|0|");
    study.change(
        "INSERT INTO SubjectSettings VALUES ('kim', 'plain', 'a', 'Aavo,Brill,Corvex'),"
        " ('lee', 'Gone', 'a', 'Aavo')");
    const std::string started = "('kim', date('now', 'localtime'), time('now', 'localtime'), 3)";
    study.change("INSERT INTO dataTrial (Subject, Date, StartTime, Trial) VALUES " + started);
    fs::remove_all(tables);
    fs::create_directory(tables);
    writeFile(tables + "/tblTests.csv", "SETTING,Length\nstd,5\n");
    writeFile(tables + "/tblPatients.csv", files::read(TAVIX_TESTS "/tables/tblPatients.csv"));
    const std::string refused = tavixdb("update data/TavixData.mdb tables");
    EXPECT_TRUE(refused.starts_with("|1|kim: last row of ")) << refused;
    EXPECT_NE(refused.find(", trial 3 stands open\n"), std::string::npos) << refused;
    study.change(
        "UPDATE dataTrial SET StartTime = time('now', 'localtime', '-31 minutes'),"
        " Date = date('now', 'localtime', '-31 minutes')");

    const std::string before = study.rows("SELECT * FROM tblTests");
    const std::string done =
        "tblPatients: the same already\n"
        "tblTests: replaced (1 rows); the old one is kept as kept0001_tblTests\n";
    EXPECT_TRUE(tavixdb("update --dry-run data/TavixData.mdb tables").starts_with(done));
    EXPECT_EQ(study.rows("SELECT * FROM tblTests"), before);
    EXPECT_EQ(tavixdb("update data/TavixData.mdb tables"),
              done +
                  "|0|stored words do not fit: kim in \"plain\": 1 symptom words where the scenario takes 3\n"
                  "stored words do not fit: lee in \"Gone\": there is no such scenario now\n");
    EXPECT_EQ(study.rows("SELECT * FROM tblTests"), "std|5");
    EXPECT_EQ(study.rows("SELECT * FROM kept0001_tblTests"), before);
    EXPECT_EQ(study.rows("SELECT Subject, Trial FROM dataTrial"), "kim|3");
    EXPECT_EQ(tavixdb("tables --at 2026-01-01 data/TavixData.mdb then"), "|0|");
    EXPECT_EQ(files::read(study.folder + "/then/tblTests.csv"),
              files::read(TAVIX_TESTS "/tables/tblTests.csv"));

    // All or nothing: the new tables have to fit those that stay, and results are not taken.
    writeFile(tables + "/tblTests.csv", "SETTING,Length\nstd,6\n");
    writeFile(tables + "/tblDiseaseSymptom.csv",
              "Setting,InitVisible,Count,D1,D2,D3,D4,D5\nFour,no,5,1,1,1,1,1\n");
    EXPECT_EQ(tavixdb("update data/TavixData.mdb tables"),
              "|1|tblTreatments.csv, line 1: column D5+ is missing\n"
              "tblTreatments.csv, line 1: column D5- is missing\n");
    writeFile(tables + "/dataEvents.csv", "Time\n");
    EXPECT_EQ(tavixdb("update data/TavixData.mdb tables"),
              "|1|dataEvents.csv: results stay as they are; take the file away\n");
    EXPECT_EQ(study.rows("SELECT * FROM tblTests"), "std|5");
}

TEST_F(Tools, AnswerOnTheCommandLine) {
    layTables();
    fs::rename(tables + "/tblTests.csv", tables + "/tblTests.CSV");
    const std::string made = tavixdb("create tables a.mdb");
    EXPECT_NE(made.find("for 6 tests: the others take 30 minutes.\n"), std::string::npos) << made;
    EXPECT_NE(made.find("Treatments harm nobody in \"Four\""), std::string::npos) << made;
    EXPECT_EQ(tavixdb("create tables a.mdb"), "|1|a.mdb exists already; --force replaces it\n");
    // A link stays one. What a killed program left beside the old store belongs to that one, and what a
    // killed attempt left goes.
    writeFile(study.storePath(), "precious");
    writeFile(study.storePath() + "-journal", "old");
    writeFile(study.folder + "/data/.TavixData.mdb.tavixdb", "half");
    fs::permissions(study.storePath(), fs::perms::owner_all);
    fs::create_symlink(study.storePath(), study.folder + "/link.mdb");
    EXPECT_EQ(tavixdb("create tables link.mdb"), "|1|link.mdb exists already; --force replaces it\n");
    EXPECT_EQ(files::read(study.storePath()), "precious");
    EXPECT_EQ(tavixdb("create --force tables link.mdb >out"), "|0|");
    EXPECT_TRUE(fs::is_symlink(study.folder + "/link.mdb"));
    EXPECT_EQ(outputOf("ls -A " + study.folder + "/data"), "TavixData.mdb\n");
    EXPECT_EQ(fs::status(study.storePath()).permissions(), fs::perms::owner_all);
    EXPECT_EQ(study.rows("SELECT Name FROM tblPatients"), "Anna Bell/Karl Dorn");

    writeFile(tables + "/dataEvents.csv", "Trial,Time\n,,,\n1,2\n , \n");
    EXPECT_EQ(tavixdb("create --force tables a.mdb >out"),
              "|0|note: dataEvents.csv, line 2: rows without a value are skipped (2)\n");
    writeFile(tables + "/dataEvents.csv",
              "Trial\nx\nx\nx\nx\nx\nx\nx\nx\nx\nx\nx\nx\nx\nx\nx\nx\nx\nx\nx\nx\nx\nx\n");
    EXPECT_TRUE(tavixdb("create --force tables a.mdb")
                    .ends_with("line 21: column Trial: \"x\" is no number\nand 2 more\n"));
    fs::remove(tables + "/dataEvents.csv");
    fs::create_directory(tables + "/dataEvents.csv");
    EXPECT_EQ(tavixdb("create tables x.mdb"), "|1|dataEvents.csv: cannot be read: it is no file\n");
    fs::remove(tables + "/dataEvents.csv");

    EXPECT_EQ(tavixdb("create --force tables data"), "|1|data is no plain file and is not replaced\n");
    EXPECT_EQ(tavixdb("create tables no/x.mdb"), "|1|no/x.mdb: there is no folder " + study.folder + "/no\n");
    EXPECT_TRUE(tavixdb("create no x.mdb").starts_with("|1|no: "));
    fs::remove(tables + "/tblPatients.csv");
    EXPECT_EQ(tavixdb("create tables x.mdb"), "|1|tables: the file tblPatients.csv is missing\n");
    EXPECT_EQ(outputOf("ls " + study.folder), "Patients\na.mdb\ndata\nerr\nlink.mdb\nout\ntables\n");
    EXPECT_FALSE(tavixdb("make").starts_with("|0"));
}

}  // namespace
