#include "fuzz/Fuzz.h"
#include "platform/text/NumberText.h"

#include <cmath>
#include <cstring>
#include <optional>

// Texts as numbers in several locales, and any bits of a number as text.
namespace {

void ExpectReadBack(double value, Mark mark) {
    const std::string text = ShortestText(value, mark);
    const auto back = NumberFromText(text, mark);
    REQUIRE(back && ShortestText(*back, mark) == text);
    REQUIRE(std::abs(*back - value) <= std::abs(value) * 6e-15);
    for (const char* pattern : {"0", "0.0", "0.00", "0.000"}) {
        const auto formatted = NumberFromText(Format(value, pattern, mark), mark);
        REQUIRE(formatted && std::abs(*formatted - value) <= 0.5001 + std::abs(value) * 6e-15);
    }
}

void ExpectReadBack(float value, Mark mark) {
    const std::string text = ShortestText(value, mark);
    const auto back = SingleFromText(text, mark);
    REQUIRE(back && ShortestText(*back, mark) == text);
}

// How many digits count.
std::size_t DigitsOf(std::string_view text) {
    std::string digits;
    for (const char byte : text.substr(0, text.find_first_of("eE"))) {
        if (byte >= (digits.empty() ? '1' : '0') && byte <= '9') {
            digits += byte;
        }
    }
    return digits.size();
}

// As the C library reads it, but for a 0 that has a sign.
template <typename Number>
void ExpectRead(std::optional<Number> value, Number whole) {
    REQUIRE(value.has_value() == std::isfinite(whole));
    REQUIRE(!value || (*value == whole && (whole != 0 || !std::signbit(*value))));
}

void ExpectPoint(const std::string& text) {
    char* end = nullptr;
    const double whole = std::strtod(text.c_str(), &end);
    if (text.empty() || text.find_first_not_of("0123456789.eE+-") != text.npos) {
        return;
    }
    const auto value = NumberFromText(text, Mark::Point);
    if (*end != '\0') {
        REQUIRE(!value && !SingleFromText(text, Mark::Point));
        return;
    }
    ExpectRead(value, whole);
    ExpectRead(SingleFromText(text, Mark::Point), std::strtof(text.c_str(), nullptr));
    REQUIRE(!value || DigitsOf(text) > 15 ||
            NumberFromText(ShortestText(*value, Mark::Point), Mark::Point) == value);
}

template <typename Number>
void ExpectAnyBits(std::string_view input, Mark mark) {
    Number value = 0;
    std::memcpy(&value, input.data(), std::min(input.size(), sizeof value));
    if (std::isfinite(value)) {
        ExpectReadBack(value, mark);
    }
}

} // namespace

FUZZER(numbers) {
    const NumberLocale locales[] = {{".", ",", 3, 3},          {",", ".", 3, 3}, {",", "\u202F", 3, 3},
                                    {".", "\u2019", 3, 3},     {".", ",", 3, 2}, {",", "", 3, 3},
                                    {"\u066B", "\u066C", 3, 3}};
    SetNumberLocale(locales[Choose(input, std::size(locales))]);
    for (const Mark mark : {Mark::Locale, Mark::Point}) {
        if (const auto value = NumberFromText(input, mark)) {
            ExpectReadBack(*value, mark);
        }
        ExpectAnyBits<double>(input, mark);
        ExpectAnyBits<float>(input, mark);
    }
    REQUIRE(!WhyNoNumber(input).empty());
    ExpectPoint(std::string(input));
}
