#include "platform/text/NumberText.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <system_error>
#include <type_traits>
#include <vector>

// Searches format and read numbers in their inner loop, and the desktop may have set a C locale for the
// process: hence to_chars and from_chars throughout, which are fast and know no locale.
namespace plenair {

namespace {

// Marks that look alike to the user: whichever of a row the locale names, all of them are accepted.
const std::array<std::vector<std::string>, 2> kAlikeMarks{{
    {" ", "\u00A0", "\u202F", "\u2009"},
    {"'", "\u2019"},
}};

// A locale with all marks that are accepted where a number is read.
struct ActiveLocale {
    NumberLocale Locale;
    std::vector<std::string> GroupMarks;
    std::vector<std::string> DecimalMarks;
    std::vector<std::string> Blanks; // around the number
};

ActiveLocale MakeActive(const NumberLocale& locale) {
    ActiveLocale active{locale, {}, {locale.DecimalMark}, {" ", "\t", "\u00A0"}};
    const auto isAscii = [](char character) { return static_cast<unsigned char>(character) < 0x80; };
    if (!std::all_of(locale.DecimalMark.begin(), locale.DecimalMark.end(), isAscii)) {
        active.DecimalMarks.emplace_back("."); // what the user's keyboard may have in its place
    }
    if (!locale.GroupMark.empty()) {
        active.GroupMarks = {locale.GroupMark};
    }
    for (const std::vector<std::string>& marks : kAlikeMarks) {
        if (std::find(marks.begin(), marks.end(), locale.GroupMark) != marks.end()) {
            active.GroupMarks = marks;
        }
    }
    return active;
}

ActiveLocale& Active() {
    static ActiveLocale s_active = MakeActive({});
    return s_active;
}

const ActiveLocale& LocaleOf(Mark mark) {
    static const ActiveLocale kPoint{{.DecimalMark = ".", .GroupMark = ""}, {}, {"."}, {" ", "\t"}};
    return mark == Mark::Point ? kPoint : Active();
}

std::string_view DecimalMark(Mark mark) {
    return LocaleOf(mark).Locale.DecimalMark;
}

bool Take(std::string_view& text, std::string_view start) {
    if (start.empty() || !text.starts_with(start)) {
        return false;
    }
    text.remove_prefix(start.size());
    return true;
}

std::size_t TakeDigits(std::string_view& text, std::string& plain) {
    std::size_t count = 0;
    while (count < text.size() && text[count] >= '0' && text[count] <= '9') {
        ++count;
    }
    plain.append(text.substr(0, count));
    text.remove_prefix(count);
    return count;
}

bool TakeOneOf(std::string_view& text, const std::vector<std::string>& marks) {
    return std::any_of(marks.begin(), marks.end(), [&](const std::string& mark) { return Take(text, mark); });
}

// Takes the digits ahead of the decimal mark; false if group marks stand in wrong places.
bool TakeWholePart(std::string_view& text, const ActiveLocale& how, std::string& plain) {
    std::size_t length = TakeDigits(text, plain);
    const std::size_t firstGroup = static_cast<std::size_t>(how.Locale.FirstGroup);
    const std::size_t otherGroups = static_cast<std::size_t>(how.Locale.OtherGroups);
    bool grouped = false;
    while (TakeOneOf(text, how.GroupMarks)) {
        if (length > otherGroups || length < (grouped ? otherGroups : 1)) {
            return false;
        }
        grouped = true;
        length = TakeDigits(text, plain);
    }
    return !grouped || length == firstGroup;
}

std::string_view WithoutBlanksAround(std::string_view text, const std::vector<std::string>& blanks) {
    const auto takeBack = [&](const std::string& blank) {
        const bool found = text.ends_with(blank);
        text.remove_suffix(found ? blank.size() : 0);
        return found;
    };
    while (TakeOneOf(text, blanks)) {
    }
    while (std::any_of(blanks.begin(), blanks.end(), takeBack)) {
    }
    return text;
}

// Puts the number into `plain` in the form -12.5e-3 that from_chars reads; false if it is no number.
bool MakePlain(std::string_view text, const ActiveLocale& how, std::string& plain) {
    text = WithoutBlanksAround(text, how.Blanks);
    if (Take(text, "-")) {
        plain.push_back('-');
    } else {
        Take(text, "+");
    }
    const std::size_t start = plain.size();
    if (!TakeWholePart(text, how, plain)) {
        return false;
    }
    bool hasDigits = plain.size() > start;
    if (TakeOneOf(text, how.DecimalMarks)) {
        plain.push_back('.');
        hasDigits = TakeDigits(text, plain) > 0 || hasDigits;
    }
    if (!hasDigits) {
        return false;
    }
    if (Take(text, "e") || Take(text, "E")) {
        plain.push_back('e');
        if (Take(text, "-")) {
            plain.push_back('-');
        } else {
            Take(text, "+");
        }
        if (TakeDigits(text, plain) == 0) {
            return false;
        }
    }
    return text.empty();
}

// Whether a plain number outside the format's range lies above it; otherwise it lies below, next to zero.
bool IsTooLarge(std::string_view plain) {
    const std::string_view mantissa = plain.substr(0, plain.find('e'));
    std::int64_t exponent = 0;
    if (mantissa.size() < plain.size()) {
        const std::string_view digits = plain.substr(mantissa.size() + 1);
        const auto parsed = std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
        if (parsed.ec == std::errc::result_out_of_range) {
            return !digits.starts_with('-');
        }
    }
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t firstDigit = mantissa.find_first_of("123456789");
    return exponent > static_cast<std::int64_t>(firstDigit) - static_cast<std::int64_t>(point);
}

template <typename Number>
std::optional<Number> ToNumber(std::string_view text, Mark mark) {
    if (mark == Mark::Point && text.find_first_not_of("0123456789.") == std::string_view::npos) {
        // Nearly all that a file holds.
        Number value = 0;
        const auto parsed = std::from_chars(text.data(), text.data() + text.size(), value);
        if (parsed.ec == std::errc() && parsed.ptr == text.data() + text.size()) {
            return value;
        }
    }
    std::string plain;
    if (!MakePlain(text, LocaleOf(mark), plain)) {
        return std::nullopt;
    }
    Number value = 0;
    const auto parsed = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    if (parsed.ec == std::errc::result_out_of_range) {
        return IsTooLarge(plain) ? std::nullopt : std::optional<Number>(Number{0});
    }
    return value + Number{0}; // the sum makes 0 of -0
}

// A value as decimal digits d.ddd times ten to the exponent.
struct Decimal {
    bool Negative = false;
    std::string Digits;
    int Exponent = 0;
};

template <typename Number>
Decimal ToDecimal(Number value, std::size_t digitCount) {
    assert(std::isfinite(value));
    std::array<char, 32> text{};
    std::to_chars(text.data(), text.data() + text.size(), std::abs(value), std::chars_format::scientific,
                  static_cast<int>(digitCount) - 1);
    Decimal decimal;
    decimal.Negative = value < 0;
    decimal.Digits.push_back(text[0]);
    decimal.Digits.append(&text[2], digitCount - 1);
    const char* exponent = &text[digitCount + 2]; // past the e: a sign and digits
    std::from_chars(exponent + 1, text.data() + text.size(), decimal.Exponent);
    if (*exponent == '-') {
        decimal.Exponent = -decimal.Exponent;
    }
    // The largest values, rounded up to so few digits, would be texts too large to be read back.
    Number readBack = 0;
    if (decimal.Exponent == std::numeric_limits<Number>::max_exponent10 &&
        std::from_chars(text.data(), text.data() + text.size(), readBack).ec != std::errc()) {
        --decimal.Digits.back();
    }
    return decimal;
}

void AddOneToLastPlace(std::string& digits) {
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
        if (*digit != '9') {
            ++*digit;
            return;
        }
        *digit = '0';
    }
    digits.insert(digits.begin(), '1');
}

std::string ExponentForm(const Decimal& decimal, std::string_view mark) {
    std::string text = decimal.Digits.substr(0, 1);
    if (decimal.Digits.size() > 1) {
        text.append(mark).append(decimal.Digits, 1);
    }
    const int size = std::abs(decimal.Exponent);
    text.append(decimal.Exponent < 0 ? "E-" : "E+").append(size < 10 ? "0" : "").append(std::to_string(size));
    return text;
}

std::string PlainForm(const Decimal& decimal, std::string_view mark) {
    if (decimal.Exponent < 0) {
        const auto zeros = static_cast<std::size_t>(-decimal.Exponent - 1);
        return std::string("0").append(mark).append(zeros, '0').append(decimal.Digits);
    }
    std::string text = decimal.Digits;
    const auto wholeDigits = static_cast<std::size_t>(decimal.Exponent) + 1;
    if (text.size() > wholeDigits) {
        text.insert(wholeDigits, mark);
    } else {
        text.append(wholeDigits - text.size(), '0');
    }
    return text;
}

template <typename Number>
std::string Shortest(Number value, Mark mark) {
    if (std::abs(value) < Number{1'000'000} && value == std::trunc(value)) {
        return std::to_string(static_cast<int>(value)); // as sizes and flows mostly are
    }
    constexpr int kMostDigits = std::is_same_v<Number, float> ? 7 : 15;
    Decimal decimal = ToDecimal(value, kMostDigits);
    decimal.Digits.erase(std::max<std::size_t>(decimal.Digits.find_last_not_of('0') + 1, 1));
    const int decimals = static_cast<int>(decimal.Digits.size()) - 1 - decimal.Exponent;
    const bool takesExponent = decimal.Exponent >= kMostDigits || decimals > kMostDigits;
    const std::string_view decimalMark = DecimalMark(mark);
    const std::string text =
        takesExponent ? ExponentForm(decimal, decimalMark) : PlainForm(decimal, decimalMark);
    return decimal.Negative ? "-" + text : text;
}

} // namespace

void SetNumberLocale(const NumberLocale& locale) {
    Active() = MakeActive(locale);
}

const NumberLocale& CurrentNumberLocale() {
    return Active().Locale;
}

std::optional<double> NumberFromText(std::string_view text, Mark mark) {
    return ToNumber<double>(text, mark);
}

std::optional<float> SingleFromText(std::string_view text, Mark mark) {
    return ToNumber<float>(text, mark);
}

std::string WhyNoNumber(std::string_view text) {
    const std::vector<std::string>& marks = Active().DecimalMarks;
    const auto isNumberWith = [&](const char* mark, const char* groupMark) {
        std::string plain;
        return std::find(marks.begin(), marks.end(), mark) == marks.end() &&
               MakePlain(text, MakeActive({.DecimalMark = mark, .GroupMark = groupMark}), plain);
    };
    if (isNumberWith(".", ",") || isNumberWith(",", ".")) {
        return "is no number here, where the decimal mark is \"" + marks.front() + "\".";
    }
    return "is no number.";
}

std::string Format(double value, std::string_view pattern, Mark mark) {
    assert(pattern.find_first_not_of("0.") == std::string_view::npos);
    constexpr int kMostDigits = 15;
    const std::size_t point = pattern.find('.');
    const std::size_t decimals = point == std::string_view::npos ? 0 : pattern.size() - point - 1;
    const Decimal decimal = ToDecimal(value, kMostDigits);

    // The value in units of the last place shown.
    std::string shown;
    const int kept = decimal.Exponent + 1 + static_cast<int>(decimals);
    if (kept >= kMostDigits) {
        shown = decimal.Digits;
        shown.append(static_cast<std::size_t>(kept - kMostDigits), '0');
    } else if (kept >= 0) {
        shown.assign(decimal.Digits, 0, static_cast<std::size_t>(kept));
        if (decimal.Digits[static_cast<std::size_t>(kept)] >= '5') {
            AddOneToLastPlace(shown);
        }
    }
    const bool isZero = shown.find_first_not_of('0') == std::string::npos;
    if (shown.size() <= decimals) {
        shown.insert(0, decimals + 1 - shown.size(), '0');
    }
    if (decimals > 0) {
        shown.insert(shown.size() - decimals, DecimalMark(mark));
    }
    if (decimal.Negative && !isZero) {
        shown.insert(shown.begin(), '-');
    }
    return shown;
}

std::string ShortestText(double value, Mark mark) {
    return Shortest(value, mark);
}

std::string ShortestText(float value, Mark mark) {
    return Shortest(value, mark);
}

} // namespace plenair
