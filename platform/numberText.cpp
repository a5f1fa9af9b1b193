#include "platform/numberText.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

#include "platform/dial.h"
#include "platform/text.h"

namespace numberText {

namespace {

/// |value| to `decimals` places as digits without a point, rounded half up on its 15-digit decimal form.
std::string roundedDigits(double value, int decimals) {
    // 15 significant digits in scientific form: d.dddddddddddddde[+-]xx
    const std::string scientific = fmt::format("{:.14e}", std::fabs(value));
    const std::size_t mark = scientific.find('e');
    std::string digits = scientific.substr(0, 1) + scientific.substr(2, mark - 2);
    int exponent = 0;
    const char* from = scientific.data() + mark + (scientific[mark + 1] == '+' ? 2 : 1);
    std::from_chars(from, scientific.data() + scientific.size(), exponent);

    const int kept = exponent + 1 + decimals;  // digits that stay
    if (kept < 0) return "0";
    if (kept >= static_cast<int>(digits.size())) {
        return digits + std::string(static_cast<std::size_t>(kept) - digits.size(), '0');
    }
    bool carry = digits[static_cast<std::size_t>(kept)] >= '5';
    digits.resize(static_cast<std::size_t>(kept));
    for (std::size_t i = digits.size(); carry && i > 0; --i) {
        carry = digits[i - 1] == '9';
        digits[i - 1] = carry ? '0' : static_cast<char>(digits[i - 1] + 1);
    }
    if (carry) digits.insert(digits.begin(), '1');
    return digits.empty() ? "0" : digits;
}

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// Length of the number at the start of `source`, 0 if there is none.
std::size_t numberLength(std::string_view source) {
    std::size_t at = !source.empty() && (source[0] == '+' || source[0] == '-') ? 1 : 0;
    int digits = 0;
    bool point = false;
    for (; at < source.size(); ++at) {
        if (isDigit(source[at])) {
            ++digits;
        } else if (source[at] == '.' && !point) {
            point = true;
        } else {
            break;
        }
    }
    if (digits == 0) return 0;
    if (at < source.size() && (source[at] == 'e' || source[at] == 'E')) {
        std::size_t power = at + 1;
        if (power < source.size() && (source[power] == '+' || source[power] == '-')) ++power;
        if (power < source.size() && isDigit(source[power])) {
            while (power < source.size() && isDigit(source[power])) ++power;
            at = power;
        }
    }
    return at;
}

/// Whether a number other than 0 has a digit before the point, once the point has gone where its power says.
bool isLarge(std::string_view number) {
    const std::size_t mark = std::min(number.find_first_of("eE"), number.size());
    const std::size_t point = std::min(number.find('.'), mark);
    const std::size_t first = number.find_first_of("123456789");
    const auto digits = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first);
    const std::string_view power = number.substr(std::min(mark + 1, number.size()));
    const bool down = power.starts_with('-');
    std::int64_t places = 0;
    const auto [end, error] = std::from_chars(power.data() + (down || power.starts_with('+') ? 1 : 0),
                                              power.data() + power.size(), places);
    if (error == std::errc::result_out_of_range) return !down;
    return (digits < 0 ? digits + 1 : digits) > (down ? places : -places);
}

std::string_view skipBlanks(std::string_view source) {
    while (!source.empty() && source.front() == ' ') source.remove_prefix(1);
    return source;
}

}  // namespace

std::string whole(Int32 value) { return std::to_string(value.raw); }

std::string padded(Int32 value, int digits) {
    std::string plain = std::to_string(std::llabs(value.raw));
    if (plain.size() < static_cast<std::size_t>(digits))
        plain.insert(0, static_cast<std::size_t>(digits) - plain.size(), '0');
    return value < 0 ? "-" + plain : plain;
}

std::string oneDecimal(Int16 tenths) {
    std::string text = padded(tenths, 2);
    text.insert(text.size() - 1, 1, '.');
    return text;
}

std::string twoDecimals(double value) {
    std::string digits = roundedDigits(value, 2);
    if (digits.size() < 3) digits.insert(0, 3 - digits.size(), '0');
    const bool zero = digits.find_first_not_of('0') == std::string::npos;
    digits.insert(digits.size() - 2, ".");
    return value < 0 && !zero ? "-" + digits : digits;
}

std::string digitsOnly(double value) {
    const std::string digits = roundedDigits(value, 0);
    const std::size_t first = digits.find_first_not_of('0');
    if (first == std::string::npos) return {};
    return (value < 0 ? "-" : "") + digits.substr(first);
}

std::string general(double value) { return value == 0.0 ? "0" : fmt::format("{:.15G}", value); }

double toNumber(std::string_view source) {
    source = skipBlanks(source);
    source = source.substr(0, numberLength(source));
    if (source.starts_with('+')) source.remove_prefix(1);
    double value = 0.0;
    const auto [end, error] = std::from_chars(source.data(), source.data() + source.size(), value);
    // Out of range: a number too small reads as 0, one too large as endless.
    if (error == std::errc::result_out_of_range)
        value = !isLarge(source) ? 0.0 : source.starts_with('-') ? -HUGE_VAL : HUGE_VAL;
    return value;
}

bool isNumeric(std::string_view source) {
    const std::string bare = text::trim(source);
    return !bare.empty() && numberLength(bare) == bare.size();
}

int nearestShort(std::string_view source) {
    using Short = std::numeric_limits<std::int16_t>;
    return static_cast<int>(std::nearbyint(
        std::clamp(toNumber(source), static_cast<double>(Short::min()), static_cast<double>(Short::max()))));
}

std::string clockText(Int16 hour, Int16 minute) {
    Int16 shown = hour % dial::hours;
    if (shown == 0) shown = dial::hours;
    std::string text = shown < 10 ? "0" : "";
    text += whole(shown);
    text += minute < 10 ? ":0" : ":";
    return text += whole(minute);
}

std::string toBase(Int32 value, Int16 base) {
    if (base < 2 || base > 36) return {};
    constexpr std::string_view digits = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    const double radix = base.toFloat();
    double rest = std::floor(value.toFloat() + 0.5);
    std::string result;
    while (rest >= radix) {
        const double digit = rest - radix * std::floor(rest / radix);
        result.insert(result.begin(), digits[static_cast<std::size_t>(digit)]);
        rest = (rest - digit) / radix;
    }
    result.insert(result.begin(), digits[static_cast<std::size_t>(rest)]);
    return result;
}

}  // namespace numberText
