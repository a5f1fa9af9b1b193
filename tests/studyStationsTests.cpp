// Stores while and after stations work on them: how far a study is, a copy without a password, several
// stations made one.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "platform/files.h"
#include "store/layer/database.h"
#include "study/mergeStores.h"
#include "study/plainCopy.h"
#include "study/storeStatus.h"
#include "tests/temporaryStudy.h"

namespace {

namespace fs = std::filesystem;

const auto silent = [](double) {};

/// A store with a patient of this subject, one event and its details.
void play(const TemporaryStudy& station, const std::string& subject, int trial, const std::string& result) {
    const std::string key = subject + (trial < 10 ? "0" : "") + std::to_string(trial) + "_";
    const std::string who = "'" + subject + "'";
    station.change("INSERT INTO SubjectInfo (Subject, Date, Time) VALUES (" + who +
                   ", '2026-01-05', '09:00:00')");
    station.change(
        "INSERT INTO dataTrial (Subject, Setting, Date, StartTime, EndTime, Trial, Result) VALUES (" + who +
        ", 'plain', '2026-01-05', '09:01:00', '09:05:00', " + std::to_string(trial) + ", " + result + ")");
    station.change("INSERT INTO dataEvents (EventID, Subject, Trial, Date, Time) VALUES ('" + key + "001', " +
                   who + ", " + std::to_string(trial) + ", '2026-01-05', '09:0" + std::to_string(trial % 10) +
                   ":30')");
    station.change("INSERT INTO dataGetTests VALUES ('" + key + "001', 1, 2, 'Rash', '')");
    station.change("INSERT INTO dataHypothesisState (StateID, H1) VALUES ('" + key + "00', 25)");
}

std::string problemsOf(const std::vector<std::string>& files, const std::string& into) {
    std::string all;
    for (const std::string& problem : mergeStores::merge(files, into, false, silent).problems)
        all += problem.substr(problem.rfind(':') + 2) + "/";
    return all;
}

TEST(Stations, TellHowFarTheStudyIs) {
    const TemporaryStudy study;
    play(study, "Kim", 1, "NULL");
    play(study, "KIM", 2, "'Aborted by Options'");
    play(study, "kim", 3, "'Dead'");
    play(study, "ben", 9, "NULL");
    study.change(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 2500) "
        "INSERT INTO dataTreatments (Number) SELECT i FROM n");
    std::string told;
    for (const auto& [name, scenario, p, last] : storeStatus::read(study.storePath()).subjects)
        told +=
            fmt::format("{}{}{}{}{}{}{}/", name, scenario, p.finished, p.aborted, p.brokenOff, p.open, last);
    EXPECT_EQ(told, "benplain00012026-01-05 09:09:30/Kimplain11102026-01-05 09:05:00/");
    const storeStatus::Status status = storeStatus::read(study.storePath());
    EXPECT_EQ(status.scenarios[1].name + std::to_string(status.scenarios[1].subjects), "Plain2");
    EXPECT_EQ(status.tables[8].rows, 2500);
}

TEST(Stations, BecomeOneStoreOrNothingChanges) {
    const TemporaryStudy a, b, c, d;
    const std::string all = a.folder + "/all.mdb";
    play(a, "kim", 112, "'Dead'");
    play(b, "Élise", 1, "NULL");
    play(c, "élise", 1, "'Dead'");
    play(c, "kim1", 12, "'Dead'");
    EXPECT_EQ(problemsOf({a.storePath(), b.storePath()}, all), "");
    const std::string merged = *files::tryRead(all);
    d.change("UPDATE tblTests SET Length = '9'");
    d.change("CREATE TABLE own (x)");
    EXPECT_EQ(problemsOf({a.storePath(), c.storePath(), d.storePath()}, all),
              "kim1 and kim of " + all + " have the same identifiers kim112_.../subject élise stands in " +
                  all + " too, with other rows/differs from " + all + " in the tables own, tblTests/");
    EXPECT_EQ(problemsOf({b.storePath(), a.storePath()}, all), "");  // the same rows once more
    EXPECT_EQ(files::tryRead(all), merged);
    fs::rename(all, a.storePath());
    EXPECT_EQ(
        a.rows("SELECT e.EventID, t.EventID, t.Test, t.Result, h.StateID, i.Subject FROM dataEvents e "
               "JOIN dataGetTests t ON t.rowid = e.rowid JOIN dataHypothesisState h ON h.rowid = e.rowid "
               "JOIN SubjectInfo i ON i.rowid = e.rowid ORDER BY e.rowid"),
        "kim112_001|kim112_001|Rash||kim112_00|kim/Élise01_001|Élise01_001|Rash||Élise01_00|Élise");
    EXPECT_EQ(outputOf("ls -A " + a.folder), "Patients\ndata\n");
}

TEST(Stations, GiveACopyWithoutAPassword) {
    const TemporaryStudy study;
    play(study, "kim", 1, "NULL");
    const std::string copy = study.folder + "/copy.db";
    plainCopy::write(study.storePath(), copy, silent);
    EXPECT_EQ(
        outputOf(
            "python3 -c \"import sqlite3; d = sqlite3.connect('" + copy +
            "'); print(d.execute('SELECT Test, dataGetTests.Result, Heal FROM dataGetTests LEFT JOIN "
            "dataTreatments').fetchall(), d.execute('SELECT count(*) FROM sqlite_master').fetchall())\""),
        "[('Rash', '', None)] [(19,)]\n");
    EXPECT_THROW(plainCopy::write(study.storePath(), copy, silent), std::runtime_error);
    EXPECT_EQ(outputOf("ls -A " + study.folder), "Patients\ncopy.db\ndata\n");
}

}  // namespace
