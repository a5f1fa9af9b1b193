// What one recorded event costs, and an issued test, which is an event and its detail row: beside the same
// calls to the bare engine (as many openings, the raw key, the same statements, journal and synchronisation),
// and beside a bare append of 4 KiB with fsync. Taken in turns, since what the disk does changes.
#define SQLITE_HAS_CODEC
#include <fcntl.h>
#include <sqlcipher/sqlite3.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <iostream>
#include <span>
#include <string_view>

#include "bench/benchStudy.h"
#include "forms/frmTavix.h"
#include "knowledge/modTests.h"
#include "state/TrialState.h"
#include "store/layer/database.h"
#include "store/layer/keyDerivation.h"
#include "store/record/modAppRecord.h"

namespace {

constexpr int rounds = 5;
constexpr int roundLength = 60;
constexpr int appended = 4096;

void require(int code) {
    if (code == SQLITE_OK || code == SQLITE_DONE) return;
    std::cerr << sqlite3_errstr(code) << '\n';
    std::exit(1);
}

struct Bare {
    std::string path;
    std::string key;

    /// The journal is deleted as by default, which is cheaper than what the program does: its row survives a
    /// power cut right after the commit too.
    void insert(const char* statement, std::span<const std::string_view> values) const {
        sqlite3* database = nullptr;
        require(sqlite3_open_v2(path.c_str(), &database, SQLITE_OPEN_READWRITE, nullptr));
        require(sqlite3_key(database, key.data(), static_cast<int>(key.size())));
        require(sqlite3_exec(database, "PRAGMA synchronous = EXTRA", nullptr, nullptr, nullptr));
        sqlite3_stmt* row = nullptr;
        require(sqlite3_prepare_v2(database, statement, -1, &row, nullptr));
        int place = 0;
        for (const std::string_view value : values)
            require(
                sqlite3_bind_text(row, ++place, value.data(), static_cast<int>(value.size()), SQLITE_STATIC));
        require(sqlite3_step(row));
        require(sqlite3_finalize(row));
        require(sqlite3_close(database));
    }

    void event() const {
        constexpr std::array<std::string_view, 12> values{
            "bench01_001", "bench",   "1", "2026-01-05",    "09:30:00", "03:00",
            "75.0",        "Testing", "1", "TestPosition1", "-1",       "bench01_00"};
        insert(
            "INSERT INTO [dataEvents] ([EventID], [Subject], [Trial], [Date], [Time], [SimTime], [Health], "
            "[Action], [ActionNum], [Input], [Output], [DiagnosisID]) "
            "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)",
            values);
    }

    void test() const {
        event();
        constexpr std::array<std::string_view, 5> values{"bench01_001", "1", "1", "Rash", "Present"};
        insert(
            "INSERT INTO [dataGetTests] ([EventID], [Number], [Position], [Test], [Result]) "
            "VALUES (?, ?, ?, ?, ?)",
            values);
    }
};

void append(int file) {
    static const std::array<char, appended> bytes{};
    if (write(file, bytes.data(), bytes.size()) != appended || fsync(file) != 0) std::exit(1);
}

}  // namespace

int main(int argc, char** argv) {
    const bool quick = argc > 1 && std::string_view(argv[1]) == "--quick";
    benchStudy::begin();
    const benchStudy::Study study("store");
    study.use();
    benchStudy::signIn("bench");
    benchStudy::drawCase();
    const Bare bare{
        study.file(),
        keyDerivation::rawKey(store::password, keyDerivation::readSalt(study.file()).value()).value()};
    const int file =
        open((study.folder + "/appended").c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);

    benchStudy::Times event, bareEvent, test, bareTest, append4;
    for (int i = 0; i < (quick ? 1 : rounds) * roundLength; ++i) {
        using benchStudy::milliseconds;
        event.all.push_back(
            milliseconds([] { modAppRecord::recordEvent("Testing", 1, "TestPosition1", true); }));
        bareEvent.all.push_back(milliseconds([&] { bare.event(); }));
        trialState.testCount = 0;
        test.all.push_back(milliseconds([] { modTests::issueTest(0); }));
        bareTest.all.push_back(milliseconds([&] { bare.test(); }));
        append4.all.push_back(milliseconds([&] { append(file); }));
    }
    close(file);
    const double mark = append4.median();
    benchStudy::print("a", "one recorded event", event, event.median() / bareEvent.median(),
                      "bare engine calls, at most 1.5");
    benchStudy::print("a", "one issued test (event and detail)", test, test.median() / bareTest.median(),
                      "bare engine calls, at most 1.5");
    benchStudy::print("a", "one recorded event", event, event.median() / mark, "4 KiB append with fsync");
    benchStudy::print("a", "bare engine calls of an event", bareEvent, bareEvent.median() / mark,
                      "4 KiB append with fsync");
    benchStudy::print("a", "4 KiB append with fsync", append4, 0, "");
}
