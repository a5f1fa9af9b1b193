// Several stations on one shared folder: each records as if it were alone, and no row is lost.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <map>
#include <string>
#include <thread>
#include <vector>

#include "store/layer/engine.h"
#include "store/layer/openTable.h"
#include "tests/busySession.h"
#include "tests/temporaryStudy.h"

namespace {

constexpr int patients = 8;

struct Station {
    std::string program;
    std::string subject;
};

/// Plays whole sessions at the same time on one study; an empty string for each that ended well.
void playTogether(const TemporaryStudy& study, const std::vector<Station>& stations) {
    std::string command = "export QT_QPA_PLATFORM=offscreen; ";
    for (const auto& [program, subject] : stations) {
        const std::string script = fmt::format("{}/{}.tvx", study.folder, subject);
        writeFile(script, busySession(subject, patients));
        command += fmt::format("({}/{} --folder {} {} >/dev/null 2>&1 || echo {} failed) & ", TAVIX_BIN,
                               program, study.folder, script, subject);
    }
    EXPECT_EQ(outputOf(command + "wait"), "");
}

/// All rows that the subject left, table by table. Dates and times are virtual and the same in each run.
std::map<std::string, std::vector<std::vector<engine::Value>>> rowsOf(const TemporaryStudy& study,
                                                                      const std::string& subject) {
    const std::map<std::string, std::string> keys{
        {"SubjectInfo", "Subject"},    {"SubjectSettings", "Subject"},     {"dataTrial", "Subject"},
        {"dataEvents", "Subject"},     {"dataGetSymptoms", "EventID"},     {"dataGetTests", "EventID"},
        {"dataHypotheses", "EventID"}, {"dataHypothesisState", "StateID"}, {"dataTreatments", "EventID"}};
    const engine::Database database = engine::open(study.storePath(), store::password, engine::Access::Read);
    std::map<std::string, std::vector<std::vector<engine::Value>>> rows;
    for (const auto& [table, key] : keys) {
        rows[table] =
            engine::query(*database, fmt::format("SELECT * FROM {} WHERE {} LIKE '{}%'", table, key, subject))
                .rows;
    }
    return rows;
}

TEST(Stations, OnOneFolderLoseNoRow) {
    const std::vector<Station> stations{
        {"tavix-headless", "ann"}, {"tavix-twin", "ben"}, {"tavix-headless", "cleo"}};
    const TemporaryStudy shared;
    playTogether(shared, stations);
    for (const Station& station : stations) {
        const TemporaryStudy own;
        playTogether(own, {station});
        const auto alone = rowsOf(own, station.subject);
        EXPECT_EQ(alone.at("dataTrial").size(), patients + 1U);  // the next patient has come too
        EXPECT_EQ(alone.at("dataEvents").size(), 7U * patients);
        EXPECT_EQ(rowsOf(shared, station.subject), alone) << station.subject;
    }
}

TEST(Stations, ABoxOnOneScreenLeavesTheOthersAtWork) {
    const TemporaryStudy shared;
    const std::string heard = shared.folder + "/heard";
    FILE* ann =
        popen(fmt::format("{}/tavix-headless --folder {} >{}", TAVIX_BIN, shared.folder, heard).c_str(), "w");
    const auto say = [&](const std::string& script, const std::string& answer) {
        std::fputs(script.c_str(), ann);
        std::fflush(ann);
        for (int i = 0; i < 500 && outputOf("cat " + heard).find(answer) == std::string::npos; ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        EXPECT_NE(outputOf("cat " + heard).find(answer), std::string::npos) << answer;
    };
    say(busySession("ann", 0) + "state trialKey\n", "ann01_");
    engine::execute(*engine::open(shared.storePath(), store::password, engine::Access::Write),
                    "DELETE FROM dataTrial");
    say("run 1200000 until frmTavix.cmdNextPatient.visible = true\nbox\n", "somehow was not stored");
    playTogether(shared, {{"tavix-headless", "ben"}});
    EXPECT_EQ(rowsOf(shared, "ben").at("dataTrial").size(), patients + 1U);
    std::fputs("answer OK\n", ann);
    EXPECT_EQ(pclose(ann), 0);
}

}  // namespace
