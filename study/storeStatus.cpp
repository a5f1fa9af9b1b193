#include "study/storeStatus.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <set>
#include <stdexcept>

#include "platform/text.h"
#include "store/layer/schema.h"
#include "study/readStore.h"
#include "study/rowSlices.h"
#include "study/simulated.h"

namespace storeStatus {

namespace {

constexpr const char* latestEvents =
    "SELECT Subject, Date, Time FROM dataEvents ORDER BY rowid DESC LIMIT 200";

struct Reading {
    Status status;
    std::map<std::string, std::size_t> subjects;   // places, by folded name
    std::map<std::string, std::size_t> scenarios;  // the same
    std::vector<std::set<std::size_t>> present;    // who had a patient in the scenario
    struct Open {
        std::size_t scenario;
        bool is;
    };
    std::map<std::size_t, Open> lastPatient;  // by subject
};

Subject& subjectOf(Reading& reading, const std::string& name) {
    std::vector<Subject>& all = reading.status.subjects;
    const auto [found, added] = reading.subjects.try_emplace(text::folded(name), all.size());
    if (added) all.push_back({name, {}, {}, {}});
    return all[found->second];
}

std::size_t scenarioOf(Reading& reading, const std::string& name) {
    std::vector<Scenario>& all = reading.status.scenarios;
    const auto [found, added] = reading.scenarios.try_emplace(text::folded(name), all.size());
    if (added) {
        all.push_back({name, 0, {}});
        reading.present.emplace_back();
    }
    return found->second;
}

/// Days and times of day are texts that sort as they stand. An end after midnight has the day of the start.
void noteActivity(Subject& subject, const engine::Value& date, const engine::Value& time) {
    subject.last = std::max(subject.last, readStore::textOf(date) + " " + readStore::textOf(time));
}

/// What was open until now is so no more: another patient has come, or the rows are at their end.
void settle(Reading& reading, std::size_t subject, int Patients::*kind) {
    const Reading::Open last = reading.lastPatient[subject];
    if (!last.is) return;
    ++(reading.status.subjects[subject].patients.*kind);
    ++(reading.status.scenarios[last.scenario].patients.*kind);
}

/// Subject, Setting, Date, StartTime, EndTime, Result behind the number of the row.
void takePatient(Reading& reading, const std::vector<engine::Value>& row) {
    Subject& subject = subjectOf(reading, readStore::textOf(row[1]));
    const std::size_t place = reading.subjects[text::folded(subject.name)];
    const std::size_t scenario = scenarioOf(reading, readStore::textOf(row[2]));
    subject.scenario = readStore::textOf(row[2]);
    reading.present[scenario].insert(place);
    noteActivity(subject, row[3], row[4]);
    settle(reading, place, &Patients::brokenOff);
    const std::string result = readStore::textOf(row[6]);
    reading.lastPatient[place] = {scenario, result.empty()};
    if (result.empty()) return;
    noteActivity(subject, row[3], row[5]);
    int Patients::*kind = result == "Aborted by Options" ? &Patients::aborted : &Patients::finished;
    ++(subject.patients.*kind);
    ++(reading.status.scenarios[scenario].patients.*kind);
}

void takeAll(Reading& reading, engine::Connection& database) {
    for (const auto& row :
         readStore::select(database, "SELECT Setting FROM tblAppDefault ORDER BY Setting").rows)
        scenarioOf(reading, readStore::textOf(row[0]));
    rowSlices::each(database, "SubjectInfo", "Subject, Date, Time", [&](const engine::Rows& slice) {
        for (const auto& row : slice.rows)
            noteActivity(subjectOf(reading, readStore::textOf(row[1])), row[2], row[3]);
    });
    rowSlices::each(database, "dataTrial", "Subject, Setting, Date, StartTime, EndTime, Result",
                    [&](const engine::Rows& slice) {
                        for (const auto& row : slice.rows) takePatient(reading, row);
                    });
    for (const auto& [place, last] : reading.lastPatient) settle(reading, place, &Patients::open);
    // Who is at work has an event among the latest; all of them would be the largest table once more.
    for (const auto& row : readStore::select(database, latestEvents).rows)
        noteActivity(subjectOf(reading, readStore::textOf(row[0])), row[1], row[2]);
    for (const schema::Kind kind : {schema::Kind::Result, schema::Kind::Configuration}) {
        for (const schema::Table& table : schema::tables()) {
            if (table.kind != kind) continue;
            reading.status.tables.push_back(
                {std::string(table.name), rowSlices::count(database, table.name)});
        }
    }
}

}  // namespace

Status read(const std::string& file) {
    const engine::Database database = readStore::open(file);
    Reading reading;
    try {
        takeAll(reading, *database);
    } catch (const engine::Error& error) {
        throw std::runtime_error(fmt::format("{}: {}", file, error.text));
    }
    Status& status = reading.status;
    status.simulated = simulated::isMarked(*database);
    for (std::size_t i = 0; i < status.scenarios.size(); ++i)
        status.scenarios[i].subjects = static_cast<int>(reading.present[i].size());
    std::ranges::stable_sort(status.subjects, std::greater<>(), &Subject::last);
    return std::move(status);
}

}  // namespace storeStatus
