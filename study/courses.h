// The course of each patient of a study, as its rows tell it: who, how it ended, what was believed, and what
// the subject did when. Read in pieces, so that a large store takes little memory and no lock is held long.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/layer/engine.h"

namespace courses {

enum class Action { AddSymptom, RemoveSymptom, Testing, Diagnose, Prescribe };

struct Hypothesis {
    std::string disease;
    int belief;  ///< percent
};

struct Event {
    int second;         ///< real time since the start of the patient
    std::string clock;  ///< simulated time, hh:mm on the dial
    std::optional<double> health;
    Action action;
    std::string what;                 ///< the note, the test, the treatment
    bool outcome = false;             ///< the symptom is present, the treatment helped
    bool harm = false;                ///< the treatment did harm
    bool detailed = false;            ///< the rows of the details have been found
    std::vector<Hypothesis> beliefs;  ///< of a diagnosis, in the order of the dialog
};

enum class State {
    Finished,
    Aborted,  ///< by the experimenter's key, in the midst of a patient
    Open,     ///< no end was written
    Repeated  ///< the case came twice, or the row repeats the patient before: it tells nothing of its own
};

struct Patient {
    std::size_t subject;   ///< place in Study::subjects
    std::size_t scenario;  ///< place in Study::scenarios
    int trial = 0;
    int place = 0;      ///< among the subject's patients of the scenario, from 1; 0 for Repeated
    std::string start;  ///< date and time of day
    std::optional<std::int64_t> startSecond;
    std::string roster;  ///< `PatientID`
    std::string findings;
    std::string disease;
    std::string result;
    State state = State::Open;
    bool saved = false;
    std::optional<int> score;     ///< after the patient; before it while Open
    std::optional<int> duration;  ///< real seconds
    std::optional<int> minutes;   ///< simulated ones until the end, which can be more than twelve hours
    int tests = 0;                ///< counters of the row, 0 while Open
    int diagnoses = 0;
    std::optional<double> health;  ///< at the end
    std::optional<double>
        belief;  ///< in the hidden disease, 0 to 1; only of a finished patient with a diagnosis
    std::optional<double>
        chance;  ///< as computed, 0 to 1; only where the scenario shows it and belief is known
    std::vector<Event> events;
};

struct Study {
    std::vector<std::string> subjects;   ///< sorted without regard to case, one spelling each
    std::vector<std::string> scenarios;  ///< those with patients, sorted
    std::vector<double> startScores;     ///< of a new subject in each scenario, by the tables as they stand
    std::vector<Patient> patients;       ///< by subject, then in the order of their rows
};

/// Reads all patients. `told`, if given, hears now and then what share has been read, 0 to 1; what it throws
/// ends the reading. Throws std::runtime_error, which names the table that cannot be read.
Study read(engine::Connection& database, const std::function<void(double)>& told = {});

/// The same without the events of each patient, which are most of a store.
Study readPatients(engine::Connection& database);

/// Simulated minutes from the start of a patient to what ended it. `SimTime` holds the minute that each end
/// adds, and its hours are those that the clock has filled since `startMinute`.
std::optional<int> minutesOf(const std::string& simTime, int startMinute);

/// The patients of one subject, case aside, with their events, of which nothing is detailed. Little of a
/// large store is in memory. Throws as `read` does.
Study readOf(engine::Connection& database, const std::string& subject);

/// Real seconds until the first event of this kind, if there is one.
std::optional<int> firstOf(const Patient& patient, Action action);

/// The beliefs of the last diagnosis; none without one.
const std::vector<Hypothesis>& lastBeliefs(const Patient& patient);

/// The patient of that subject, case aside, and number; the last one read where it stands twice. -1 if none.
int find(const Study& study, std::string_view subject, int trial);

}  // namespace courses
