#include "project/model/ProjectModel.h"

#include "project/model/NetworkChange.h"

#include <cstddef>

namespace plenair {

std::vector<DuctRecord> Ducts(1);
std::int16_t DuctCount = 0;
std::string ProjectName;
Flag Solved = kFlagClear;
Flag RunFailed = kFlagClear;
Flag DrawPending = kFlagClear;
Flag PlotShowing = kFlagClear;
float DrawColour = 0;

namespace {

std::uint64_t s_networkRevision = 0;

void ResizeDucts() {
    const auto size = static_cast<std::size_t>(DuctCount) + 1;
    if (size > Ducts.capacity()) {
        Ducts.reserve(2 * size);
    }
    Ducts.resize(size);
}

} // namespace

std::uint64_t NetworkRevision() {
    return s_networkRevision;
}

void NoteNetworkChange() {
    ++s_networkRevision;
}

DuctRecord& Duct(int number) {
    return Ducts[static_cast<std::size_t>(number)];
}

bool IsDuct(int duct) {
    return duct >= 1 && duct <= DuctCount;
}

void AddDuct(Point last, Point snapped, Extent surface) {
    ++DuctCount;
    ResizeDucts();
    DuctRecord& duct = Ducts.back();
    duct = {};
    duct.StartX = last.X / surface.Width;
    duct.StartY = last.Y / surface.Height;
    duct.EndX = snapped.X / surface.Width;
    duct.EndY = snapped.Y / surface.Height;
    duct.Colour = DrawColour;
}

void FitDucts() {
    ResizeDucts();
    NoteNetworkChange();
}

void ClearProject() {
    Solved = kFlagClear;
    ProjectName.clear();
    DuctCount = 0;
    Ducts.assign(1, {});
    NoteNetworkChange();
}

void StartProject() {
    ClearProject();
    RunFailed = kFlagClear;
    DrawPending = kFlagClear;
    PlotShowing = kFlagClear;
}

void StartReading() {
    DuctCount = -1;
    Ducts.assign(1, {});
}

void FollowOn(std::int16_t duct, SheetBox box) {
    if (!IsDuct(duct)) {
        return;
    }
    const DuctRecord& from = Duct(duct);
    for (int later = duct + 1; later <= DuctCount; ++later) {
        DuctRecord& to = Duct(later);
        if (TakesInput(to.Colour, box)) {
            CopyValue(to, from, box);
        }
    }
}

std::string DuctLabel(std::int16_t duct) {
    return TypeLetter(Duct(duct).Colour) + std::to_string(duct);
}

} // namespace plenair
