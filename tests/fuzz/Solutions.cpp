#include "fuzz/Fuzz.h"
#include "project/CalculateMajorStuff.h"
#include "project/FakeWindows.h"
#include "project/ProjectFiles.h"
#include "project/model/ProjectBlocks.h"

// The whole way of a project: load, solve, save, and load the report.
namespace {

constexpr std::int16_t kMostSolved = 8; // of a duct that can't be solved each takes its time

} // namespace

FUZZER(solutions) {
    static const TemporaryFolder s_folder;
    static FakeSolver s_solver;
    static FakeSheet s_sheet;
    static const ProjectWindows s_windows{s_solver, s_sheet};
    static std::vector<std::string> s_paintings;
    s_paintings.clear();
    s_sheet.log = &s_paintings;
    s_sheet.windows = &s_windows;
    std::vector<std::string> told;
    Desktop().AskByMessageBox = [&](const MessageRequest& request) {
        told.push_back(request.Text);
        return request.Buttons == MessageButtons::OkCancel ? MessageAnswer::Ok : MessageAnswer::Yes;
    };
    Desktop().ShowDialog = [](DialogKind, CommonDialog& dialog) {
        dialog.FileName = s_folder.File("plant.gsp");
        return true;
    };
    Settings = {};
    StartProject();
    ResetProjectGrid(s_windows);
    WriteFile(s_folder.File("plant.gsp"), std::string(input));
    LoadProject(s_windows);
    REQUIRE(DuctCount >= 0);
    DuctCount = std::min(DuctCount, kMostSolved);
    FitDucts();
    const std::int16_t count = DuctCount;
    const std::string inputs = ProjectText();
    told.clear();
    const bool isSolved = SolveProject(s_windows);
    REQUIRE(DuctCount == count);
    if (count == 0) {
        REQUIRE(!isSolved && told.empty());
        return;
    }
    REQUIRE(ReadFile(s_folder.File("plant.gsp")) == inputs);
    REQUIRE(told.back() == "Plenair Solution Complete" ||
            told.back().find("Solution incomplete.") != std::string::npos);
    REQUIRE(isSolved == (Solved == kFlagSet) && isSolved == (told.back() == "Plenair Solution Complete"));
    if (isSolved) {
        const std::string results = ProjectText();
        REQUIRE(ReadFile(s_folder.File("plant.Gus")) == results);
        StartReading();
        ReadProjectText(s_folder.File("plant.Gus"));
        REQUIRE(ProjectText() == results);
    }
}
