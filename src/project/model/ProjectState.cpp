#include "project/model/ProjectState.h"

#include "platform/files/FileFailure.h"
#include "project/model/ProjectModel.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

// The content is a row of 64-bit words in the byte order of the machine: mark, sum of all words after it,
// then flags, name, folder, number of elements, and the bits of each. A text is its length and its bytes,
// filled up to whole words.
namespace plenair {

namespace {

constexpr std::uint64_t kMark = 0x31'59'52'56'43'45'52'50; // a new form takes another one
constexpr std::size_t kWord = sizeof(std::uint64_t);
constexpr std::size_t kHeader = 2 * kWord;
constexpr std::uint64_t kSolvedBit = 1;
constexpr std::uint64_t kPressureBit = 2;

void Append(std::string& content, std::uint64_t word) {
    char bytes[kWord];
    std::memcpy(bytes, &word, kWord);
    content.append(bytes, kWord);
}

void Append(std::string& content, const std::string& text) {
    Append(content, text.size());
    content += text;
    content.resize((content.size() + kWord - 1) / kWord * kWord);
}

std::uint64_t WordAt(std::string_view content, std::size_t at) {
    std::uint64_t word = 0;
    std::memcpy(&word, content.data() + at, kWord);
    return word;
}

// Of all that follows the header. A change of any word changes it.
std::uint64_t SumOf(std::string_view content) {
    std::uint64_t sum = 0xCBF29CE484222325;
    for (std::size_t at = kHeader; at < content.size(); at += kWord) {
        sum = (sum ^ WordAt(content, at)) * 0x100000001B3;
        sum ^= sum >> 32;
    }
    return sum;
}

void Require(bool isWhole) {
    if (!isWhole) {
        throw ContentFailure();
    }
}

// Each of these takes its part off the front of the content.
std::string_view Take(std::string_view& content, std::size_t size) {
    Require(size <= content.size());
    const std::string_view taken = content.substr(0, size);
    content.remove_prefix(size);
    return taken;
}

std::uint64_t TakeWord(std::string_view& content) {
    return WordAt(Take(content, kWord), 0);
}

std::string TakeText(std::string_view& content) {
    const std::uint64_t size = TakeWord(content);
    Require(size <= content.size());
    return std::string(Take(content, (size + kWord - 1) / kWord * kWord).substr(0, size));
}

} // namespace

void TakeState(const ProjectState& state) {
    DuctCount = static_cast<std::int16_t>(state.Elements.size() - 1);
    FitDucts();
    std::transform(state.Elements.begin(), state.Elements.end(), Ducts.begin(), DuctOf);
    Solved = state.IsSolved ? kFlagSet : kFlagClear;
    ProjectName = state.Name;
}

std::string KeptContent(const ProjectState& state, const std::string& folder) {
    std::string content;
    content.reserve(state.Elements.size() * sizeof(DuctBits) + state.Name.size() + folder.size() +
                    16 * kWord);
    Append(content, kMark);
    Append(content, std::uint64_t{0}); // the sum, when all the rest is there
    Append(content, (state.IsSolved ? kSolvedBit : 0) | (state.PressureShown ? kPressureBit : 0));
    Append(content, state.Name);
    Append(content, folder);
    Append(content, state.Elements.size());
    for (const DuctBits& element : state.Elements) {
        for (const std::uint64_t word : element) {
            Append(content, word);
        }
    }
    const std::uint64_t sum = SumOf(content);
    std::memcpy(content.data() + kWord, &sum, kWord);
    return content;
}

KeptProject ReadKept(std::string_view content) {
    Require(content.size() % kWord == 0);
    std::string_view rest = content;
    Require(TakeWord(rest) == kMark);
    Require(TakeWord(rest) == SumOf(content));
    KeptProject kept;
    const std::uint64_t flags = TakeWord(rest);
    kept.State.IsSolved = (flags & kSolvedBit) != 0;
    kept.State.PressureShown = (flags & kPressureBit) != 0;
    kept.State.Name = TakeText(rest);
    kept.Folder = TakeText(rest);
    const std::uint64_t elements = TakeWord(rest);
    Require(elements >= 1 && elements <= std::size_t{kMostDucts} + 1);
    kept.State.Elements.resize(elements);
    for (DuctBits& element : kept.State.Elements) {
        std::generate(element.begin(), element.end(), [&] { return TakeWord(rest); });
    }
    Require(rest.empty());
    return kept;
}

} // namespace plenair
