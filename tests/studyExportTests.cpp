// A dataset made from a store: the tidy tables' rows, the dictionary, and names that must not be anywhere.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <sstream>

#include "platform/files.h"
#include "platform/text.h"
#include "study/exportDataset.h"
#include "tests/temporaryStudy.h"

namespace {

namespace fs = std::filesystem;

/// Rows of values as SQL, with semicolons between them.
std::vector<std::string> rowsOf(const std::string& text) {
    std::vector<std::string> rows;
    std::istringstream in(text);
    for (std::string row; std::getline(in, row, ';');) rows.push_back(row);
    return rows;
}

class Export : public testing::Test {
protected:
    TemporaryStudy study;

    /// Columns are given as "A,B"; a row's values as SQL.
    void insert(const std::string& table, const std::string& columns,
                const std::vector<std::string>& rows) const {
        for (const std::string& row : rows)
            study.change(fmt::format("INSERT INTO {} ({}) VALUES ({})", table, columns, row));
    }
    std::vector<std::string> write(const std::string& folder, const std::string& key = {},
                                   bool keepTexts = false) const {
        return exportDataset::write({study.storePath(), study.folder + "/" + folder, "Lab1",
                                     key.empty() ? key : study.folder + "/" + key, keepTexts},
                                    [](double) {});
    }
    [[nodiscard]] std::string refusal(const std::string& folder, const std::string& key = {}) const {
        try {
            write(folder, key);
        } catch (const std::exception& error) {
            return error.what();
        }
        return "written";
    }
    [[nodiscard]] std::string file(const std::string& folder, const std::string& table) const {
        return files::read(study.folder + "/" + folder + "/data/study-Lab1_description-" + table +
                           "_data.csv");
    }
    /// These columns of a table without quotes, a line a row.
    [[nodiscard]] std::string fields(const std::string& folder, const std::string& table,
                                     const std::vector<std::string>& wanted) const {
        std::istringstream lines(file(folder, table));
        std::vector<std::string> head;
        std::string all;
        for (std::string line; std::getline(lines, line);) {
            std::vector<std::string> row;
            std::istringstream parts(line + ',');
            for (std::string part; std::getline(parts, part, ',');) row.push_back(part);
            if (head.empty()) {
                head = row;
                continue;
            }
            for (const std::string& name : wanted)
                all += row.at(static_cast<std::size_t>(std::ranges::find(head, name) - head.begin())) + '|';
            all.back() = '\n';
        }
        return all;
    }

    void SetUp() override {
        insert("SubjectInfo", "Subject, History", {"'Élodie', 'I, Élodie'", "'kim', ''", "'kim1', NULL"});
        insert("SubjectSettings", "Subject, Setting, TestOrder, DiseaseOrder",
               {"'élodie', 'Plain', 'Pallor,Rash,Stupor', 'Brill,Aavo'", "'kim', 'Four', 'Rash', 'Aavo'"});
        insert(
            "dataTrial",
            "Subject, Trial, Setting, Date, StartTime, PatientID, TestResults, Disease, SimTime, EndHealth, "
            "Diagnoses, Treatments, Guess, GuessBelief, Result, Saved",

            // An end; a tie; a case that came twice, of which the end stands in the first row.
            rowsOf(
                R"('Élodie', 1, 'plain', '2026-01-05', '09:00:00', 2, '000011', 'Aavo', '01:05', 56.5, 2, 0,
 'Aavo 60%', '0.60', 'Time End', NULL;
'ÉLODIE', 2, 'Plain', '2026-01-05', '23:59:58', 1, '100', 'Aavo', '00:05', 100.0, 1, 0, 'x',
 '0.50', 'Time End', 1;
'Élodie', 3, 'Plain', '2026-01-06', '10:00:00', 1, '100', 'Brill', '00:05', 7, 0, 0, 'None',
 '0.50', 'Dead', NULL;
'Élodie', 3, 'Plain', '2026-01-06', '10:05:00', 1, '100', 'Brill', NULL, NULL, NULL, NULL, NULL,
 NULL, NULL, NULL;
'kim', 112, 'Gone', '2026-01-06', '10:05:00', 9, '1', 'Aavo', '00:05', 7, 0, 0, 'None', '0.00',
 'Aborted by Options', NULL;
'kim', 113, 'Four', '2026-01-06', '10:05:00', 9, '1', 'Aavo', '00:05', 7, 0, 0, 'None', '0.00',
 'Aborted by Options', NULL)"));
        insert("dataEvents", "EventID, Subject, Trial, Date, Time, Action, Input, Output, DiagnosisID",
               rowsOf(
                   R"('Élodie01_001', 'Élodie', 1, '2026-01-05', '09:00:07', 'AddSymptom', 'Élodie sees', 0,
 'Élodie01_00';
'Élodie01_002', 'Élodie', 1, '2026-01-05', '09:00:09', 'Testing', 'TestPosition2', -1, 'Élodie01_00';
'Élodie01_003', 'Élodie', 1, '2026-01-05', '09:00:10', 'Diagnose', 'HypothesisPosition01', 0,
 'Élodie01_01';
'Élodie01_004', 'Élodie', 1, '2026-01-05', '09:00:10', 'Diagnose', 'HypothesisPosition02', 0,
 'Élodie01_02';
'ÉLODIE02_001', 'ÉLODIE', 2, '2026-01-06', '00:00:01', 'Diagnose', 'HypothesisPosition01', 0,
 'ÉLODIE02_01';
'Élodie03_001', 'Élodie', 3, '2026-01-06', '10:06:00', 'RemoveSymptom', 'Élodie sees', 0, NULL)"));
        insert("dataGetSymptoms", "EventID, ListItem", {"'Élodie01_001', 'Élodie sees'"});
        insert("dataGetTests", "EventID, Test", {"'kim112_001', 'Rash'", "'nobody01_001', 'Rash'"});
        insert("dataHypotheses", "EventID, [Order], Guess, Belief",
               {"'Élodie01_003', 1, 'Brill', 90", "'Élodie01_004', 1, 'Brill', 40",
                "'Élodie01_004', 2, 'Aavo', 60", "'ÉLODIE02_001', 1, 'Aavo', 50",
                "'ÉLODIE02_001', 2, 'Brill', 50"});
        insert("dataHypothesisState", "StateID, H1, H2", {"'Élodie01_00', 30, 70"});
    }
};

TEST_F(Export, JoinsWhatBelongsTogether) {
    EXPECT_TRUE(write("out").empty());
    EXPECT_EQ(fields("out", "trials",
                     {"patient_name", "disease_number", "base_rate", "findings", "option_TestLengthSetting",
                      "sim_minutes", "saved", "guess", "correct", "valid"}),
              "Karl Dorn|2|30|011|std|65|0|Aavo 60%|1|yes\n"
              "Anna Bell|2|30|100|std|5|1|x||rewritten end\n"
              "Anna Bell|1|50|100|std|5|0|||\"repeated case; stale texts\"\n"
              "Anna Bell|1|50|100|std|||||\"repeated case; closed\"\n"
              "|||||5|0|||aborted\n|1|40|1|slow|5|0|||repeats the patient before\n");
    EXPECT_EQ(
        fields("out", "events",
               {"trial_row", "seconds", "item", "outcome", "disease_1", "belief_1", "disease_2", "belief_2"}),
        "1|7|Élodie sees||Brill|30|Aavo|70\n1|9|Rash|1|Brill|30|Aavo|70\n1|10|Brill||Brill|90||\n"
        "1|10|Aavo||Brill|40|Aavo|60\n2|3|Aavo||Aavo|50|Brill|50\n4|60|Élodie sees|||||\n");
    EXPECT_EQ(fields("out", "SubjectInfo", {"Subject", "Major"}), "Élodie|\nkim|\nkim1|\n");
    EXPECT_NE(file("out", "SubjectInfo").find("kim,,,,,,\"\"\nkim1,,,,,,\n"), std::string::npos);
    const auto all = nlohmann::json::parse(files::read(study.folder + "/out/dataset_description.json"));
    std::set<std::string> known;
    for (const auto& variable : all["variableMeasured"]) {
        known.insert(variable["name"]);
        EXPECT_NE(variable["description"].get<std::string>().find("empty field"), std::string::npos);
    }
    for (const char* table : {"trials", "events", "dataTrial", "dataHypothesisState"}) {
        std::istringstream head(file("out", table));
        for (std::string name; std::getline(head, name, ',') && name.find('\n') == std::string::npos;)
            EXPECT_TRUE(known.contains(name)) << table << ' ' << name;
    }
    write("again");
    EXPECT_EQ(outputOf("diff -r " + study.folder + "/out " + study.folder + "/again"), "");
}

TEST_F(Export, LetsNoNameOutUnderPseudonyms) {
    insert("dataTrial", "Subject, Trial", {"'p0001', 1"});
    write("out", "key.csv");
    const std::string bytes =
        text::folded(outputOf("cd " + study.folder + "/out && find . && cat $(find . -type f)"));
    for (const char* name : {"élodie", "kim", "p0001", "nobody"})
        EXPECT_EQ(bytes.find(name), std::string::npos) << name;
    EXPECT_EQ(files::read(study.folder + "/key.csv"),
              "Pseudonym,Subject\nP0002,Élodie\nP0003,kim\nP0004,kim1\nP0005,p0001\n");
    EXPECT_EQ(fields("out", "events", {"subject_id", "event_id", "item"}),
              "P0002|P000201_001|\nP0002|P000201_002|Rash\nP0002|P000201_003|Brill\nP0002|P000201_004|Aavo\n"
              "P0002|P000202_001|Aavo\nP0002|P000203_001|\n");
    EXPECT_EQ(file("out", "dataGetTests"),
              "EventID,Number,Position,Test,Result\nP0003112_001,,,Rash,\nunknown1_001,,,Rash,\n");
    // The key is gone on with, and who is new comes behind; texts stay in where they are asked for.
    study.change("INSERT INTO dataTrial(Subject, Trial) SELECT 'anna', 1");
    study.change("DELETE FROM SubjectInfo WHERE Subject = 'Élodie'");
    write("more", "key.csv", true);
    EXPECT_TRUE(files::read(study.folder + "/key.csv").ends_with("P0005,p0001\nP0006,anna\n"));
    EXPECT_EQ(file("more", "dataGetSymptoms"),
              "EventID,ListItem,FromIntro,Deleted\nP000201_001,Élodie sees,,\n");
    EXPECT_EQ(refusal("more"), study.folder + "/more exists already and is not written over");
    EXPECT_TRUE(refusal("x", "x/key.csv").ends_with("no such folder for the key"));
    fs::create_directory(study.folder + "/x");
    EXPECT_TRUE(refusal("x", "x/key.csv").ends_with("the key cannot stand in the dataset"));
    EXPECT_TRUE(refusal("x", "data/TavixData.mdb").ends_with("is no key file of an export"));
    EXPECT_TRUE(fs::is_empty(study.folder + "/x"));
    EXPECT_EQ(outputOf("ls -A " + study.folder), "Patients\ndata\nkey.csv\nmore\nout\nx\n");
}

}  // namespace
