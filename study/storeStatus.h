// How far a study has come: a look at its store that can be taken while subjects are at work.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace storeStatus {

struct Patients {
    int finished = 0;   ///< the row has its end
    int aborted = 0;    ///< ended by the experimenter's key
    int brokenOff = 0;  ///< without an end, and the subject has had further patients since
    int open = 0;       ///< the subject's last patient, without an end: under treatment, or broken off
};

struct Scenario {
    std::string name;
    int subjects = 0;  ///< who had a patient in it
    Patients patients;
};

struct Subject {
    std::string name;      ///< as typed the first time
    std::string scenario;  ///< of the last patient
    Patients patients;
    std::string last;  ///< last activity, "yyyy-mm-dd hh:mm:ss"
};

struct TableRows {
    std::string table;
    std::int64_t rows;
};

struct Status {
    bool simulated = false;           ///< the subjects are no people, or not all of them
    std::vector<Scenario> scenarios;  ///< those of the sign-in first, in its order
    std::vector<Subject> subjects;    ///< who did something last comes first
    std::vector<TableRows> tables;    ///< those of the results first
};

/// Reads the store in short steps that keep no session waiting. Throws std::runtime_error, which names the
/// file and the table.
Status read(const std::string& file);

}  // namespace storeStatus
