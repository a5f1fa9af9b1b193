// Comma-separated tables as the experimenter and spreadsheets write them, and as we write them.
#pragma once

#include <exception>
#include <string>
#include <utility>
#include <vector>

namespace csv {

struct Field {
    std::string text;
    bool quoted;  ///< then the text is as it stands; otherwise the blanks around it are gone

    /// Nothing stands between the separators.
    [[nodiscard]] bool isNothing() const { return text.empty() && !quoted; }
};

struct Line {
    int number;  ///< of the line in the file on which it begins, from 1
    std::vector<Field> fields;

    [[nodiscard]] bool isNothing() const;
};

struct Problem : std::exception {
    int line;
    std::string text;

    Problem(int itsLine, std::string itsText) : line(itsLine), text(std::move(itsText)) {}
    [[nodiscard]] const char* what() const noexcept override { return text.c_str(); }
};

/// The lines of a file: fields parted by commas, or by semicolons if the first line parts its fields so;
/// double quotes around a field that holds the separator, quotes (doubled), line breaks or blanks at its
/// ends. Empty lines are left out. Throws Problem for a quote that is not closed, or one with something
/// behind it.
std::vector<Line> parse(const std::string& bytes);

/// A text as a field that `parse` gives back to the byte, an empty one too.
std::string written(const std::string& text);

}  // namespace csv
