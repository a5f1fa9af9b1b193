#include "study/checkStudy.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <utility>

#include "platform/numberText.h"
#include "platform/text.h"
#include "store/layer/schema.h"
#include "study/readStore.h"

namespace check {

bool Sheet::has(std::string_view column) const { return readStore::columnOf(content, column) >= 0; }

const engine::Value& Sheet::at(int row, std::string_view column) const {
    static const engine::Value nothing;
    const int place = readStore::columnOf(content, column);
    if (place < 0) return nothing;
    return content.rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(place)];
}

bool Sheet::isEmpty(int row, std::string_view column) const {
    return std::holds_alternative<std::monostate>(at(row, column));
}

std::string Sheet::text(int row, std::string_view column) const { return readStore::textOf(at(row, column)); }

bool Sheet::isTrue(int row, std::string_view column) const {
    return numberText::toNumber(text(row, column)) != 0.0;
}

std::string Study::fileOf(const std::string& name) const {
    const auto draft = drafts.find(name);
    return draft == drafts.end() ? folder + "/Patients/" + name : draft->second;
}

void Study::add(Grade grade, const Sheet& sheet, int row, std::string_view column, std::string text) {
    if (row != noRow && !sheet.has(column)) return;  // the missing column has been told
    findings.push_back({grade, sheet.name, row + 1, std::string(column), std::move(text)});
}

void Study::error(const Sheet& sheet, int row, std::string_view column, std::string text) {
    add(Grade::Error, sheet, row, column, std::move(text));
}

void Study::warn(const Sheet& sheet, int row, std::string_view column, std::string text) {
    add(Grade::Warning, sheet, row, column, std::move(text));
}

void Study::note(const Sheet& sheet, int row, std::string_view column, std::string text) {
    add(Grade::Note, sheet, row, column, std::move(text));
}

std::optional<int> Study::whole(const Sheet& sheet, int row, std::string_view column) {
    if (!sheet.has(column)) return {};
    const std::string text = sheet.text(row, column);
    if (sheet.isEmpty(row, column)) {
        error(sheet, row, column, "The value is empty: the program ends when it reads it.");
        return {};
    }
    if (!numberText::isNumeric(text)) {
        error(sheet, row, column,
              fmt::format("\"{}\" is no number: the program ends when it reads it.", text));
        return {};
    }
    const double number = numberText::toNumber(text);
    const double rounded = std::nearbyint(number);
    if (!(rounded >= std::numeric_limits<std::int16_t>::min() &&
          rounded <= std::numeric_limits<std::int16_t>::max())) {
        error(sheet, row, column,
              fmt::format("{} does not fit 16 bits: the program ends with an overflow.", text));
        return {};
    }
    if (number != rounded)
        warn(sheet, row, column, fmt::format("{} is no whole number: it is read as {}.", text, rounded));
    return static_cast<int>(rounded);
}

std::optional<int> Study::wholeWithin(const Sheet& sheet, int row, std::string_view column, int least,
                                      int most, Grade grade, std::string_view effect) {
    const std::optional<int> value = whole(sheet, row, column);
    if (!value || (*value >= least && *value <= most)) return value;
    add(grade, sheet, row, column, fmt::format("{} is not within {} to {}: {}", *value, least, most, effect));
    return {};
}

void Study::truth(const Sheet& sheet, int row, std::string_view column) {
    if (sheet.isEmpty(row, column)) return;
    const std::string text = sheet.text(row, column);
    const double number = numberText::toNumber(text);
    if (!numberText::isNumeric(text)) {
        error(sheet, row, column,
              fmt::format("\"{}\" is neither yes nor no: the program ends when it reads it.", text));
    } else if (number != 0.0 && std::fabs(number) != 1.0) {
        warn(sheet, row, column, fmt::format("{} counts as yes; write -1 or 0.", text));
    }
}

bool Study::needsText(const Sheet& sheet, int row, std::string_view column) {
    if (!sheet.has(column) || !sheet.isEmpty(row, column)) return true;
    error(sheet, row, column, "The value is empty: the program ends when it reads it.");
    return false;
}

bool sameName(std::string_view a, std::string_view b) { return text::folded(a) == text::folded(b); }

bool hasApostrophe(std::string_view text) { return text.find('\'') != std::string_view::npos; }

std::string diseaseColumn(int disease, std::string_view suffix) {
    return fmt::format("D{}{}", disease + 1, suffix);
}

int diseaseColumns(const Sheet& sheet) {
    int count = 0;
    while (sheet.has(diseaseColumn(count))) ++count;
    return count;
}

std::vector<int> wordRows(const Study& study, std::string_view type) {
    const Sheet& words = study.sheet("tblVocabulary");
    std::vector<int> rows;
    for (int row = 0; row < words.size(); ++row) {
        if (sameName(words.text(row, "Type"), type)) rows.push_back(row);
    }
    return rows;
}

std::vector<int> sortedByName(const Sheet& sheet) {
    std::vector<std::pair<std::string, int>> names;
    for (int row = 0; row < sheet.size(); ++row) {
        if (!sheet.isEmpty(row, "Setting")) names.emplace_back(text::folded(sheet.text(row, "Setting")), row);
    }
    std::ranges::sort(names);
    std::vector<int> rows;
    rows.reserve(names.size());
    for (const auto& [name, row] : names) rows.push_back(row);
    return rows;
}

namespace {

std::vector<int> rowsOf(const Sheet& sheet, std::string_view name) {
    std::vector<int> rows;
    for (int row = 0; row < sheet.size(); ++row) {
        if (!sheet.isEmpty(row, "Setting") && sameName(sheet.text(row, "Setting"), name)) rows.push_back(row);
    }
    return rows;
}

bool known(const std::vector<Scenario>& scenarios, std::string_view name) {
    return std::ranges::any_of(scenarios, [&](const Scenario& s) { return sameName(s.name, name); });
}

/// Rows whose name no scenario has are given to the scenario in their place: there the program takes them.
void pairByPlace(Study& study) {
    const Sheet& rates = study.sheet("tblBaseRates");
    const std::vector<int> listed = sortedByName(study.sheet("tblAppDefault"));
    const std::vector<int> ranked = sortedByName(rates);
    for (Scenario& scenario : study.scenarios) {
        const auto place = static_cast<std::size_t>(std::ranges::find(listed, scenario.row) - listed.begin());
        if (scenario.rates != noRow || place >= ranked.size()) continue;
        if (!known(study.scenarios, rates.text(ranked[place], "Setting"))) scenario.rates = ranked[place];
    }
}

void listScenarios(Study& study) {
    const Sheet& options = study.sheet("tblAppDefault");
    for (int row = 0; row < options.size(); ++row) {
        const std::string name = options.text(row, "Setting");
        if (options.isEmpty(row, "Setting") || known(study.scenarios, name)) continue;
        Scenario& scenario = study.scenarios.emplace_back(Scenario{.name = name, .row = row});
        scenario.usable = !hasApostrophe(name);
        const std::vector<int> rates = rowsOf(study.sheet("tblBaseRates"), name);
        if (!rates.empty()) scenario.rates = rates.front();
        scenario.symptoms = rowsOf(study.sheet("tblDiseaseSymptom"), name);
        scenario.treatments = rowsOf(study.sheet("tblTreatments"), name);
    }
    pairByPlace(study);
}

}  // namespace

Study assembled(Sheets sheets, const std::string& folder) {
    Study study{.folder = folder, .sheets = std::move(sheets)};
    listScenarios(study);
    return study;
}

Study read(const std::string& file, const std::string& folder) { return assembled(sheetsOf(file), folder); }

Sheets sheetsOf(const std::string& file) {
    Sheets sheets;
    const engine::Database database = readStore::open(file);
    readStore::select(*database, "BEGIN");  // one moment of the store for all tables
    const engine::Rows names =
        readStore::select(*database, "SELECT name FROM sqlite_master WHERE type='table'");
    for (const schema::Table& table : schema::tables()) {
        Sheet sheet{.name = std::string(table.name)};
        sheet.there = std::ranges::any_of(names.rows, [&](const std::vector<engine::Value>& row) {
            return sameName(readStore::textOf(row[0]), table.name);
        });
        // Of the results only the subjects matter; the others can be large.
        const bool whole = table.isConfiguration() || table.name.starts_with("Subject");
        const char* rows = whole ? "" : " LIMIT 0";
        try {
            if (sheet.there)
                sheet.content =
                    readStore::select(*database, fmt::format("SELECT * FROM [{}]{}", table.name, rows));
        } catch (const engine::Error& error) {
            throw std::runtime_error(fmt::format("{}: table {}: {}", file, table.name, error.text));
        }
        sheets.emplace(sheet.name, std::move(sheet));
    }
    return sheets;
}

}  // namespace check
