// Comma-separated tables as the experimenter writes them.
#pragma once

#include <exception>
#include <string>
#include <utility>
#include <vector>

namespace csv {

struct Field {
    std::string text;
    bool quoted;  ///< then the text is as it stands; otherwise the blanks around it are gone

    /// Nothing stands between the commas.
    [[nodiscard]] bool isNothing() const { return text.empty() && !quoted; }
};

struct Line {
    int number;  ///< of the line in the file on which it begins, from 1
    std::vector<Field> fields;

    [[nodiscard]] bool isNothingButCommas() const;
};

struct Problem : std::exception {
    int line;
    std::string text;

    Problem(int itsLine, std::string itsText) : line(itsLine), text(std::move(itsText)) {}
    [[nodiscard]] const char* what() const noexcept override { return text.c_str(); }
};

/// The lines of a file: fields parted by commas, double quotes around a field that holds commas, quotes
/// (doubled), line breaks or blanks at its ends. Empty lines are left out. Throws Problem for a quote that is
/// not closed, or one with something behind it.
std::vector<Line> parse(const std::string& bytes);

}  // namespace csv
