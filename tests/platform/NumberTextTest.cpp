#include "platform/NumberText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace plenair {
namespace {

class NumberText : public testing::Test {
  protected:
    void SetUp() override { SetNumberLocale({}); }
    void TearDown() override { SetNumberLocale({}); }
};

const NumberLocale British{".", ",", 3, 3};
const NumberLocale German{",", ".", 3, 3};
const NumberLocale French{",", "\u202F", 3, 3};
const NumberLocale Swiss{".", "\u2019", 3, 3};
const NumberLocale Indian{".", ",", 3, 2};
const NumberLocale Ungrouped{",", "", 3, 3};
const NumberLocale Arabic{"\u066B", "\u066C", 3, 3};

constexpr std::optional<double> None;

TEST_F(NumberText, ReadsWhatStandsForANumber) {
    const struct {
        const char* name;
        NumberLocale locale;
        const char* text;
        std::optional<double> number;
    } rows[] = {
        {"whole", British, "42", 42},
        {"signs and blanks", British, " \t+5\u00A0 ", 5},
        {"negative", British, "-0.25", -0.25},
        {"no zero ahead of the mark", British, ".8", 0.8},
        {"nothing behind the mark", British, "8.", 8},
        {"exponent", British, "8E-01", 0.8},
        {"exponent with a plus", British, "1.5e+3", 1500},
        {"many digits", British, "0.1000000000000000055511151231257827021181583404541015625", 0.1},
        {"nothing", British, "", None},
        {"only a mark", British, ".", None},
        {"only a sign", British, "-", None},
        {"sign behind", British, "5-", None},
        {"blank behind the sign", British, "- 5", None},
        {"two marks", British, "1.2.3", None},
        {"exponent without digits", British, "1e", None},
        {"hexadecimal", British, "0x10", None},
        {"infinity", British, "inf", None},
        {"not a number", British, "nan", None},
        {"letters behind", British, "12mm", None},
        {"blank inside", British, "1 2", None},

        {"groups", British, "1,234,567.5", 1234567.5},
        {"short first group", British, "12,345", 12345},
        {"groups and an exponent", British, "1,234e-3", 1.234},
        {"group too short", British, "12,34", None},
        {"group too long", British, "1234,567", None},
        {"middle group too short", British, "1,23,456", None},
        {"groups given up", British, "1,234567", None},
        {"group mark ahead", British, ",123", None},
        {"group mark behind", British, "123,", None},
        {"two group marks", British, "1,,234", None},
        {"group mark among decimals", British, "0.123,456", None},
        {"group mark in the exponent", British, "1e1,000", None},

        {"comma as the mark", German, "1.234.567,5", 1234567.5},
        {"a point is no mark", German, "3.5", None},
        {"narrow no-break space", French, "1\u202F234,5", 1234.5},
        {"any blank", French, "1 234\u00A0567\u2009890", 1234567890},
        {"a blank in the wrong place", French, "1 2", None},
        {"either apostrophe", Swiss, "1'234\u2019567.5", 1234567.5},
        {"lakh and crore", Indian, "1,23,45,678", 12345678},
        {"lakh: three in a middle group", Indian, "1,234,567", None},
        {"locale without groups", Ungrouped, "1234,5", 1234.5},
        {"locale without groups: blank", Ungrouped, "1 234", None},
        {"marks of two bytes", Arabic, "1\u066C234\u066B5", 1234.5},
    };
    for (const auto& row : rows) {
        SetNumberLocale(row.locale);
        EXPECT_EQ(NumberFromText(row.text), row.number) << row.name << ": " << row.text;
    }
    EXPECT_EQ(NumberFromText(std::string_view("1\0", 2)), None);
}

TEST_F(NumberText, FilesKnowNoLocale) {
    SetNumberLocale(German);
    EXPECT_EQ(NumberFromText("3.5", Mark::Point), 3.5);
    EXPECT_EQ(NumberFromText("3,5", Mark::Point), None);
    EXPECT_EQ(NumberFromText("1.234.567", Mark::Point), None);
    SetNumberLocale(British);
    EXPECT_EQ(NumberFromText("1,234", Mark::Point), None);
}

TEST_F(NumberText, TellsTooLargeFromTooSmall) {
    const std::string zeros(400, '0');
    const struct {
        std::string text;
        std::optional<double> wide;
        std::optional<float> narrow;
    } rows[] = {
        {"-1e39", -1e39, std::nullopt},
        {"3.4028235e38", 3.4028235e38, std::numeric_limits<float>::max()},
        {"3.4028236e38", 3.4028236e38, std::nullopt},
        {"1e-50", 1e-50, 0.0F},
        {"1e309", None, std::nullopt},
        {"1" + zeros, None, std::nullopt},
        {"0." + zeros + "1", 0.0, 0.0F},
        {"0." + zeros + "1e401", 1.0, 1.0F},
        {"1" + zeros + "e-400", 1.0, 1.0F},
        {"1" + zeros + "e-900", 0.0, 0.0F},
        {"0." + zeros + "1e900", None, std::nullopt},
        {"-1e-400", 0.0, 0.0F},
        {"1e99999999999999999999", None, std::nullopt},
        {"1e-99999999999999999999", 0.0, 0.0F},
        {"0e99999999999999999999", 0.0, 0.0F},
        {"-0", 0.0, 0.0F},
    };
    for (const auto& row : rows) {
        const std::optional<double> wide = NumberFromText(row.text);
        const std::optional<float> narrow = SingleFromText(row.text);
        EXPECT_EQ(wide, row.wide) << row.text;
        EXPECT_EQ(narrow, row.narrow) << row.text;
        EXPECT_FALSE(wide == 0.0 && std::signbit(*wide)) << row.text;
        EXPECT_FALSE(narrow == 0.0F && std::signbit(*narrow)) << row.text;
    }
    EXPECT_GT(NumberFromText("5e-324"), 0.0);
}

// A little above the middle of two floats; as a double it is the middle, which would round to the even 1.
TEST_F(NumberText, SinglesAreRoundedOnce) {
    EXPECT_EQ(SingleFromText("1.00000005960464477540"), std::nextafter(1.0F, 2.0F));
    EXPECT_EQ(SingleFromText("0.1"), 0.1F);
}

TEST_F(NumberText, FormatsByPattern) {
    const struct {
        const char* name;
        double value;
        const char* pattern;
        const char* text;
    } rows[] = {
        {"zero", 0, "0", "0"},
        {"zero with decimals", 0, "0.000", "0.000"},
        {"decimals are always shown", 7, "0.00", "7.00"},
        {"half up, the double below it", 3.025, "0.00", "3.03"},
        {"half away from zero", -3.025, "0.00", "-3.03"},
        {"half of one", 0.5, "0", "1"},
        {"below the half by the 15th digit", 4.49999999999999, "0", "4"},
        {"below the half by the 16th digit", 4.4999999999999996, "0", "5"},
        {"carry through", 9.9995, "0.000", "10.000"},
        {"carry from nothing", 0.06, "0.0", "0.1"},
        {"one place too small", 0.04, "0.0", "0.0"},
        {"no minus before zero", -0.04, "0.0", "0.0"},
        {"minus zero", -0.0, "0.0", "0.0"},
        {"smallest of all", std::numeric_limits<double>::denorm_min(), "0.000", "0.000"},
        {"no groups", 1234567.891, "0.0", "1234567.9"},
        {"fifteen digits", 123456789012345, "0.0", "123456789012345.0"},
        {"zeros behind the fifteenth digit", 1.234567890123456789e18, "0.0", "1234567890123460000.0"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Format(row.value, row.pattern), row.text) << row.name;
    }
    SetNumberLocale(Arabic);
    EXPECT_EQ(Format(1234.5, "0.00"), "1234\u066B50");
    EXPECT_EQ(Format(1234.5, "0.00", Mark::Point), "1234.50");
    EXPECT_EQ(Format(std::numeric_limits<double>::max(), "0.000").size(), 309U + 2U + 3U);
}

TEST_F(NumberText, WritesTheShortestText) {
    const struct {
        double value;
        const char* text;
    } wide[] = {
        {0, "0"},
        {-0.0, "0"},
        {0.1 + 0.2, "0.3"},
        {1.0 / 3, "0.333333333333333"},
        {123456789012345, "123456789012345"},
        {999999999999999.7, "1E+15"},
        {1e14, "100000000000000"},
        {1e15, "1E+15"},
        {1e-15, "0.000000000000001"},
        {1e-16, "1E-16"},
        {0.0123456789012345, "1.23456789012345E-02"},
        {1.5e300, "1.5E+300"},
        {-1.5e-300, "-1.5E-300"},
    };
    for (const auto& row : wide) {
        EXPECT_EQ(ShortestText(row.value), row.text);
    }
    const struct {
        float value;
        const char* text;
    } narrow[] = {
        {255.0F, "255"},
        {0.00015F, "0.00015"},
        {1e-5F, "0.00001"},
        {1e-8F, "1E-08"},
        {0.001234567F, "1.234567E-03"},
        {9999999.0F, "9999999"},
        {16711680.0F, "1.671168E+07"},
        {-1e7F, "-1E+07"},
        {3.4028235e38F, "3.402823E+38"},
    };
    for (const auto& row : narrow) {
        EXPECT_EQ(ShortestText(row.value), row.text);
    }
    SetNumberLocale(German);
    EXPECT_EQ(ShortestText(0.5), "0,5");
    EXPECT_EQ(ShortestText(1.671168e7F), "1,671168E+07");
    EXPECT_EQ(ShortestText(0.5, Mark::Point), "0.5");
}

TEST_F(NumberText, WhatIsWrittenIsReadBack) {
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> mantissa(-10, 10);
    std::uniform_int_distribution<int> exponent(-30, 30);
    SetNumberLocale(Arabic);
    for (int round = 0; round < 2000; ++round) {
        const double value = mantissa(random) * std::pow(10, exponent(random));
        const std::optional<double> wide = NumberFromText(ShortestText(value));
        ASSERT_TRUE(wide) << value;
        EXPECT_NEAR(*wide, value, std::abs(value) * 5.1e-15);
        EXPECT_EQ(ShortestText(*wide), ShortestText(value));

        const auto single = static_cast<float>(value);
        const std::optional<float> narrow = SingleFromText(ShortestText(single));
        ASSERT_TRUE(narrow) << value;
        EXPECT_EQ(ShortestText(*narrow), ShortestText(single));
    }
}

} // namespace
} // namespace plenair
