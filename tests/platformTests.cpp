#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "platform/checkedInteger.h"
#include "platform/list.h"
#include "platform/numberText.h"
#include "platform/randomSource.h"
#include "platform/text.h"
#include "tests/faults.h"

namespace {

struct TextCase {
    double value;
    const char* text;
};

TEST(NumberText, TwoDecimalsRoundHalvesAwayOnTheDecimalForm) {
    for (const TextCase& c :
         {TextCase{0, "0.00"}, TextCase{0.285, "0.29"}, TextCase{0.005, "0.01"}, TextCase{1.005, "1.01"},
          TextCase{0.994999, "0.99"}, TextCase{0.995, "1.00"}, TextCase{9.995, "10.00"},
          TextCase{1e-9, "0.00"}, TextCase{-0.125, "-0.13"}, TextCase{-0.001, "0.00"},
          TextCase{12345.678, "12345.68"}, TextCase{1.0 / 3, "0.33"}}) {
        EXPECT_EQ(numberText::twoDecimals(c.value), c.text) << c.value;
    }
}

TEST(NumberText, WholeNumberWithoutADigitForZero) {
    for (const TextCase& c :
         {TextCase{0, ""}, TextCase{0.49, ""}, TextCase{0.5, "1"}, TextCase{21.875, "22"}, TextCase{2.5, "3"},
          TextCase{-1.5, "-2"}, TextCase{99.5, "100"}, TextCase{50, "50"}}) {
        EXPECT_EQ(numberText::digitsOnly(c.value), c.text) << c.value;
    }
}

TEST(NumberText, GeneralFormReadsBack) {
    EXPECT_EQ(numberText::general(0.85 - 0.6), "0.25");
    EXPECT_EQ(numberText::general(-50), "-50");
    EXPECT_EQ(numberText::general(-0.0), "0");
    EXPECT_EQ(numberText::general(73.4), "73.4");
    for (const double value : {1e-7, 0.1 + 0.2, 123456789.125, -2.5e20}) {
        const double back = numberText::toNumber(numberText::general(value));
        EXPECT_NEAR(back / value, 1.0, 1e-14) << value;
    }
}

TEST(NumberText, ReadsTheLeadingNumberOfAnyText) {
    struct Case {
        const char* text;
        double value;
        bool numeric;
    };
    for (const Case& c :
         {Case{"", 0, false}, Case{"abc", 0, false}, Case{"12abc", 12, false}, Case{" 7", 7, true},
          Case{"012", 12, true}, Case{"-3", -3, true}, Case{"21.5 ", 21.5, true}, Case{".5", 0.5, true},
          Case{"1.2.3", 1.2, false}, Case{"2e3", 2000, true}, Case{"2e", 2, false}, Case{"+4", 4, true},
          Case{"-", 0, false}, Case{"1e-400", 0, true}, Case{"x1", 0, false}}) {
        EXPECT_EQ(numberText::toNumber(c.text), c.value) << c.text;
        EXPECT_EQ(numberText::isNumeric(c.text), c.numeric) << c.text;
    }
    EXPECT_TRUE(std::isinf(numberText::toNumber("1e999")));
}

TEST(NumberText, ClockAndBases) {
    EXPECT_EQ(numberText::clockText(9, 5), "09:05");
    EXPECT_EQ(numberText::clockText(12, 0), "12:00");
    EXPECT_EQ(numberText::clockText(24, 30), "12:30");
    EXPECT_EQ(numberText::clockText(13, 59), "01:59");
    EXPECT_EQ(numberText::toBase(0, 2), "0");
    EXPECT_EQ(numberText::toBase(255, 16), "FF");
    EXPECT_EQ(numberText::toBase(32767, 2), "111111111111111");
    EXPECT_EQ(numberText::toBase(35, 36), "Z");
    EXPECT_EQ(numberText::toBase(5, 37), "");
    EXPECT_EQ(numberText::padded(7, 3), "007");
    EXPECT_EQ(numberText::padded(1234, 3), "1234");
}

TEST(CheckedInteger, OverflowIsAFault) {
    EXPECT_EQ((Int16(181) * 181).raw, 32761);
    EXPECT_FAULT(Int16(547) * 60, FaultNumber::Overflow);
    EXPECT_FAULT(Int16(32767) + 1, FaultNumber::Overflow);
    EXPECT_FAULT(Int16(-32768) - 1, FaultNumber::Overflow);
    EXPECT_FAULT(-Int16(-32768), FaultNumber::Overflow);
    EXPECT_FAULT(Int16(Int32(40000)), FaultNumber::Overflow);
    EXPECT_FAULT(Int16(std::size_t{40000}), FaultNumber::Overflow);
    EXPECT_FAULT(Int16(5) % 0, FaultNumber::DivisionByZero);
    EXPECT_EQ((Int16(-7) % 12).raw, -7);
}

TEST(CheckedInteger, RoundsHalvesToEven) {
    EXPECT_EQ(round32(62.5).raw, 62);
    EXPECT_EQ(round32(15.5).raw, 16);
    EXPECT_EQ(round32(12.5).raw, 12);
    EXPECT_EQ(round16(-2.5).raw, -2);
    EXPECT_EQ(round16(841.875).raw, 842);
    EXPECT_EQ(round16(32767.49).raw, 32767);
    EXPECT_FAULT(round16(32767.5), FaultNumber::Overflow);
    EXPECT_FAULT(round16(std::nan("")), FaultNumber::Overflow);
    EXPECT_FAULT(round32(HUGE_VAL), FaultNumber::Overflow);
    EXPECT_EQ(floor32(-0.5).raw, -1);
    EXPECT_EQ(floor32(1999.99).raw, 1999);
}

TEST(List, IndexOutOfRangeIsAFault) {
    List<int> list;
    list.renew(2);
    list[1] = 7;
    EXPECT_EQ(list[1], 7);
    EXPECT_FAULT(list[2], FaultNumber::SubscriptOutOfRange);
    EXPECT_FAULT(list[-1], FaultNumber::SubscriptOutOfRange);
}

TEST(Text, CountsCharacters) {
    const std::string umlauts = "\xC3\xA4\xC3\xB6 \xE2\x82\xAC";  // two umlauts, a blank, a euro sign
    EXPECT_EQ(text::length(umlauts), 4);
    EXPECT_EQ(text::left(umlauts, 1), "\xC3\xA4");
    EXPECT_EQ(text::mid(umlauts, 3), "\xE2\x82\xAC");
    EXPECT_EQ(text::mid("03) note", 4), "note");
    EXPECT_EQ(text::mid("abc", 7), "");
    EXPECT_EQ(text::trim("  a b  "), "a b");
    EXPECT_EQ(text::trim("   "), "");
    EXPECT_EQ(text::trim("\ta "), "\ta");
    EXPECT_FAULT(text::blanks(11 - 12), FaultNumber::InvalidCall);
}

TEST(Text, TakesFilesOfEitherEncoding) {
    EXPECT_EQ(text::fromFileBytes("\xEF\xBB\xBFok"), "ok");
    EXPECT_EQ(text::fromFileBytes("na\xC3\xAFve"), "na\xC3\xAFve");
    EXPECT_EQ(text::fromFileBytes("na\xEFve"), "na\xC3\xAFve");
    EXPECT_EQ(text::fromFileBytes("cut \xC3"), "cut \xC3\x83");
}

TEST(RandomSource, ReseedingFoldsIntoTheState) {
    randomSource::fixState(5);
    randomSource::reseed(77);
    const double first = randomSource::draw();
    randomSource::reseed(77);
    EXPECT_NE(randomSource::draw(), first) << "two draws of one millisecond must not be equal";
    randomSource::fixState(5);
    randomSource::reseed(77);
    EXPECT_EQ(randomSource::draw(), first);
}

TEST(RandomSource, PercentDrawsAreUniform) {
    randomSource::fixState(1);
    std::array<int, 100> counts{};
    for (int i = 0; i < 200000; ++i) {
        randomSource::reseed(static_cast<std::uint64_t>(i) / 50);
        const int percent = randomSource::drawPercent();
        ASSERT_TRUE(percent >= 0 && percent < 100);
        ++counts[static_cast<std::size_t>(percent)];
    }
    // 2000 expected in each; seven standard deviations are about 310.
    for (const int count : counts) EXPECT_NEAR(count, 2000, 310);
}

TEST(RandomSource, QueuedDrawsComeFirstAndInOrder) {
    randomSource::fixState(9);
    const double next = randomSource::draw();
    randomSource::fixState(9);
    randomSource::queueDraws(std::vector<double>{0.25, 0.999});
    randomSource::reseed(3);
    EXPECT_EQ(randomSource::draw(), 0.25);
    EXPECT_EQ(randomSource::drawPercent(), 99);
    randomSource::fixState(9);
    EXPECT_EQ(randomSource::draw(), next);
}

}  // namespace
