// Texts read as numbers, each line one, against what the C library reads.
#include <cstdlib>

#include "platform/numberText.h"
#include "platform/text.h"
#include "tests/fuzz/frame.h"

namespace {

/// What a number is written with; the C library knows further ones (hexadecimal, nan).
constexpr const char* signs = "+-0123456789.eE";

void readOne(const std::string& text) {
    const double value = numberText::toNumber(text);
    const std::string bare = text.substr(std::min(text.find_first_not_of(' '), text.size()));
    const std::string plain = bare.substr(0, bare.find_first_not_of(signs));
    const double expected = std::strtod(plain.c_str(), nullptr);
    fuzz::hold(value == expected, "\"" + text + "\" is read as the C library reads it");

    if (!numberText::isNumeric(text)) return;
    const std::string trimmed = text::trim(text);
    fuzz::hold(trimmed.find_first_not_of(signs) == std::string::npos,
               "\"" + text + "\", taken as one number, is one");
    char* end = nullptr;
    std::strtod(trimmed.c_str(), &end);
    fuzz::hold(*end == '\0', "\"" + text + "\" is a number to its end");
}

}  // namespace

void fuzz::tryInput(const std::string& input) {
    for (const std::string& line : linesOf(input)) readOne(line);
}
