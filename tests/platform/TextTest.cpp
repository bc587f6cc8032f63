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

TEST_F(NumberText, ReadsWhatStandsForANumberAndTellsWhichMarkIsExpected) {
    const struct {
        NumberLocale locale;
        std::vector<std::pair<const char*, double>> numbers;
        std::vector<const char*> others;      // that are no number in any locale
        std::vector<const char*> otherMark{}; // that would be one with another decimal mark
    } rows[] = {
        {British,
         {{" \t+5\u00A0 ", 5}, {".8", 0.8}, {"8.", 8}, {"1,234,567.5", 1234567.5}, {"1,234e-3", 1.234}},
         {"", "- 5", "0x10", "inf", "nan", "12mm", "1 2", "1,23,456", "1,,234", "1e1,000"},
         {"0,8", "12,34", "1234,567", "1234,", "1,234567", "1.234,5", ",123", "123,"}},
        {German, {{"1.234.567,5", 1234567.5}}, {"1.5x", "1.5,"}, {"3.5", "1,234.5", "-1.5E3 "}},
        {French, {{"1\u202F234,5", 1234.5}, {"1 234\u00A0567\u2009890", 1234567890}}, {"1 2"}, {"3.5"}},
        {Swiss, {{"1'234\u2019567.5", 1234567.5}}, {}},
        {Indian, {{"1,23,45,678", 12345678}}, {"1,234,567"}},
        {Ungrouped, {{"1234,5", 1234.5}}, {"1 234"}},
        {Arabic, {{"1\u066C234\u066B5", 1234.5}, {"0.8", 0.8}}, {"1.2.3", "1.5\u066B2"}, {"0,8", "3,5"}}};
    for (const auto& row : rows) {
        SetNumberLocale(row.locale);
        for (const auto& [text, number] : row.numbers) {
            EXPECT_EQ(NumberFromText(text), number) << text;
        }
        for (const char* text : row.others) {
            EXPECT_EQ(NumberFromText(text), std::nullopt) << text;
            EXPECT_EQ(WhyNoNumber(text), "is no number.") << text;
        }
        for (const char* text : row.otherMark) {
            EXPECT_EQ(NumberFromText(text), std::nullopt) << text;
            EXPECT_EQ(WhyNoNumber(text),
                      "is no number here, where the decimal mark is \"" + row.locale.DecimalMark + "\".");
        }
    }
    EXPECT_EQ(NumberFromText(std::string_view("1\0", 2)), std::nullopt);
    EXPECT_EQ(NumberFromText("0." + std::string(400, '0') + "1"), 0) << "too small";
    SetNumberLocale(German); // files know no locale
    EXPECT_EQ(NumberFromText("3.5", Mark::Point), 3.5);
    EXPECT_EQ(NumberFromText("\u00A03.5", Mark::Point), std::nullopt);
}

TEST_F(NumberText, FormatsByPattern) {
    // A half goes up also where the double lies below it; the 16th digit doesn't count.
    const std::tuple<double, const char*, const char*> rows[] = {
        {0, "0.000", "0.000"},        {3.025, "0.00", "3.03"},
        {-3.025, "0.00", "-3.03"},    {0.5, "0", "1"},
        {4.49999999999999, "0", "4"}, {4.4999999999999996, "0", "5"},
        {9.9995, "0.000", "10.000"},  {0.06, "0.0", "0.1"},
        {-0.04, "0.0", "0.0"},        {5e-324, "0.000", "0.000"}};
    for (const auto& [value, pattern, text] : rows) {
        EXPECT_EQ(Format(value, pattern), text);
    }
    EXPECT_EQ(Format(1.2345678901234567e18, "0.0"), "1234567890123460000.0");
    SetNumberLocale(Arabic);
    EXPECT_EQ(Format(1234.5, "0.00"), "1234\u066B50");
    EXPECT_EQ(Format(1234.5, "0.00", Mark::Point), "1234.50");
}

TEST_F(NumberText, WritesTheShortestText) {
    const auto texts = [](auto numbers) {
        return Joined(numbers, [](auto number) { return ShortestText(number); });
    };
    const double largest = std::numeric_limits<double>::max(); // rounded up it would be no number
    EXPECT_EQ(
        texts(std::vector{0.0, -0.0, 1e-16, 1e-15, 1e14, 0.1 + 0.2, -1.5e-300, 999999999999999.7, largest}),
        "0 0 1E-16 0.000000000000001 100000000000000 0.3 -1.5E-300 1E+15 1.79769313486231E+308");
    EXPECT_EQ(texts(std::vector{1e-5F, 1e-8F, 9999999.0F, 0.001234567F, -1e10F, 16711680.0F}),
              "0.00001 1E-08 9999999 1.234567E-03 -1E+10 1.671168E+07");
    SetNumberLocale(German);
    EXPECT_EQ(ShortestText(1.671168e7F) + ShortestText(0.5, Mark::Point), "1,671168E+070.5");
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

TEST(DateText, MonthsInEnglish) {
    std::string months;
    for (const std::string& month : DateLocale().ShortMonths) {
        months += month;
    }
    EXPECT_EQ(months, "JanFebMarAprMayJunJulAugSepOctNovDec");
}

} // namespace
