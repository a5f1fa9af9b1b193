#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <thread>

#include "platform/host.h"
#include "store/layer/dialect.h"
#include "store/layer/keyDerivation.h"
#include "store/layer/openTable.h"
#include "tests/faults.h"
#include "tests/temporaryStudy.h"

namespace {

namespace fs = std::filesystem;

struct Stopped {};

class Store : public testing::Test {
protected:
    TemporaryStudy study;
    std::vector<MessageBox> boxes;
    std::function<Answer()> answer = [] { return Answer::No; };

    void SetUp() override {
        host().programFolder = [this] { return study.folder; };
        host().yield = [] {};
        host().milliseconds = [] { return std::uint32_t{0}; };
        host().messageBox = [this](const MessageBox& box) {
            boxes.push_back(box);
            return answer();
        };
        host().endProgram = [](int) { throw Stopped{}; };
    }

    /// What the engine's own command-line tool reads with the password.
    [[nodiscard]] std::string tool(const std::string& statement) const {
        return outputOf("printf '%s\n' \"PRAGMA key = 'QrVt_*K*_m';\" \"" + statement + "\" | sqlcipher " +
                        study.storePath() + " 2>&1");
    }
};

void addSubject(const std::string& name) {
    RecordSet subjects = openTable("SubjectInfo", false, "Recording subject");
    subjects.AddNew();
    subjects.Fields("Subject") = name;
    subjects.Update();
}

int subjectCount() {
    RecordSet subjects = openTable("SubjectInfo", true, "New User Check");
    return subjects.recordCount().toInt();
}

TEST(Dialect, TurnsTheModulesStatementsIntoTheEngines) {
    EXPECT_EQ(dialect::translate("dataEvents"), "SELECT * FROM [dataEvents]");
    EXPECT_EQ(dialect::translate("SELECT * FROM [t] WHERE [t.Male?]='a.b[c]'"),
              "SELECT * FROM [t] WHERE [t].[Male?]='a.b[c]'");
    EXPECT_EQ(
        dialect::translate("SELECT * FROM [t] WHERE [t.E] Like 'k_%*' AND NOT [t.Deleted] AND [t.L]='x*'"),
        "SELECT * FROM [t] WHERE [t].[E] Like 'k\\_\\%%' ESCAPE '\\' AND NOT COALESCE([t].[Deleted], 0) AND "
        "[t].[L]='x*'");
    EXPECT_EQ(dialect::tableOf("SELECT * FROM tblTests WHERE SETTING='std';"), "tblTests");
    EXPECT_EQ(dialect::tableOf("SELECT * FROM [tblPatients]"), "tblPatients");
}

TEST_F(Store, OpensInTheEnginesToolAndKeepsTypes) {
    {
        RecordSet trial = openTable("dataTrial", false, "test");
        trial.AddNew();
        trial.Fields("Subject") = "kim";
        trial.Fields("Trial") = Int16(3);
        trial.Fields("Penalty") = 21.875;
        trial.Fields("Saved") = 1;
        trial.Update();
        trial.AddNew();
        trial.Update();
    }
    EXPECT_EQ(
        tool("SELECT Subject, Trial, Penalty, Saved, Score IS NULL FROM dataTrial; PRAGMA integrity_check;"),
        "kim|3|21.875|1|1\n||||1\nok\n");
    EXPECT_FALSE(fs::exists(study.storePath() + "-journal"));
}

TEST_F(Store, ReadsEditsAndFaults) {
    RecordSet rows =
        openTable("SELECT * FROM [tblPatients] WHERE [tblPatients.Name]='ANNA BELL'", false, "test");
    ASSERT_FALSE(rows.isEOF()) << "texts compare without regard to case";
    EXPECT_EQ(rows.Fields("name").text(), "Anna Bell");
    EXPECT_FALSE(rows.Fields("Male?").isTrue());
    EXPECT_FAULT(rows.Fields("Nmae"), FaultNumber::ItemNotFound);
    EXPECT_FAULT(rows.Fields("Name").short16(), FaultNumber::TypeMismatch);
    rows.Edit();
    rows.Fields("Health") = Int16(40);
    rows.Fields("Male?") = true;
    rows.Update();
    EXPECT_EQ(rows.Fields("Health").short16().raw, 40);
    rows.MoveNext();
    EXPECT_TRUE(rows.isEOF());
    EXPECT_FAULT(rows.Fields("Name").text(), FaultNumber::NoCurrentRecord);
    EXPECT_FAULT(rows.MoveNext(), FaultNumber::NoCurrentRecord);
    EXPECT_FAULT(rows.Update(), FaultNumber::NoCurrentRecord);
    closeDatabase();
    EXPECT_EQ(tool("SELECT Health, [Male?] FROM tblPatients ORDER BY Name;"), "40|-1\n60|-1\n");

    RecordSet empty =
        openTable("SELECT * FROM [tblDiseaseSymptom] WHERE [tblDiseaseSymptom.Setting]='Plain'", true, "x");
    EXPECT_TRUE(empty.Fields("D4").isNull());
    EXPECT_FAULT(empty.Fields("D4").short16(), FaultNumber::InvalidUseOfNull);
}

TEST_F(Store, RowsOfOneOperationAreKeptOneByOne) {
    EXPECT_FAULT(
        [] {
            RecordSet rows = openTable("dataHypotheses", false, "Recording Hypothesis");
            rows.AddNew();
            rows.Fields("Guess") = "first";
            rows.Update();
            rows.AddNew();
            rows.Fields("Gess") = "second";
            return 0;
        }(),
        FaultNumber::ItemNotFound);
    EXPECT_EQ(tool("SELECT Guess FROM dataHypotheses;"), "first\n");
}

TEST_F(Store, FailuresAskWithTheCallersStatus) {
    fs::rename(study.storePath(), study.storePath() + ".away");
    EXPECT_THROW(openTable("SubjectInfo", true, "New User Check"), Stopped);
    EXPECT_EQ(boxes.at(0).title, "Problems opening table");
    EXPECT_TRUE(boxes.at(0).text.starts_with("Error 14: unable to open database file")) << boxes[0].text;
    EXPECT_TRUE(boxes.at(0).text.ends_with("\r\nStatus was New User Check\r\nRetry?")) << boxes[0].text;
    EXPECT_FALSE(fs::exists(study.storePath())) << "opening never makes a file";

    // Yes tries again, and the file may be there by then.
    answer = [this] {
        fs::rename(study.storePath() + ".away", study.storePath());
        return Answer::Yes;
    };
    EXPECT_EQ(subjectCount(), 0);
    EXPECT_EQ(boxes.size(), 2U);

    answer = [] { return Answer::No; };
    EXPECT_THROW(openTable("SELECT * FROM [x] WHERE [x.a]='O'Brien'", true, "s"), Stopped);
    EXPECT_THROW(openTable("noSuchTable", false, "s"), Stopped);
    writeFile(study.storePath(), std::string(4096, 'x'));
    EXPECT_THROW(openTable("SubjectInfo", true, "s"), Stopped);
    EXPECT_NE(boxes.back().text.find("is not a database"), std::string::npos) << boxes.back().text;
}

TEST_F(Store, ReadsAFileThatAKilledProgramLeft) {
    addSubject("before");
    {
        // A transaction that has reached the file and not its end, copied as a kill leaves it.
        const engine::Database database =
            engine::open(study.storePath(), store::password, engine::Access::Write);
        engine::query(*database, "PRAGMA cache_size = 1");
        engine::execute(*database, "BEGIN IMMEDIATE");
        for (int i = 0; i < 500; ++i) {
            const engine::Value text = std::string(900, 'x');
            engine::execute(*database, "INSERT INTO SubjectInfo (Subject) VALUES (?)", {&text, 1});
        }
        fs::copy_file(study.storePath(), study.folder + "/killed");
        fs::copy_file(study.storePath() + "-journal", study.folder + "/killed-journal");
    }
    fs::rename(study.folder + "/killed", study.storePath());
    fs::rename(study.folder + "/killed-journal", study.storePath() + "-journal");
    EXPECT_EQ(subjectCount(), 1);
    EXPECT_TRUE(boxes.empty());
}

TEST_F(Store, ALockThatClearsCostsADelayAndNoRow) {
    std::atomic<bool> held = false;
    std::thread other([&] {
        const engine::Database database =
            engine::open(study.storePath(), store::password, engine::Access::Write);
        engine::lock(*database);
        held = true;
        std::this_thread::sleep_for(std::chrono::seconds(1));
    });
    while (!held) std::this_thread::yield();
    const auto start = std::chrono::steady_clock::now();
    addSubject("late");
    EXPECT_GT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(500));
    other.join();
    EXPECT_EQ(subjectCount(), 1);
    EXPECT_TRUE(boxes.empty());
}

TEST_F(Store, ALockThatLastsEndsTheRun) {
    const engine::Database other = engine::open(study.storePath(), store::password, engine::Access::Write);
    engine::lock(*other);
    EXPECT_FAULT(subjectCount(), FaultNumber::Overflow);
    EXPECT_TRUE(boxes.empty());
}

TEST_F(Store, TheKeyIsDerivedOncePerSalt) {
    const keyDerivation::Salt salt = keyDerivation::readSalt(study.storePath()).value();
    const auto timed = [&] {
        const auto start = std::chrono::steady_clock::now();
        keyDerivation::rawKey(store::password, salt);
        return std::chrono::steady_clock::now() - start;
    };
    const auto first = timed();
    EXPECT_LT(timed() * 20, first);
    // A file put in the store's place in mid-run has a salt of its own and opens all the same.
    const TemporaryStudy another;
    fs::rename(another.storePath(), study.storePath());
    EXPECT_EQ(subjectCount(), 0);
}

}  // namespace
