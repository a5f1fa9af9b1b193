// What the size of a store costs: one event, a note that is removed and the end of a trial (which look rows
// up) with 0, 10,000 and 1,000,000 rows in all result tables together, taken in turns; and the sign-in of a
// known subject among 10, 1,000 and 100,000, each with ten trials.
#include <fmt/format.h>

#include <array>
#include <iostream>
#include <list>
#include <string_view>

#include "bench/benchStudy.h"
#include "forms/frmTavix.h"
#include "knowledge/modSymptom.h"
#include "state/TrialState.h"
#include "store/layer/database.h"
#include "store/record/modAppRecord.h"

namespace {

using benchStudy::milliseconds;
using benchStudy::Study;
using benchStudy::Times;

constexpr int rounds = 5;
constexpr int roundLength = 20;
constexpr int rowsOfSubject = 100;  ///< in the nine tables, as `fill` lays them
constexpr std::array rowCounts{0, 10'000, 1'000'000};
constexpr std::array subjectCounts{10, 1'000, 100'000};

/// `from` says which of its trials or events the row is: n from 0, of the subject s.
void lay(engine::Connection& database, int subjects, int each, const std::string& table,
         const std::string& columns, const std::string& values) {
    engine::execute(database,
                    fmt::format("WITH RECURSIVE r(i) AS (SELECT 0 WHERE {0} > 0 UNION ALL SELECT i + 1 FROM "
                                "r WHERE i + 1 < {0}), "
                                "k(s, n) AS (SELECT printf('subject%06d', i / {1}), i % {1} FROM r) "
                                "INSERT INTO {2} ({3}) SELECT {4} FROM k",
                                subjects * each, each, table, columns, values));
}

void laySubjects(engine::Connection& database, int subjects) {
    lay(database, subjects, 1, "SubjectInfo", "Subject, Major, Gender, Age, Date, Time, History",
        "s, 'Psychology', 'Female', '23', '2026-01-05', '09:30:00', 'first aid, and a year of nursing'");
    lay(database, subjects, 1, "SubjectSettings", "Subject, Setting, TestOrder, DiseaseOrder",
        "s, '1 First practice', 'Rash,Fever,Cough', 'Tolosis,Madrosis,Verosis'");
    lay(database, subjects, 10, "dataTrial",
        "Subject, Setting, Date, StartTime, Trial, PatientID, TestResults, Disease, Score, EndTime, SimTime, "
        "ActualTime, EndHealth, Tests, Diagnoses, Treatments, Guess, Result",
        "s, '1 First practice', '2026-01-05', '09:30:00', n + 1, 3, '101', 'Tolosis', 100 + n, '09:34:00', "
        "'04:12', '1:03', 61.5, 3, 1, 0, 'Tolosis', 'Diagnosed Right'");
}

/// The rows of all tables in the proportion of a session with a few notes; the notes' identifiers too.
void layEvents(engine::Connection& database, int subjects) {
    const std::string id = "s || printf('%02d_%03d', n / 4 + 1, n % 4 + 1)";
    lay(database, subjects, 40, "dataEvents",
        "EventID, Subject, Trial, Date, Time, SimTime, Health, Action, ActionNum, Input, Output, DiagnosisID",
        id + ", s, n / 4 + 1, '2026-01-05', '09:31:00', '03:20', '74.5', 'AddSymptom', 1, 'a cough', 0, "
             "s || '01_00'");
    lay(database, subjects, 10, "dataGetTests", "EventID, Number, Position, Test, Result",
        "s || printf('%02d_001', n + 1), 1, 2, 'Rash', 'Present'");
    lay(database, subjects, 12, "dataGetSymptoms", "EventID, ListItem",
        "s || printf('%02d_002', n % 10 + 1), 'short of breath on the stairs'");
    lay(database, subjects, 10, "dataHypotheses", "EventID, Number, [Order], Total, Guess, Belief",
        "s || printf('%02d_003', n + 1), 1, 1, 1, 'Tolosis', 70");
    lay(database, subjects, 8, "dataTreatments", "EventID, Number, Treatment, Help, Hurt",
        "s || printf('%02d_004', n + 1), 1, 'Tablets', 70, 5");
    lay(database, subjects, 8, "dataHypothesisState", "StateID, H1, H2, H3",
        "s || printf('%02d_00', n + 1), 30, 30, 40");
}

void fill(const Study& study, int subjects, bool withEvents) {
    const engine::Database database = engine::open(study.file(), store::password, engine::Access::Write);
    engine::execute(*database, "BEGIN");
    laySubjects(*database, subjects);
    if (withEvents) layEvents(*database, subjects);
    engine::execute(*database, "COMMIT");
}

struct Costs {
    Times event, note, end;
};

/// One of each, on the store in use.
void act(Costs& costs) {
    costs.event.all.push_back(
        milliseconds([] { modAppRecord::recordEvent("Testing", 1, "TestPosition1", true); }));
    modSymptom::addSymptomNote("short of breath on the stairs", false);
    costs.note.all.push_back(milliseconds([] { modSymptom::removeSymptomNote(0); }));
    frmTavix.lstSymptoms.items.clear();
    ++trialState.trialNumber;
    modAppRecord::recordTrialStart("101");
    costs.end.all.push_back(milliseconds(modAppRecord::recordTrialEnd));
}

void printGrowth(const char* what, const std::array<Costs, rowCounts.size()>& costs, Times Costs::*times) {
    for (std::size_t i = 0; i < costs.size(); ++i) {
        const Times& some = costs[i].*times;
        benchStudy::print("g", fmt::format("{}, {} rows", what, rowCounts[i]), some,
                          some.median() / (costs[0].*times).median(), i == 0 ? "" : "the same at 0 rows");
    }
}

void events(int count) {
    std::list<Study> studies;
    std::array<Costs, rowCounts.size()> costs;
    for (const int rows : rowCounts)
        fill(studies.emplace_back(fmt::format("growth{}", rows)), rows / rowsOfSubject, true);
    studies.front().use();
    benchStudy::signIn("bench");
    benchStudy::drawCase();
    trialState.trialNumber = 0;
    for (int i = 0; i < count; ++i) {
        std::size_t place = 0;
        for (const Study& study : studies) {
            study.use();
            act(costs[place++]);
        }
    }
    printGrowth("one event", costs, &Costs::event);
    printGrowth("a note removed", costs, &Costs::note);
    printGrowth("end of a trial", costs, &Costs::end);
}

void signIns(int count) {
    double before = 0;
    for (std::size_t i = 0; i < subjectCounts.size(); ++i) {
        const Study study("growth");
        fill(study, subjectCounts[i], false);
        study.use();
        const std::string last = fmt::format("Subject{:06}", subjectCounts[i] - 1);
        Times times;
        for (int k = 0; k < count; ++k) times.all.push_back(milliseconds([&] { benchStudy::signIn(last); }));
        const double linear = i == 0 ? 1 : 1.0 * subjectCounts[i] / subjectCounts[i - 1];
        benchStudy::print("g", fmt::format("sign-in among {} subjects", subjectCounts[i]), times,
                          i == 0 ? 1 : times.median() / before / linear,
                          i == 0 ? "" : fmt::format("{:.0f} times the row above", linear));
        before = times.median();
    }
}

}  // namespace

int main(int argc, char** argv) {
    const bool quick = argc > 1 && std::string_view(argv[1]) == "--quick";
    benchStudy::begin();
    events(quick ? roundLength : rounds * roundLength);
    signIns(quick ? 1 : rounds);
}
