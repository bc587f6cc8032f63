#pragma once

#include <optional>
#include <string>
#include <string_view>

// Numbers as text. Windows use the machine's locale, files always a point; this is the only place that
// knows the difference. UTF-8 text.
namespace plenair {

// How the user's locale writes numbers. Marks are UTF-8 text. An empty GroupMark means that the locale does
// not group. FirstGroup digits stand in the group next to the decimal mark, OtherGroups in each one to the
// left of it (3 and 3 nearly everywhere, 3 and 2 in India).
struct NumberLocale {
    std::string DecimalMark = ".";
    std::string GroupMark = ",";
    int FirstGroup = 3;
    int OtherGroups = 3;
};

// Set once at the start, from the desktop; a test may set another. The default is the point and the comma.
void SetNumberLocale(const NumberLocale& locale);
const NumberLocale& CurrentNumberLocale();

enum class Mark { Locale, Point };

// The number that `text` stands for, or nothing if it isn't one. Blanks around it (spaces, tabs; no-break
// spaces too with Mark::Locale) are ignored, a sign and an exponent (8E-01) are allowed, the digits on one
// side of the decimal mark may be missing. With Mark::Locale the locale's group marks are accepted in their
// right places; any blank does for a group mark that is a blank, either apostrophe for one that is an
// apostrophe, and a point for a decimal mark that is no ASCII character. Not numbers: empty text, "inf",
// "nan", hexadecimal, anything too large for the format. A number too small for the format is 0. Never -0.
std::optional<double> NumberFromText(std::string_view text, Mark mark = Mark::Locale);

// The same, converted straight to 32 bits, with one rounding.
std::optional<float> SingleFromText(std::string_view text, Mark mark = Mark::Locale);

// Why a text for which NumberFromText gives nothing is no number, as the end of a sentence that begins with
// the text. Names the decimal mark of the locale where another one, point or comma, would make it a number.
std::string WhyNoNumber(std::string_view text);

// `value` by one of the patterns "0", "0.0", "0.00", "0.000": so many decimals, always shown, and at least
// one digit before the mark. Rounds the 15-digit decimal of the value, a 5 in the first dropped place away
// from zero, so that 3.025 gives 3.03 although the double lies below it. Never "-0". `value` must be finite.
std::string Format(double value, std::string_view pattern, Mark mark = Mark::Locale);

// The shortest text of up to 15 significant digits (7 for a 32-bit float): no trailing zeros, no group
// marks, a zero ahead of the decimal mark. The exponent form, as in 1.671168E+07, is taken where the whole
// part would have more digits than that, or the number would need more than 15 decimals (7 for a float).
// Never "-0". `value` must be finite. It can always be read back: a value that would be rounded up beyond its
// format is rounded down.
std::string ShortestText(double value, Mark mark = Mark::Locale);
std::string ShortestText(float value, Mark mark = Mark::Locale);

} // namespace plenair
