#include <gtest/gtest.h>

#include <filesystem>

#include "store/layer/engine.h"
#include "store/layer/openTable.h"
#include "tests/temporaryStudy.h"
#include "tools/createStore.h"

namespace {

namespace fs = std::filesystem;

class CreateStore : public testing::Test {
protected:
    TemporaryStudy study{false};
    std::string tables = study.folder + "/tables";

    void SetUp() override { fs::copy(TAVIX_TESTS "/tables", tables); }

    /// The complaints when one table is replaced; the store must then not have been made.
    std::string complaints(const std::string& table, const std::string& bytes) {
        fs::remove_all(tables);
        fs::copy(TAVIX_TESTS "/tables", tables);
        writeFile(tables + "/" + table + ".csv", bytes);
        std::string all;
        for (const std::string& problem : createStore::create(tables, study.storePath(), true))
            all += problem + "\n";
        EXPECT_EQ(fs::exists(study.storePath()), all.empty());
        EXPECT_FALSE(fs::exists(study.storePath() + ".new"));
        return all;
    }
};

TEST_F(CreateStore, RefusesWhatCannotGoInByFileLineAndColumn) {
    EXPECT_EQ(complaints("tblPatents", "Name\nx\n"),
              "tblPatents.csv, line 1: there is no table \"tblPatents\"\n");
    EXPECT_EQ(complaints("tblTests", "SETTING,Lenght\na,3\n"),
              "tblTests.csv, line 1: tblTests has no column \"Lenght\"\n");
    EXPECT_EQ(complaints("tblTests", "SETTING,Length\na,3\nb\n"),
              "tblTests.csv, line 3: 1 fields where the first line names 2 columns\n");
    EXPECT_EQ(complaints("tblPatients", "Name,Age\nAnna,old\nKarl,40000\nLia,3.5\n"),
              "tblPatients.csv, line 2: column Age: \"old\" is no number\n"
              "tblPatients.csv, line 3: column Age: \"40000\" does not fit 16 bits\n"
              "tblPatients.csv, line 4: column Age: \"3.5\" is no whole number\n");
    EXPECT_EQ(complaints("tblPatients", "Name,Male?\nAnna,maybe\n"),
              "tblPatients.csv, line 2: column Male?: \"maybe\" is neither yes nor no\n");
    EXPECT_EQ(complaints("dataTrial", "Subject,Score,Date\nkim,3000000000,today\n"),
              "dataTrial.csv, line 2: column Score: \"3000000000\" does not fit 32 bits\n"
              "dataTrial.csv, line 2: column Date: \"today\" is no date (yyyy-mm-dd)\n");
    EXPECT_EQ(complaints("tblTests", "SETTING,setting\n"),
              "tblTests.csv, line 1: column SETTING stands twice\n");
    EXPECT_EQ(complaints("tblTests", "SETTING,Length\n\"a\nb,3\n"),
              "tblTests.csv, line 2: a double quote is not closed\n");
    EXPECT_EQ(complaints("dataHypothesisState", "StateID,H7\n"),
              "dataHypothesisState.csv, line 1: dataHypothesisState has no column \"H7\"\n");
    EXPECT_EQ(complaints("tblTests", ""), "tblTests.csv, line 1: the first line must name the columns\n");
}

TEST_F(CreateStore, TakesTablesAsPeopleSaveThem) {
    EXPECT_EQ(
        complaints("tblTests", "\xEF\xBB\xBFsetting , Length\r\n\"a, \"\"b\"\"\",\"30\"\r\n\r\nstd,\r\n"),
        "");
    const engine::Database database = engine::open(study.storePath(), store::password, engine::Access::Read);
    const auto texts = [&](const char* statement) {
        std::string all;
        for (const auto& row : engine::query(*database, statement).rows) {
            for (const engine::Value& value : row) {
                const auto* text = std::get_if<std::string>(&value);
                all += (text != nullptr ? *text : "-") + "|";
            }
        }
        return all;
    };
    EXPECT_EQ(texts("SELECT SETTING, Length FROM tblTests"), "a, \"b\"|30|std|-|");
    EXPECT_EQ(texts("SELECT name FROM sqlite_master WHERE name LIKE 'data%' ORDER BY name"),
              "dataEvents|dataGetSymptoms|dataGetTests|dataHypotheses|dataHypothesisState|dataTreatments|"
              "dataTrial|");
    EXPECT_EQ(engine::columnsOf(*database, "SELECT * FROM dataHypothesisState").size(), 7U);
    EXPECT_EQ(engine::columnsOf(*database, "SELECT * FROM tblTreatments").size(), 10U);
}

TEST_F(CreateStore, MakesAsManyDiseaseColumnsAsTheFilesName) {
    EXPECT_EQ(complaints("tblTreatments", "Setting,Type,D6+\nPlain,Ambrol,100\n"), "");
    const engine::Database database = engine::open(study.storePath(), store::password, engine::Access::Read);
    EXPECT_EQ(engine::columnsOf(*database, "SELECT * FROM tblBaseRates").back(), "D6");
}

TEST_F(CreateStore, NeverOverwritesUnasked) {
    writeFile(study.storePath(), "precious");
    EXPECT_EQ(createStore::create(tables, study.storePath(), false).size(), 1U);
    EXPECT_EQ(fs::file_size(study.storePath()), 8U);
    EXPECT_TRUE(createStore::create(tables, study.storePath(), true).empty());
    fs::remove(tables + "/tblPatients.csv");
    EXPECT_EQ(createStore::create(tables, study.storePath(), true).at(0),
              tables + ": the file tblPatients.csv is missing");
    EXPECT_EQ(createStore::create("/nowhere", study.storePath(), true).size(), 1U);
    EXPECT_EQ(createStore::create(TAVIX_TESTS "/tables", "/nowhere/x.mdb", false).size(), 1U);
}

}  // namespace
