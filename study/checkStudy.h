// A study as the rules of `check` see it: its tables with their cells, and its scenarios with the rows that
// belong to them. Rows count from 0 here.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "store/layer/engine.h"
#include "study/finding.h"
#include "study/limits.h"

namespace check {

constexpr int noRow = -1;
using limits::mostDiseases;
using limits::mostSymptoms;

struct Sheet {
    std::string name;
    bool there = false;
    engine::Rows content = {};

    [[nodiscard]] int size() const { return static_cast<int>(content.rows.size()); }
    [[nodiscard]] bool has(std::string_view column) const;
    /// An empty value where the column is missing.
    [[nodiscard]] const engine::Value& at(int row, std::string_view column) const;
    [[nodiscard]] bool isEmpty(int row, std::string_view column) const;
    [[nodiscard]] std::string text(int row, std::string_view column) const;
    /// As the program reads truth values; a text is false here and a finding elsewhere.
    [[nodiscard]] bool isTrue(int row, std::string_view column) const;
};

/// A row of tblAppDefault, the first of its name.
struct Scenario {
    std::string name;
    int row = noRow;
    int rates = noRow;  ///< the row of tblBaseRates that holds its name, or else the one in its place
    std::vector<int> symptoms = {};
    std::vector<int> treatments = {};
    int diseases = 0;    ///< as its tables agree on it, 0 if they do not
    bool usable = true;  ///< false where its name breaks the program's questions to the store
};

using Sheets = std::map<std::string, Sheet, std::less<>>;

struct Study {
    std::string folder;
    Sheets sheets = {};
    std::map<std::string, std::string> drafts = {};  ///< files of Patients/ that stand elsewhere for now
    std::vector<Scenario> scenarios = {};
    std::set<int> badRates = {};  ///< rows of tblBaseRates with a count or a rate that cannot be taken
    std::vector<Finding> findings = {};

    [[nodiscard]] const Sheet& sheet(std::string_view table) const { return sheets.find(table)->second; }
    /// Where the bytes of a file of Patients/ stand.
    [[nodiscard]] std::string fileOf(const std::string& name) const;
    void add(Grade grade, const Sheet& sheet, int row, std::string_view column, std::string text);
    void error(const Sheet& sheet, int row, std::string_view column, std::string text);
    void warn(const Sheet& sheet, int row, std::string_view column, std::string text);
    void note(const Sheet& sheet, int row, std::string_view column, std::string text);
    /// A whole number of 16 bits, as a load reads it; adds what keeps it from being read.
    std::optional<int> whole(const Sheet& sheet, int row, std::string_view column);
    /// The same between two values; beyond them is a finding of this grade, whose text goes on with `effect`.
    std::optional<int> wholeWithin(const Sheet& sheet, int row, std::string_view column, int least, int most,
                                   Grade grade, std::string_view effect);
    /// A truth value: a text that is no number ends the load.
    void truth(const Sheet& sheet, int row, std::string_view column);
    /// A text that a load cannot do without; false if it is empty.
    bool needsText(const Sheet& sheet, int row, std::string_view column);
};

/// Whether two names are one to the store.
bool sameName(std::string_view a, std::string_view b);

bool hasApostrophe(std::string_view text);

/// The column D1 of disease 0, with "+" or "-" for treatments.
std::string diseaseColumn(int disease, std::string_view suffix = {});

/// How many columns D1, D2, ... a table has without a gap.
int diseaseColumns(const Sheet& sheet);

/// Words of a type in the order of the table, as rows of tblVocabulary.
std::vector<int> wordRows(const Study& study, std::string_view type);

/// The rows of a table in the order of their names, as the sign-in lists them.
std::vector<int> sortedByName(const Sheet& sheet);

/// The tables of a store as of one moment. Of the results only those of the subjects have their rows here.
Sheets sheetsOf(const std::string& file);

/// A study of these tables, each there or not, whether a store holds them or not yet.
Study assembled(Sheets sheets, const std::string& folder);

Study read(const std::string& file, const std::string& folder);

}  // namespace check
