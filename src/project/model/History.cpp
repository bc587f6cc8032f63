#include "project/model/History.h"

#include "project/model/DuctBits.h"
#include "project/model/DuctRecord.h"
#include "project/model/NetworkChange.h"
#include "project/model/PackedWords.h"
#include "project/model/ProjectModel.h"

#include <algorithm>
#include <array>
#include <deque>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace plenair {

namespace {

constexpr std::size_t kStepsToShareWith = 16;

// How one word of the elements differs between two states, from element First on: the exclusive or of both
// states, which leads from either to the other. An element that one state hasn't counts as all zero there.
struct Column {
    std::size_t Word;
    std::size_t First;
    PackedWords Difference;

    bool operator==(const Column&) const = default;
};

// One step. Beside the columns it holds what the state on its other side has; crossing it swaps that with the
// project's. Repeated actions, such as loading one project again and again, share their columns.
struct Step {
    std::vector<std::shared_ptr<const Column>> Columns;
    std::int16_t FirstDuct = 0;
    std::int16_t OtherCount = 0;
    bool OtherSolved = false;
    bool OtherPressureShown = false;
    std::optional<std::string> OtherName;
};

struct History {
    std::deque<Step> Steps;
    std::size_t Done = 0; // the steps from this one on have been undone
    std::size_t Bytes = 0;
    ProjectState Noted;
};

History s_history;

std::size_t BytesOf(const Step& step) {
    std::size_t bytes = sizeof step + (step.OtherName ? step.OtherName->capacity() : 0);
    for (const auto& column : step.Columns) {
        // A shared column counts for the first step that has it, and is freed with the last.
        bytes += sizeof column + (column.use_count() == 1 ? BytesOf(column->Difference) + sizeof *column : 0);
    }
    return bytes;
}

// Takes the project as the state after the step done last; of the elements only these may differ from it.
void NoteState(bool pressureShown, std::size_t first, std::size_t last) {
    ProjectState& noted = s_history.Noted;
    noted.Elements.resize(Ducts.size());
    for (std::size_t element = first; element < std::min(last + 1, Ducts.size()); ++element) {
        noted.Elements[element] = BitsOf(Ducts[element]);
    }
    noted.IsSolved = Solved != kFlagClear;
    noted.Name = ProjectName;
    noted.PressureShown = pressureShown;
}

// The elements from First to Last differ in one word at least.
struct Changes {
    std::size_t First = 0;
    std::size_t Last = 0;
    std::array<bool, std::tuple_size_v<DuctBits>> Words{};
    bool Any() const { return std::find(Words.begin(), Words.end(), true) != Words.end(); }
};

DuctBits Before(std::size_t element) {
    return element < s_history.Noted.Elements.size() ? s_history.Noted.Elements[element] : DuctBits{};
}

DuctBits Present(std::size_t element) {
    return element < Ducts.size() ? BitsOf(Ducts[element]) : DuctBits{};
}

Changes FindChanges(std::size_t first) {
    Changes changes;
    const std::size_t elements = std::max(Ducts.size(), s_history.Noted.Elements.size());
    for (std::size_t element = first; element < elements; ++element) {
        const DuctBits before = Before(element);
        const DuctBits present = Present(element);
        if (before == present) {
            continue;
        }
        changes.First = changes.Any() ? changes.First : element;
        changes.Last = element;
        for (std::size_t word = 0; word < present.size(); ++word) {
            changes.Words[word] = changes.Words[word] || before[word] != present[word];
        }
    }
    return changes;
}

// One of the last steps may have the same column.
std::shared_ptr<const Column> Share(Column column) {
    const auto& steps = s_history.Steps;
    for (std::size_t back = 1; back <= std::min(steps.size(), kStepsToShareWith); ++back) {
        for (const auto& known : steps[steps.size() - back].Columns) {
            if (*known == column) {
                return known;
            }
        }
    }
    return std::make_shared<const Column>(std::move(column));
}

std::shared_ptr<const Column> ColumnOf(std::size_t word, const Changes& changes) {
    std::vector<std::uint64_t> difference;
    difference.reserve(changes.Last - changes.First + 1);
    for (std::size_t element = changes.First; element <= changes.Last; ++element) {
        difference.push_back(Before(element)[word] ^ Present(element)[word]);
    }
    return Share({word, changes.First, Pack(difference)});
}

void ForgetUndone() {
    while (s_history.Steps.size() > s_history.Done) {
        s_history.Bytes -= BytesOf(s_history.Steps.back());
        s_history.Steps.pop_back();
    }
}

void ForgetOldest() {
    while (s_history.Bytes > kMostHistory && s_history.Done > 1) {
        s_history.Bytes -= BytesOf(s_history.Steps.front());
        s_history.Steps.pop_front();
        --s_history.Done;
    }
}

void ApplyColumn(const Column& column) {
    for (std::size_t place = 0; place < column.Difference.Size; ++place) {
        const std::uint64_t difference = WordAt(column.Difference, place);
        if (difference != 0) {
            DuctRecord& duct = Ducts[column.First + place];
            DuctBits bits = BitsOf(duct);
            bits[column.Word] ^= difference;
            duct = DuctOf(bits);
        }
    }
}

SteppedTo Cross(Step& step) {
    const std::int16_t target = std::exchange(step.OtherCount, DuctCount);
    if (target > DuctCount) {
        DuctCount = target;
        FitDucts();
    }
    for (const auto& column : step.Columns) {
        ApplyColumn(*column);
        if (column->Word < kWordsOfPlace) {
            NoteNetworkChange();
        }
    }
    if (target < DuctCount) {
        DuctCount = target;
        FitDucts();
    }
    const bool wasSolved = Solved != kFlagClear;
    Solved = std::exchange(step.OtherSolved, wasSolved) ? kFlagSet : kFlagClear;
    if (step.OtherName) {
        std::swap(ProjectName, *step.OtherName);
    }
    const bool pressureShown = std::exchange(step.OtherPressureShown, s_history.Noted.PressureShown);
    NoteState(pressureShown, 0, Ducts.size());
    return {IsDuct(step.FirstDuct) ? step.FirstDuct : std::int16_t{0}, pressureShown};
}

} // namespace

void StartHistory(bool pressureShown) {
    s_history = {};
    NoteState(pressureShown, 0, Ducts.size());
}

void EndHistory() {
    s_history = {};
}

bool NoteStep(bool pressureShown, std::int16_t first) {
    const Changes changes = FindChanges(static_cast<std::size_t>(first));
    const bool isSolved = Solved != kFlagClear;
    const bool renamed = ProjectName != s_history.Noted.Name;
    if (!changes.Any() && Ducts.size() == s_history.Noted.Elements.size() &&
        isSolved == s_history.Noted.IsSolved && !renamed) {
        s_history.Noted.PressureShown = pressureShown;
        return false;
    }
    ForgetUndone();
    Step step;
    for (std::size_t word = 0; word < changes.Words.size(); ++word) {
        if (changes.Words[word]) {
            step.Columns.push_back(ColumnOf(word, changes));
        }
    }
    step.FirstDuct = static_cast<std::int16_t>(std::max<std::size_t>(changes.First, 1));
    step.OtherCount = static_cast<std::int16_t>(s_history.Noted.Elements.size() - 1);
    step.OtherSolved = s_history.Noted.IsSolved;
    step.OtherPressureShown = s_history.Noted.PressureShown;
    if (renamed) {
        step.OtherName = s_history.Noted.Name;
    }
    s_history.Bytes += BytesOf(step);
    s_history.Steps.push_back(std::move(step));
    s_history.Done = s_history.Steps.size();
    ForgetOldest();
    NoteState(pressureShown, changes.First, changes.Last);
    return true;
}

void NoteName() {
    s_history.Noted.Name = ProjectName;
}

std::optional<SteppedTo> UndoStep() {
    if (s_history.Done == 0) {
        return std::nullopt;
    }
    return Cross(s_history.Steps[--s_history.Done]);
}

std::optional<SteppedTo> RedoStep() {
    if (s_history.Done == s_history.Steps.size()) {
        return std::nullopt;
    }
    return Cross(s_history.Steps[s_history.Done++]);
}

const ProjectState& NotedState() {
    return s_history.Noted;
}

std::size_t HistoryBytes() {
    return s_history.Bytes + s_history.Noted.Elements.capacity() * sizeof(DuctBits);
}

} // namespace plenair
