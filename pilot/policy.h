// What a simulated subject is made of: what it sees, what it knows, and what it does next. A policy is a
// function from what stands on the screen to an act; eyes, hands and the time they take are the session's. A
// policy draws from its own source of chance, so that what it draws never moves what the program draws.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "pilot/chance.h"

enum class Result { None, Present, Absent };

/// One test of the list. Test and symptom share one index, here and in `Tables`.
struct ShownTest {
    std::string symptom;
    int minutes = 0;        ///< simulated, until the result
    bool canIssue = false;  ///< now: still available, and no other test is under way
    bool underWay = false;
    Result result = Result::None;
};

struct ShownTreatment {
    std::string name;
};

/// A disease and the belief in it, in whole percents.
struct Belief {
    std::string disease;
    int percent = 0;
};

/// What stands on the screen, read from the controls. Nothing of the patient is known beyond it.
struct Sight {
    int patient = 0;  ///< of this session, from 1: a new number is a new patient
    std::string name;
    std::string introduction;
    std::vector<std::string> notes;
    std::string clock;  ///< hh:mm on the dial of twelve hours
    double health = 0;  ///< points, 0 to 100
    long score = 0;
    std::vector<ShownTest> tests;
    std::vector<ShownTreatment> treatments;
    std::vector<Belief> beliefs;    ///< as last stated for this patient; empty before
    bool canDiagnose = false;       ///< the diagnosis can be opened, or stands open
    bool mustDiagnose = false;      ///< it stands open and cannot be cancelled: state beliefs, or time passes
    bool canPrescribe = false;      ///< treatments are on show, which takes a diagnosis
    int timesPrescribed = 0;        ///< on this patient, by this subject
    int millisecondsOnPatient = 0;  ///< of the clock on the wall, since the subject first saw this patient
};

/// What the instructions tell every subject of a scenario.
struct Task {
    std::vector<std::string> diseases;  ///< the words, in the order of the dialog's list
    double testCost = 0;
    double mostPenalty = 0;     ///< MaxBeliefCost
    double healAward = 0;       ///< score for each point of health left on a saved patient
    int minutesPerPatient = 0;  ///< of the clock on the wall
    int simulatedHoursPerMinute = 0;
    bool hasTreatments = false;  ///< without, the diagnosis ends the patient
    bool oneTreatment = false;   ///< the first prescription ends the patient
    bool risk = false;           ///< a treatment can harm
    bool allDiseases = false;    ///< all diseases are judged at once
    bool yoked = false;          ///< beliefs push each other, and stay within 100 together
    bool normalized = false;     ///< beliefs are rescaled when they are stated
    bool diagnoseAfterTests = false;
    bool stopsTime = false;  ///< time stands still while the diagnosis is open
    /// FeedbackDiseaseP: the score holds a belief against the computed chance, and otherwise against 0.
    bool comparesChance = true;
    bool showsBaseRates = false;  ///< which of the tables stand on the screen
    bool showsSymptoms = false;
    bool showsTreatments = false;
};

/// The statistics of the scenario, in the words dealt to this subject, in whole percents; shown to the
/// subject or not. Empty for a policy that does not know them.
struct Tables {
    std::vector<int> baseRates;                    ///< by disease
    std::vector<std::vector<int>> symptomChances;  ///< by symptom, then disease
    std::vector<std::vector<int>> healChances;     ///< by treatment, then disease
    std::vector<std::vector<int>> harmChances;
};

/// What the command line sets for the policies.
struct Parameters {
    double share = 0.5;  ///< anchored: how far a belief moves to the computed chance, 0 to 1
    int threshold = 70;  ///< satisficer: the belief in percent at which it treats
};

/// What a subject brings along when its first patient comes.
struct Briefing {
    Task task;
    Tables tables;
    Parameters parameters;
    Chance chance;  ///< the subject's own, for the policy to copy and draw from
};

struct Act {
    enum class Kind {
        Wait,       ///< until something new stands on the screen, or `milliseconds` have passed
        Note,       ///< takes `text` down from the introduction
        Issue,      ///< test `index`
        Diagnose,   ///< opens the diagnosis where it is not open, states `beliefs`, commits
        Prescribe,  ///< treatment `index`
    };
    Kind kind = Kind::Wait;
    int milliseconds = 60'000;
    int index = 0;
    std::string text = {};
    std::vector<Belief> beliefs = {};
};

namespace act {

inline Act wait(int milliseconds = 60'000) { return {Act::Kind::Wait, milliseconds}; }
inline Act note(std::string text) { return {Act::Kind::Note, 0, 0, std::move(text)}; }
inline Act issue(int test) { return {Act::Kind::Issue, 0, test}; }
inline Act prescribe(int treatment) { return {Act::Kind::Prescribe, 0, treatment}; }
/// A disease that is not among the beliefs gets the least that its meter holds, or no row. What the meters
/// cannot hold (a sum beyond 100 where they are yoked) is cut by the hands.
inline Act diagnose(std::vector<Belief> beliefs) {
    return {Act::Kind::Diagnose, 0, 0, {}, std::move(beliefs)};
}

}  // namespace act

/// One subject's mind: asked again and again what to do next, whenever the subject's hands are free. An act
/// that the screen refuses when its time comes is dropped, and the mind is asked anew.
using Mind = std::function<Act(const Sight&)>;

struct Policy {
    std::string name;     ///< as on the command line and in the names of its subjects
    std::string meaning;  ///< one line for the help
    bool knowsTables = false;
    Mind (*mindOf)(const Briefing&) = nullptr;
};
