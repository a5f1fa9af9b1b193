// A program killed at any moment loses no row whose operation had returned, and the next start resumes the
// subject's trial number and score.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <random>
#include <sstream>
#include <string>
#include <thread>

#include "store/layer/engine.h"
#include "store/layer/openTable.h"
#include "tests/busySession.h"
#include "tests/temporaryStudy.h"

namespace {

constexpr int kills = 200;

/// Starts the program on the script, kills it `delay` after its start or after its first patient has come,
/// and returns all that it had printed.
std::string printedUntilKilled(const std::string& folder, const std::string& script, bool withPatient,
                               std::chrono::microseconds delay) {
    std::array<int, 2> pipe{};
    EXPECT_EQ(::pipe(pipe.data()), 0);
    const pid_t child = fork();
    if (child == 0) {
        dup2(pipe[1], STDOUT_FILENO);
        const int nowhere = open("/dev/null", O_WRONLY);
        dup2(nowhere, STDERR_FILENO);
        close(pipe[0]);
        execl(TAVIX_BIN "/tavix-headless", "tavix-headless", "--folder", folder.c_str(), script.c_str(),
              nullptr);
        _exit(127);
    }
    close(pipe[1]);
    std::string printed;
    const auto readPiece = [&] {
        std::array<char, 4096> piece{};
        const ssize_t size = read(pipe[0], piece.data(), piece.size());
        if (size > 0) printed.append(piece.data(), static_cast<std::size_t>(size));
        return size > 0;
    };
    if (withPatient) readPiece();
    std::this_thread::sleep_for(delay);
    kill(child, SIGKILL);
    while (readPiece()) {
    }
    close(pipe[0]);
    int status = 0;
    waitpid(child, &status, 0);
    return printed;
}

/// What the whole lines of the transcript say last.
struct Said {
    int trial = 0;
    int events = 0;
    bool ended = false;
    long score = 0;
};

Said lastSaid(const std::string& printed) {
    Said said;
    std::istringstream lines(printed.substr(0, printed.rfind('\n') + 1));
    constexpr int linesPerPatient = 9;  // trial number, seven event counts, score
    int at = 0;
    for (std::string line; std::getline(lines, line); ++at) {
        const long number = std::strtol(line.c_str(), nullptr, 10);
        switch (at % linesPerPatient) {
            case 0: said = {static_cast<int>(number), 0, false, 0}; break;
            case linesPerPatient - 1:
                said.ended = true;
                said.score = number;
                break;
            default: said.events = static_cast<int>(number);
        }
    }
    return said;
}

std::int64_t number(engine::Connection& database, const std::string& sql) {
    const engine::Rows rows = engine::query(database, sql);
    const auto* value = rows.rows.empty() ? nullptr : std::get_if<std::int64_t>(&rows.rows[0][0]);
    return value == nullptr ? -1 : *value;
}

void expectKept(const std::string& path, const Said& said) {
    const engine::Database database = engine::open(path, store::password, engine::Access::Read);
    EXPECT_EQ(std::get<std::string>(engine::query(*database, "PRAGMA integrity_check").rows[0][0]), "ok");
    const std::string trial = std::to_string(said.trial);
    if (said.trial > 0) {
        EXPECT_EQ(number(*database, "SELECT count(*) FROM dataTrial WHERE Trial = " + trial), 1);
        EXPECT_GE(number(*database, "SELECT count(*) FROM dataEvents WHERE Trial = " + trial), said.events);
    }
    if (said.ended) {
        EXPECT_EQ(number(*database, "SELECT Score FROM dataTrial WHERE Trial = " + trial), said.score);
    }
    // Every detail row hangs on an event that is there too; only the last event may lack its details.
    for (const char* table : {"dataGetSymptoms", "dataGetTests", "dataHypotheses"}) {
        EXPECT_EQ(number(*database, std::string("SELECT count(*) FROM ") + table +
                                        " WHERE EventID NOT IN (SELECT EventID FROM dataEvents)"),
                  0);
    }
    EXPECT_LE(number(*database,
                     "SELECT count(*) FROM dataEvents WHERE Action = 'AddSymptom' AND EventID NOT IN "
                     "(SELECT EventID FROM dataGetSymptoms)"),
              1);
}

/// The next start goes on after the last trial, with its score.
void expectResumed(const TemporaryStudy& study) {
    std::int64_t trial = 0;
    std::int64_t score = 0;
    {
        const engine::Database database =
            engine::open(study.storePath(), store::password, engine::Access::Read);
        if (number(*database, "SELECT count(*) FROM SubjectInfo") == 0) return;
        trial = number(*database, "SELECT max(Trial) FROM dataTrial");
        score = number(*database, "SELECT Score FROM dataTrial ORDER BY Trial DESC");
    }
    writeFile(study.folder + "/resume.tvx",
              "type frmLogin.txtName KIM\nchoose frmLogin.cboType Plain\nclick frmLogin.cmdOk\n"
              "state trialNumber\nget frmTavix.lblScore.caption\n");
    const std::string resumed = outputOf(TAVIX_BIN "/tavix-headless --folder " + study.folder + " " +
                                         study.folder + "/resume.tvx 2>&1");
    if (trial > 0) {
        EXPECT_EQ(resumed, std::to_string(trial + 1) + "\n" + std::to_string(score) + "\n");
    } else {
        EXPECT_EQ(resumed, "1\n2000\n");
    }
}

TEST(Kill, LosesNoRowWhoseOperationHadReturned) {
    const std::string script = busySession("kim", 20);
    std::mt19937 random(20260105);
    int moments = 0;
    int inTrials = 0;
    while (moments < kills && !testing::Test::HasFailure()) {
        const TemporaryStudy study;
        writeFile(study.folder + "/busy.tvx", script);
        const std::chrono::microseconds delay(std::uniform_int_distribution<int>(0, 400000)(random));
        // A quarter at any moment from the start on, the others while patients are treated, however slow the
        // machine.
        const bool withPatient = moments % 4 != 0;
        const Said said =
            lastSaid(printedUntilKilled(study.folder, study.folder + "/busy.tvx", withPatient, delay));
        expectKept(study.storePath(), said);
        expectResumed(study);
        ++moments;
        inTrials += said.trial > 0 ? 1 : 0;
    }
    std::cout << moments << " kills, " << inTrials << " of them in mid-session\n";
    EXPECT_GE(inTrials, kills * 3 / 4);
}

}  // namespace
