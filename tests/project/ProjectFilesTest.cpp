#include "project/ProjectFiles.h"
#include "project/FakeWindows.h"
#include "project/model/DuctBits.h"
#include "project/model/ProjectBlocks.h"

#include <ctime>

#include <sys/resource.h>

namespace {

class ProjectFilesTest : public ProjectTest {
  protected:
    void Save(const std::string& name) {
        desktop.ExpectFile(File(name));
        desktop.ExpectMessage(MessageAnswer::Ok);
        SaveProject(windows);
    }

    // Loads over whatever stands there.
    void Load(const std::string& name) {
        if (DuctCount > 0) {
            desktop.ExpectMessage(MessageAnswer::Yes);
        }
        desktop.ExpectFile(name.empty() ? name : File(name)); // Cancel where there is no name
        LoadProject(windows);
    }

    // A solved project of one duct.
    void Prepare() {
        StartProject();
        Add(kRigidColour);
        RedrawProject(windows);
        Solved = kFlagSet;
        ProjectName = "before.gsp";
        Settings.DefPath = "/before";
    }
    std::string State() const {
        return std::to_string(DuctCount) + " ducts of " + ProjectName +
               (Solved == kFlagSet ? ", solved" : "") + (sheet.visible ? ", sheet" : "");
    }

    void LoadText(const std::string& text) {
        WriteFile(File("read.gsp"), text);
        Load("read.gsp");
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

// So many bytes of lines that are no block.
std::string Remarks(std::size_t bytes) {
    std::string remarks;
    while (remarks.size() < bytes) {
        remarks += "remark,1\r\n";
    }
    return remarks;
}

const std::string kZeros = "0 0 0 0 0 0 0 0 0 0 0 0 0 0";
const std::string kOne = "255 0 0.25 0.5 0 100 200 3000 0.8 0 0.025 0.1 5 0";
const std::string kTwo = "1.671168E+07 0 0.5 0.5 0 50 150 1000 0.7 0.5 0.25 0.5 4 0";

TEST_F(ProjectFilesTest, FileHasTheseBytes) {
    EXPECT_EQ(ProjectText(), Block(0, kZeros)); // an empty project is one block
    const double length = 12345678.25;
    Add({kFlexibleColour, 0.025, 1.0 / 3, 0.5, 1, 0.1F, -2.5F, length, 1E-20, 200, 1E15, 5.05, 0.8, 1250});
    SetNumberLocale({",", "."}); // files have a point in every locale
    ProjectName = "old.gsp";
    Save("plant"); // gets its extension
    const std::string numbers = "1.671168E+07 -2.5 0.5 1 1E+15 1250 200 12345678.25 0.8 0.1 0.025 "
                                "0.333333333333333 5.05 1E-20";
    EXPECT_EQ(ReadFile(File("plant.gsp")), Block(0, kZeros) + Block(1, numbers));
    const DuctRecord before = Duct(1);
    Load("plant.gsp");
    EXPECT_NEAR(Duct(1).StartY, before.StartY, 1E-15);
    Duct(1).StartY = before.StartY;
    EXPECT_EQ(BitsOf(Duct(1)), BitsOf(before));
}

TEST_F(ProjectFilesTest, LoadedProjectIsOpenAndShown) {
    Prepare();
    desktop.ExpectMessage(MessageAnswer::No);
    EXPECT_FALSE(LoadProject(windows));
    EXPECT_EQ(State(), "1 ducts of before.gsp, solved");
    LoadText(Block(0, kZeros) + Block(1, kOne) + Block(2, kTwo));
    EXPECT_EQ(State(), "2 ducts of read.gsp, sheet");
    EXPECT_EQ(ProjectText(), ReadFile(File("read.gsp")));
    EXPECT_EQ(Settings.DefPath, environment.Folder().Path());
    EXPECT_EQ(sheet.AllTexts(), "100 0 200 3000 5 0.8 0 0");
    EXPECT_EQ(Described(solver.picGrid).back(), "text F2: 5685,5235");
}

TEST_F(ProjectFilesTest, WithoutABlockTheProjectIsEmptied) {
    WriteFile(File("empty.gsp"), "");
    WriteFile(File("text.gsp"), "nothing\r\nof use, here\r\n");
    WriteFile(File("marker.gsp"), Block(0, ""));
    WriteFile(File("far.gsp"), Remarks(1'100'000) + Block(0, kZeros) + Block(1, kOne));
    WriteFile(File("zeros.gsp"), "");
    fs::resize_file(File("zeros.gsp"), 1 << 30);
    fs::create_directory(File("folder.gsp"));
    for (const std::string name :
         {"", "missing.gsp", "empty.gsp", "text.gsp", "marker.gsp", "far.gsp", "zeros.gsp", "folder.gsp"}) {
        SCOPED_TRACE(name);
        Prepare();
        Load(name);
        EXPECT_EQ(State(), "0 ducts of ");
        EXPECT_EQ(Ducts.size(), 1U);
        EXPECT_EQ(Described(solver.picGrid).size(), GridLines);
    }
}

TEST_F(ProjectFilesTest, DamagedFiles) {
    const std::string good = Block(0, kZeros) + Block(1, kOne);
    const std::string broken = "1 2 3 4 5 x 7 8 nan 10 0x11 inf 1,4"; // a comma ends a number as well
    const std::string shifted = "0 255 0 0.25 0.5 0 100 200 3000 0.8 0 0.025 0.1 5";
    const struct {
        const char* name;
        std::string text;
        std::int16_t last;
        std::string numbers; // of the last element
    } rows[] = {
        {"lines ahead", "Project\r\n,,\r\n\r\n" + good, 1, kOne},
        {"lines between, and the last of a megabyte", Block(0, kZeros) + Remarks(1'000'000) + Block(1, kOne),
         1, kOne},
        {"a megabyte without a block is the end", Block(0, kOne) + Remarks(1'100'000) + Block(1, kTwo), 0,
         kOne},
        {"markers out of order", Block(9, kZeros) + Block(4, kOne), 1, kOne},
        {"marker missing", Block(0, kZeros) + Block(1, kOne).substr(6) + Block(2, kTwo), 1, kTwo},
        {"marker doubled", Block(0, kZeros) + Block(1, "") + Block(1, kOne), 1, shifted},
        {"text for numbers", good + Block(2, broken), 2, "1 2 3 4 5 0 7 8 0 10 0 0 1 4"},
        {"blanks and commas", "\"\xA4\"\n 255 ,0,.25\t0.5 0 100\r200,3E3 8E-1 0 .025 +.1 5 0", 0, kOne},
        {"lone LF and CR", "\xA4\n255\n0\n0.25\n0.5\n0\n100\n200\r3000\r0.8\r0\r0.025\r0.1\r5\r0\r", 0, kOne},
        {"line missing", Block(0, "1 2 3") + Block(1, kOne) + Block(2, kTwo), 1, kTwo},
        {"too small is 0", Block(0, "1E-60 1E-60 1E-400 1E-99999999999 0 0 0 0 0 0 0 0 0 0"), 0, kZeros}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        LoadText(row.text);
        EXPECT_EQ(DuctCount, row.last);
        EXPECT_TRUE(ProjectText().ends_with(Block(row.last, row.numbers))) << ProjectText();
        EXPECT_EQ(Ducts.size(), static_cast<std::size_t>(DuctCount) + 1);
    }
}

TEST_F(ProjectFilesTest, FileThatBreaksOffKeepsWhatWasRead) {
    const std::string start = Block(0, kZeros) + Block(1, kOne);
    const std::pair<const char*, std::string> rows[] = {
        {"cut", Block(2, "16711680 0 0.5")},
        {"too large", Block(2, "16711680 0 0.5 1E400 1 2 3")},
        {"too large for its field", "\"\xA4\"\r\n16711680,0,.5,0,0,0,0,0,0,1E39,1"},
        {"endless item", Block(2, "16711680 0 0.5") + std::string(100000, '0')}};
    for (const auto& [name, rest] : rows) {
        SCOPED_TRACE(name);
        Prepare();
        LoadText(start + rest);
        EXPECT_EQ(State(), "2 ducts of read.gsp, solved"); // the remaining steps are left out
        const std::string read = start + Block(2, "1.671168E+07 0 0.5 ");
        EXPECT_EQ(ProjectText().substr(0, read.size()), read);
        EXPECT_EQ(Ducts[2].StartX, 0);
        EXPECT_EQ(Settings.DefPath, "/before");
    }
    DuctCount = kMostDucts;
    FitDucts();
    const std::string text = ProjectText();
    for (const bool oneMore : {false, true}) {
        StartProject();
        Settings.DefPath = "/before";
        LoadText(oneMore ? text + Block(32768, kOne) : text);
        EXPECT_EQ(DuctCount, kMostDucts);
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
    const auto makeLarge = [] {
        DuctCount = 2000;
        FitDucts();
        return ProjectText();
    };
    const std::string text = makeLarge();
    WriteFile(File("plant.gsp"), text);
    const std::string size = " plant.gsp of " + std::to_string(text.size() / 1024) + " kB";
    for (const int at : {-1, 8, 1000}) { // at once, when a part is read, not at all
        SCOPED_TRACE(at);
        const bool isDone = at == 1000;
        cancelAt = at;
        ProjectName = "before.gsp";
        RedrawProject(windows);
        Load("plant.gsp");
        EXPECT_EQ(shown, "Load Project: Opening" + size);
        EXPECT_EQ(State(), isDone ? "2000 ducts of plant.gsp, sheet" : "0 ducts of ");
        EXPECT_EQ(solver.picGrid.Items().size() > GridLines, isDone);
        makeLarge();
        Duct(1).Flow = 1;
        desktop.ExpectFile(File("plant.gsp"));
        if (isDone) {
            desktop.ExpectMessage(MessageAnswer::Ok);
        }
        EXPECT_EQ(SaveProject(windows), isDone);
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
    const std::pair<const char*, bool> rows[] = {
        {"new.Gus", true},    {"new.GUS", true},    {"new.gsp", false},
        {"plant.Gus", true},  {"link.gsp", false},  {"plan.Gusto", false},
        {"target.gsp", true}, {"target.Gus", true}, {"Gus", false}};
    for (const auto& [name, asks] : rows) {
        SCOPED_TRACE(name);
        ProjectName = "before.gsp";
        RunFailed = kFlagSet;
        desktop.ExpectFile(File(name));
        if (asks) {
            desktop.ExpectMessage(MessageAnswer::No);
            desktop.ExpectCancel();
            EXPECT_FALSE(SaveProject(windows));
            EXPECT_EQ(desktop.LastDialog().FileName, name) << "offered again";
            EXPECT_EQ(desktop.LastDialog().InitDir, environment.Folder().Path());
            EXPECT_EQ(ProjectName, "before.gsp");
            EXPECT_EQ(RunFailed, kFlagSet);
            desktop.ExpectFile(File(name));
            desktop.ExpectMessage(MessageAnswer::Yes);
        }
        desktop.ExpectMessage(MessageAnswer::Ok); // saved
        EXPECT_TRUE(SaveProject(windows));
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
         {Block(1, kOne), "\xA4" + std::string(15, ','), Block(0, "1 2 3"), std::string("\xA4\r\n"),
          std::string("\""), std::string(","), std::string(" "), std::string(60'000, '1') + ",",
          std::string("\0\n", 2)}) {
        std::string text;
        while (text.size() < 10'000'000) {
            text += piece;
        }
        StartProject();
        WriteFile(File("large.gsp"), text);
        const auto memory = peak();
        const std::clock_t start = std::clock();
        Load("large.gsp");
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
