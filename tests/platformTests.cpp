// The ground: number texts, checked integers, texts, files and draws.
#include <fmt/format.h>

#include <array>
#include <cmath>

#include "platform/checkedInteger.h"
#include "platform/list.h"
#include "platform/numberText.h"
#include "platform/randomSource.h"
#include "platform/text.h"
#include "tests/faults.h"

namespace {

/// What the function makes of each value, parted by "|".
template <class Value, class Function>
std::string each(Function function, std::initializer_list<Value> values) {
    std::string all;
    for (const Value& value : values) all += (all.empty() ? "" : "|") + function(value);
    return all;
}

TEST(NumberText, RoundsHalvesAwayOnTheDecimalForm) {
    EXPECT_EQ(each<double>(numberText::twoDecimals, {0, 0.285, 0.005, 1.005, 0.994999, 0.995, 9.995, 1e-9}),
              "0.00|0.29|0.01|1.01|0.99|1.00|10.00|0.00");
    EXPECT_EQ(each<double>(numberText::twoDecimals, {-0.125, -0.001, 12345.678, 1.0 / 3, 1e15}),
              "-0.13|0.00|12345.68|0.33|1000000000000000.00");
    EXPECT_EQ(each<double>(numberText::digitsOnly, {0.5, 21.875, 2.5, -1.5, 99.5, 50}), "1|22|3|-2|100|50");
    EXPECT_EQ(each<double>(numberText::digitsOnly, {0.49, 0, -0.4}), "");
    EXPECT_EQ(each<double>(numberText::general, {0.85 - 0.6, -50, -0.0, 73.4, 1.0 / 3}),
              "0.25|-50|0|73.4|0.333333333333333");
    for (const double value : {1e-7, 123456789.125, -2.5e20})
        EXPECT_NEAR(numberText::toNumber(numberText::general(value)) / value, 1.0, 1e-14);
}

TEST(NumberText, ReadsTheLeadingNumberOfAnyText) {
    const auto read = [](const char* text) {
        return fmt::format("{}{}", numberText::isNumeric(text) ? "" : "~", numberText::toNumber(text));
    };
    EXPECT_EQ(each<const char*>(read, {"", "12abc", " 7", "012", "-3", "21.5 ", ".5", "1.2.3", "2e3", "2e"}),
              "~0|~12|7|12|-3|21.5|0.5|~1.2|2000|~2");
    EXPECT_EQ(each<const char*>(read, {"+4", "-", "x1", "\t7", "1E+2x", "1e-400", "-1e999"}),
              "4|~0|~0|~0|~100|0|-inf");
    EXPECT_EQ(numberText::nearestShort("-2.5x") + numberText::nearestShort("2e10"), 32765);
    EXPECT_EQ(numberText::nearestShort("-1e999"), -32768);
}

TEST(NumberText, ClockBasesAndPadding) {
    EXPECT_EQ(each<int>([](int hour) { return numberText::clockText(hour, hour); }, {9, 12, 0, 24, 13}),
              "09:09|12:12|12:00|12:24|01:13");
    EXPECT_EQ(each<int>([](int base) { return numberText::toBase(255, base); }, {16, 2, 36, 10}),
              "FF|11111111|73|255");
    EXPECT_EQ(numberText::toBase(0, 2) + numberText::toBase(5, 37) + numberText::toBase(5, 1), "0");
    EXPECT_EQ(each<int>([](int value) { return numberText::padded(value, 3); }, {7, 1234, -7}),
              "007|1234|-007");
}

TEST(CheckedInteger, OverflowIsAFault) {
    EXPECT_EQ(Int16(181) * 181, 32761);
    EXPECT_EQ(Int16(-7) % 12, -7);
    EXPECT_FAULT(Int16(547) * 60, Overflow);
    EXPECT_FAULT(Int16(-32768) - 1, Overflow);
    EXPECT_FAULT(-Int16(-32768), Overflow);
    EXPECT_FAULT(Int16(Int32(40000)), Overflow);
    EXPECT_FAULT(Int32(2147483647) + 1, Overflow);
    EXPECT_FAULT(Int16(5) % 0, DivisionByZero);
    // Halves go to the even neighbour.
    EXPECT_EQ(each<double>([](double value) { return numberText::whole(round16(value)); },
                           {62.5, 15.5, -2.5, -1.5, 841.875, 32767.49}),
              "62|16|-2|-2|842|32767");
    EXPECT_FAULT(round16(32767.5), Overflow);
    EXPECT_FAULT(round16(std::nan("")), Overflow);
    EXPECT_FAULT(round32(HUGE_VAL), Overflow);
    EXPECT_EQ(floor16(-0.5), -1);
    EXPECT_EQ(floor32(-1999.01), -2000);
    List<int> list;
    list.renew(2);
    EXPECT_EQ(list[1], 0);
    EXPECT_FAULT(list[2], SubscriptOutOfRange);
    EXPECT_FAULT(list[-1], SubscriptOutOfRange);
}

TEST(Text, CountsCharacters) {
    const std::string mixed = "\xC3\xA4\xF0\x9F\x98\x80 \xE2\x82\xAC";  // of two, four, one and three bytes
    EXPECT_EQ(text::length(mixed), 4);
    EXPECT_EQ(text::left(mixed, 1), "\xC3\xA4");
    EXPECT_EQ(text::mid(mixed, 1, 2), "\xF0\x9F\x98\x80 ");
    EXPECT_EQ(text::mid(mixed, 3) + text::mid(mixed, 7), "\xE2\x82\xAC");
    EXPECT_EQ(text::trim("  a b  ") + text::trim("   ") + text::trim("\ta "), "a b\ta");
    EXPECT_FAULT(text::blanks(11 - 12), InvalidCall);
    for (int at = 0; at < text::length(mixed); ++at) {
        const std::string character = text::mid(mixed, at, 1);
        EXPECT_EQ(text::fromCode(text::codeOf(character)), character);
    }
    // A sigma is one letter, also at the end of a word.
    EXPECT_EQ(text::folded("A|Z\xC3\x89\xCE\xA3\xCF\x82"), "a|z\xC3\xA9\xCF\x83\xCF\x83");
}

TEST(RandomSource, ReseedingFoldsIntoTheState) {
    const auto drawAfter = [](std::uint64_t state, std::uint64_t seed) {
        randomSource::fixState(state);
        randomSource::reseed(seed);
        return randomSource::draw();
    };
    const double first = drawAfter(5, 77);
    randomSource::reseed(77);
    EXPECT_NE(randomSource::draw(), first) << "two draws of one millisecond must not be equal";
    EXPECT_NE(drawAfter(5, 78), first);
    EXPECT_NE(drawAfter(6, 77), first);
    randomSource::queueDraws(std::vector<double>{0.25, 0.999, 0.1});
    randomSource::reseed(3);
    EXPECT_EQ(randomSource::draw(), 0.25);
    EXPECT_EQ(randomSource::drawPercent(), 99);
    EXPECT_EQ(drawAfter(5, 77), first) << "a state that is fixed forgets what was queued";
}

TEST(RandomSource, PercentDrawsAreUniform) {
    randomSource::fixState(1);
    std::array<int, 100> counts{};
    for (int i = 0; i < 200000; ++i) {
        randomSource::reseed(static_cast<std::uint64_t>(i) / 50);
        ++counts.at(static_cast<std::size_t>(randomSource::drawPercent()));
    }
    // 2000 expected in each; seven standard deviations are about 310.
    for (const int count : counts) EXPECT_NEAR(count, 2000, 310);
}

}  // namespace
