#include "platform/text/DateText.h"
#include "platform/text/Utf8.h"
#include "support/Test.h"

namespace {

class NumberText : public testing::Test {
  protected:
    ~NumberText() override { SetNumberLocale({}); }
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
        NumberLocale locale;
        std::vector<std::pair<const char*, double>> numbers;
        std::vector<const char*> others;
    } rows[] = {{British,
                 {{"0.1000000000000000055511151231257827021181583404541015625", 0.1},
                  {" \t+5\u00A0 ", 5},
                  {"-0.25", -0.25},
                  {".8", 0.8},
                  {"8.", 8},
                  {"8E-01", 0.8},
                  {"1,234,567.5", 1234567.5},
                  {"1,234e-3", 1.234}},
                 {"",         ".",    "5-",   "- 5",    "1.2.3",     "1e",       "0x10",
                  "inf",      "nan",  "12mm", "1 2",    "12,34",     "1234,567", "1,23,456",
                  "1,234567", ",123", "123,", "1,,234", "0.123,456", "1e1,000"}},
                {German, {{"1.234.567,5", 1234567.5}}, {"3.5"}},
                {French, {{"1\u202F234,5", 1234.5}, {"1 234\u00A0567\u2009890", 1234567890}}, {"1 2"}},
                {Swiss, {{"1'234\u2019567.5", 1234567.5}}, {}},
                {Indian, {{"1,23,45,678", 12345678}}, {"1,234,567"}},
                {Ungrouped, {{"1234,5", 1234.5}}, {"1 234"}},
                {Arabic, {{"1\u066C234\u066B5", 1234.5}, {"0.8", 0.8}}, {"0,8", "1.2.3", "1.5\u066B2"}}};
    for (const auto& row : rows) {
        SetNumberLocale(row.locale);
        for (const auto& [text, number] : row.numbers) {
            EXPECT_EQ(NumberFromText(text), number) << text;
        }
        for (const char* text : row.others) {
            EXPECT_EQ(NumberFromText(text), None) << text;
        }
    }
    EXPECT_EQ(NumberFromText(std::string_view("1\0", 2)), None);
    SetNumberLocale(German); // files know no locale
    EXPECT_EQ(NumberFromText("3.5", Mark::Point), 3.5);
    EXPECT_EQ(NumberFromText("3,5", Mark::Point), None);
    EXPECT_EQ(NumberFromText("\u00A03.5", Mark::Point), None);
    EXPECT_EQ(NumberFromText("1.234.567", Mark::Point), None);
}

TEST_F(NumberText, TellsWhichDecimalMarkIsExpected) {
    const std::tuple<NumberLocale, const char*, const char*> rows[] = {
        {German, "0.8", ","},     {German, "1,234.5", ","}, {German, "-1.5E3 ", ","},  {German, "1.5x", ""},
        {German, "1.5,", ""},     {British, "0,8", "."},    {British, "12,34", "."},   {British, "", ""},
        {British, "1.2.3", ""},   {French, "3.5", ","},     {Arabic, "3,5", "\u066B"}, {Arabic, "x", ""},
        {British, "1.234,5", "."}};
    for (const auto& [locale, text, mark] : rows) {
        SetNumberLocale(locale);
        ASSERT_EQ(NumberFromText(text), None) << text;
        EXPECT_EQ(WhyNoNumber(text), *mark == '\0' ? "is no number."
                                                   : "is no number here, where the decimal mark is \"" +
                                                         std::string(mark) + "\".");
    }
}

TEST_F(NumberText, TellsTooLargeFromTooSmall) {
    const std::string zeros(400, '0');
    const std::tuple<std::string, std::optional<double>, std::optional<float>> rows[] = {
        {"-1e39", -1e39, std::nullopt},
        {"3.4028235e38", 3.4028235e38, std::numeric_limits<float>::max()},
        {"3.4028236e38", 3.4028236e38, std::nullopt},
        {"1e-50", 1e-50, 0.0F},
        {"1" + zeros, None, std::nullopt},
        {"0." + zeros + "1e401", 1.0, 1.0F},
        {"1" + zeros + "e-400", 1.0, 1.0F},
        {"-1e-400", 0.0, 0.0F},
        {"1e99999999999999999999", None, std::nullopt},
        {"1e-99999999999999999999", 0.0, 0.0F},
        {"0e99999999999999999999", 0.0, 0.0F},
        {"-0", 0.0, 0.0F}};
    for (const auto& [text, wide, narrow] : rows) {
        EXPECT_EQ(NumberFromText(text), wide) << text;
        EXPECT_EQ(SingleFromText(text), narrow) << text;
    }
    EXPECT_FALSE(std::signbit(NumberFromText("-0").value()) ||
                 std::signbit(NumberFromText("-1e-400").value()));
    EXPECT_FALSE(std::signbit(SingleFromText("-0").value()) ||
                 std::signbit(SingleFromText("-1e-50").value()));
    EXPECT_GT(NumberFromText("5e-324"), 0.0);
    // A little above the middle of two floats; as a double it is the middle, which would round to the even 1.
    EXPECT_EQ(SingleFromText("1.00000005960464477540"), std::nextafter(1.0F, 2.0F));
}

TEST_F(NumberText, FormatsByPattern) {
    // A half goes up also where the double lies below it; the 16th digit doesn't count.
    const std::tuple<double, const char*, const char*> rows[] = {
        {0, "0.000", "0.000"},
        {3.025, "0.00", "3.03"},
        {-3.025, "0.00", "-3.03"},
        {0.5, "0", "1"},
        {4.49999999999999, "0", "4"},
        {4.4999999999999996, "0", "5"},
        {9.9995, "0.000", "10.000"},
        {0.06, "0.0", "0.1"},
        {-0.04, "0.0", "0.0"},
        {5e-324, "0.000", "0.000"},
        {1234567.891, "0.0", "1234567.9"},
        {1.2345678901234567e18, "0.0", "1234567890123460000.0"}};
    for (const auto& [value, pattern, text] : rows) {
        EXPECT_EQ(Format(value, pattern), text);
    }
    SetNumberLocale(Arabic);
    EXPECT_EQ(Format(1234.5, "0.00"), "1234\u066B50");
    EXPECT_EQ(Format(1234.5, "0.00", Mark::Point), "1234.50");
    EXPECT_EQ(Format(std::numeric_limits<double>::max(), "0.000").size(), 309U + 2U + 3U);
}

TEST_F(NumberText, WritesTheShortestText) {
    const std::pair<double, const char*> wide[] = {{0, "0"},
                                                   {-0.0, "0"},
                                                   {1e-16, "1E-16"},
                                                   {1e14, "100000000000000"},
                                                   {0.1 + 0.2, "0.3"},
                                                   {-1.5e-300, "-1.5E-300"},
                                                   {999999999999999.7, "1E+15"},
                                                   {1e-15, "0.000000000000001"}};
    for (const auto& [value, text] : wide) {
        EXPECT_EQ(ShortestText(value), text);
    }
    const std::pair<float, const char*> narrow[] = {{1e-5F, "0.00001"},      {1e-8F, "1E-08"},
                                                    {9999999.0F, "9999999"}, {0.001234567F, "1.234567E-03"},
                                                    {-1e7F, "-1E+07"},       {16711680.0F, "1.671168E+07"}};
    for (const auto& [value, text] : narrow) {
        EXPECT_EQ(ShortestText(value), text);
    }
    EXPECT_EQ(ShortestText(0.0123456789012345), "1.23456789012345E-02");
    SetNumberLocale(German);
    EXPECT_EQ(ShortestText(1.671168e7F), "1,671168E+07");
    EXPECT_EQ(ShortestText(0.5, Mark::Point), "0.5");
}

TEST_F(NumberText, WhatIsWrittenIsReadBack) {
    using Wide = std::numeric_limits<double>;
    using Narrow = std::numeric_limits<float>;
    EXPECT_EQ(ShortestText(Wide::max()), "1.79769313486231E+308") << "rounded up it would be no number";
    for (const double value : {Wide::max(), Wide::lowest(), Wide::denorm_min(), 1.797693134862315e308}) {
        EXPECT_EQ(ShortestText(NumberFromText(ShortestText(value)).value()), ShortestText(value));
        EXPECT_TRUE(NumberFromText(Format(value, "0.00"))) << value;
    }
    for (const float value : {Narrow::max(), Narrow::lowest(), Narrow::denorm_min()}) {
        EXPECT_EQ(ShortestText(SingleFromText(ShortestText(value)).value()), ShortestText(value));
    }
    std::mt19937_64 random(7);
    SetNumberLocale(Arabic);
    for (int round = 0; round < 2000; ++round) {
        const double value =
            std::ldexp(static_cast<double>(random()) - 9E18, static_cast<int>(random() % 200) - 160);
        EXPECT_NEAR(NumberFromText(ShortestText(value)).value(), value, std::abs(value) * 5.1e-15);
        const std::string single = ShortestText(static_cast<float>(value));
        EXPECT_EQ(ShortestText(SingleFromText(single).value()), single);
    }
}

TEST(Utf8, MessagesQuoteTextsShortened) {
    const std::string twelve = "twelve bytes"; // of a text of 24
    const std::pair<std::string, std::string> rows[] = {
        {twelve + twelve, twelve + twelve},
        {twelve + twelve + "s", twelve + twelve + "..."},
        {twelve + "twelve byte\u00FCs", twelve + "twelve byte..."},
        {std::string(21, 'x') + "\U0001D11Exx", std::string(21, 'x') + "..."},
        {std::string(100, '\x80'), std::string(21, '\x80') + "..."}}; // no text at all
    for (const auto& [text, quoted] : rows) {
        EXPECT_EQ(Shortened(text), quoted);
    }
}

TEST(DateText, InTheOrderOfTheLocaleAndOnTheTwelveHourClock) {
    const std::pair<int, const char*> hours[] = {{0, "12:05 AM"},  {1, "01:05 AM"},  {11, "11:05 AM"},
                                                 {12, "12:05 PM"}, {13, "01:05 PM"}, {23, "11:05 PM"}};
    for (const auto& [hour, text] : hours) {
        EXPECT_EQ(MediumTime({2026, 3, 5, hour, 5, 59, 999}), text);
    }
    const std::pair<DateOrder, const char*> orders[] = {{DateOrder::DayMonthYear, "05-Mär-09"},
                                                        {DateOrder::MonthDayYear, "Mär-05-09"},
                                                        {DateOrder::YearMonthDay, "09-Mär-05"}};
    const LocalTime day{.Year = 2009, .Month = 3, .Day = 5};
    EXPECT_EQ(MediumDate(day), "05-Mar-09");
    for (const auto& [order, text] : orders) {
        DateLocale locale;
        locale.ShortMonths[2] = "Mär";
        locale.Order = order;
        SetDateLocale(locale);
        EXPECT_EQ(MediumDate(day), text);
    }
    SetDateLocale({});
}

} // namespace
