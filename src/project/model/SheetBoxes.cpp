#include "project/model/SheetBoxes.h"

#include "platform/text/NumberText.h"

namespace plenair {

namespace {

std::optional<double> NumberIn(const std::string& text, double) {
    return NumberFromText(text);
}

std::optional<float> NumberIn(const std::string& text, float) {
    return SingleFromText(text);
}

// Calls `use` with the member that the box stands for, of 64 or of 32 bits.
template <typename Use>
auto WithField(SheetBox box, Use use) {
    return std::visit(use, RowOf(box).Field);
}

} // namespace

std::optional<SheetBox> BoxAbove(SheetBox box) {
    const std::size_t position = PositionOf(box);
    return position == 0 ? std::nullopt : std::optional(kSheetRows[position - 1].Box);
}

std::optional<SheetBox> BoxBelow(SheetBox box) {
    const std::size_t below = PositionOf(box) + 1;
    return below == kSheetRows.size() ? std::nullopt : std::optional(kSheetRows[below].Box);
}

bool TakesInput(float colour, SheetBox box) {
    return TypeOf(colour) == ElementType::Connection ? RowOf(box).ConnectionTakesInput
                                                     : RowOf(box).DuctTakesInput;
}

std::string TextOf(const DuctRecord& duct, SheetBox box) {
    return WithField(box, [&](auto field) { return ShortestText(duct.*field); });
}

bool StoreText(DuctRecord& duct, SheetBox box, const std::string& text) {
    return WithField(box, [&](auto field) {
        const auto number = NumberIn(text, duct.*field);
        duct.*field = number.value_or(duct.*field);
        return number.has_value();
    });
}

void CopyValue(DuctRecord& to, const DuctRecord& from, SheetBox box) {
    WithField(box, [&](auto field) { to.*field = from.*field; });
}

} // namespace plenair
