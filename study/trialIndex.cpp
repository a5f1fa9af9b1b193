#include "study/trialIndex.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>

#include "platform/text.h"
#include "study/limits.h"
#include "study/readStore.h"
#include "study/rowStream.h"

namespace trialIndex {

namespace {

using engine::Value;
using readStore::textOf;
using Row = std::vector<Value>;

constexpr int hypotheses = limits::mostDiseases;

const std::string& folded(Index& index, const std::string& spelling) {
    const auto [place, isNew] = index.folded.try_emplace(spelling);
    if (isNew) place->second = text::folded(spelling);
    return place->second;
}

std::string keyOf(Index& index, const Value& subject, const Value& number) {
    return folded(index, textOf(subject)) + '\n' + textOf(number);
}

std::vector<std::string> wordsOf(const Value& list) {
    std::vector<std::string> words;
    const std::string all = textOf(list);
    for (std::size_t from = 0; !all.empty() && from <= all.size();) {
        const std::size_t comma = std::min(all.find(',', from), all.size());
        words.push_back(text::trim(all.substr(from, comma - from)));
        from = comma + 1;
    }
    return words;
}

void readWords(Index& index, engine::Connection& store) {
    rowStream::each(
        store, "SubjectSettings", {"Subject", "Setting", "TestOrder", "DiseaseOrder"}, [&](Row& row) {
            index.words.try_emplace({folded(index, textOf(row[0])), folded(index, textOf(row[1]))},
                                    Words{wordsOf(row[2]), wordsOf(row[3])});
        });
}

void readTrials(Index& index, engine::Connection& store) {
    rowStream::each(store, "dataTrial", {"Subject", "Trial", "Setting", "Date", "StartTime"}, [&](Row& row) {
        const auto words = index.words.find({folded(index, textOf(row[0])), folded(index, textOf(row[2]))});
        Trial trial{keyOf(index, row[0], row[1]), momentOf(row[3], row[4])};
        if (words != index.words.end()) trial.words = &words->second;
        index.numbers[trial.key].push_back(index.trials.size());
        index.trials.push_back(std::move(trial));
    });
}

using Diagnoses = std::unordered_map<std::string, std::vector<std::size_t>>;

/// Numbers the events "Diagnose" and gives back their numbers by EventID, which can stand twice.
Diagnoses readDiagnoses(Index& index, engine::Connection& store) {
    Diagnoses byEvent;
    rowStream::each(store, "dataEvents", {"EventID", "Subject", "Trial", "Date", "Time", "Action"},
                    [&](Row& row) {
                        const auto trial = trialOf(index, row[1], row[2], momentOf(row[3], row[4]));
                        if (trial) index.trials[*trial].hasEvents = true;
                        if (textOf(row[5]) != "Diagnose") return;
                        if (trial) index.trials[*trial].lastDiagnosis = index.diagnoses.size();
                        byEvent[textOf(row[0])].push_back(index.diagnoses.size());
                        index.diagnoses.emplace_back();
                    });
    return byEvent;
}

/// The rows of a diagnosis follow each other from `Order` 1 on; the second group of an identifier belongs to
/// its second event.
void readBeliefs(Index& index, engine::Connection& store) {
    const Diagnoses byEvent = readDiagnoses(index, store);
    std::unordered_map<std::string, std::size_t> groups;
    rowStream::each(store, "dataHypotheses", {"EventID", "Order", "Guess", "Belief"}, [&](Row& row) {
        const std::string event = textOf(row[0]);
        const auto found = byEvent.find(event);
        if (found == byEvent.end()) return;
        std::size_t& group = groups[event];
        if (textOf(row[1]) == "1" || group == 0) ++group;
        if (group > found->second.size()) return;
        Belief belief{textOf(row[2]), {}};
        if (const auto* percent = std::get_if<std::int64_t>(&row[3])) belief.percent = *percent;
        index.diagnoses[found->second[group - 1]].push_back(std::move(belief));
    });
}

/// Where all diseases are judged at once a patient starts with beliefs: the first state, number 00.
void readStarts(Index& index, engine::Connection& store) {
    rowStream::each(store, "dataHypothesisState", {"StateID", "H1", "H2", "H3", "H4"}, [&](Row& row) {
        const std::string state = textOf(row[0]);
        if (!state.ends_with("_00")) return;
        std::vector<std::int64_t>& values = index.starts[state].emplace_back();
        for (int i = 1; i <= hypotheses; ++i) {
            const auto* percent = std::get_if<std::int64_t>(&row[static_cast<std::size_t>(i)]);
            if (percent == nullptr) break;
            values.push_back(*percent);
        }
    });
}

std::optional<std::chrono::sys_seconds> secondOf(const std::string& moment) {
    constexpr std::array<std::pair<std::size_t, std::size_t>, 6> parts{
        {{0, 4}, {5, 2}, {8, 2}, {11, 2}, {14, 2}, {17, 2}}};
    std::array<int, 6> numbers{};
    if (moment.size() != std::string_view("yyyy-mm-dd hh:mm:ss").size()) return {};
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const char* from = moment.data() + parts[i].first;
        const auto [end, error] = std::from_chars(from, from + parts[i].second, numbers[i]);
        if (error != std::errc{} || end != from + parts[i].second) return {};
    }
    const auto day = std::chrono::year(numbers[0]) / numbers[1] / numbers[2];
    if (!day.ok()) return {};
    return std::chrono::sys_days(day) + std::chrono::hours(numbers[3]) + std::chrono::minutes(numbers[4]) +
           std::chrono::seconds(numbers[5]);
}

}  // namespace

Index build(engine::Connection& store) {
    Index index;
    readWords(index, store);
    readTrials(index, store);
    readBeliefs(index, store);
    readStarts(index, store);
    return index;
}

std::optional<std::size_t> trialOf(Index& index, const Value& subject, const Value& number,
                                   const std::string& moment) {
    const auto found = index.numbers.find(keyOf(index, subject, number));
    if (found == index.numbers.end()) return {};
    std::size_t trial = found->second.front();
    for (const std::size_t candidate : found->second) {
        if (index.trials[candidate].start <= moment) trial = candidate;
    }
    return trial;
}

std::string momentOf(const Value& date, const Value& time) { return textOf(date) + ' ' + textOf(time); }

std::optional<std::int64_t> secondsBetween(const std::string& from, const std::string& to) {
    const auto first = secondOf(from);
    const auto last = secondOf(to);
    if (!first || !last) return {};
    return (*last - *first).count();
}

}  // namespace trialIndex
