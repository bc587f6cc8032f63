#include "project/FakeWindows.h"

#include "project/ProjectBlocks.h"
#include "project/ProjectFiles.h"

#include <filesystem>
#include <fstream>

namespace plenair {

namespace {

class ProjectFilesTest : public ProjectTest {
  protected:
    void Save(const std::string& name) {
        desktop.ExpectFile(File(name));
        desktop.ExpectMessage(MessageAnswer::Ok);
        SaveProject(windows);
    }

    // Loads over whatever stands there.
    void Load(const std::string& path) {
        if (DuctCount > 0) {
            desktop.ExpectMessage(MessageAnswer::Yes);
        }
        desktop.ExpectFile(path);
        LoadProject(windows);
    }

    void LoadText(const std::string& text) {
        WriteFile(File("read.gsp"), text);
        Load(File("read.gsp"));
    }

    void ExpectEmptied() {
        EXPECT_EQ(DuctCount, 0);
        EXPECT_EQ(Ducts.size(), 1U);
        EXPECT_EQ(Solved, FlagClear);
        EXPECT_EQ(ProjectName, "");
        EXPECT_EQ(sheet.caption, "1");
        EXPECT_EQ(solver.picGrid.Items().size(), GridLines);
        EXPECT_FALSE(sheet.visible);
    }

    // The numbers of an element in the order of the file.
    static std::string Numbers(const DuctRecord& duct) {
        std::string text =
            ShortestText(duct.Colour, Mark::Point) + " " + ShortestText(duct.Spare, Mark::Point);
        for (const double value : {duct.EndX, duct.EndY, duct.EquivRound, duct.Flow, duct.Height, duct.Length,
                                   duct.LossPerMetre}) {
            text += " " + ShortestText(value, Mark::Point);
        }
        text += " " + ShortestText(duct.ConnCoefficient, Mark::Point);
        for (const double value : {duct.StartX, duct.StartY, duct.Velocity, duct.Width}) {
            text += " " + ShortestText(value, Mark::Point);
        }
        return text;
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

const std::string kZeros = "0 0 0 0 0 0 0 0 0 0 0 0 0 0";
const std::string kOne = "255 0 0.25 0.5 0 100 200 3000 0.8 0 0.025 0.1 5 0";
const std::string kTwo = "1.671168E+07 0 0.5 0.5 0 50 150 1000 0.7 0.5 0.25 0.5 4 0";

} // namespace

TEST_F(ProjectFilesTest, FileHasTheseBytes) {
    Add(FlexibleColour) = {.Colour = FlexibleColour,
                           .StartX = 0.025,
                           .StartY = 1.0 / 3,
                           .EndX = 0.5,
                           .EndY = 1,
                           .ConnCoefficient = 0.1F,
                           .Spare = -2.5F,
                           .Length = 12345678.25,
                           .Width = 1E-20,
                           .Height = 200,
                           .EquivRound = 1E15,
                           .Velocity = 5.05,
                           .LossPerMetre = 0.8,
                           .Flow = 1250};
    Add(RigidColour);
    SetNumberLocale({",", "."}); // files have a point in every locale
    Save("plant.gsp");
    const std::string written = ReadFile(File("plant.gsp"));
    EXPECT_EQ(written, Block(0, kZeros) +
                           Block(1, "1.671168E+07 -2.5 0.5 1 1E+15 1250 200 12345678.25 0.8 0.1 0.025 "
                                    "0.333333333333333 5.05 1E-20") +
                           Block(2, "255 0 0 0 0 0 0 0 0 0 0 0 0 0"));
    EXPECT_EQ(std::count(written.begin(), written.end(), '\n'), 45);
}

TEST_F(ProjectFilesTest, EmptyProjectIsOneBlock) {
    EXPECT_EQ(ProjectText(), Block(0, kZeros));
}

TEST_F(ProjectFilesTest, ReadsBackWhatWasWritten) {
    const double values[] = {0,       1,     -1,   0.1,          1.0 / 3,  5.05,   100,
                             32767.5, 1E-10, 1E14, 999999999999, 1.5E+300, 1E-300, -12345.678901234};
    for (const double value : values) {
        Add(RigidColour) = {.Colour = RigidColour,
                            .StartX = value,
                            .ConnCoefficient = std::abs(value) < 1E38 ? static_cast<float>(value) : 0.0F,
                            .Length = value,
                            .Flow = -value};
    }
    const std::vector<DuctRecord> before = Ducts;
    Save("values.gsp");
    Load(File("values.gsp"));
    ASSERT_EQ(Ducts.size(), before.size());
    for (std::size_t element = 0; element < before.size(); ++element) {
        EXPECT_NEAR(Ducts[element].Length, before[element].Length, std::abs(before[element].Length) * 1E-14);
        EXPECT_EQ(Ducts[element].StartX, Ducts[element].Length);
        EXPECT_EQ(Ducts[element].Flow, -Ducts[element].Length);
        EXPECT_FLOAT_EQ(Ducts[element].ConnCoefficient, before[element].ConnCoefficient);
        EXPECT_EQ(Ducts[element].Colour, before[element].Colour);
    }
}

TEST_F(ProjectFilesTest, SavingSetsUpTheDialogAndTellsOfItself) {
    Settings.DefPath = "/somewhere";
    ProjectName = "old.gsp";
    RunFailed = FlagSet;
    Save("plant"); // gets its extension
    EXPECT_EQ(desktop.LastDialog().Flags, 2);
    EXPECT_EQ(desktop.LastDialog().DefaultExt, "gsp");
    EXPECT_EQ(desktop.LastDialog().InitDir, "/somewhere");
    EXPECT_EQ(desktop.LastDialog().FileName, "old.gsp");
    EXPECT_EQ(desktop.LastDialog().Filter, "Plenair Projects (*.gsp)|*.gsp|All Files (*.*)|*.*");
    EXPECT_EQ(ProjectName, "plant.gsp");
    EXPECT_EQ(Settings.DefPath, environment.Folder().Path());
    EXPECT_EQ(RunFailed, FlagClear);
    EXPECT_EQ(desktop.LastText(), "Plenair Project Saved");
    EXPECT_EQ(desktop.Messages().back().title, "Save");
    EXPECT_EQ(desktop.Messages().back().icon, MessageIcon::Exclamation);
}

TEST_F(ProjectFilesTest, FailedSavesAreSilentAndHarmless) {
    WriteFile(File("old.gsp"), "older");
    ProjectName = "old.gsp";
    RunFailed = FlagSet;
    desktop.ExpectCancel();
    SaveProject(windows);
    EXPECT_EQ(ProjectName, "old.gsp");

    std::filesystem::create_directory(File("folder.gsp"));
    desktop.ExpectFile(File("folder.gsp"));
    SaveProject(windows);
    EXPECT_EQ(ProjectName, "folder.gsp"); // the dialog was accepted

    desktop.ExpectFile(File("missing/plant.gsp"));
    SaveProject(windows);
    EXPECT_EQ(RunFailed, FlagSet);
    EXPECT_TRUE(desktop.Messages().empty());
    EXPECT_EQ(ReadFile(File("old.gsp")), "older");
}

TEST_F(ProjectFilesTest, LoadedProjectIsOpenAndShown) {
    WriteFile(File("net.gsp"), Block(0, kZeros) + Block(1, kOne) + Block(2, kTwo));
    Add(RigidColour);
    Solved = FlagSet;
    solver.pressureVisible = true;
    solver.sheetTicked = true;
    sheet.visible = true;
    sheet.maximum = 7;
    sheet.SetScrollValue(1);

    desktop.ExpectMessage(MessageAnswer::No);
    LoadProject(windows);
    EXPECT_EQ(Solved, FlagSet);
    EXPECT_EQ(DuctCount, 1);
    desktop.Log.clear();

    Load(File("net.gsp"));
    EXPECT_EQ(desktop.LastDialog().Flags, 2048);
    EXPECT_EQ(desktop.LastDialog().FileName, "");
    EXPECT_EQ(desktop.Log, (Lines{"message: Clear Existing Project?", "hide sheet", "dialog", "show sheet"}));
    EXPECT_EQ(DuctCount, 2);
    EXPECT_EQ(Numbers(Ducts[0]), kZeros);
    EXPECT_EQ(Numbers(Ducts[1]), kOne);
    EXPECT_EQ(Numbers(Ducts[2]), kTwo);
    EXPECT_EQ(ProjectName, "net.gsp");
    EXPECT_EQ(Settings.DefPath, environment.Folder().Path());
    EXPECT_EQ(Solved, FlagClear);
    EXPECT_TRUE(solver.pressureVisible); // not touched
    EXPECT_EQ(sheet.maximum, 2);
    EXPECT_EQ(sheet.AllTexts(), "100 0 200 3000 5 0.8 0 0");
    EXPECT_EQ(sheet.Looks(), "olooooll");
    EXPECT_EQ(Described(solver.picGrid).back(), "text F2: 5685,5235");
}

TEST_F(ProjectFilesTest, WithoutABlockTheProjectIsEmptied) {
    WriteFile(File("empty.gsp"), "");
    WriteFile(File("text.gsp"), "nothing\r\nof use, here\r\n");
    WriteFile(File("marker.gsp"), "\"\xA4"
                                  "0\"\r\n");
    std::ofstream(File("zeros.gsp"), std::ios::binary).write(std::string(1 << 20, '\0').data(), 1 << 20);
    std::filesystem::create_directory(File("folder.gsp"));
    for (const std::string name :
         {"", "missing.gsp", "empty.gsp", "text.gsp", "marker.gsp", "zeros.gsp", "folder.gsp"}) {
        SCOPED_TRACE(name);
        StartProject();
        Add(RigidColour);
        RedrawProject(windows);
        Solved = FlagSet;
        ProjectName = "before.gsp";
        sheet.visible = true;
        desktop.ExpectMessage(MessageAnswer::Yes);
        if (name.empty()) {
            desktop.ExpectCancel();
        } else {
            desktop.ExpectFile(File(name));
        }
        LoadProject(windows);
        ExpectEmptied();
    }
}

TEST_F(ProjectFilesTest, DamagedFiles) {
    const std::string good = Block(0, kZeros) + Block(1, kOne);
    const std::string broken = "1 2 3 4 5 x 7 8 nan 10 0x11 inf 1,4"; // a comma ends a number as well
    struct Case {
        const char* name;
        std::string text;
        std::int16_t count;
        std::string last; // numbers of the last element
    };
    const Case cases[] = {
        {"lines ahead", "Project\r\n,,\r\n\r\n" + good, 1, kOne},
        {"lines between", Block(0, kZeros) + "remark\r\n1\r\n" + Block(1, kOne), 1, kOne},
        {"wrong numbers in markers", Block(9, kZeros) + Block(9, kOne), 1, kOne},
        {"text for numbers", good + Block(2, broken), 2, "1 2 3 4 5 0 7 8 0 10 0 0 1 4"},
        {"blanks and commas", "\"\xA4\"\n 255 ,0,.25\t0.5 0 100\r200,3E3 8E-1 0 .025 +.1 5 0", 0, kOne},
        {"lone line feeds",
         "\xA4"
         "0\n255\n0\n0.25\n0.5\n0\n100\n200\n3000\n0.8\n0\n0.025\n0.1\n5\n0\n",
         0, kOne},
        {"marker doubled",
         Block(0, kZeros) +
             "\"\xA4"
             "1\"\r\n" +
             Block(1, kOne),
         1, "0 255 0 0.25 0.5 0 100 200 3000 0.8 0 0.025 0.1 5"},
        {"line missing", Block(0, "1 2 3") + Block(1, kOne) + Block(2, kTwo), 1, kTwo},
        {"too small is 0", Block(0, "1E-60 1E-60 1E-400 1E-99999999999 0 0 0 0 0 0 0 0 0 0"), 0,
         "0 0 0 0 0 0 0 0 0 0 0 0 0 0"},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        LoadText(row.text);
        EXPECT_EQ(DuctCount, row.count);
        EXPECT_EQ(Numbers(Ducts.back()), row.last);
        EXPECT_EQ(Ducts.size(), static_cast<std::size_t>(DuctCount) + 1);
    }
}

// Cut anywhere, a file gives what stands before the cut, or an empty project.
TEST_F(ProjectFilesTest, CutFiles) {
    const std::string text = Block(0, kZeros) + Block(1, kOne) + Block(2, kTwo);
    for (std::size_t length = 0; length <= text.size(); ++length) {
        SCOPED_TRACE(length);
        StartProject();
        sheet.visible = false;
        LoadText(text.substr(0, length));
        ASSERT_GE(DuctCount, 0);
        ASSERT_LE(DuctCount, 2);
        ASSERT_EQ(Ducts.size(), static_cast<std::size_t>(DuctCount) + 1);
        RedrawProject(windows);
        ShowDuctSheet(windows, 1);
    }
}

TEST_F(ProjectFilesTest, FileThatBreaksOffKeepsWhatWasRead) {
    struct Case {
        const char* name;
        std::string text;
    };
    const Case cases[] = {
        {"cut", Block(0, kZeros) + Block(1, kOne) + Block(2, "16711680 0 0.5")},
        {"too large", Block(0, kZeros) + Block(1, kOne) + Block(2, "16711680 0 0.5 1E400 1 2 3")},
        {"too large for its field",
         Block(0, kZeros) + Block(1, kOne) + "\"\xA4\"\r\n16711680,0,.5,0,0,0,0,0,0,1E39,1"},
        {"endless item",
         Block(0, kZeros) + Block(1, kOne) + Block(2, "16711680 0 0.5") + std::string(100000, '0')},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        StartProject();
        Add(RigidColour);
        Add(RigidColour);
        Add(RigidColour);
        RedrawProject(windows);
        const Lines picture = Described(solver.picGrid);
        Solved = FlagSet;
        solver.sheetTicked = true;
        Settings.DefPath = "/before";
        LoadText(row.text);
        EXPECT_EQ(DuctCount, 2);
        EXPECT_EQ(Numbers(Ducts[1]), kOne);
        EXPECT_EQ(Ducts[2].Colour, FlexibleColour);
        EXPECT_EQ(Ducts[2].EndX, 0.5);
        EXPECT_EQ(Ducts[2].StartX, 0);
        EXPECT_EQ(ProjectName, "read.gsp");
        EXPECT_EQ(Solved, FlagSet); // the remaining steps are left out
        EXPECT_EQ(Settings.DefPath, "/before");
        EXPECT_EQ(Described(solver.picGrid), picture);
        EXPECT_FALSE(sheet.visible);
    }
}

TEST_F(ProjectFilesTest, MoreBlocksThanDucts) {
    DuctCount = MostDucts;
    FitDucts();
    const std::string text = ProjectText();
    StartProject();
    LoadText(text);
    EXPECT_EQ(DuctCount, MostDucts);
    EXPECT_EQ(sheet.maximum, MostDucts);
    StartProject();
    Settings.DefPath = "/before";
    LoadText(text + Block(32768, kOne));
    EXPECT_EQ(DuctCount, MostDucts);
    EXPECT_EQ(Ducts.size(), 32768U);
    EXPECT_EQ(Settings.DefPath, "/before");
}

TEST_F(ProjectFilesTest, ReportNames) {
    struct Case {
        std::string project;
        std::string report;
    };
    const Case cases[] = {{"plant.gsp", "plant.Gus"},
                          {"plant.d", "pla.Gus"},
                          {"abc", "abc.Gus"},
                          {"", ".Gus"},
                          {".gsp", ".Gus"},
                          {"a.gs", ".Gus"},
                          {"Lüftung.gsp", "Lüftung.Gus"},
                          {"Nordflügel", "Nordfl.Gus"},
                          {"üöä", "üöä.Gus"}};
    for (const Case& row : cases) {
        EXPECT_EQ(ReportName(row.project), row.report) << row.project;
    }
}

TEST_F(ProjectFilesTest, ReportStandsInTheCurrentFolder) {
    Save("plant.gsp");
    Add(RigidColour);
    WriteFile(File("plant.Gus"), "older");
    WriteSolutionReport();
    EXPECT_EQ(ReadFile(File("plant.Gus")), ProjectText());
}

TEST_F(ProjectFilesTest, ReportThatCannotBeWritten) {
    Save("plant.gsp");
    std::filesystem::create_directory(File("plant.Gus"));
    desktop.ExpectMessage(MessageAnswer::Retry);
    desktop.ExpectMessage(MessageAnswer::Cancel);
    WriteSolutionReport();
    EXPECT_NE(desktop.LastText().find(File("plant.Gus")), std::string::npos);
    EXPECT_EQ(desktop.Messages().back().buttons, MessageButtons::RetryCancel);
}

TEST_F(ProjectFilesTest, ClosingOffersToSave) {
    desktop.ExpectMessage(MessageAnswer::Cancel);
    EXPECT_FALSE(AskBeforeClosing(windows));
    desktop.ExpectMessage(MessageAnswer::No);
    EXPECT_TRUE(AskBeforeClosing(windows));
    desktop.ExpectMessage(MessageAnswer::Yes);
    desktop.ExpectCancel(); // does not stop the closing
    EXPECT_TRUE(AskBeforeClosing(windows));
    EXPECT_EQ(desktop.LastText(), "Do you wish to save the current project?");
    EXPECT_EQ(desktop.Messages().back().title, "Close Project Solver");
    Solved = FlagSet;
    EXPECT_TRUE(AskBeforeClosing(windows));
}

} // namespace plenair
