#include "study/remedies.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "platform/numberText.h"
#include "platform/text.h"
#include "store/layer/schema.h"
#include "study/bookPeople.h"
#include "study/bookScenarios.h"
#include "study/limits.h"
#include "study/readStore.h"

namespace remedies {

using book::Book;
using book::Place;
using book::Sheet;

namespace {

constexpr int whole100 = 100;
constexpr int slip = 5;  ///< percent by which a sum misses 100 if one number was mistyped

/// A finding's cell; the row counts from 0, -1 for none.
struct Spot {
    const Book& book;
    const Sheet& sheet;
    int row;
    const std::string& column;

    [[nodiscard]] Place place() const { return {sheet.name, row, column}; }
};

std::optional<Remedy> missingTable(const Spot& at) {
    if (at.sheet.there) return {};
    return Remedy{"Add the table", [table = at.sheet.name](Book& book) { book::change(book, table); }};
}

/// What a cell of a column that is added holds: as in a new scenario, 0 for the chance of a disease.
engine::Value valueFor(const schema::Table& table, const std::string& column) {
    if (schema::seriesNumber(table, column) > 0) return std::int64_t{0};
    for (const schema::Column& known : table.columns) {
        if (table.name == "tblAppDefault" && check::sameName(known.name, column))
            return bookScenarios::startOf(known);
    }
    return {};
}

std::optional<Remedy> missingColumn(const Spot& at) {
    if (!at.sheet.there || at.column.empty() || at.sheet.has(at.column)) return {};
    const schema::Table& table = *schema::find(at.sheet.name);
    const int rows = table.isConfiguration() ? at.sheet.size() : 0;
    return Remedy{"Add the column", [&table, column = at.column, rows](Book& book) {
                      book::addColumn(book, table.name, column);
                      for (int row = 0; row < rows; ++row)
                          book::set(book, {std::string(table.name), row, column}, valueFor(table, column));
                  }};
}

std::optional<Remedy> noScenario(const Spot& at) {
    if (at.sheet.name != "tblAppDefault" || at.sheet.size() > 0) return {};
    return Remedy{"Add a scenario", [](Book& book) { bookScenarios::add(book, "My scenario"); }};
}

std::optional<Remedy> noPatient(const Spot& at) {
    if (at.sheet.name != "tblPatients" || at.sheet.size() > 0 || at.row >= 0) return {};
    return Remedy{"Add a person", [](Book& book) { bookPeople::add(book, 0); }};
}

std::optional<Remedy> missingRates(const Spot& at) {
    if (at.sheet.name != "tblBaseRates" || at.row >= 0 || at.column != "Setting") return {};
    return Remedy{"Add the row", [](Book& book) {
                      for (const std::string& name : bookScenarios::namesOf(book)) {
                          if (!bookScenarios::partsOf(book, name).rates) bookScenarios::addRates(book, name);
                      }
                  }};
}

std::optional<Remedy> missingRows(const Spot& at) {
    const bool symptoms = at.sheet.name == "tblDiseaseSymptom";
    if ((!symptoms && at.sheet.name != "tblTreatments") || at.row >= 0 || at.column != "Setting") return {};
    return Remedy{"Add a row", [symptoms](Book& book) {
                      for (const std::string& name : bookScenarios::namesOf(book)) {
                          const bookScenarios::Parts parts = bookScenarios::partsOf(book, name);
                          if (symptoms && parts.symptoms.empty()) bookScenarios::addSymptom(book, name);
                          if (!symptoms && parts.treatments.empty()) bookScenarios::addTreatment(book, name);
                      }
                  }};
}

/// Rates that miss 100 by little: the largest takes the difference.
std::optional<Remedy> sumOfRates(const Spot& at) {
    if (at.sheet.name != "tblBaseRates" || at.row < 0 || at.column != "D1") return {};
    const int count = numberText::nearestShort(at.sheet.text(at.row, "Count"));
    int largest = 0;
    double most = -1;
    double sum = 0;
    for (int j = 0; j < std::min(count, limits::mostDiseases); ++j) {
        const double rate = numberText::toNumber(at.sheet.text(at.row, check::diseaseColumn(j)));
        sum += rate;
        if (rate > most) largest = j;
        most = std::max(most, rate);
    }
    const double missing = whole100 - sum;
    if (missing == 0 || std::fabs(missing) > slip || missing != std::floor(missing)) return {};
    const auto value = static_cast<std::int64_t>(most + missing);
    const Place place{at.sheet.name, at.row, check::diseaseColumn(largest)};
    return Remedy{fmt::format("Make {} {}", place.column, value),
                  [place, value](Book& book) { book::set(book, place, value); }};
}

/// Rates and symptoms of a scenario that count their diseases differently, where one of them is sure.
std::optional<Remedy> counts(const Spot& at) {
    if (at.column != "Count" || at.row < 0) return {};
    const bookScenarios::Parts parts = bookScenarios::partsOf(at.book, at.sheet.text(at.row, "Setting"));
    engine::Value value;
    if (at.sheet.name == "tblDiseaseSymptom" && parts.rates) {
        value = book::sheetOf(at.book, "tblBaseRates").at(*parts.rates, "Count");
    } else if (at.sheet.name == "tblBaseRates" && !parts.symptoms.empty()) {
        value = book::sheetOf(at.book, "tblDiseaseSymptom").at(parts.symptoms.front(), "Count");
    }
    if (value == engine::Value() || value == at.sheet.at(at.row, "Count")) return {};
    return Remedy{fmt::format("Make Count {}", readStore::textOf(value)),
                  [place = at.place(), value](Book& book) { book::set(book, place, value); }};
}

/// Rows under a name that nothing uses.
std::optional<Remedy> strangers(const Spot& at) {
    if (at.row < 0) return {};
    const std::string name = at.sheet.text(at.row, "Setting");
    const bool tests = at.sheet.name == "tblTests" && check::sameName(at.column, "SETTING");
    const bool ofScenario = at.sheet.name != "tblTests" && at.sheet.name != "tblAppDefault" &&
                            at.column == "Setting" && at.sheet.has("Setting");
    if (!tests && !ofScenario) return {};
    if (name.empty() || name.find('\'') != std::string::npos) return {};
    if (tests && !bookScenarios::usersOfTests(at.book, name).empty()) return {};
    if (ofScenario && book::rowOf(at.book, "tblAppDefault", "Setting", name)) return {};
    return Remedy{"Remove the row",
                  [table = at.sheet.name, row = at.row](Book& book) { book::removeRow(book, table, row); }};
}

std::optional<Remedy> words(const Spot& at) {
    if (at.sheet.name != "tblVocabulary" || at.column != "Term") return {};
    if (at.row >= 0) {
        const std::string word = at.sheet.text(at.row, "Term");
        const std::string trimmed = text::trim(word);
        if (trimmed == word || trimmed.empty()) return {};
        return Remedy{"Remove the blanks",
                      [place = at.place(), trimmed](Book& book) { book::set(book, place, trimmed); }};
    }
    return Remedy{"Add words", [](Book& book) {
                      for (const std::string& name : bookScenarios::namesOf(book)) {
                          const bookScenarios::Parts parts = bookScenarios::partsOf(book, name);
                          bookScenarios::addWords(book, "Disease", parts.diseases);
                          bookScenarios::addWords(book, "Symptom", static_cast<int>(parts.symptoms.size()));
                      }
                  }};
}

std::optional<Remedy> lengths(const Spot& at) {
    const bool unknown = at.sheet.name == "tblAppDefault" && at.column == "TestLengthSetting";
    if (!unknown && (at.sheet.name != "tblTests" || at.row >= 0)) return {};
    if (unknown && (at.row < 0 || at.sheet.text(at.row, at.column).empty() ||
                    check::hasApostrophe(at.sheet.text(at.row, at.column))))
        return {};
    return Remedy{"Add lengths of 15 minutes", [](Book& book) {
                      const Sheet& options = book::sheetOf(book, "tblAppDefault");
                      for (const std::string& name : bookScenarios::namesOf(book)) {
                          const bookScenarios::Parts parts = bookScenarios::partsOf(book, name);
                          const std::string list = options.text(*parts.options, "TestLengthSetting");
                          if (!list.empty())
                              bookScenarios::addLengths(book, list, static_cast<int>(parts.symptoms.size()));
                      }
                  }};
}

std::optional<Remedy> flags(const Spot& at) {
    if (at.row < 0 || at.column != "FeedbackDiseaseP" || at.sheet.isTrue(at.row, at.column)) return {};
    return Remedy{"Switch it on",
                  [place = at.place()](Book& book) { book::set(book, place, std::int64_t{-1}); }};
}

}  // namespace

std::optional<Remedy> of(const Book& book, const check::Finding& finding) {
    const auto sheet = book.sheets.find(finding.table);
    const schema::Table* table = schema::find(finding.table);
    if (sheet == book.sheets.end() || table == nullptr) return {};
    const Spot at{book, *sheet->second, finding.row - 1, finding.column};
    // The rows of results stay as they are; only what a session needs to write them can be added.
    if (!table->isConfiguration()) {
        if (at.row >= 0) return {};
        std::optional<Remedy> added = missingTable(at);
        return added ? added : missingColumn(at);
    }
    if (at.row >= at.sheet.size()) return {};
    for (const auto& remedy : {missingTable, missingColumn, noScenario, noPatient, missingRates, missingRows,
                               sumOfRates, counts, strangers, words, lengths, flags}) {
        if (std::optional<Remedy> found = remedy(at)) return found;
    }
    return {};
}

}  // namespace remedies
