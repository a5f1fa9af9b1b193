// All texts of numbers, in both directions. Values that the subject sees pass on as these texts, and the
// next step reads them back, so their rounding decides the last digit of the score.
#pragma once

#include <string>
#include <string_view>

#include "platform/checkedInteger.h"

namespace numberText {

/// Whole number in plain decimal digits.
std::string whole(Int32 value);

/// At least `digits` digits, padded with zeros on the left and never cut ("00", "000").
std::string padded(Int32 value, int digits);

/// Tenths as a number with one decimal: 734 gives 73.4, and 750 gives 75.0.
std::string oneDecimal(Int16 tenths);

/// Two decimals ("0.00"). Halves go away from zero, judged on the decimal form of up to 15 significant
/// digits, so that 0.285 gives 0.29.
std::string twoDecimals(double value);

/// A whole number, halves away from zero, and no digit at all for zero ("###").
std::string digitsOnly(double value);

/// The general form: up to 15 significant digits, no trailing zeros.
std::string general(double value);

/// The leading number of a text: blanks are skipped, then sign, digits with at most one point and an
/// exponent. 0 where there is none; never faults.
double toNumber(std::string_view source);

/// Whether the whole text, blanks around it aside, reads as one number.
bool isNumeric(std::string_view source);

/// `toNumber` as the nearest whole number that 16 bits hold, halves to the even one: for those who show or
/// judge what the task reads with 16 bits, and must not fault where it does.
int nearestShort(std::string_view source);

/// Time on the twelve-hour dial, two digits each; hour 0, 12 and 24 read 12.
std::string clockText(Int16 hour, Int16 minute);

/// `value`, which is not negative, in a base from 2 to 36 with the digits 0 to 9 and A to Z; empty for any
/// other base.
std::string toBase(Int32 value, Int16 base);

}  // namespace numberText
