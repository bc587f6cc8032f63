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
constexpr std::string_view kBlanks = " \t\n\v\f\r";
constexpr std::string_view kTypeLetters = "RFCrfc";
constexpr int kLowerCase = 0x20; // the bit by which small letters differ from capitals

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

bool StartsWithDigit(std::string_view text) {
    return !text.empty() && kDigits.find(text.front()) != std::string_view::npos;
}

bool IsLetter(char character) {
    const char small = static_cast<char>(character | kLowerCase);
    return small >= 'a' && small <= 'z';
}

// Whether the text begins with a number as the grid labels it: R1, C2, r3; or with a wrong letter, X1.
bool StartsWithLabel(std::string_view text) {
    return !text.empty() && IsLetter(text.front()) && StartsWithDigit(text.substr(1));
}

std::string_view Take(std::size_t length, std::string_view& text) {
    const std::string_view taken = text.substr(0, length);
    text.remove_prefix(taken.size());
    return taken;
}

std::string_view TakeAllOf(std::string_view characters, std::string_view& text) {
    return Take(text.find_first_not_of(characters), text);
}

// One separator, whichever character it is, and the blanks around it; blanks alone will do. A letter right
// behind a number is a separator too, and one that stands apart belongs to the number that it precedes.
void TakeSeparator(std::string_view& text) {
    const bool apart = !TakeAllOf(kBlanks, text).empty();
    if (text.empty() || StartsWithDigit(text) ||
        (apart && StartsWithLabel(text) && kTypeLetters.find(text.front()) != std::string_view::npos)) {
        return;
    }
    std::size_t length = 1; // of a character of UTF-8
    while (length < text.size() && IsContinuation(text[length])) {
        ++length;
    }
    Take(length, text);
    TakeAllOf(kBlanks, text);
}

// The number with what stands around it, from the separator at `at` that ends no number.
std::string_view PieceAround(std::string_view text, std::size_t at) {
    std::size_t start = text.find_last_of(kDigits, at);
    start = start == std::string_view::npos ? 0 : text.find_last_not_of(kDigits, start) + 1;
    start -= start > 0 && IsLetter(text[start - 1]) ? 1U : 0U;
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

// The number of an element, with the letter of its type before it or without.
std::int16_t TakeElement(std::string_view& text) {
    const std::string_view letter = Take(StartsWithLabel(text) ? 1 : 0, text);
    const std::int16_t number = ElementNumber(TakeAllOf(kDigits, text));
    if (!letter.empty()) {
        const std::string wanted(1, static_cast<char>(letter.front() & ~kLowerCase));
        const std::string type = TypeLetter(Duct(number).Colour);
        if (type != wanted) {
            const std::string digits = std::to_string(number);
            throw PathFailure(digits + " is " + (type.empty() ? "of no type" : type + digits) + ", not " +
                              wanted + digits + ".");
        }
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

void SetPath(std::vector<PathElement> elements) {
    PathElements = std::move(elements);
    PathCount = static_cast<std::int16_t>(PathElements.size() - 1);
}

void ParseDuctPath(std::string& path) {
    std::vector<PathElement> elements(1);
    std::string_view rest = path;
    TakeAllOf(kBlanks, rest);
    // Digits without an end are no number yet.
    while (rest.find_first_not_of(kDigits, StartsWithLabel(rest) ? 1 : 0) != std::string_view::npos) {
        if (!StartsWithDigit(rest) && !StartsWithLabel(rest)) {
            Fail(PieceAround(path, path.size() - rest.size()), "has a separator without a number before it.");
        }
        if (elements.size() > static_cast<std::size_t>(std::numeric_limits<std::int16_t>::max())) {
            Fail(path, "lists more than 32767 ducts.");
        }
        elements.push_back(CopyOf(TakeElement(rest), elements.size()));
        TakeSeparator(rest);
    }
    SetPath(std::move(elements));
    path.clear();
}

} // namespace plenair
