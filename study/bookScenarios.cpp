#include "study/bookScenarios.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <functional>

#include "platform/numberText.h"
#include "study/limits.h"
#include "study/readStore.h"

namespace bookScenarios {

using book::change;
using book::Place;
using book::rowsOf;
using book::set;
using book::Sheet;
using check::diseaseColumn;
using check::sameName;

namespace {

constexpr std::array tablesOfScenarios{"tblAppDefault", "tblBaseRates", "tblDiseaseSymptom", "tblTreatments"};

std::int64_t whole(int number) { return number; }

/// Adds a row behind the last of the scenario; its place.
int rowFor(Book& book, const std::string& table, const std::string& scenario) {
    return book::addRowOf(book, table, "Setting", scenario);
}

void setCounts(Book& book, const Parts& parts, int count) {
    if (parts.rates) set(book, {"tblBaseRates", *parts.rates, "Count"}, whole(count));
    for (const int row : parts.symptoms) set(book, {"tblDiseaseSymptom", row, "Count"}, whole(count));
}

/// The rows and column suffixes in which a scenario has a value for each disease.
void eachSeries(const Parts& parts, const std::function<void(const std::string&, int, const char*)>& take) {
    if (parts.rates) take("tblBaseRates", *parts.rates, "");
    for (const int row : parts.symptoms) take("tblDiseaseSymptom", row, "");
    for (const int row : parts.treatments) {
        take("tblTreatments", row, "+");
        take("tblTreatments", row, "-");
    }
}

double numberAt(const Book& book, const Place& place) {
    return numberText::toNumber(book::sheetOf(book, place.table).text(place.row, place.column));
}

/// A first test that tells something, and a treatment that is better against one disease than the other.
void tellApart(Book& book, const Parts& parts) {
    for (const auto& [disease, chance] : {std::pair(0, 80), std::pair(1, 20)}) {
        for (const int row : parts.symptoms)
            set(book, {"tblDiseaseSymptom", row, diseaseColumn(disease)}, whole(chance));
        for (const int row : parts.treatments)
            set(book, {"tblTreatments", row, diseaseColumn(disease, "+")}, whole(chance));
    }
}

}  // namespace

Parts partsOf(const Book& book, const std::string& scenario) {
    Parts parts;
    parts.options = book::rowOf(book, "tblAppDefault", "Setting", scenario);
    parts.rates = book::rowOf(book, "tblBaseRates", "Setting", scenario);
    parts.symptoms = rowsOf(book, "tblDiseaseSymptom", "Setting", scenario);
    parts.treatments = rowsOf(book, "tblTreatments", "Setting", scenario);
    double count = 0;
    if (parts.rates)
        count = numberAt(book, {"tblBaseRates", *parts.rates, "Count"});
    else if (!parts.symptoms.empty())
        count = numberAt(book, {"tblDiseaseSymptom", parts.symptoms[0], "Count"});
    parts.diseases = static_cast<int>(std::clamp(count, 0.0, static_cast<double>(limits::mostDiseases)));
    return parts;
}

engine::Value startOf(const schema::Column& column) {
    static const std::map<std::string_view, int> numbers{
        {"Time", 3},           {"SimRate", 2},     {"StartHour", 1},        {"StartMin", 0},
        {"InitScore", 2000},   {"TestBuffer", 0},  {"BeliefBuffer", 0},     {"TestCost", 5},
        {"MaxBeliefCost", 50}, {"HealAward", 100}, {"TreatmentProperty", 1}};
    static constexpr std::array on{"ViewBaseRates", "ViewSymptomDisease", "ViewTreatmentDisease",
                                   "DoTreatments",  "FeedbackDiseaseP",   "FeedbackTestsResults",
                                   "CyclePatients"};
    if (const auto number = numbers.find(column.name); number != numbers.end()) {
        if (column.type == schema::ColumnType::NumberOrText) return std::to_string(number->second);
        return whole(number->second);
    }
    if (column.type == schema::ColumnType::YesNo)
        return whole(std::ranges::find(on, column.name) == on.end() ? 0 : -1);
    return {};
}

void addWords(Book& book, const std::string& type, int wanted) {
    auto words = static_cast<int>(rowsOf(book, "tblVocabulary", "Type", type).size());
    for (int number = words + 1; words < wanted; ++number) {
        const std::string term = fmt::format("{} {}", type, number);
        if (book::rowOf(book, "tblVocabulary", "Term", term)) continue;
        const int row = book::sheetOf(book, "tblVocabulary").size();
        book::addRow(book, "tblVocabulary", row);
        set(book, {"tblVocabulary", row, "Type"}, type);
        set(book, {"tblVocabulary", row, "Term"}, term);
        ++words;
    }
}

void addLengths(Book& book, const std::string& list, int wanted) {
    constexpr const char* minutes = "15";
    for (auto have = static_cast<int>(rowsOf(book, "tblTests", "SETTING", list).size()); have < wanted;
         ++have) {
        const int at = book::addRowOf(book, "tblTests", "SETTING", list);
        set(book, {"tblTests", at, "Length"}, minutes);
    }
}

void addRates(Book& book, const std::string& scenario) {
    constexpr int sum = 100;
    const int diseases = std::max(partsOf(book, scenario).diseases, 1);
    const int row = rowFor(book, "tblBaseRates", scenario);
    set(book, {"tblBaseRates", row, "Count"}, whole(diseases));
    for (int j = 0; j < diseases; ++j)
        set(book, {"tblBaseRates", row, diseaseColumn(j)},
            whole(sum / diseases + (j < sum % diseases ? 1 : 0)));
}

std::vector<std::string> namesOf(const Book& book) {
    const Sheet& options = book::sheetOf(book, "tblAppDefault");
    std::vector<std::string> names;
    for (const int row : check::sortedByName(options)) {
        std::string name = options.text(row, "Setting");
        if (names.empty() || !sameName(names.back(), name)) names.push_back(std::move(name));
    }
    return names;
}

std::string freeName(const Book& book, const std::string& wanted) {
    std::string name = wanted;
    for (int number = 2; book::rowOf(book, "tblAppDefault", "Setting", name); ++number)
        name = fmt::format("{} {}", wanted, number);
    return name;
}

void add(Book& book, const std::string& name) {
    const int row = rowFor(book, "tblAppDefault", name);
    for (const schema::Column& column : schema::find("tblAppDefault")->columns) {
        if (column.name != "Setting")
            set(book, {"tblAppDefault", row, std::string(column.name)}, startOf(column));
    }
    const std::vector<std::string> lists = testLists(book);
    const std::string list = lists.empty() ? "Tests" : lists.front();
    set(book, {"tblAppDefault", row, "TestLengthSetting"}, list);
    addRates(book, name);
    addDisease(book, name);
    const int rates = *book::rowOf(book, "tblBaseRates", "Setting", name);
    for (const char* disease : {"D1", "D2"}) set(book, {"tblBaseRates", rates, disease}, whole(50));
    addSymptom(book, name);
    addTreatment(book, name);
    tellApart(book, partsOf(book, name));
    addWords(book, "Disease", 2);
}

void copy(Book& book, const std::string& from, const std::string& name) {
    for (const char* table : tablesOfScenarios) {
        std::vector<std::vector<engine::Value>> copies;
        for (const int row : rowsOf(book, table, "Setting", from))
            copies.push_back(book::sheetOf(book, table).content.rows[static_cast<std::size_t>(row)]);
        for (const auto& row : copies) {
            const int at = rowFor(book, table, name);
            change(book, table).content.rows[static_cast<std::size_t>(at)] = row;
            set(book, {table, at, "Setting"}, name);
        }
    }
}

void rename(Book& book, const std::string& from, const std::string& name) {
    for (const char* table : tablesOfScenarios) {
        for (const int row : rowsOf(book, table, "Setting", from)) set(book, {table, row, "Setting"}, name);
    }
}

void remove(Book& book, const std::string& name) {
    for (const char* table : tablesOfScenarios) {
        for (std::vector<int> rows = rowsOf(book, table, "Setting", name); !rows.empty(); rows.pop_back())
            book::removeRow(book, table, rows.back());
    }
}

bool addDisease(Book& book, const std::string& scenario) {
    const Parts parts = partsOf(book, scenario);
    if (parts.diseases >= limits::mostDiseases) return false;
    eachSeries(parts, [&](const std::string& table, int row, const char* suffix) {
        set(book, {table, row, diseaseColumn(parts.diseases, suffix)}, whole(0));
    });
    setCounts(book, parts, parts.diseases + 1);
    addWords(book, "Disease", parts.diseases + 1);
    return true;
}

bool removeDisease(Book& book, const std::string& scenario, int disease) {
    const Parts parts = partsOf(book, scenario);
    if (parts.diseases < 2 || disease >= parts.diseases) return false;
    double rate = 0;
    if (parts.rates) rate = numberAt(book, {"tblBaseRates", *parts.rates, diseaseColumn(disease)});
    eachSeries(parts, [&](const std::string& table, int row, const char* suffix) {
        for (int j = disease; j < parts.diseases; ++j) {
            engine::Value next;
            if (j + 1 < parts.diseases)
                next = book::sheetOf(book, table).at(row, diseaseColumn(j + 1, suffix));
            set(book, {table, row, diseaseColumn(j, suffix)}, std::move(next));
        }
    });
    if (parts.rates) {
        const Place first{"tblBaseRates", *parts.rates, "D1"};
        const std::string sum = numberText::general(numberAt(book, first) + rate);
        set(book, first, std::int64_t{numberText::nearestShort(sum)});
    }
    setCounts(book, parts, parts.diseases - 1);
    return true;
}

bool addSymptom(Book& book, const std::string& scenario) {
    constexpr int even = 50;
    const Parts parts = partsOf(book, scenario);
    const auto count = static_cast<int>(parts.symptoms.size());
    if (count >= limits::mostSymptoms) return false;
    const int row = rowFor(book, "tblDiseaseSymptom", scenario);
    set(book, {"tblDiseaseSymptom", row, "InitVisible"}, whole(-1));
    set(book, {"tblDiseaseSymptom", row, "Count"}, whole(parts.diseases));
    for (int j = 0; j < parts.diseases; ++j)
        set(book, {"tblDiseaseSymptom", row, diseaseColumn(j)}, whole(even));
    addWords(book, "Symptom", count + 1);
    if (parts.options) {
        const std::string list =
            book::sheetOf(book, "tblAppDefault").text(*parts.options, "TestLengthSetting");
        if (!list.empty()) addLengths(book, list, count + 1);
    }
    return true;
}

void addTreatment(Book& book, const std::string& scenario) {
    constexpr int even = 50;
    const Parts parts = partsOf(book, scenario);
    std::string name;
    for (std::size_t number = parts.treatments.size() + 1; name.empty(); ++number) {
        name = fmt::format("Treatment {}", number);
        const bool taken = std::ranges::any_of(parts.treatments, [&](int row) {
            return sameName(book::sheetOf(book, "tblTreatments").text(row, "Type"), name);
        });
        if (taken) name.clear();
    }
    const int row = rowFor(book, "tblTreatments", scenario);
    set(book, {"tblTreatments", row, "Type"}, name);
    for (int j = 0; j < parts.diseases; ++j) {
        set(book, {"tblTreatments", row, diseaseColumn(j, "+")}, whole(even));
        set(book, {"tblTreatments", row, diseaseColumn(j, "-")}, whole(0));
    }
}

std::vector<std::string> testLists(const Book& book) {
    const Sheet& tests = book::sheetOf(book, "tblTests");
    std::vector<std::string> lists;
    for (int row = 0; row < tests.size(); ++row) {
        const std::string name = tests.text(row, "SETTING");
        if (tests.isEmpty(row, "SETTING")) continue;
        if (std::ranges::none_of(lists, [&](const auto& other) { return sameName(other, name); }))
            lists.push_back(name);
    }
    return lists;
}

void renameTests(Book& book, const std::string& from, const std::string& name) {
    for (const int row : rowsOf(book, "tblTests", "SETTING", from))
        set(book, {"tblTests", row, "SETTING"}, name);
    for (const int row : rowsOf(book, "tblAppDefault", "TestLengthSetting", from))
        set(book, {"tblAppDefault", row, "TestLengthSetting"}, name);
}

void copyTests(Book& book, const std::string& from, const std::string& name) {
    for (const int row : rowsOf(book, "tblTests", "SETTING", from)) {
        engine::Value length = book::sheetOf(book, "tblTests").at(row, "Length");
        set(book, {"tblTests", book::addRowOf(book, "tblTests", "SETTING", name), "Length"},
            std::move(length));
    }
}

std::vector<std::string> usersOfTests(const Book& book, const std::string& list) {
    std::vector<std::string> users;
    for (const int row : rowsOf(book, "tblAppDefault", "TestLengthSetting", list))
        users.push_back(book::sheetOf(book, "tblAppDefault").text(row, "Setting"));
    return users;
}

}  // namespace bookScenarios
