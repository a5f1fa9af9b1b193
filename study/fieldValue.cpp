#include "study/fieldValue.h"

#include <fmt/format.h>

#include <chrono>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string_view>

#include "platform/numberText.h"
#include "platform/text.h"

namespace fieldValue {

namespace {

std::string wholeNumberProblem(double value, double least, double most, int bits) {
    if (value != std::floor(value)) return "is no whole number";
    if (value < least || value > most) return fmt::format("does not fit {} bits", bits);
    return {};
}

template <class T>
std::string rangeProblem(double value) {
    return wholeNumberProblem(value, std::numeric_limits<T>::min(), std::numeric_limits<T>::max(),
                              sizeof(T) * 8);
}

/// yyyy-mm-dd, and a day of the calendar.
bool isDate(const std::string& text) {
    constexpr std::string_view form = "dddd-dd-dd";
    if (text.size() != form.size()) return false;
    for (std::size_t i = 0; i < form.size(); ++i) {
        const bool digit = text[i] >= '0' && text[i] <= '9';
        if (form[i] == 'd' ? !digit : text[i] != form[i]) return false;
    }
    const auto number = [&](std::size_t at, std::size_t size) { return std::stoi(text.substr(at, size)); };
    return std::chrono::year_month_day(std::chrono::year(number(0, 4)),
                                       std::chrono::month(static_cast<unsigned>(number(5, 2))),
                                       std::chrono::day(static_cast<unsigned>(number(8, 2))))
        .ok();
}

/// Yes or no in the ways people write them: -1 or 0.
std::string truthProblem(const std::string& text, engine::Value& value) {
    const std::string word = text::folded(text);
    for (const char* yes : {"yes", "true", "1", "-1"}) {
        if (word == yes) value = std::int64_t{-1};
    }
    for (const char* no : {"no", "false", "0"}) {
        if (word == no) value = std::int64_t{0};
    }
    return std::holds_alternative<std::monostate>(value) ? "is neither yes nor no" : "";
}

std::string numberProblem(const std::string& text, schema::ColumnType type, engine::Value& value) {
    if (!numberText::isNumeric(text)) return "is no number";
    const double number = numberText::toNumber(text);
    if (!std::isfinite(number)) return "is too large";
    if (type == schema::ColumnType::Float) {
        value = number;
        return {};
    }
    const std::string problem = type == schema::ColumnType::Short ? rangeProblem<std::int16_t>(number)
                                                                  : rangeProblem<std::int32_t>(number);
    if (problem.empty()) value = static_cast<std::int64_t>(number);
    return problem;
}

bool isOfTexts(schema::ColumnType type) {
    return type == schema::ColumnType::Text || type == schema::ColumnType::NumberOrText ||
           type == schema::ColumnType::Date;
}

/// The value without quotes. A number of 64 bits has as many digits as tell it from its neighbours.
std::string plain(const engine::Value& value, schema::ColumnType type) {
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    if (const auto* number = std::get_if<double>(&value)) return fmt::format("{}", *number);
    const auto* whole = std::get_if<std::int64_t>(&value);
    if (whole == nullptr) return {};
    if (type == schema::ColumnType::YesNo && (*whole == -1 || *whole == 0)) return *whole == 0 ? "no" : "yes";
    return std::to_string(*whole);
}

}  // namespace

std::string read(const csv::Field& field, schema::ColumnType type, engine::Value& value) {
    using enum schema::ColumnType;
    value = {};
    if (field.isNothing()) return {};
    switch (type) {
        case Short:
        case Long:
        case Float:
        case NumberFlag: return numberProblem(field.text, type, value);
        case YesNo: return truthProblem(field.text, value);
        case Date: value = field.text; return isDate(field.text) ? "" : "is no date (yyyy-mm-dd)";
        case NumberOrText:
        case Text: break;
    }
    value = field.text;
    return {};
}

std::string written(const engine::Value& value, schema::ColumnType type) {
    const std::string text = plain(value, type);
    return std::holds_alternative<std::string>(value) ? csv::written(text) : text;
}

std::string lossOf(const engine::Value& value, schema::ColumnType type) {
    const std::string text = plain(value, type);
    const bool isText = std::holds_alternative<std::string>(value);
    if (!text::isUtf8(text)) return "is no UTF-8 text";
    if (text.find('\0') != std::string::npos) return "holds a zero byte";
    engine::Value back;
    const std::string problem = read({text, isText}, type, back);
    if (!problem.empty()) return problem;
    if (back == value || (isOfTexts(type) && plain(back, type) == text)) return {};
    return fmt::format("comes back as {}", plain(back, type));
}

}  // namespace fieldValue
