// The store's layer: statements, record sets, locks, failures, and what another program finds in the file.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <memory>
#include <thread>

#include "platform/host.h"
#include "platform/randomSource.h"
#include "store/layer/dialect.h"
#include "store/layer/keyDerivation.h"
#include "store/layer/openTable.h"
#include "store/layer/schema.h"
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
    int yields = 0;

    void SetUp() override {
        randomSource::fixState(1);
        host().programFolder = [this] { return study.folder; };
        host().yield = [this] { ++yields; };
        host().milliseconds = [] { return std::uint32_t{0}; };
        host().messageBox = [this](const MessageBox& box) {
            boxes.push_back(box);
            return answer();
        };
        host().endProgram = [](int) { throw Stopped{}; };
    }

    /// What the engine's own command-line tool says with the password. It does not wait for a lock.
    [[nodiscard]] std::string tool(const std::string& statement) const {
        return outputOf("printf '%s\n' \"PRAGMA key = 'QrVt_*K*_m';\" \"" + statement + "\" | sqlcipher " +
                        study.storePath() + " 2>&1");
    }
    [[nodiscard]] bool isLocked() const {
        return tool("UPDATE tblTests SET Length = Length;").find("locked") != std::string::npos;
    }
};

void addSubject(const std::string& name) {
    RecordSet subjects = openTable("SubjectInfo", false, "Recording subject");
    subjects.AddNew();
    subjects.Fields("Subject") = name;
    subjects.Update();
}

int subjectCount() { return openTable("SubjectInfo", true, "New User Check").recordCount().toInt(); }

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

TEST(Schema, ColumnsOfSeries) {
    const schema::Table& treatments = *schema::find("TBLTREATMENTS");
    EXPECT_EQ(schema::columnsOf(treatments, 0).size(), 2U + 4 + 4);
    EXPECT_EQ(schema::columnsOf(treatments, 6).back().name, "D6-");
    EXPECT_EQ(schema::columnsOf(*schema::find("dataHypothesisState"), 9).back().name, "H6");
    EXPECT_EQ(schema::seriesNumber(treatments, "d3+"), 3);
    for (const char* name : {"D3", "D+", "D0+", "D1x+", "Type"})
        EXPECT_EQ(schema::seriesNumber(treatments, name), 0) << name;
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
        EXPECT_TRUE(isLocked()) << "the file is this set's own until it is let go, between rows too";
        trial.AddNew();
        trial.Update();
    }
    EXPECT_EQ(tool("SELECT Subject, Trial, typeof(Penalty), Saved, Score IS NULL FROM dataTrial;"
                   "PRAGMA integrity_check;"),
              "kim|3|real|1|1\n||null||1\nok\n");
    EXPECT_FALSE(fs::exists(study.storePath() + "-journal"));
}

TEST_F(Store, ReadsEditsAndFaults) {
    study.change("UPDATE tblPatients SET Name = '\xC3\x89lan 7', Age = 'x' WHERE Name = 'Anna Bell'");
    {
        RecordSet rows =
            openTable("SELECT * FROM [tblPatients] WHERE [tblPatients.Name]='\xC3\xA9LAN 7'", false, "test");
        EXPECT_TRUE(isLocked()) << "a set that may write has the file at once";
        ASSERT_FALSE(rows.isEOF()) << "texts compare without regard to case";
        EXPECT_EQ(rows.Fields("name").text(), "\xC3\x89lan 7");
        EXPECT_FALSE(rows.Fields("Male?").isTrue());
        EXPECT_FAULT(rows.Fields("Nmae"), FaultNumber::ItemNotFound);
        EXPECT_FAULT(rows.Fields("Age").short16(), FaultNumber::TypeMismatch);
        EXPECT_FAULT(rows.Fields("Age") = 5, FaultNumber::NoCurrentRecord);
        rows.Edit();
        rows.Fields("Health") = 32768;
        rows.Fields("Male?") = true;
        rows.Update();
        EXPECT_FAULT(rows.Fields("Health").short16(), FaultNumber::Overflow);
        EXPECT_EQ(rows.Fields("Health").long32().raw, 32768);
        EXPECT_TRUE(rows.Fields("Male?").isTrue());
        rows.MoveNext();
        EXPECT_TRUE(rows.isEOF());
        EXPECT_FAULT(rows.Fields("Name").text(), FaultNumber::NoCurrentRecord);
        EXPECT_FAULT(rows.MoveNext(), FaultNumber::NoCurrentRecord);
        EXPECT_FAULT(rows.Edit(), FaultNumber::NoCurrentRecord);
        EXPECT_FAULT(rows.Update(), FaultNumber::NoCurrentRecord);
    }
    EXPECT_EQ(study.rows("SELECT Health, [Male?] FROM tblPatients"), "32768|-1/60|-1");
    RecordSet plain = openTable("SELECT * FROM [tblBaseRates] WHERE [Setting]='Plain'", true, "test");
    EXPECT_TRUE(plain.Fields("D4").isNull());
    EXPECT_FAULT(plain.Fields("D4").text(), FaultNumber::InvalidUseOfNull);
}

TEST_F(Store, ASnapshotCannotWriteAndAWriteIsSynchronous) {
    RecordSet snapshot = openTable("SubjectInfo", true, "test");
    EXPECT_FALSE(isLocked());
    snapshot.AddNew();
    EXPECT_FAULT(snapshot.Update(), 8);  // the engine's number for a connection that only reads
    const auto writing = engine::open(study.storePath(), store::password, engine::Access::Write);
    constexpr std::int64_t full = 2;
    EXPECT_EQ(std::get<std::int64_t>(engine::query(*writing, "PRAGMA synchronous").rows[0][0]), full);
}

TEST_F(Store, RowsOfOneOperationAreKeptOneByOne) {
    const auto failAtTheSecond = [] {
        RecordSet rows = openTable("dataHypotheses", false, "Recording Hypothesis");
        rows.AddNew();
        rows.Fields("Guess") = "first";
        rows.Update();
        rows.AddNew();
        rows.Fields("Gess") = "second";
    };
    EXPECT_FAULT(failAtTheSecond(), FaultNumber::ItemNotFound);
    EXPECT_FALSE(isLocked()) << "a set that a fault unwinds lets the file go";
    EXPECT_EQ(tool("SELECT Guess FROM dataHypotheses;"), "first\n");
}

TEST_F(Store, ALaterSetReplacesTheEarlierOne) {
    auto earlier = std::make_unique<RecordSet>(openTable("dataHypotheses", false, "s"));
    RecordSet later = openTable("SubjectInfo", false, "s");
    EXPECT_FAULT(earlier->isEOF(), engine::handleNotSet);
    earlier.reset();
    later.AddNew();
    later.Update();
    later.MoveNext();
    EXPECT_TRUE(later.isEOF()) << "the file is the later set's own";
}

TEST_F(Store, FailuresAskWithTheCallersStatusWhileTheFileIsFree) {
    fs::rename(study.storePath(), study.storePath() + ".away");
    EXPECT_THROW(openTable("SubjectInfo", true, "New User Check"), Stopped);
    EXPECT_EQ(boxes.at(0).title, "Problems opening table");
    EXPECT_EQ(boxes.at(0).buttons, Buttons::YesNo);
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

    // Yes opens the file anew: a store that was put in its place meanwhile is found.
    const TemporaryStudy another;
    study.change("DROP TABLE SubjectInfo");
    answer = [&] {
        fs::rename(another.storePath(), study.storePath());
        return Answer::Yes;
    };
    EXPECT_EQ(subjectCount(), 0);
    EXPECT_EQ(boxes.size(), 3U);

    answer = [this] {
        EXPECT_FALSE(isLocked()) << boxes.back().text;
        return Answer::No;
    };
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
        const auto database = engine::open(study.storePath(), store::password, engine::Access::Write);
        engine::query(*database, "PRAGMA cache_size = 1");
        engine::execute(*database, "BEGIN IMMEDIATE");
        const engine::Value text = std::string(900, 'x');
        for (int i = 0; i < 100; ++i)
            engine::execute(*database, "INSERT INTO SubjectInfo (Subject) VALUES (?)", {&text, 1});
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
        const auto database = engine::open(study.storePath(), store::password, engine::Access::Write);
        engine::lock(*database);
        held = true;
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
    });
    while (!held) std::this_thread::yield();
    addSubject("late");
    other.join();
    EXPECT_EQ(subjectCount(), 1);
    EXPECT_EQ(yields, 0);
}

// The pause is 1000 to 3999 rounds times the square of the attempt, in 16 bits: at the third, 9 x 3641 is
// one too many.
TEST_F(Store, ALockThatLastsEndsTheRun) {
    const auto other = engine::open(study.storePath(), store::password, engine::Access::Write);
    engine::lock(*other);
    randomSource::queueDraws(std::vector<double>{0.999, 0.999, 0.8804, 0.25});
    EXPECT_FAULT(subjectCount(), FaultNumber::Overflow);
    EXPECT_EQ(yields, 3);
    EXPECT_EQ(randomSource::draw(), 0.25) << "one draw an attempt";
    EXPECT_TRUE(boxes.empty());
}

TEST_F(Store, TheKeyIsDerivedOncePerSalt) {
    keyDerivation::Salt salt = keyDerivation::readSalt(study.storePath()).value();
    const auto timed = [&] {
        const auto start = std::chrono::steady_clock::now();
        keyDerivation::rawKey(store::password, salt);
        return std::chrono::steady_clock::now() - start;
    };
    const std::string key = keyDerivation::rawKey(store::password, salt).value();
    const auto known = timed();
    ++salt[0];
    EXPECT_LT(known * 20, timed());
    EXPECT_NE(keyDerivation::rawKey(store::password, salt).value().substr(0, 60), key.substr(0, 60));
}

}  // namespace
