#include "project/model/DuctPath.h"

#include "platform/text/Utf8.h"
#include "project/model/DuctRecord.h"
#include "project/model/ProjectModel.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <limits>
#include <string_view>
#include <system_error>
#include <utility>

namespace plenair {

std::vector<PathElement> PathElements(1);
std::int16_t PathCount = 0;

namespace {

constexpr std::string_view kDigits = "0123456789";

std::string NumbersThereAre() {
    switch (DuctCount) {
    case 0:
        return "This project has no ducts.";
    case 1:
        return "This project has duct 1 only.";
    default:
        return "The ducts of this project are numbered 1 to " + std::to_string(DuctCount) + ".";
    }
}

[[noreturn]] void Fail(std::string_view piece, const std::string& problem) {
    throw PathFailure("\"" + Shortened(piece) + "\" " + problem + "  " + NumbersThereAre());
}

// Length of the character at the start of `text`, which is UTF-8.
std::size_t CharacterLength(std::string_view text) {
    std::size_t length = 1;
    while (length < text.size() && IsContinuation(text[length])) {
        ++length;
    }
    return length;
}

// Length of the separator at the start of `text`: any character, or a comma with the blanks after it.
std::size_t SeparatorLength(std::string_view text) {
    if (text.front() == ',') {
        return std::min(text.find_first_not_of(' ', 1), text.size());
    }
    return CharacterLength(text);
}

// The number with what stands around it, from the separator at `at` that ends no number.
std::string_view PieceAround(std::string_view text, std::size_t at) {
    std::size_t start = text.find_last_of(kDigits, at);
    start = start == std::string_view::npos ? 0 : text.find_last_not_of(kDigits, start) + 1;
    const std::size_t next = std::min(text.find_first_of(kDigits, at), text.size());
    const std::size_t end = std::min(text.find_first_not_of(kDigits, next), text.size());
    return text.substr(start, end - start);
}

std::int16_t ElementNumber(std::string_view digits) {
    std::int16_t number = 0;
    const auto parsed = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (parsed.ec != std::errc() || number > DuctCount) {
        Fail(digits, "is no duct.");
    }
    return number;
}

PathElement CopyOf(std::int16_t number, std::size_t position) {
    const DuctRecord& duct = Duct(number);
    PathElement element;
    element.Position = static_cast<std::int16_t>(position);
    element.Colour = duct.Colour;
    element.Length = duct.Length;
    element.LossPerMetre = duct.LossPerMetre;
    element.Velocity = duct.Velocity;
    element.ConnCoefficient = duct.ConnCoefficient;
    return element;
}

} // namespace

void ParseDuctPath(std::string& path) {
    std::vector<PathElement> elements(1);
    const std::string_view text = path;
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t end = text.find_first_not_of(kDigits, start);
        if (end == std::string_view::npos) {
            break; // digits without an end are no number yet
        }
        if (end == start) {
            Fail(PieceAround(text, end), "has a separator without a number before it.");
        }
        if (elements.size() > static_cast<std::size_t>(std::numeric_limits<std::int16_t>::max())) {
            Fail(text, "lists more than 32767 ducts.");
        }
        elements.push_back(CopyOf(ElementNumber(text.substr(start, end - start)), elements.size()));
        start = end + SeparatorLength(text.substr(end));
    }
    PathElements = std::move(elements);
    PathCount = static_cast<std::int16_t>(PathElements.size() - 1);
    path.clear();
}

} // namespace plenair
