#include "study/openSessions.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <array>
#include <ctime>

#include "study/readStore.h"

namespace openSessions {

namespace {

constexpr int minutesOfADay = 24 * 60;

/// The last rows of all subjects, those with the first and the last moment that are given. Stations' clocks
/// differ, so that a row of the near future is young too.
constexpr const char* youngRows =
    "SELECT Subject, max(Moment) FROM ("
    "SELECT Subject, Date || ' ' || Time AS Moment FROM SubjectInfo"
    " UNION ALL SELECT Subject, Date || ' ' || StartTime FROM dataTrial"
    " UNION ALL SELECT Subject, Date || ' ' || EndTime FROM dataTrial"
    " UNION ALL SELECT Subject, Date || ' ' || Time FROM dataEvents"
    ") WHERE Moment BETWEEN ? AND ? GROUP BY Subject ORDER BY Subject";

constexpr const char* lastTrial =
    "SELECT Trial, EndTime IS NULL FROM dataTrial WHERE Subject = ? ORDER BY rowid DESC LIMIT 1";

}  // namespace

std::vector<std::string> young(engine::Connection& database) {
    std::vector<std::string> lines;
    const std::array<engine::Value, 2> limits{moment(-youngMinutes), moment(minutesOfADay)};
    for (const auto& row : engine::query(database, youngRows, limits).rows) {
        std::string line =
            fmt::format("{}: last row of {}", readStore::textOf(row[0]), readStore::textOf(row[1]));
        const auto trials = engine::query(database, lastTrial, std::span(row).first(1)).rows;
        if (!trials.empty() && readStore::textOf(trials[0][1]) == "1")
            line += fmt::format(", trial {} stands open", readStore::textOf(trials[0][0]));
        lines.push_back(line);
    }
    return lines;
}

std::string moment(int minutesFromNow) {
    const std::time_t seconds = std::time(nullptr) + std::time_t{minutesFromNow} * 60;
    return fmt::format("{:%Y-%m-%d %H:%M:%S}", fmt::localtime(seconds));
}

}  // namespace openSessions
