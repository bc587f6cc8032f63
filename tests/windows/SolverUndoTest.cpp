#include "platform/desktop/Clipboard.h"
#include "windows/SolverTest.h"

namespace {

class SolverUndo : public SolverTest {
  protected:
    // The flows of all ducts; name and state of the project, + where the pressures can be asked for; and the
    // duct of the sheet with its flow: "100 200 plant.gsp solved+, F2 200".
    std::string State() const {
        std::ostringstream all;
        for (int number = 1; number <= DuctCount; ++number) {
            all << Duct(number).Flow << ' ';
        }
        all << ProjectName << (Solved != kFlagClear ? " solved" : "")
            << (Get("cmdCalcPressure").isVisible() ? "+" : "") << ", "
            << DuctNo().substr(0, DuctNo().find(' ')) << ' ' << SheetBox(1).Text();
        return all.str();
    }

    // Steps, with the state that each leads to: a key for undo or redo, in the window in use.
    void Expect(const std::vector<std::pair<std::string, std::string>>& steps) const {
        for (const auto& [keys, state] : steps) {
            SCOPED_TRACE(keys);
            Press(keys == "y" ? Qt::Key_Y : Qt::Key_Z,
                  keys == "Z" ? Qt::ControlModifier | Qt::ShiftModifier : Qt::ControlModifier);
            EXPECT_EQ(State(), state);
        }
    }

    void Store(const char* flow) const {
        EnterBox(1, flow);
        Press(Qt::Key_Return);
    }

    void Load(const std::string& file) {
        desktop.ExpectMessage(MessageAnswer::Yes);
        file.empty() ? desktop.ExpectCancel() : desktop.ExpectFile(file);
        ClickOn("cmdLoadGsp");
    }
};

TEST_F(SolverUndo, DrawingTypingAndFollowOn) {
    OpenSheet("RFR");
    Store("100");
    ScrollOn();
    Store("200");
    Press(Qt::Key_Return); // in a locked box: nothing changes
    ScrollOn();
    EnterBox(3, "300");
    Press(Qt::Key_Tab);
    EXPECT_EQ(State(), "100 200 200 , R3 200");
    EXPECT_EQ(Duct(3).Height, 300);
    EnterBox(1, "7x"); // no number, and left behind
    Press(Qt::Key_Tab);
    EXPECT_EQ(SheetBox(1).Text(), "7x");
    Expect({{"z", "100 200 200 , R3 200"}}); // the text first
    EXPECT_EQ(Duct(3).Height, 300);
    Expect({{"z", "100 200 200 , R3 200"}});
    EXPECT_EQ(Duct(3).Height, 0);
    Expect({{"z", "100 100 100 , F2 100"},
            {"Z", "100 200 200 , F2 200"},
            {"z", "100 100 100 , F2 100"},
            {"z", "0 0 0 , R1 0"},
            {"y", "100 100 100 , R1 100"},
            {"z", "0 0 0 , R1 0"}});
    SheetBox(1).setFocus();
    SheetBox(1).SelectAll();
    Type("55");
    Expect({{"y", "0 0 0 , R1 55"}, // what is being typed is newer than what was undone
            {"z", "0 0 0 , R1 0"},
            {"z", "0 0 , R1 0"}});
    ClickGrid(9, 9); // a chain that the step back ends
    Expect({{"z", "0 , R1 0"}});
    EXPECT_EQ(DrawPending, kFlagClear);
    Expect({{"z", ", 1 0"}, {"z", ", 1 0"}, {"y", "0 , R1 0"}});
    EXPECT_EQ(SheetLooks(), "olooooll");
    ClickGrid(9, 9);
    ClickGrid(9, 10);
    Expect({{"y", "0 0 , R1 0"}}); // what had been undone is forgotten
    ClickOn("cmdLessDuct(2)");
    Expect({{"z", "0 0 , R2 0"}, {"y", "0 , R1 0"}});
    desktop.ExpectMessage(MessageAnswer::Yes);
    ClickOn("cmdClearGrid(2)");
    Expect({{"z", "0 , R1 0"}});
}

// What a box shows before its duct is loaded, or after the project was cleared, was not typed.
TEST_F(SolverUndo, TheSheetShownBeforeTheFirstDuct) {
    OpenSheet("");
    DrawRow("RC");
    Expect({{"z", "0 , 1 0"}, {"y", "0 0 , C2 0"}});
    EnterBox(8, "0.5");
    Press(Qt::Key_Return);
    desktop.ExpectMessage(MessageAnswer::Yes);
    ClickOn("cmdClearGrid(2)");
    EXPECT_EQ(SheetBox(8).Text(), "0.5");
    DrawRow("R");
    Expect({{"z", ", 1 0"}});
    EnterBox(4, "7"); // goes nowhere
    Expect({{"z", ", 1 0"}});
    EXPECT_EQ(SheetBox(4).Text(), "0");
    Expect({{"z", "0 0 , R1 0"}});
    EXPECT_EQ(Duct(2).ConnCoefficient, 0.5F);
}

TEST_F(SolverUndo, LoadsSolutionsAndTheirNames) {
    OpenSheet("RR");
    for (const char* value : {"100", "200"}) {
        EnterBox(1, value);
        for (const char* text : {"", "200", "5000", "5", "0.8"}) {
            Press(Qt::Key_Return);
            Type(text);
        }
        Press(Qt::Key_Return);
        ScrollOn();
    }
    const auto solve = [this] {
        desktop.ExpectMessage(MessageAnswer::Ok);
        desktop.ExpectFile(File("plant.gsp"));
        desktop.ExpectMessage(MessageAnswer::Ok);
        desktop.ExpectMessage(MessageAnswer::Ok);
        ClickOn("cmdGus");
    };
    solve();
    EXPECT_EQ(State(), "100 200 plant.gsp solved+, R1 100");
    const std::string solved = SheetTexts();
    Expect({{"z", "100 200 plant.gsp, R1 100"}});
    EXPECT_EQ(SheetTexts(), "100 0 200 5000 5 0.8 0 0");
    EXPECT_EQ(SheetLooks(), "olooooll") << "open for changes";
    Expect({{"y", "100 200 plant.gsp solved+, R1 100"}});
    EXPECT_EQ(SheetTexts(), solved);
    EXPECT_EQ(SheetLooks(), "LLLLLLLL");
    Load(File("plant.Gus"));
    EXPECT_EQ(State(), "100 200 plant.Gus+, R1 100");
    Load("");
    EXPECT_FALSE(Sheet().isVisible());
    Expect({{"z", "100 200 plant.Gus+, R1 100"}});
    EXPECT_TRUE(Sheet().isVisible()) << "as the button says";
    Expect({{"z", "100 200 plant.gsp solved+, R1 100"}, {"z", "100 200 plant.gsp, R1 100"}});

    // A run that stops at duct 2 has solved duct 1.
    ScrollOn();
    EnterBox(6, "0");
    solve();
    EXPECT_NE(Duct(1).Width, 0);
    Expect({{"z", "100 200 plant.gsp, R1 100"}});
    EXPECT_EQ(SheetTexts(), "100 0 200 5000 5 0.8 0 0");
    Expect({{"z", "100 200 plant.gsp, R2 200"}});
    EXPECT_EQ(Duct(2).LossPerMetre, 0.8);
}

TEST_F(SolverUndo, CopyAndManualByTheirKeys) {
    std::string copied;
    std::string opened;
    Desktop().Copy = [&](const ClipboardContent& content) { copied = TabSeparated(content.Table); };
    Desktop().OpenManual = [&](const std::string& path, const std::string& anchor) {
        opened = path + "#" + anchor;
        return true;
    };
    fs::create_directory(File("manual"));
    WriteFile(File("manual/manual.html"), "");
    OpenSolver();
    DrawRow("R"); // the keyboard is on the grid
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(copied.substr(0, 9), "Duct\tKind");
    Press(Qt::Key_F1);
    EXPECT_EQ(opened, File("manual/manual.html#solver"));
    copied.clear();
    ClickOn("chkParam");
    EnterBox(1, "5");
    SheetBox(1).SelectAll();
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(copied, "") << "a text box copies what is selected in it";
    Press(Qt::Key_F1);
    EXPECT_EQ(opened, File("manual/manual.html#sheet"));
    EXPECT_EQ(SheetBox(1).Text(), "5");
}

} // namespace
