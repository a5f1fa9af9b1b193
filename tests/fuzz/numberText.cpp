// Numbers written as texts, which the next step reads back: every text gives its number again, as far as the
// form keeps it. A line is a number; its length decides how wide it is written and in which base.
#include "platform/numberText.h"

#include <fmt/format.h>

#include <cmath>
#include <cstdlib>

#include "tests/fuzz/frame.h"

namespace {

using numberText::toNumber;

/// `written` reads as `value` but for half a unit of its last place and what 15 digits cannot keep, and what
/// is read is written the same way again.
template <class Write>
void holdForm(const char* form, double value, double unit, Write write) {
    const std::string text = write(value);
    const std::string said = fmt::format("{} of {} as \"{}\"", form, value, text);
    fuzz::hold(std::fabs(toNumber(text) - value) <= unit / 2 + std::fabs(value) * 1e-14, said);
    fuzz::hold(text.empty() || numberText::isNumeric(text), said + " is a number");
    fuzz::hold(write(toNumber(text)) == text, said + " comes back as \"" + write(toNumber(text)) + "\"");
}

void writeReal(double value) {
    holdForm("general", value, 0.0, numberText::general);
    holdForm("digitsOnly", value, 1.0, numberText::digitsOnly);
    holdForm("twoDecimals", value, 0.01, numberText::twoDecimals);
}

void writeWhole(Int32 value, int width) {
    const std::string said = std::to_string(value.raw);
    fuzz::hold(toNumber(numberText::whole(value)) == value.toFloat(), "whole of " + said);
    const std::string padded = numberText::padded(value, width);
    fuzz::hold(toNumber(padded) == value.toFloat() && static_cast<int>(padded.size()) >= width,
               "padded of " + said);
    if (value >= 0)
        fuzz::hold(std::stoll(numberText::toBase(value, 2 + width), nullptr, 2 + width) == value.raw,
                   "digits of " + said);
    const Int16 tenths = static_cast<std::int16_t>(value.raw);
    fuzz::hold(std::lround(toNumber(numberText::oneDecimal(tenths)) * 10) == tenths.raw, "tenths of " + said);
}

}  // namespace

void fuzz::tryInput(const std::string& input) {
    for (const std::string& line : linesOf(input)) {
        const double value = std::strtod(line.c_str(), nullptr);
        if (!std::isfinite(value)) continue;
        writeReal(value);
        try {
            writeWhole(round32(value), static_cast<int>(line.size() % 16));
        } catch (const Fault& fault) {
            hold(fault.number == static_cast<int>(FaultNumber::Overflow) && std::fabs(value) > 2e9,
                 line + " gives: " + fault.text);
        }
    }
}
