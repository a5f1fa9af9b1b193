// The store's layer: statements, record sets, locks, failures, and what another program finds in the file.
#include <atomic>
#include <chrono>
#include <filesystem>
#include <thread>

#include "platform/files.h"
#include "platform/host.h"
#include "platform/randomSource.h"
#include "store/layer/dialect.h"
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
    std::vector<std::string> boxes;  ///< title and text
    std::function<Answer()> answer = [] { return Answer::No; };
    int yields = 0;

    Store() {
        randomSource::fixState(1);
        host().programFolder = [this] { return study.folder; };
        host().yield = [this] { ++yields; };
        host().milliseconds = [] { return std::uint32_t{0}; };
        host().messageBox = [this](const MessageBox& box) {
            boxes.push_back(box.title + "|" + box.text);
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
    [[nodiscard]] engine::Database another() const {
        return engine::open(study.storePath(), store::password, engine::Access::Write);
    }
    static void add(RecordSet& rows, const char* column, const std::string& value) {
        rows.AddNew();
        rows.Fields(column) = value;
        rows.Update();
    }
    static int subjectCount() {
        return openTable("SubjectInfo", true, "New User Check").recordCount().toInt();
    }
};

TEST(Schema, SaysOfColumnsWhatTheDocumentsSay) {
    const std::string page = files::read(TAVIX_TESTS "/../docs/experimenter.md");
    for (const schema::Table& table : schema::tables()) {
        for (const schema::Column& column : table.columns) {
            if (table.kind != schema::Kind::Configuration) continue;
            const std::string line = "| `" + std::string(column.name) + "` | " + std::string(column.meaning);
            EXPECT_NE(page.find(line + " |"), std::string::npos) << table.name << ": " << line;
        }
    }
}

TEST(Dialect, TurnsTheModulesStatementsIntoTheEngines) {
    EXPECT_EQ(
        dialect::translate("SELECT * FROM [t] WHERE [t.E] Like 'k_%*' AND NOT [t.D] AND [t.Male?]='a.b[c]*'"),
        "SELECT * FROM [t] WHERE [t].[E] Like 'k\\_\\%%' ESCAPE '\\' AND NOT COALESCE([t].[D], 0) AND "
        "[t].[Male?]='a.b[c]*'");
    EXPECT_EQ(dialect::tableOf("SELECT * FROM tblTests WHERE SETTING='std';"), "tblTests");
}

TEST_F(Store, WritesWhatTheEnginesToolReads) {
    {
        RecordSet trial = openTable("dataTrial", false, "test");
        trial.AddNew();
        trial.Fields("Trial") = Int16(3);
        trial.Fields("Penalty") = 21.875;
        add(trial, "Subject", "kim");
        EXPECT_TRUE(isLocked()) << "the file is this set's own until it is let go, between rows too";
        add(trial, "Score", "7");
        trial.AddNew();
        EXPECT_FAULT(trial.Fields("Scor") = "8", ItemNotFound);
    }
    EXPECT_EQ(tool("SELECT Subject, Score, typeof(Score) FROM dataTrial; PRAGMA integrity_check;"),
              "kim||null\n|7|integer\nok\n")
        << "a row is on the disk when its update returns, whatever becomes of the next";
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
        EXPECT_FAULT(rows.Fields("Age").short16(), TypeMismatch);
        EXPECT_FAULT(rows.Fields("Age") = 5, NoCurrentRecord);
        rows.Edit();
        rows.Fields("Health") = 32768;
        rows.Fields("Male?") = true;
        rows.Update();
        EXPECT_FAULT(rows.Fields("Health").short16(), Overflow);
        EXPECT_EQ(rows.Fields("Health").long32().raw, 32768);
        EXPECT_TRUE(rows.Fields("Male?").isTrue());
        rows.MoveNext();
        EXPECT_TRUE(rows.isEOF());
        EXPECT_FAULT(rows.Fields("Name").text(), NoCurrentRecord);
        EXPECT_FAULT(rows.MoveNext(), NoCurrentRecord);
        EXPECT_FAULT(rows.Update(), NoCurrentRecord);
    }
    EXPECT_EQ(study.rows("SELECT Health, [Male?] FROM tblPatients"), "32768|-1/60|-1");
    RecordSet snapshot = openTable("SELECT * FROM [tblBaseRates] WHERE [Setting]='Plain'", true, "test");
    EXPECT_FALSE(isLocked());
    EXPECT_FALSE(snapshot.Fields("D4").isTrue());
    EXPECT_FAULT(snapshot.Fields("D4").text(), InvalidUseOfNull);
    EXPECT_FAULT(add(snapshot, "D4", "1"), 8);  // the engine's number for a connection that only reads
    EXPECT_TRUE(store::faultOf({13, "full"}, "t").text.starts_with("Error of the store: "));
}

TEST_F(Store, LooksUpTheSameRowsInTheSameOrderWithItsIndexesAndWithout) {
    study.change(
        "INSERT INTO dataTrial (Subject, Trial, Score) VALUES ('kim', 2, 1), ('KIM', 3, 2), ('kimm', 3, 3), "
        "('\u212Aim', 3, 4), ('\u00C9lan', 1, 5), ('\u00E9LAN', 1, 6), (NULL, 3, 7), ('kim', 3, 8)");
    study.change(
        "INSERT INTO dataGetSymptoms (EventID, Deleted, ListItem) VALUES ('Kim03_2', 6, 'a'), "
        "('kim03_1', 0, 'A or b'), ('kim031', 0, 'a'), ('KIM03_', NULL, 'a or b'), ('kim3_', 0, 'a'), "
        "('o''b_1', 0, 'a')");
    const auto delivered = [](const std::string& source, bool readOnly, const char* column) {
        std::string list;
        RecordSet rows = openTable(source, readOnly, "test");
        for (; !rows.isEOF(); rows.MoveNext()) list += rows.Fields(column).text() + " ";
        return list;
    };
    const auto all = [&] {
        const std::string trials = "SELECT * FROM [dataTrial] WHERE [dataTrial.Subject]=";
        return delivered(trials + "'kIm'", true, "Score") + "/ " +
               delivered(trials + "'kim' AND [dataTrial.Trial]=3", false, "Score") + "/ " +
               delivered(trials + "'kim' ORDER BY Trial DESC", true, "Score") + "/ " +
               delivered(trials + "'\u00E9lan' OR Trial = 2", true, "Score") + "/ " +
               delivered(trials + "'ki'", true, "Score") + "/ " +
               delivered(
                   "SELECT * FROM [dataGetSymptoms] WHERE [dataGetSymptoms.EventID] Like 'kim03_*' AND "
                   "NOT [dataGetSymptoms.Deleted] AND [dataGetSymptoms.ListItem]='a or b'",
                   false, "EventID") +
               delivered("SELECT * FROM [dataGetSymptoms] WHERE [dataGetSymptoms.EventID] Like 'O''B_*'",
                         false, "EventID");
    };
    constexpr const char* expected = "1 2 4 8 / 2 4 8 / 2 4 8 1 / 1 5 6 / / kim03_1 KIM03_ o'b_1 ";
    EXPECT_EQ(all(), expected);
    EXPECT_EQ(
        tool("PRAGMA integrity_check; SELECT count(*) FROM dataTrial INDEXED BY [dataTrial by Subject];"),
        "ok\n8\n")
        << "other programs, whose NOCASE stops at A to Z, find the index in order";
    for (const char* index : {"dataTrial by Subject", "dataGetSymptoms by EventID"})
        study.change("DROP INDEX [" + std::string(index) + "]");
    EXPECT_EQ(all(), expected);
}

TEST_F(Store, FailuresAskWithTheCallersStatusWhileTheFileIsFree) {
    const std::string away = study.storePath() + ".away";
    fs::rename(study.storePath(), away);
    EXPECT_THROW(subjectCount(), Stopped);
    EXPECT_TRUE(boxes.at(0).starts_with("Problems opening table|Error 14: unable to open database file"));
    EXPECT_TRUE(boxes.at(0).ends_with("\r\nStatus was New User Check\r\nRetry?"));
    // Yes tries again, on a file that may be there by then; opening has made none.
    answer = [&] {
        EXPECT_FALSE(fs::exists(study.storePath()));
        fs::rename(away, study.storePath());
        return Answer::Yes;
    };
    EXPECT_EQ(subjectCount(), 0);
    answer = [this] {
        EXPECT_FALSE(isLocked()) << boxes.back();
        return Answer::No;
    };
    for (const char* name : {"O'Brien", "kim'; ", "kim'--", "kim' /*", "kim'; SELECT 'x"})
        EXPECT_THROW(
            openTable(std::string("SELECT * FROM [dataTrial] WHERE [Subject]='") + name + "'", true, "s"),
            Stopped)
            << name;
    EXPECT_THROW(openTable("noSuchTable", false, "s"), Stopped);
    writeFile(study.storePath(), std::string(4096, 'x'));
    EXPECT_THROW(subjectCount(), Stopped);
    EXPECT_NE(boxes.back().find("is not a database"), std::string::npos) << boxes.back();
}

TEST_F(Store, ReadsAFileThatAKilledProgramLeft) {
    {
        // A transaction that has reached the file and not its end, copied as a kill leaves it.
        const auto database = another();
        engine::query(*database, "PRAGMA cache_size = 1");
        engine::execute(*database, "BEGIN IMMEDIATE");
        for (int i = 0; i < 100; ++i)
            engine::execute(*database, "INSERT INTO SubjectInfo (Subject) VALUES (zeroblob(900))");
        fs::copy_file(study.storePath(), study.folder + "/killed");
        fs::copy_file(study.storePath() + "-journal", study.folder + "/killed-journal");
    }
    for (const char* end : {"", "-journal"})
        fs::rename(study.folder + "/killed" + end, study.storePath() + end);
    EXPECT_EQ(subjectCount(), 0);
    EXPECT_TRUE(boxes.empty());
}

TEST_F(Store, ALockThatClearsCostsADelayAndNoRow) {
    std::atomic<bool> held = false;
    std::thread other([&] {
        const auto database = another();
        engine::lock(*database);
        held = true;
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
    });
    while (!held) std::this_thread::yield();
    EXPECT_EQ(subjectCount(), 0);
    other.join();
    EXPECT_EQ(yields, 0) << "the engine waits, and the retry is not needed";
}

// The pause is 1000 to 3999 rounds times the square of the attempt, in 16 bits: at the third, 9 x 3641 is
// one too many.
TEST_F(Store, ALockThatLastsEndsTheRun) {
    const auto other = another();
    engine::lock(*other);
    engine::execute(*other, "COMMIT");  // what is locked stays so until it is closed
    randomSource::queueDraws(std::vector<double>{0.999, 0.999, 0.8804, 0.25});
    EXPECT_FAULT(subjectCount(), Overflow);
    EXPECT_EQ(yields, 3);
    EXPECT_EQ(randomSource::draw(), 0.25) << "one draw an attempt";
    EXPECT_TRUE(boxes.empty());
}

}  // namespace
