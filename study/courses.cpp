#include "study/courses.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <functional>
#include <map>
#include <stdexcept>
#include <unordered_map>

#include "platform/numberText.h"
#include "platform/text.h"
#include "study/readStore.h"
#include "study/rowSlices.h"

namespace courses {

namespace {

using Row = std::vector<engine::Value>;

constexpr int rowsAtOnce = 20000;
constexpr std::array<std::string_view, 5> actionNames{"AddSymptom", "RemoveSymptom", "Testing", "Diagnose",
                                                      "Prescribe"};

std::string textOf(const engine::Value& value) { return readStore::textOf(value); }

std::optional<double> numberOf(const engine::Value& value) {
    const std::string source = textOf(value);
    if (!numberText::isNumeric(source)) return {};
    return numberText::toNumber(source);
}

std::optional<int> wholeOf(const engine::Value& value) {
    const std::optional<double> number = numberOf(value);
    if (!number || *number < -2147483648.0 || *number > 2147483647.0) return {};
    return static_cast<int>(*number);
}

bool isSet(const engine::Value& value) { return numberOf(value).value_or(0) != 0; }

/// Whole numbers parted by one sign ("2026-01-05", "14:03:22"); fewer than `count` are no such text.
std::optional<std::array<int, 3>> numbersIn(const std::string& source, char sign, std::size_t count) {
    std::array<int, 3> found{};
    const char* at = source.data();
    const char* const end = at + source.size();
    for (std::size_t i = 0; i < count; ++i) {
        const auto [next, failed] = std::from_chars(at, end, found[i]);
        const bool last = i + 1 == count;
        if (failed != std::errc() || (!last && (next == end || *next != sign))) return {};
        at = last ? next : next + 1;
    }
    return found;
}

/// Seconds since a fixed day, so that a patient may pass midnight.
std::optional<std::int64_t> secondOf(const engine::Value& date, const engine::Value& time) {
    const auto day = numbersIn(textOf(date), '-', 3);
    const auto clock = numbersIn(textOf(time), ':', 3);
    if (!day || !clock) return {};
    const std::chrono::sys_days days = std::chrono::year((*day)[0]) /
                                       std::chrono::month(static_cast<unsigned>((*day)[1])) /
                                       std::chrono::day(static_cast<unsigned>((*day)[2]));
    const auto [hour, minute, second] = *clock;
    return ((std::int64_t{days.time_since_epoch().count()} * 24 + hour) * 60 + minute) * 60 + second;
}

std::optional<int> secondsOfDuration(const engine::Value& value) {
    const auto parts = numbersIn(textOf(value), ':', 2);
    if (!parts) return {};
    return (*parts)[0] * 60 + (*parts)[1];
}

/// Where rows are read, and who hears how many have come.
struct Source {
    engine::Connection& database;
    std::optional<std::string> subject = {};  ///< all where none is named
    std::function<void(std::size_t rows)> told = {};
};

/// What the engine cannot read of a table is told with the table's name.
void naming(const std::string& table, const std::function<void()>& work) {
    try {
        work();
    } catch (const engine::Error& error) {
        throw std::runtime_error(fmt::format("table {}: {}", table, error.text));
    }
}

/// Calls `take` with each row of these columns, in the order of writing. The rows come in pieces: between two
/// of them a running session can write.
void eachRow(const Source& source, const std::string& table, const std::string& columns,
             const std::function<void(const Row&)>& take) {
    std::int64_t last = -1;
    for (bool more = true; more;) {
        engine::Rows piece;
        naming(table, [&] {
            piece = readStore::select(
                source.database,
                fmt::format("SELECT {}, rowid FROM [{}] WHERE rowid > {} ORDER BY rowid LIMIT {}", columns,
                            table, last, rowsAtOnce));
        });
        for (const Row& row : piece.rows) take(row);
        if (source.told) source.told(piece.rows.size());
        more = piece.rows.size() == rowsAtOnce;
        if (more) last = std::get<std::int64_t>(piece.rows.back().back());
    }
}

/// The same of one subject, if one is named. Then most of a table is passed by, in slices of its own.
void eachRowOf(const Source& source, const std::string& table, const std::string& columns,
               const std::function<void(const Row&)>& take) {
    if (!source.subject) return eachRow(source, table, columns, take);
    naming(table, [&] {
        rowSlices::eachOf(source.database, table, columns, *source.subject, [&](const engine::Rows& slice) {
            for (const Row& row : slice.rows) take(Row(row.begin() + 1, row.end()));
        });
    });
}

/// Names in the order without regard to case, each with its place. A store can hold tens of thousands.
struct Names {
    struct Name {
        std::string spelling;  ///< the first one stays
        std::size_t place = 0;
    };
    std::map<std::string, Name> byFolded;

    void add(const std::string& name) { byFolded.emplace(text::folded(name), Name{name}); }
    /// To be called when all are in; `placeOf` holds from then on.
    [[nodiscard]] std::vector<std::string> list() {
        std::vector<std::string> all;
        for (auto& [folded, name] : byFolded) {
            name.place = all.size();
            all.push_back(name.spelling);
        }
        return all;
    }
    [[nodiscard]] std::size_t placeOf(const std::string& name) const {
        return byFolded.at(text::folded(name)).place;
    }
};

/// What the rows of a scenario are read with.
struct Scenario {
    bool withChances = false;  ///< the feedback shows them: elsewhere the column keeps an older text
    int startMinute = 0;
    double startScore = 0;
};

/// By the folded name.
std::map<std::string, Scenario> readScenarios(engine::Connection& database) {
    std::map<std::string, Scenario> found;
    eachRow(
        {database}, "tblAppDefault", "Setting, FeedbackDiseaseP, StartMin, InitScore", [&](const Row& row) {
            found[text::folded(textOf(row[0]))] = {isSet(row[1]), numberText::nearestShort(textOf(row[2])),
                                                   std::floor(numberText::toNumber(textOf(row[3])))};
        });
    return found;
}

Patient patientOf(const Row& row, const Scenario& scenario) {
    Patient patient{};
    patient.trial = wholeOf(row[4]).value_or(0);
    patient.start = textOf(row[2]) + " " + textOf(row[3]);
    patient.startSecond = secondOf(row[2], row[3]);
    patient.roster = textOf(row[5]);
    patient.findings = textOf(row[6]);
    patient.disease = textOf(row[7]);
    patient.score = wholeOf(row[8]);
    patient.result = textOf(row[9]);
    patient.saved = isSet(row[10]);
    patient.duration = secondsOfDuration(row[11]);
    patient.health = numberOf(row[12]);
    if (!patient.result.empty())
        patient.state = patient.result == "Aborted by Options" ? State::Aborted : State::Finished;
    patient.minutes = minutesOf(textOf(row[16]), scenario.startMinute);
    patient.tests = wholeOf(row[17]).value_or(0);
    patient.diagnoses = wholeOf(row[13]).value_or(0);
    if (patient.state == State::Finished && patient.diagnoses > 0) {
        patient.belief = numberOf(row[14]);
        if (scenario.withChances && patient.belief) patient.chance = numberOf(row[15]);
    }
    return patient;
}

void readRows(const Source& source, Study& study) {
    std::map<std::string, Scenario> rules = readScenarios(source.database);
    Names subjects;
    Names scenarios;
    std::vector<std::pair<std::string, std::string>> names;  // of each patient
    eachRowOf(
        source, "dataTrial",
        "Subject, Setting, Date, StartTime, Trial, PatientID, TestResults, Disease, Score, Result, Saved, "
        "ActualTime, EndHealth, Diagnoses, DiseaseBelief, pDisease, SimTime, Tests",
        [&](const Row& row) {
            names.emplace_back(textOf(row[0]), textOf(row[1]));
            subjects.add(names.back().first);
            scenarios.add(names.back().second);
            study.patients.push_back(patientOf(row, rules[text::folded(names.back().second)]));
        });
    study.subjects = subjects.list();
    study.scenarios = scenarios.list();
    for (const std::string& name : study.scenarios)
        study.startScores.push_back(rules[text::folded(name)].startScore);
    for (std::size_t i = 0; i < names.size(); ++i) {
        study.patients[i].subject = subjects.placeOf(names[i].first);
        study.patients[i].scenario = scenarios.placeOf(names[i].second);
    }
    std::ranges::stable_sort(study.patients, {}, &Patient::subject);
}

/// By subject and number: the rows of one number, in their order.
using Trials = std::map<std::pair<std::string, int>, std::vector<std::size_t>>;

Trials trialsOf(const Study& study) {
    Trials trials;
    for (std::size_t i = 0; i < study.patients.size(); ++i) {
        const Patient& patient = study.patients[i];
        trials[{text::folded(study.subjects[patient.subject]), patient.trial}].push_back(i);
    }
    return trials;
}

/// Events by their identifiers, which can repeat.
using Identifiers = std::unordered_map<std::string, std::vector<std::pair<std::size_t, std::size_t>>>;

Identifiers readEvents(const Source& source, Study& study) {
    const Trials trials = trialsOf(study);
    Identifiers identifiers;
    eachRowOf(
        source, "dataEvents", "EventID, Subject, Trial, Date, Time, SimTime, Health, Action, Input, Output",
        [&](const Row& row) {
            const auto rows = trials.find({text::folded(textOf(row[1])), wholeOf(row[2]).value_or(0)});
            const auto action = std::ranges::find(actionNames, textOf(row[7]));
            if (rows == trials.end() || action == actionNames.end()) return;
            // A case that came twice: the event belongs to the last row that had begun.
            const std::optional<std::int64_t> second = secondOf(row[3], row[4]);
            std::size_t owner = rows->second.front();
            for (const std::size_t each : rows->second) {
                if (study.patients[each].startSecond <= second) owner = each;
            }
            Patient& patient = study.patients[owner];
            Event event{};
            event.second = second && patient.startSecond
                               ? static_cast<int>(std::max<std::int64_t>(0, *second - *patient.startSecond))
                               : 0;
            event.clock = textOf(row[5]);
            event.health = numberOf(row[6]);
            event.action = static_cast<Action>(action - actionNames.begin());
            event.what = textOf(row[8]);
            event.outcome = isSet(row[9]);
            identifiers[textOf(row[0])].emplace_back(owner, patient.events.size());
            patient.events.push_back(std::move(event));
        });
    return identifiers;
}

/// The event that a row of details belongs to: the first of its identifier and action that has none yet.
Event* next(Study& study, const Identifiers& identifiers, const std::string& id, Action action) {
    const auto found = identifiers.find(id);
    if (found == identifiers.end()) return nullptr;
    for (const auto& [patient, number] : found->second) {
        Event& event = study.patients[patient].events[number];
        if (event.action != action || event.detailed) continue;
        event.detailed = true;
        return &event;
    }
    return nullptr;
}

void readDetails(const Source& source, Study& study, const Identifiers& identifiers) {
    eachRow(source, "dataGetTests", "EventID, Test", [&](const Row& row) {
        Event* event = next(study, identifiers, textOf(row[0]), Action::Testing);
        if (event != nullptr) event->what = textOf(row[1]);
    });
    eachRow(source, "dataTreatments", "EventID, Harm", [&](const Row& row) {
        Event* event = next(study, identifiers, textOf(row[0]), Action::Prescribe);
        if (event != nullptr) event->harm = isSet(row[1]);
    });
    Event* current = nullptr;
    std::string id;
    eachRow(source, "dataHypotheses", "EventID, [Order], Guess, Belief", [&](const Row& row) {
        if (wholeOf(row[1]) == 1 || textOf(row[0]) != id) {
            id = textOf(row[0]);
            current = next(study, identifiers, id, Action::Diagnose);
        }
        if (current != nullptr) current->beliefs.push_back({textOf(row[2]), wholeOf(row[3]).value_or(0)});
    });
}

/// Rows that tell nothing of their own, and the places of the others.
void markRepeated(Study& study) {
    for (const auto& [key, rows] : trialsOf(study)) {
        for (const std::size_t each : rows) {
            if (rows.size() > 1) study.patients[each].state = State::Repeated;
        }
    }
    std::map<std::pair<std::size_t, std::size_t>, int> places;
    for (std::size_t i = 0; i < study.patients.size(); ++i) {
        Patient& patient = study.patients[i];
        const Patient* before = i == 0 ? nullptr : &study.patients[i - 1];
        // The experimenter's key between two patients writes the one before once more, without an event.
        if (patient.state == State::Aborted && patient.events.empty() && before != nullptr &&
            before->subject == patient.subject && before->roster == patient.roster &&
            before->findings == patient.findings && before->disease == patient.disease)
            patient.state = State::Repeated;
        if (patient.state != State::Repeated) patient.place = ++places[{patient.subject, patient.scenario}];
    }
}

std::int64_t rowsOf(engine::Connection& database) {
    std::int64_t all = 0;
    for (const char* table : {"dataTrial", "dataEvents", "dataGetTests", "dataTreatments", "dataHypotheses"})
        naming(table, [&] { all += rowSlices::count(database, table); });
    return all;
}

}  // namespace

Study read(engine::Connection& database, const std::function<void(double)>& told) {
    Source source{database};
    std::int64_t come = 0;
    if (told) {
        source.told = [&told, &come, all = rowsOf(database)](std::size_t rows) {
            come += static_cast<std::int64_t>(rows);
            // A session may have written since they were counted.
            told(static_cast<double>(come) / static_cast<double>(std::max({all, come, std::int64_t{1}})));
        };
    }
    Study study;
    readRows(source, study);
    readDetails(source, study, readEvents(source, study));
    markRepeated(study);
    return study;
}

Study readOf(engine::Connection& database, const std::string& subject) {
    Study study;
    readRows({database, subject}, study);
    readEvents({database, subject}, study);
    markRepeated(study);
    return study;
}

Study readPatients(engine::Connection& database) {
    Study study;
    readRows({database}, study);
    markRepeated(study);
    return study;
}

std::optional<int> minutesOf(const std::string& simTime, int startMinute) {
    const auto parts = numbersIn(simTime, ':', 2);
    if (!parts) return {};
    const auto [hours, minute, none] = *parts;
    const int onTheClock = (startMinute % 60 + minute + 60) % 60;
    return 60 * hours + onTheClock - startMinute - 1;
}

std::optional<int> firstOf(const Patient& patient, Action action) {
    const auto found = std::ranges::find(patient.events, action, &Event::action);
    if (found == patient.events.end()) return {};
    return found->second;
}

const std::vector<Hypothesis>& lastBeliefs(const Patient& patient) {
    static const std::vector<Hypothesis> none;
    const auto last = std::find_if(patient.events.rbegin(), patient.events.rend(),
                                   [](const Event& event) { return event.action == Action::Diagnose; });
    return last == patient.events.rend() ? none : last->beliefs;
}

int find(const Study& study, std::string_view subject, int trial) {
    int found = -1;
    for (std::size_t i = 0; i < study.patients.size(); ++i) {
        const Patient& patient = study.patients[i];
        if (patient.trial == trial && text::folded(study.subjects[patient.subject]) == text::folded(subject))
            found = static_cast<int>(i);
    }
    return found;
}

}  // namespace courses
