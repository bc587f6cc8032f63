#include "fuzz/Fuzz.h"
#include "platform/text/NumberText.h"

#include <array>
#include <cmath>
#include <cstring>

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

void ExpectPoint(std::string_view text) {
    const auto value = NumberFromText(text, Mark::Point);
    if (!value || text.find_first_not_of("0123456789.eE+-") != text.npos) {
        return; // blanks, or no number
    }
    REQUIRE(*value == std::strtod(std::string(text).c_str(), nullptr));
    if (DigitsOf(text) <= 15) {
        REQUIRE(NumberFromText(ShortestText(*value, Mark::Point), Mark::Point) == value);
    }
    const auto single = SingleFromText(text, Mark::Point);
    REQUIRE(!single || *single == std::strtof(std::string(text).c_str(), nullptr));
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

void Run(std::string_view input) {
    static const std::array<NumberLocale, 7> s_locales{{{".", ",", 3, 3},
                                                        {",", ".", 3, 3},
                                                        {",", "\u202F", 3, 3},
                                                        {".", "\u2019", 3, 3},
                                                        {".", ",", 3, 2},
                                                        {",", "", 3, 3},
                                                        {"\u066B", "\u066C", 3, 3}}};
    static std::size_t s_chosen = s_locales.size();
    if (const std::size_t locale = Choose(input, s_locales.size()); locale != s_chosen) {
        s_chosen = locale;
        SetNumberLocale(s_locales[locale]);
    }
    for (const Mark mark : {Mark::Locale, Mark::Point}) {
        if (const auto value = NumberFromText(input, mark)) {
            REQUIRE(std::isfinite(*value) && (*value != 0 || !std::signbit(*value)));
            ExpectReadBack(*value, mark);
        }
        ExpectAnyBits<double>(input, mark);
        ExpectAnyBits<float>(input, mark);
    }
    REQUIRE(!WhyNoNumber(input).empty());
    ExpectPoint(input);
}
