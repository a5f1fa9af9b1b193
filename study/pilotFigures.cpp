#include "study/pilotFigures.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <unordered_map>

#include "platform/checkedInteger.h"
#include "platform/numberText.h"
#include "platform/text.h"
#include "study/courses.h"
#include "study/readStore.h"
#include "study/rowStream.h"
#include "study/simulated.h"

namespace pilotFigures {

namespace {

using courses::Patient;
using courses::State;
using courses::Study;
using Pairs = std::vector<std::pair<double, double>>;

constexpr std::string_view timeEnd = "Time End";

/// One policy in one scenario, while its patients are gathered.
struct Group {
    std::vector<const Patient*> patients;
    std::vector<std::vector<double>> changes;  ///< of the score, by subject and patient
    std::map<std::string, int> brokenOff;      ///< by how the session ended
    Pairs stated;  ///< each hypothesis of a last diagnosis, and 1 where it was the hidden disease
};

/// By scenario and policy.
using Groups = std::map<std::pair<std::size_t, std::string>, Group>;

double sumOf(const std::vector<double>& values) {
    double sum = 0;
    for (const double each : values) sum += each;
    return sum;
}

double meanOf(const std::vector<double>& values) {
    return values.empty() ? 0 : sumOf(values) / static_cast<double>(values.size());
}

std::optional<Mean> meanOfSubjects(const std::vector<std::vector<double>>& bySubject) {
    std::vector<double> means;
    for (const std::vector<double>& own : bySubject) {
        if (!own.empty()) means.push_back(meanOf(own));
    }
    if (means.empty()) return {};
    const double mean = meanOf(means);
    if (means.size() < 2) return Mean{mean, {}};
    double squares = 0;
    for (const double each : means) squares += (each - mean) * (each - mean);
    const auto n = static_cast<double>(means.size());
    return Mean{mean, std::sqrt(squares / (n - 1) / n)};
}

/// The end can be reckoned twice, when its own minute reaches the time limit. The health tells what it was.
bool reckonedTwice(const Patient& patient) {
    return patient.result == timeEnd && patient.health && (*patient.health <= 0 || *patient.health >= 100);
}

survival::Life lifeOf(const Patient& patient) {
    const bool twice = reckonedTwice(patient);
    return {*patient.minutes - (twice ? 1 : 0),
            patient.result == "Dead" || (twice && patient.health.value_or(0) <= 0)};
}

Groups grouped(engine::Connection& store, const Study& study) {
    const auto simulations = simulated::subjectsOf(store);
    std::vector<simulated::Subject> players;
    for (const std::string& subject : study.subjects) {
        const auto found = simulations.find(text::folded(subject));
        players.push_back(found == simulations.end() ? simulated::Subject{people, ""} : found->second);
    }
    Groups groups;
    const Patient* before = nullptr;
    double score = 0;
    Group* last = nullptr;
    for (const Patient& patient : study.patients) {
        const bool isSame = before != nullptr && before->subject == patient.subject;
        const simulated::Subject& player = players[patient.subject];
        Group& group = groups[{patient.scenario, player.policy}];
        if (!isSame || &group != last) {
            group.changes.emplace_back();
            if (!player.ended.empty() && player.ended != simulated::complete) ++group.brokenOff[player.ended];
        }
        if (!isSame) score = study.startScores[patient.scenario];
        last = &group;
        before = &patient;
        if (patient.state != State::Repeated) group.patients.push_back(&patient);
        if (patient.state == State::Open || !patient.score) continue;
        if (patient.state == State::Finished) group.changes.back().push_back(*patient.score - score);
        score = *patient.score;
    }
    return groups;
}

/// The hypotheses of the last diagnosis of each finished patient. The key of a trial begins the identifiers
/// of its events.
void takeStated(engine::Connection& store, const Study& study, Groups& groups) {
    struct Owner {
        const Patient* patient;
        Group* group;
    };
    std::unordered_map<std::string, Owner> owners;
    for (auto& [key, group] : groups) {
        for (const Patient* patient : group.patients) {
            if (patient->state == State::Finished && patient->diagnoses > 0)
                owners[study.subjects[patient->subject] + numberText::padded(Int32(patient->trial), 2)] = {
                    patient, &group};
        }
    }
    std::string trial;
    const Owner* owner = nullptr;
    rowStream::each(store, "dataHypotheses", {"EventID", "Number", "Guess", "Belief"},
                    [&](const std::vector<engine::Value>& row) {
                        const std::string id = readStore::textOf(row[0]);
                        const std::string_view its = std::string_view(id).substr(0, id.rfind('_'));
                        if (its != trial) {
                            trial = its;
                            const auto found = owners.find(trial);
                            owner = found == owners.end() ? nullptr : &found->second;
                        }
                        if (owner == nullptr ||
                            numberText::toNumber(readStore::textOf(row[1])) != owner->patient->diagnoses)
                            return;
                        owner->group->stated.emplace_back(
                            numberText::toNumber(readStore::textOf(row[3])) / 100,
                            readStore::textOf(row[2]) == owner->patient->disease ? 1 : 0);
                    });
}

void takeLives(Outcome& outcome, const Group& group) {
    std::vector<survival::Life> lives;
    std::vector<double> minutes;
    for (const Patient* patient : group.patients) {
        if (!patient->minutes) continue;
        lives.push_back(lifeOf(*patient));
        minutes.push_back(lives.back().minutes);
    }
    outcome.meanLife = meanOf(minutes);
    outcome.survival = survival::of(std::move(lives));
    outcome.life = figures::spreadOf(std::move(minutes));
}

void takeMeans(Outcome& outcome, const Group& group) {
    std::vector<double> tests;
    std::vector<double> beliefs;
    std::vector<double> chances;
    for (const Patient* patient : group.patients) {
        if (patient->state == State::Finished) tests.push_back(patient->tests);
        if (!patient->belief || !patient->chance) continue;
        beliefs.push_back(*patient->belief);
        chances.push_back(*patient->chance);
    }
    outcome.tests = meanOf(tests);
    outcome.belief = meanOf(beliefs);
    outcome.chance = meanOf(chances);
    if (group.stated.empty()) return;
    double sum = 0;
    for (const figures::Bin& bin : outcome.figures.calibration)
        sum += bin.count * std::abs(bin.across - bin.up);
    outcome.miscalibration = sum / static_cast<double>(group.stated.size());
}

}  // namespace

std::vector<Outcome> of(engine::Connection& store) {
    const Study study = courses::readPatients(store);
    Groups groups = grouped(store, study);
    takeStated(store, study, groups);
    std::vector<Outcome> outcomes;
    for (const auto& [key, group] : groups) {
        Outcome outcome;
        outcome.scenario = study.scenarios[key.first];
        outcome.policy = key.second;
        outcome.subjects = static_cast<int>(group.changes.size());
        outcome.brokenOff.assign(group.brokenOff.begin(), group.brokenOff.end());
        outcome.figures = figures::of(group.patients);
        outcome.figures.calibration = figures::binned(group.stated);
        outcome.startScore = study.startScores[key.first];
        outcome.change = meanOfSubjects(group.changes);
        takeLives(outcome, group);
        takeMeans(outcome, group);
        outcomes.push_back(std::move(outcome));
    }
    return outcomes;
}

}  // namespace pilotFigures
