#include "study/storedWords.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <optional>
#include <set>

#include "platform/numberText.h"
#include "platform/text.h"
#include "study/limits.h"
#include "study/readStore.h"

namespace storedWords {

namespace {

constexpr std::size_t mostDiseases = limits::mostDiseases;

using Words = std::vector<std::string>;

/// How many words a session of a scenario needs.
struct Need {
    std::size_t diseases = 0;
    std::size_t symptoms = 0;
};

Words wordsOf(engine::Connection& database, const std::string& type) {
    Words words;
    const std::string sql = fmt::format("SELECT Term FROM tblVocabulary WHERE Type = '{}'", type);
    for (const auto& row : readStore::select(database, sql).rows) words.push_back(readStore::textOf(row[0]));
    return words;
}

/// By the folded name. Base rates belong to scenarios by their place in the order of names; of two scenarios
/// of one name a session takes the first.
std::map<std::string, Need> needs(engine::Connection& database, std::size_t diseaseWords) {
    std::map<std::string, Need> all;
    const auto rates = readStore::select(database, "SELECT Count FROM tblBaseRates ORDER BY Setting").rows;
    std::size_t place = 0;
    for (const auto& row :
         readStore::select(database, "SELECT Setting FROM tblAppDefault ORDER BY Setting").rows) {
        Need need;
        if (place < rates.size()) {
            const double count = numberText::toNumber(readStore::textOf(rates[place][0]));
            need.diseases =
                std::min({static_cast<std::size_t>(std::max(count, 0.0)), mostDiseases, diseaseWords});
        }
        all.emplace(text::folded(readStore::textOf(row[0])), need);
        ++place;
    }
    for (const auto& row : readStore::select(database, "SELECT Setting FROM tblDiseaseSymptom").rows) {
        const auto scenario = all.find(text::folded(readStore::textOf(row[0])));
        if (scenario != all.end()) ++scenario->second.symptoms;
    }
    return all;
}

/// Why these words do not fit, or nothing. `kind` is what the words stand for.
std::string misfit(const engine::Value& stored, std::size_t needed, const Words& known,
                   std::string_view kind) {
    if (stored == engine::Value()) return fmt::format("no {} words", kind);
    Words words;
    const std::string list = readStore::textOf(stored);
    for (std::size_t from = 0; from <= list.size();) {
        const std::size_t comma = std::min(list.find(',', from), list.size());
        words.push_back(text::trim(list.substr(from, comma - from)));
        from = comma + 1;
    }
    if (words.size() != needed)
        return fmt::format("{} {} words where the scenario takes {}", words.size(), kind, needed);
    for (const std::string& word : words) {
        if (std::ranges::find(known, word) == known.end())
            return fmt::format("\"{}\" is no {} word of the vocabulary", word, kind);
    }
    return {};
}

}  // namespace

std::vector<std::string> misfits(engine::Connection& database) {
    std::vector<std::string> lines;
    const Words diseases = wordsOf(database, "Disease");
    const Words symptoms = wordsOf(database, "Symptom");
    const std::map<std::string, Need> scenarios = needs(database, diseases.size());
    std::set<std::pair<std::string, std::string>> seen;  // a session takes the first row
    for (const auto& row :
         readStore::select(database, "SELECT Subject, Setting, DiseaseOrder, TestOrder FROM SubjectSettings")
             .rows) {
        const std::string subject = readStore::textOf(row[0]);
        const std::string setting = readStore::textOf(row[1]);
        if (!seen.emplace(text::folded(subject), text::folded(setting)).second) continue;
        const auto scenario = scenarios.find(text::folded(setting));
        std::string reason = "there is no such scenario now";
        if (scenario != scenarios.end()) {
            reason = misfit(row[2], scenario->second.diseases, diseases, "disease");
            if (reason.empty()) reason = misfit(row[3], scenario->second.symptoms, symptoms, "symptom");
        }
        if (!reason.empty()) lines.push_back(fmt::format("{} in \"{}\": {}", subject, setting, reason));
    }
    return lines;
}

}  // namespace storedWords
