#include "study/dictionary.h"

#include <algorithm>
#include <array>
#include <limits>
#include <map>
#include <nlohmann/json.hpp>
#include <string_view>

#include "platform/text.h"

namespace dictionary {

namespace {

using Json = nlohmann::ordered_json;
using enum schema::ColumnType;

/// What the list of tables leaves out. Without a table it holds for that column of any table of results.
struct Detail {
    std::string_view table, column, unit, empty;
    std::optional<double> least = {};
    std::optional<double> most = {};
};

constexpr std::string_view neverEnded = "the patient never ended: the program was closed before";

const std::array details{
    Detail{"tblAppDefault", "Time", "minutes", "not written", 1, 30},
    Detail{"tblAppDefault", "SimRate", "simulated hours in a minute", "not written", 1, 20},
    Detail{"tblAppDefault", "StartHour", "hour", "not written", 0, 12},
    Detail{"tblAppDefault", "StartMin", "minute", "not written", 0, 59},
    Detail{"tblAppDefault", "InitScore", "points of score", "not written"},
    Detail{"tblAppDefault", "TestCost", "points of score", "not written"},
    Detail{"tblAppDefault", "MaxBeliefCost", "points of score", "not written"},
    Detail{"tblAppDefault", "HealAward", "points of score for a point of health", "not written"},
    Detail{"SubjectInfo", "Age", "years", "not written", 0},
    Detail{"dataTrial", "PatientID", "place, from 1", "not written", 1, 32767},
    Detail{"dataTrial", "TestResults", "digits 0 and 1, as text", "not written"},
    Detail{"dataTrial", "Score", "points of score", "not written", -2147483648.0, 2147483647.0},
    Detail{"dataTrial", "EndTime", "hh:mm:ss", neverEnded},
    Detail{"dataTrial", "SimTime", "hh:mm of simulated time", neverEnded},
    Detail{"dataTrial", "ActualTime", "m:ss", neverEnded},
    Detail{"dataTrial", "EndHealth", "points of health", neverEnded, 0, 100},
    Detail{"dataTrial", "Tests", "count", neverEnded, 0, 32767},
    Detail{"dataTrial", "Diagnoses", "count", neverEnded, 0, 32767},
    Detail{"dataTrial", "Treatments", "count", neverEnded, 0, 32767},
    Detail{"dataTrial", "Guess", "words, a percentage behind each", neverEnded},
    Detail{"dataTrial", "GuessBelief", "belief from 0 to 1", neverEnded, 0, 1},
    Detail{"dataTrial", "DiseaseBelief", "belief from 0 to 1", neverEnded, 0, 1},
    Detail{"dataTrial", "pGuess", "probability", neverEnded, 0, 1},
    Detail{"dataTrial", "pDisease", "probability", neverEnded, 0, 1},
    Detail{"dataTrial", "LastTreatment", "word", neverEnded},
    Detail{"dataTrial", "CorrectTreatment", "word", neverEnded},
    Detail{"dataTrial", "pLastHeal", "probability", neverEnded, 0, 1},
    Detail{"dataTrial", "pCorrectHeal", "probability", neverEnded, 0, 1},
    Detail{"dataTrial", "pLastHarm", "probability", "the patient never ended, or treatments cannot harm", 0,
           1},
    Detail{"dataTrial", "pCorrectHarm", "probability", "the patient never ended, or treatments cannot harm",
           0, 1},
    Detail{"dataTrial", "Penalty", "points of score", neverEnded},
    Detail{"dataTrial", "Result", "word", neverEnded},
    Detail{"dataTrial", "Saved", "1 for yes", "the patient was not saved", 1, 1},
    Detail{"dataEvents", "SimTime", "hh:mm on a dial of twelve hours", "not written"},
    Detail{"dataEvents", "Health", "points of health, a blank behind them", "not written", 0, 100},
    Detail{"dataGetTests", "Position", "place, from 1", "not written", 1, 6},
    Detail{"dataGetSymptoms", "FromIntro", "6 for yes", "the note is the subject's own", 6, 6},
    Detail{"dataGetSymptoms", "Deleted", "6 for yes", "the note was not removed", 6, 6},
    Detail{"dataHypotheses", "Order", "row, from 1", "not written", 1, 4},
    Detail{"dataHypotheses", "Total", "count", "not written", 1, 4},
    Detail{"dataHypotheses", "Belief", "percent", "not written", 0, 100},
    Detail{"dataTreatments", "Help", "percent", "not written", 0, 100},
    Detail{"dataTreatments", "Heal", "1 for yes", "it did not heal", 1, 1},
    Detail{"dataTreatments", "Hurt", "percent", "treatments cannot harm", 0, 100},
    Detail{"dataTreatments", "Harm", "1 for yes", "it did no harm", 1, 1},
    Detail{"", "Time", "hh:mm:ss", "not written"},
    Detail{"", "StartTime", "hh:mm:ss", "not written"},
    Detail{"", "Trial", "number, from 1", "not written", 1, 32767},
    Detail{"", "Number", "number, from 1", "not written", 1, 32767},
    Detail{"", "ActionNum", "number, from 1", "not written", 0, 32767},
};

Variable plain(const schema::Column& column) {
    Variable variable{std::string(column.name), std::string(column.meaning), "text", "not written"};
    if (column.type == Date) variable.unit = "yyyy-mm-dd";
    if (column.type == YesNo)
        variable = {variable.name, variable.meaning, "-1 for yes, 0 for no", "not written", -1, 0};
    if (column.type == Short)
        variable = {variable.name,
                    variable.meaning,
                    "number",
                    "not written",
                    std::numeric_limits<std::int16_t>::min(),
                    std::numeric_limits<std::int16_t>::max()};
    if (column.least) variable.least = column.least;
    if (column.most) variable.most = column.most;
    return variable;
}

std::string described(const Variable& variable) {
    return variable.empty.empty() ? variable.meaning
                                  : variable.meaning + ". An empty field: " + variable.empty;
}

Json jsonOf(const Variable& variable) {
    Json json{{"@type", "PropertyValue"}, {"name", variable.name}};
    json["description"] = described(variable) + ".";
    json["unitText"] = variable.unit;
    if (variable.least) json["minValue"] = static_cast<std::int64_t>(*variable.least);
    if (variable.most) json["maxValue"] = static_cast<std::int64_t>(*variable.most);
    return json;
}

Json listOf(const std::vector<Variable>& variables) {
    Json list = Json::array();
    for (const Variable& variable : variables) list.push_back(jsonOf(variable));
    return list;
}

Json beginning() { return {{"@context", "https://schema.org/"}, {"@type", "Dataset"}}; }

/// Adds what a further file says of the column; a range holds for all of them only if they share it.
void merge(Variable& known, const std::string& file, const Variable& further) {
    const std::string meaning = described(further);
    if (known.meaning.find(meaning) != std::string::npos) return;
    known.meaning += "; in " + file + ": " + meaning;
    if (known.unit.find(further.unit) == std::string::npos) known.unit += ", or " + further.unit;
    if (known.least != further.least) known.least.reset();
    if (known.most != further.most) known.most.reset();
}

}  // namespace

Variable ofColumn(const schema::Table& table, const std::string& column) {
    const auto known = std::ranges::find_if(table.columns, [&](const schema::Column& candidate) {
        return text::folded(candidate.name) == text::folded(column);
    });
    if (known == table.columns.end()) {
        const std::string meaning(table.series.empty() ? "" : table.series.front().meaning);
        return {column, meaning, "percent", "the state has no such row", 0, 100};
    }
    Variable variable = plain(*known);
    const auto detail = std::ranges::find_if(details, [&](const Detail& candidate) {
        return candidate.column == known->name &&
               (candidate.table == table.name ||
                (candidate.table.empty() && table.kind == schema::Kind::Result));
    });
    if (detail == details.end()) return variable;
    return {variable.name, variable.meaning, std::string(detail->unit), std::string(detail->empty),
            detail->least, detail->most};
}

std::string ofFile(const std::vector<Variable>& variables) {
    Json json = beginning();
    json["variableMeasured"] = listOf(variables);
    return json.dump(2) + '\n';
}

std::string ofDataset(const Files& files) {
    std::vector<Variable> all;
    std::map<std::string, std::size_t> places;
    for (const auto& [file, variables] : files.files) {
        for (const Variable& variable : variables) {
            const auto [place, isNew] = places.try_emplace(variable.name, all.size());
            if (!isNew) {
                merge(all[place->second], file, variable);
                continue;
            }
            all.push_back(variable);
            all.back().meaning = "in " + file + ": " + described(variable);
            all.back().empty.clear();
        }
    }
    Json json = beginning();
    json["name"] = files.name;
    json["description"] = files.description;
    json["variableMeasured"] = listOf(all);
    return json.dump(2) + '\n';
}

}  // namespace dictionary
