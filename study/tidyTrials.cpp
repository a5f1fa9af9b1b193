#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <map>

#include "platform/text.h"
#include "study/keptTables.h"
#include "study/readStore.h"
#include "study/rowStream.h"
#include "study/storeTable.h"
#include "study/tidyTables.h"

namespace tidyTables {

namespace {

using dictionary::Variable;
using engine::Value;
using readStore::textOf;
using Row = std::vector<Value>;

constexpr const char* noEnd = "the patient never ended, or the store does not say";

/// The columns of dataTrial that are read, and their places.
enum Raw : std::size_t {
    Subject,
    Setting,
    Date,
    StartTime,
    Number,
    PatientID,
    TestResults,
    Disease,
    Score,
    EndTime,
    SimTime,
    ActualTime,
    EndHealth,
    Tests,
    Diagnoses,
    Treatments,
    Guess,
    GuessBelief,
    DiseaseBelief,
    PDisease,
    LastTreatment,
    CorrectTreatment,
    PLastHeal,
    PCorrectHeal,
    PLastHarm,
    PCorrectHarm,
    Penalty,
    Result,
    Saved
};
const std::vector<std::string> rawColumns{
    "Subject",       "Setting",      "Date",          "StartTime",        "Trial",     "PatientID",
    "TestResults",   "Disease",      "Score",         "EndTime",          "SimTime",   "ActualTime",
    "EndHealth",     "Tests",        "Diagnoses",     "Treatments",       "Guess",     "GuessBelief",
    "DiseaseBelief", "pDisease",     "LastTreatment", "CorrectTreatment", "pLastHeal", "pCorrectHeal",
    "pLastHarm",     "pCorrectHarm", "Penalty",       "Result",           "Saved"};

/// The configuration tables as they were at a moment; each is read once.
struct Configuration {
    engine::Connection& store;
    std::vector<keptTables::Kept> kept = keptTables::list(store);
    std::map<std::string, storeTable::Content> contents = {};

    const storeTable::Content& at(const char* table, const std::string& moment) {
        const std::string name = keptTables::nameAt(kept, table, moment);
        const auto [content, isNew] = contents.try_emplace(name);
        std::vector<std::string> others;
        if (isNew) content->second = storeTable::read(store, *schema::find(table), name, others);
        return content->second;
    }
};

/// The value of a column in a row that may be missing.
Value cell(const storeTable::Content& content, const Row* row, const std::string& column) {
    const int place = storeTable::columnOf(content, column);
    return row == nullptr || place < 0 ? Value() : (*row)[static_cast<std::size_t>(place)];
}

const Row* rowOfScenario(const storeTable::Content& content, const Value& scenario) {
    const std::string wanted = text::folded(textOf(scenario));
    for (const Row& row : content.rows) {
        if (text::folded(textOf(cell(content, &row, "Setting"))) == wanted) return &row;
    }
    return nullptr;
}

bool isEmpty(const Value& value) { return textOf(value).empty(); }
bool isNull(const Value& value) { return std::holds_alternative<std::monostate>(value); }
bool isOff(const Value& option) { return isNull(option) || textOf(option) == "0"; }

/// "hh:mm" in minutes, "m:ss" in seconds: what stands before the colon counts sixty.
Value sixties(const Value& shown) {
    const std::string text = textOf(shown);
    const std::size_t colon = text.find(':');
    std::int64_t large = 0;
    std::int64_t small = 0;
    if (colon == std::string::npos) return {};
    const char* first = text.data();
    const auto [endLarge, badLarge] = std::from_chars(first, first + colon, large);
    const auto [endSmall, badSmall] = std::from_chars(first + colon + 1, first + text.size(), small);
    if (badLarge != std::errc{} || badSmall != std::errc{}) return {};
    return large * 60 + small;
}

/// The last digits of the findings, one for each word that the subject was dealt.
Value findingsOf(const Row& raw, const trialIndex::Words* words) {
    const std::string digits = textOf(raw[TestResults]);
    if (words == nullptr || words->symptoms.size() > digits.size()) return {};
    return digits.substr(digits.size() - words->symptoms.size());
}

Value symptomsOf(const Value& findings, const trialIndex::Words* words) {
    const auto* digits = std::get_if<std::string>(&findings);
    if (digits == nullptr) return {};
    std::string present;
    for (std::size_t i = 0; i < digits->size(); ++i) {
        if ((*digits)[i] == '1') present += (present.empty() ? "" : "|") + words->symptoms[i];
    }
    return present;
}

/// 1 where the hidden disease alone holds the highest belief, 0 where another one does.
Value correctness(const std::vector<trialIndex::Belief>& beliefs, const std::string& disease) {
    std::optional<std::int64_t> highest;
    for (const trialIndex::Belief& belief : beliefs) highest = std::max(highest, belief.percent);
    if (!highest) return {};
    bool hidden = false;
    bool other = false;
    for (const trialIndex::Belief& belief : beliefs) {
        if (belief.percent == highest) (belief.disease == disease ? hidden : other) = true;
    }
    if (hidden && other) return {};
    return static_cast<std::int64_t>(hidden);
}

/// A text of the feedback that is an earlier patient's: nothing in this row could have set it.
bool isStale(const Row& raw, const Value& feedsChances, bool aborted) {
    const std::string belief = textOf(raw[GuessBelief]);
    const std::string penalty = textOf(raw[Penalty]);
    const std::string guess = textOf(raw[Guess]);
    if (textOf(raw[Diagnoses]) == "0" &&
        ((!belief.empty() && belief != "0.00") || (!guess.empty() && guess != "None")))
        return true;
    if (textOf(raw[Treatments]) == "0" && !isEmpty(raw[LastTreatment])) return true;
    if (isOff(feedsChances) && !isEmpty(raw[PDisease])) return true;
    return aborted && !penalty.empty() && penalty != "0";
}

/// Why a row needs care, or "yes".
std::string validity(const Row& raw, const trialIndex::Trial& trial, bool repeated, bool repeatsBefore,
                     const Value& feedsChances) {
    const bool aborted = textOf(raw[Result]) == "Aborted by Options";
    const std::string health = textOf(raw[EndHealth]);
    const bool endedByHealth = !isNull(raw[Saved]) || health == "0" || health == "100";
    std::string reasons;
    const auto because = [&](bool holds, const char* reason) {
        if (holds) reasons += (reasons.empty() ? "" : "; ") + std::string(reason);
    };
    because(repeated, "repeated case");
    because(isNull(raw[Result]), "closed");
    because(aborted && repeatsBefore && !trial.hasEvents, "repeats the patient before");
    because(aborted && !(repeatsBefore && !trial.hasEvents), "aborted");
    because(
        (aborted && endedByHealth && !repeatsBefore) || (textOf(raw[Result]) == "Time End" && endedByHealth),
        "rewritten end");
    because(isStale(raw, feedsChances, aborted), "stale texts");
    return reasons.empty() ? "yes" : reasons;
}

void appendOptions(Row& row, const storeTable::Content& options, const Row* scenario) {
    for (const schema::Column& column : schema::find("tblAppDefault")->columns) {
        if (column.name != "Setting") row.push_back(cell(options, scenario, std::string(column.name)));
    }
}

void appendPerson(Row& row, const storeTable::Content& roster, const Value& place) {
    const auto* number = std::get_if<std::int64_t>(&place);
    const bool known =
        number != nullptr && *number >= 1 && *number <= static_cast<std::int64_t>(roster.rows.size());
    const Row* person = known ? &roster.rows[static_cast<std::size_t>(*number) - 1] : nullptr;
    row.push_back(place);
    row.push_back(cell(roster, person, "Name"));
    row.push_back(cell(roster, person, "Health"));
}

void appendTruth(Row& row, const Row& raw, const trialIndex::Words* words, Configuration& configuration,
                 const std::string& moment) {
    const storeTable::Content& rates = configuration.at("tblBaseRates", moment);
    std::size_t number = 0;
    if (words != nullptr) {
        const auto found = std::ranges::find(words->diseases, textOf(raw[Disease]));
        if (found != words->diseases.end())
            number = static_cast<std::size_t>(found - words->diseases.begin()) + 1;
    }
    row.push_back(raw[Disease]);
    row.push_back(number == 0 ? Value() : Value(static_cast<std::int64_t>(number)));
    row.push_back(number == 0 ? Value()
                              : cell(rates, rowOfScenario(rates, raw[Setting]), fmt::format("D{}", number)));
    row.push_back(findingsOf(raw, words));
    row.push_back(symptomsOf(row.back(), words));
}

/// The outcome: what belongs to an action that the patient never saw is left empty.
void appendOutcome(Row& row, const Row& raw, const Value& feedsChances) {
    const bool ended = !isNull(raw[Result]);
    const bool diagnosed = ended && textOf(raw[Diagnoses]) != "0";
    const bool treated = ended && textOf(raw[Treatments]) != "0";
    const bool aborted = textOf(raw[Result]) == "Aborted by Options";
    row.push_back(raw[Result]);
    row.push_back(ended ? Value(static_cast<std::int64_t>(!isNull(raw[Saved]))) : Value());
    for (const Raw column : {EndTime, SimTime, ActualTime, EndHealth, Score, Tests, Diagnoses, Treatments})
        row.push_back(column == SimTime || column == ActualTime ? sixties(raw[column]) : raw[column]);
    row.push_back(diagnosed ? raw[Guess] : Value());
    row.push_back(diagnosed ? raw[GuessBelief] : Value());
    row.push_back(raw[DiseaseBelief]);
    row.push_back(isOff(feedsChances) ? Value() : raw[PDisease]);
    for (const Raw column : {LastTreatment, PLastHeal, PLastHarm})
        row.push_back(treated ? raw[column] : Value());
    row.push_back(raw[CorrectTreatment]);
    const bool hasBest = !isEmpty(raw[CorrectTreatment]);
    for (const Raw column : {PCorrectHeal, PCorrectHarm}) row.push_back(hasBest ? raw[column] : Value());
    row.push_back(aborted ? Value() : raw[Penalty]);
}

std::vector<Variable> outcomeColumns() {
    return {
        {"result",
         "how the patient ended: Dead, Saved, Time End, Correct Treatment, Wrong Treatment, "
         "Diagnosed Right, Diagnosed Wrong or Aborted by Options",
         "word", noEnd},
        {"saved", "whether the patient was saved", "1 for yes, 0 for no", noEnd, 0, 1},
        {"end_time", "time of day at the end", "hh:mm:ss", noEnd},
        {"sim_minutes", "simulated duration", "simulated minutes", noEnd, 0},
        {"actual_seconds", "real duration", "seconds", noEnd, 0},
        {"end_health", "health at the end", "points of health", noEnd, 0, 100},
        {"score", "score after the patient; before it where the patient never ended", "points of score",
         "not written", -2147483648.0, 2147483647.0},
        {"tests", "tests issued", "count", noEnd, 0, 32767},
        {"diagnoses", "diagnoses made", "count", noEnd, 0, 32767},
        {"treatments", "treatments prescribed", "count", noEnd, 0, 32767},
        {"guess", "the disease with the highest belief, each in a tie, with its percentage", "words",
         "no diagnosis was made"},
        {"guess_belief", "belief in the guess as shown", "belief from 0 to 1", "no diagnosis was made", 0, 1},
        {"disease_belief", "belief in the hidden disease as shown", "belief from 0 to 1", noEnd, 0, 1},
        {"disease_chance", "computed chance of the hidden disease given its findings, as shown",
         "probability", "the scenario does not show chances", 0, 1},
        {"last_treatment", "the last treatment", "word", "nothing was prescribed"},
        {"last_heal_chance", "its chance to heal the hidden disease", "probability", "nothing was prescribed",
         0, 1},
        {"last_harm_chance", "its chance to harm", "probability",
         "nothing was prescribed, or treatments cannot harm", 0, 1},
        {"best_treatment", "the treatment with the highest chance to heal the hidden disease", "word",
         "the feedback does not show it"},
        {"best_heal_chance", "its chance to heal the hidden disease", "probability",
         "the feedback does not show it", 0, 1},
        {"best_harm_chance", "its chance to harm", "probability",
         "the feedback does not show it, or treatments cannot harm", 0, 1},
        {"penalty", "score charged for the belief, unrounded", "points of score",
         "the patient never ended, or was aborted"},
        {"correct", "whether the hidden disease alone holds the highest belief of the last diagnosis",
         "1 for yes, 0 where it is not among the highest", "a tie with the hidden disease, or no diagnosis",
         0, 1},
        {"valid",
         "yes, or why the row needs care, parted by semicolons: repeated case (the number stands "
         "twice), closed (the patient never ended), aborted (by the experimenter's key), repeats the "
         "patient before (that key between two patients; no patient), rewritten end (the end was "
         "written over), stale texts (the raw row holds texts of an earlier patient)",
         "text", "does not occur"},
    };
}

}  // namespace

std::vector<Variable> trialColumns() {
    std::vector<Variable> columns{
        {"subject_id", "who", "text", "not written"},
        {"setting", "name of the scenario", "text", "not written"},
        {"trial_id", "number of the patient for this subject", "number, from 1", "not written", 1, 32767},
        {"date", "day of the trial", "yyyy-mm-dd", "not written"},
        {"start_time", "time of day at the start", "hh:mm:ss", "not written"},
        {"patient_id", "place of the person in the roster", "place, from 1", "not written", 1, 32767},
        {"patient_name", "the person's name in the roster", "text", "the roster has no such place"},
        {"start_health", "health at the start", "points of health", "the roster has no such place", 0, 100},
        {"disease", "the hidden disease", "word", "not written"},
        {"disease_number", "its column in the tables of the scenario", "number, from 1",
         "the subject's words are not known", 1},
        {"base_rate", "how often the scenario draws it", "percent", "not known", 0, 100},
        {"findings", "a digit for each symptom that the subject was dealt, 1 for present", "digits, as text",
         "the subject's words are not known"},
        {"symptoms_present", "the words of the symptoms that are present, parted by |", "words",
         "none is known to be present"},
    };
    for (const schema::Column& column : schema::find("tblAppDefault")->columns) {
        if (column.name == "Setting") continue;
        Variable option = dictionary::ofColumn(*schema::find("tblAppDefault"), std::string(column.name));
        option.name = "option_" + option.name;
        option.meaning = "option of the scenario: " + option.meaning;
        option.empty = "empty in the scenario, or the scenario is not known";
        columns.push_back(std::move(option));
    }
    std::ranges::move(outcomeColumns(), std::back_inserter(columns));
    return columns;
}

void eachTrial(engine::Connection& store, trialIndex::Index& index, const Take& take) {
    Configuration configuration{store};
    std::map<std::string, std::vector<std::string>> before;  // what an aborted row would repeat, by subject
    std::size_t place = 0;
    rowStream::each(store, "dataTrial", rawColumns, [&](Row& raw) {
        const trialIndex::Trial& trial = index.trials.at(place++);
        const storeTable::Content& options = configuration.at("tblAppDefault", trial.start);
        const Row* scenario = rowOfScenario(options, raw[Setting]);
        const Value feedsChances =
            scenario == nullptr ? Value(std::int64_t{-1}) : cell(options, scenario, "FeedbackDiseaseP");
        const std::vector<std::string> now{textOf(raw[PatientID]), textOf(raw[TestResults]),
                                           textOf(raw[Disease]), textOf(raw[EndHealth])};
        std::vector<std::string>& last = before[trial.key.substr(0, trial.key.find('\n'))];

        Row row{raw[Subject], raw[Setting], raw[Number], raw[Date], raw[StartTime]};
        appendPerson(row, configuration.at("tblPatients", trial.start), raw[PatientID]);
        appendTruth(row, raw, trial.words, configuration, trial.start);
        appendOptions(row, options, scenario);
        appendOutcome(row, raw, feedsChances);
        row.push_back(trial.lastDiagnosis
                          ? correctness(index.diagnoses[*trial.lastDiagnosis], textOf(raw[Disease]))
                          : Value());
        row.emplace_back(
            validity(raw, trial, index.numbers.at(trial.key).size() > 1, now == last, feedsChances));
        take(row);
        last = now;
    });
}

}  // namespace tidyTables
