#include "project/ProjectFiles.h"
#include "project/FakeWindows.h"
#include "project/model/DuctBits.h"
#include "project/model/ProjectBlocks.h"

#include <ctime>

#include <sys/resource.h>

namespace {

class ProjectFilesTest : public ProjectTest {
  protected:
    // A solved project of one duct.
    void Prepare() {
        StartProject();
        Add(kRigidColour);
        Play("Redraw");
        Solved = kFlagSet;
        ProjectName = "before.gsp";
        Settings.DefPath = "/before";
    }
};

std::string Block(int marker, const std::string& numbers) {
    std::string block = "\"\xA4" + std::to_string(marker) + "\"\r\n";
    std::istringstream items(numbers);
    for (std::string number; items >> number;) {
        block += number + "\r\n";
    }
    return block;
}

std::string Repeated(const std::string& piece, std::size_t bytes) {
    std::string text;
    while (text.size() < bytes) {
        text += piece;
    }
    return text;
}

const std::string kZeros = Block(0, "0 0 0 0 0 0 0 0 0 0 0 0 0 0");
const std::string kOne = Block(1, "255 0 0.25 0.5 0 100 200 3000 0.8 0 0.025 0.1 5 0");
const std::string kTwo = Block(2, "1.671168E+07 0 0.5 0.5 0 50 150 1000 0.7 0.5 0.25 0.5 4 0");

TEST_F(ProjectFilesTest, FileHasTheseBytes) {
    EXPECT_EQ(ProjectText(), kZeros); // an empty project is one block
    const double length = 12345678.25;
    Add({kFlexibleColour, 0.025, 1.0 / 3, 0.5, 1, 0.1F, -2.5F, length, 1E-20, 200, 1E15, 5.05, 0.8, 1250});
    SetNumberLocale({",", "."}); // files have a point in every locale
    ProjectName = "old.gsp";
    Play("?=plant ?Ok Save"); // gets its extension
    const std::string numbers = "1.671168E+07 -2.5 0.5 1 1E+15 1250 200 12345678.25 0.8 0.1 0.025 "
                                "0.333333333333333 5.05 1E-20";
    EXPECT_EQ(ReadFile(File("plant.gsp")), kZeros + Block(1, numbers));
    const DuctRecord before = Duct(1);
    Play("?Yes ?=plant.gsp Load");
    EXPECT_NEAR(Duct(1).StartY, before.StartY, 1E-15);
    Duct(1).StartY = before.StartY;
    EXPECT_EQ(BitsOf(Duct(1)), BitsOf(before));
}

TEST_F(ProjectFilesTest, LoadedProjectIsOpenAndShown) {
    Prepare();
    Play("?No Load | state: 1 of before.gsp, solved");
    // Lines between the blocks are passed over, to a megabyte of them.
    WriteFile(File("read.gsp"), kZeros + kOne + Repeated("remark,1\r\n", 1'000'000) + kTwo);
    Play("?Yes ?=read.gsp Load | state: 2 of read.gsp, sheet; sheet: 100 0 200 3000 5 0.8 0 0");
    EXPECT_EQ(ProjectText(), kZeros + kOne + kTwo);
    EXPECT_EQ(Settings.DefPath, environment.Folder().Path());
    EXPECT_EQ(Drawn().back(), "text F2: 5685,5235");
    WriteFile(File("read.gsp"), kZeros);
    Play("?Yes ?=read.gsp Load | state: 0 of read.gsp, sheet");
    EXPECT_EQ(sheet.maximum, 1);
}

TEST_F(ProjectFilesTest, WithoutABlockTheProjectIsEmptied) {
    WriteFile(File("far.gsp"), Repeated("remark,1\r\n", 1'100'000) + kZeros + kOne);
    WriteFile(File("zeros.gsp"), "");
    fs::resize_file(File("zeros.gsp"), 1 << 30);
    fs::create_directory(File("folder.gsp"));
    for (const std::string name : {"?-", "?=missing.gsp", "?=far.gsp", "?=zeros.gsp", "?=folder.gsp"}) {
        Prepare();
        Play("?Yes " + name + " Load | state: 0");
        EXPECT_EQ(Ducts.size(), 1U);
        EXPECT_EQ(Drawn(), Lines());
    }
}

TEST_F(ProjectFilesTest, FileThatBreaksOffKeepsWhatWasRead) {
    const std::string read = kZeros + kOne + Block(2, "255 0 0.5");
    Prepare();
    WriteFile(File("read.gsp"), read);
    Play("?Yes ?=read.gsp Load | state: 2 of read.gsp, solved"); // the remaining steps are left out
    EXPECT_EQ(sheet.maximum, 2);
    EXPECT_EQ(ProjectText().substr(0, read.size()), read);
    EXPECT_EQ(Ducts[2].StartX, 0);
    EXPECT_EQ(Settings.DefPath, "/before");
    AddDucts(kMostDucts);
    const std::string text = ProjectText();
    for (const bool oneMore : {false, true}) {
        StartProject();
        Settings.DefPath = "/before";
        WriteFile(File("read.gsp"), oneMore ? text + kOne : text);
        Play(std::string("?=read.gsp Load | state: 32767 of read.gsp") + (oneMore ? "" : ", sheet"));
        EXPECT_EQ(Ducts.size(), 32768U);
        EXPECT_EQ(Settings.DefPath == "/before", oneMore);
    }
}

TEST_F(ProjectFilesTest, LongWorkCanBeCancelled) {
    int cancelAt = 0;
    std::string shown;
    Desktop().StartProgress = [&](const ProgressRequest& request) {
        shown = request.Title + ": " + request.Text + " of " + std::to_string(request.Steps) + " kB";
        return [&](int done) { return done <= cancelAt; };
    };
    AddDucts(2000);
    const std::string text = ProjectText();
    WriteFile(File("plant.gsp"), text);
    const std::string size = " plant.gsp of " + std::to_string(text.size() / 1024) + " kB";
    for (const int at : {-1, 8, 1000}) { // at once, when a part is read, not at all
        const bool isDone = at == 1000;
        cancelAt = at;
        ProjectName = "before.gsp";
        Play("Redraw ?Yes ?=plant.gsp Load");
        EXPECT_EQ(shown, "Load Project: Opening" + size);
        EXPECT_EQ(Ask("state"), isDone ? "2000 of plant.gsp, sheet" : "0");
        EXPECT_EQ(Drawn().empty(), !isDone);
        AddDucts(2000);
        Duct(1).Flow = 1;
        Play(isDone ? "?=plant.gsp ?Ok Save" : "?=plant.gsp Save");
        EXPECT_EQ(shown, "Save: Saving" + size);
        EXPECT_EQ(ReadFile(File("plant.gsp")), isDone ? ProjectText() : text);
    }
}

// A file that the next solution's report would replace is saved only after a question.
TEST_F(ProjectFilesTest, ProjectsThatAreTheirOwnReport) {
    fs::create_symlink("plant.Gus", File("link.gsp"));
    fs::create_symlink(File("target.gsp"), File("target.Gus"));
    WriteFile(File("target.gsp"), "");
    WriteFile(File("plant.Gus"), "");
    const std::pair<std::string, bool> rows[] = {
        {"new.Gus", true},    {"new.GUS", true},    {"new.gsp", false},
        {"plant.Gus", true},  {"link.gsp", false},  {"plan.Gusto", false},
        {"target.gsp", true}, {"target.Gus", true}, {"Gus", false}};
    for (const auto& [name, asks] : rows) {
        ProjectName = "before.gsp";
        RunFailed = kFlagSet;
        if (asks) {
            Play("?=" + name + " ?No ?- Save | state: 0 of before.gsp");
            EXPECT_EQ(desktop.LastDialog().FileName, name) << "offered again";
            EXPECT_EQ(desktop.LastDialog().InitDir, environment.Folder().Path());
            EXPECT_EQ(RunFailed, kFlagSet);
        }
        Play("?=" + name + (asks ? " ?Yes" : "") + " ?Ok Save");
        EXPECT_EQ(ReadFile(File(ProjectName)), ProjectText());
        EXPECT_EQ(RunFailed, kFlagClear);
    }
}
// Processor time, which a busy machine doesn't lengthen.
TEST_F(ProjectFilesTest, TenMegabytesOfAnythingLoadInASecond) {
#ifdef NDEBUG
    constexpr double kSeconds = 1;
#else
    constexpr double kSeconds = 10;
#endif
    const auto peak = [] {
        rusage usage{};
        getrusage(RUSAGE_SELF, &usage);
        return usage.ru_maxrss; // KiB
    };
    for (const std::string& piece :
         {kOne, "\xA4" + std::string(15, ','), Block(0, "1 2 3"), std::string("\xA4\r\n"), std::string("\""),
          std::string(","), std::string(" "), std::string(60'000, '1') + ",", std::string("\0\n", 2)}) {
        StartProject();
        WriteFile(File("large.gsp"), Repeated(piece, 10'000'000));
        const auto memory = peak();
        const std::clock_t start = std::clock();
        Play("?=large.gsp Load");
        EXPECT_LT(static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC, kSeconds)
            << piece.substr(0, 100);
        EXPECT_LT(peak() - memory, 100'000) << piece.substr(0, 100);
    }
}

TEST_F(ProjectFilesTest, ReportNames) {
    const std::pair<const char*, const char*> rows[] = {
        {"plant.gsp", "plant.Gus"}, {"plant.d", "pla.Gus"},
        {"abc", "abc.Gus"},         {"", ".Gus"},
        {".gsp", ".Gus"},           {"Lüftung.gsp", "Lüftung.Gus"},
        {"üöä", "üöä.Gus"},         {"Nordflügel", "Nordfl.Gus"}};
    for (const auto& [project, report] : rows) {
        EXPECT_EQ(ReportName(project), report);
    }
}

} // namespace
