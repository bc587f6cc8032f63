#include "project/model/ProjectBlocks.h"

#include "platform/files/FileFailure.h"
#include "platform/files/ItemReader.h"
#include "platform/text/NumberText.h"
#include "project/model/DuctRecord.h"
#include "project/model/ProjectModel.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace plenair {

namespace {

constexpr char kMarker = '\xA4';
constexpr std::string_view kLineEnd = "\r\n";
constexpr std::uint64_t kFarthestMarker = 1'048'576; // bytes; a file that has none within so many has no more
constexpr std::size_t kUsualBlock = 160;             // bytes, for the reservation

// Calls `field` for each number of an element, in the order of the file.
template <typename Record, typename Field>
void ForEachNumber(Record& duct, Field field) {
    field(duct.Colour);
    field(duct.Spare);
    field(duct.EndX);
    field(duct.EndY);
    field(duct.EquivRound);
    field(duct.Flow);
    field(duct.Height);
    field(duct.Length);
    field(duct.LossPerMetre);
    field(duct.ConnCoefficient);
    field(duct.StartX);
    field(duct.StartY);
    field(duct.Velocity);
    field(duct.Width);
}

// Always with a point: files are the same in every locale.
template <typename Number>
void AppendNumber(std::string& text, Number value) {
    if (value == Number{0}) {
        text += '0';
    } else {
        text += ShortestText(value, Mark::Point);
    }
    text += kLineEnd;
}

bool SkipDigits(std::string_view& text) {
    const std::size_t digits = std::min(text.find_first_not_of("0123456789"), text.size());
    text.remove_prefix(digits);
    return digits > 0;
}

bool SkipOneOf(std::string_view& text, std::string_view characters) {
    const bool found = !text.empty() && characters.find(text.front()) != std::string_view::npos;
    text.remove_prefix(found ? 1 : 0);
    return found;
}

// Whether `text` is written as a number, be it too large for any format.
bool IsWrittenAsNumber(std::string_view text) {
    SkipOneOf(text, "+-");
    bool digits = SkipDigits(text);
    if (SkipOneOf(text, ".")) {
        digits = SkipDigits(text) || digits;
    }
    if (digits && SkipOneOf(text, "eE")) {
        SkipOneOf(text, "+-");
        digits = SkipDigits(text);
    }
    return digits && text.empty();
}

std::optional<double> Parse(std::string_view text, double) {
    return NumberFromText(text, Mark::Point);
}

std::optional<float> Parse(std::string_view text, float) {
    return SingleFromText(text, Mark::Point);
}

template <typename Number>
void ReadNumber(ItemReader& reader, Number& field) {
    const std::string text = reader.ReadNumberText();
    const std::optional<Number> number = Parse(text, field);
    if (!number && IsWrittenAsNumber(text)) {
        throw ContentFailure();
    }
    field = number.value_or(Number{0});
}

void ReadBlock(ItemReader& reader) {
    if (DuctCount == kMostDucts) {
        throw ContentFailure();
    }
    ++DuctCount;
    FitDucts();
    ForEachNumber(Ducts.back(), [&](auto& field) { ReadNumber(reader, field); });
}

} // namespace

std::string ProjectText() {
    std::string text;
    text.reserve(kUsualBlock * (static_cast<std::size_t>(DuctCount) + 1));
    for (int number = 0; number <= DuctCount; ++number) {
        text.append("\"").append(1, kMarker).append(std::to_string(number)).append("\"").append(kLineEnd);
        const DuctRecord& duct = Duct(number);
        ForEachNumber(duct, [&](auto value) { AppendNumber(text, value); });
    }
    return text;
}

void ReadProjectText(const std::string& path, const FileProgress& progress) {
    ItemReader reader(path, Quotes::Closes, progress);
    std::string item = reader.ReadText();
    std::uint64_t endOfBlock = 0;
    while (!reader.AtEnd() && reader.Position() - endOfBlock <= kFarthestMarker) {
        if (!item.empty() && item.front() == kMarker) {
            ReadBlock(reader);
            endOfBlock = reader.Position();
        }
        if (!reader.AtEnd()) {
            item = reader.ReadText();
        }
    }
}

} // namespace plenair
