#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>

#include "platform/text.h"
#include "study/limits.h"
#include "study/readStore.h"
#include "study/rowStream.h"
#include "study/tidyTables.h"

namespace tidyTables {

namespace {

using dictionary::Variable;
using engine::Value;
using readStore::textOf;
using Row = std::vector<Value>;

constexpr std::size_t hypotheses = limits::mostDiseases;

/// Reading the events once more in their order, with what is in force of each patient.
struct Reader {
    trialIndex::Index& index;
    std::size_t diagnosis = 0;  ///< number of the next event "Diagnose"
    std::vector<std::optional<std::size_t>> latest =
        std::vector<std::optional<std::size_t>>(index.trials.size());
    std::unordered_map<std::string, std::vector<Value>> harms = {};  ///< of prescriptions, by EventID
};

std::optional<std::size_t> numberBehind(const std::string& text, std::string_view prefix) {
    std::size_t number = 0;
    if (!text.starts_with(prefix)) return {};
    const auto [end, error] = std::from_chars(text.data() + prefix.size(), text.data() + text.size(), number);
    if (error != std::errc{}) return {};
    return number;
}

/// What the action worked on, as a word: the test, the treatment, the disease, the note.
Value itemOf(const Reader& reader, const Row& raw, std::optional<std::size_t> trial,
             const std::vector<trialIndex::Belief>* made) {
    const std::string input = textOf(raw[9]);
    if (const auto place = numberBehind(input, "TestPosition")) {
        const trialIndex::Words* words = trial ? reader.index.trials[*trial].words : nullptr;
        if (words == nullptr || *place < 1 || *place > words->symptoms.size()) return {};
        return words->symptoms[*place - 1];
    }
    if (const auto row = numberBehind(input, "HypothesisPosition")) {
        if (made == nullptr || *row < 1 || *row > made->size()) return {};
        return (*made)[*row - 1].disease;
    }
    return raw[9];
}

/// 1 and 0 where the action has an outcome: a symptom is present, a treatment healed.
Value outcomeOf(const Row& raw) {
    const std::string action = textOf(raw[7]);
    if (action != "Testing" && action != "Prescribe") return {};
    const auto* output = std::get_if<std::int64_t>(&raw[10]);
    if (output == nullptr) return {};
    return static_cast<std::int64_t>(*output != 0);
}

/// The beliefs in force: those of the latest diagnosis, or those that the patient began with.
std::vector<trialIndex::Belief> beliefsOf(const Reader& reader, std::optional<std::size_t> trial,
                                          const std::string& state) {
    if (!trial) return {};
    if (const auto latest = reader.latest[*trial]) return reader.index.diagnoses[*latest];
    const trialIndex::Trial& own = reader.index.trials[*trial];
    const auto found = reader.index.starts.find(state);
    if (found == reader.index.starts.end() || own.words == nullptr) return {};
    // Of a case that came twice each time has its own start.
    const std::vector<std::size_t>& same = reader.index.numbers.at(own.key);
    const auto turn = static_cast<std::size_t>(std::ranges::find(same, *trial) - same.begin());
    const std::vector<std::int64_t>& values = found->second[std::min(turn, found->second.size() - 1)];
    std::vector<trialIndex::Belief> beliefs;
    for (std::size_t i = 0; i < std::min(values.size(), own.words->diseases.size()); ++i)
        beliefs.push_back({own.words->diseases[i], values[i]});
    return beliefs;
}

void appendBeliefs(Row& row, const std::vector<trialIndex::Belief>& beliefs) {
    for (std::size_t i = 0; i < hypotheses; ++i) {
        const bool has = i < beliefs.size();
        row.push_back(has ? Value(beliefs[i].disease) : Value());
        row.push_back(has && beliefs[i].percent ? Value(*beliefs[i].percent) : Value());
    }
}

}  // namespace

std::vector<Variable> eventColumns() {
    std::vector<Variable> columns{
        {"subject_id", "who", "text", "not written"},
        {"trial_id", "number of the patient for this subject", "number, from 1", "not written", 1, 32767},
        {"trial_row",
         "row of the table of trials that the event belongs to; it tells the two patients of one "
         "number apart",
         "row, from 1", "there is no such trial", 1},
        {"event_id", "identifier of the event", "text", "not written"},
        {"seconds", "time since the patient's start by the time of day", "seconds",
         "the start or the time is not known"},
        {"event_time", "date and time of day", "yyyy-mm-dd hh:mm:ss", "not written"},
        {"sim_clock", "the simulated clock", "hh:mm on a dial of twelve hours", "not written"},
        {"health", "health as shown", "points of health", "not written", 0, 100},
        {"action", "Testing, Prescribe, AddSymptom, RemoveSymptom or Diagnose", "word", "not written"},
        {"action_number", "which one of its kind on this patient", "number, from 1", "not written", 0, 32767},
        {"item", "what the action worked on: the test, the treatment, the disease guessed, the note", "text",
         "not known, or left out"},
        {"outcome", "whether the symptom is present, or the treatment healed", "1 for yes, 0 for no",
         "the action has no outcome", 0, 1},
        {"harm_chance", "chance of the treatment to harm", "percent", "no treatment, or one that cannot harm",
         0, 100},
        {"harmed", "whether the treatment did harm", "1 for yes, 0 for no", "no treatment, or not known", 0,
         1},
        {"state_id", "the state of belief in force", "text", "not written"},
    };
    for (std::size_t i = 1; i <= hypotheses; ++i) {
        columns.push_back({fmt::format("disease_{}", i),
                           fmt::format("disease in row {} of the state of belief in force", i), "word",
                           "no diagnosis yet, or fewer rows"});
        columns.push_back({fmt::format("belief_{}", i), fmt::format("belief in disease_{}", i), "percent",
                           "no diagnosis yet, or fewer rows", 0, 100});
    }
    return columns;
}

void eachEvent(engine::Connection& store, trialIndex::Index& index, const Take& take) {
    Reader reader{index};
    rowStream::each(store, "dataTreatments", {"EventID", "Hurt", "Harm"}, [&](Row& raw) {
        const std::int64_t harmed = std::holds_alternative<std::monostate>(raw[2]) ? 0 : 1;
        reader.harms.try_emplace(textOf(raw[0]), std::vector<Value>{raw[1], harmed});
    });
    const std::vector<std::string> rawColumns{"EventID",   "Subject", "Trial",  "Date",
                                              "Time",      "SimTime", "Health", "Action",
                                              "ActionNum", "Input",   "Output", "DiagnosisID"};
    // The action is in place 7 and its number in 8, what it worked on in 9.
    rowStream::each(store, "dataEvents", rawColumns, [&](Row& raw) {
        const std::string moment = trialIndex::momentOf(raw[3], raw[4]);
        const auto trial = trialIndex::trialOf(index, raw[1], raw[2], moment);
        const std::string action = textOf(raw[7]);
        const std::vector<trialIndex::Belief>* made = nullptr;
        if (action == "Diagnose") {
            made = &index.diagnoses.at(reader.diagnosis);
            if (trial) reader.latest[*trial] = reader.diagnosis;
            ++reader.diagnosis;
        }
        const auto since = trial ? trialIndex::secondsBetween(index.trials[*trial].start, moment)
                                 : std::optional<std::int64_t>();
        const auto harm = action == "Prescribe" ? reader.harms.find(textOf(raw[0])) : reader.harms.end();
        Row row{raw[1],
                raw[2],
                trial ? Value(static_cast<std::int64_t>(*trial) + 1) : Value(),
                raw[0],
                since ? Value(*since) : Value(),
                moment == " " ? Value() : Value(moment),
                raw[5],
                std::holds_alternative<std::monostate>(raw[6]) ? Value() : Value(text::trim(textOf(raw[6]))),
                raw[7],
                raw[8],
                itemOf(reader, raw, trial, made),
                outcomeOf(raw)};
        row.push_back(harm == reader.harms.end() ? Value() : harm->second[0]);
        row.push_back(harm == reader.harms.end() ? Value() : harm->second[1]);
        row.push_back(raw[11]);
        appendBeliefs(row, beliefsOf(reader, trial, textOf(raw[11])));
        take(row);
    });
}

}  // namespace tidyTables
