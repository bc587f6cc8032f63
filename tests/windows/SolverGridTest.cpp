#include "windows/SolverTest.h"

#include <QApplication>

namespace plenair {
namespace {

using Notes = std::vector<std::string>;

class SolverGrid : public SolverTest {
  protected:
    // The ducts in the crossings of the grid lines, as in "R 1,1-2,1 F 2,1-2,3".
    static std::string Network() {
        const auto crossing = [](double x, double y) {
            return std::to_string(std::lround(x * CellsAcross)) + "," +
                   std::to_string(std::lround(y * CellsDown));
        };
        std::string all;
        for (int number = 1; number <= DuctCount; ++number) {
            const DuctRecord& duct = Ducts[static_cast<std::size_t>(number)];
            all += all.empty() ? "" : " ";
            all += TypeLetter(duct.Colour) + " " + crossing(duct.StartX, duct.StartY) + "-" +
                   crossing(duct.EndX, duct.EndY);
        }
        return all;
    }
};

TEST_F(SolverGrid, ItsButtons) {
    OpenSolver();
    EXPECT_EQ(Solver().windowTitle(), "Plenair");
    EXPECT_EQ(Solver().frameGeometry().topLeft(), QPoint(0, 0));
    const std::pair<const char*, const char*> buttons[] = {
        {"cmdClearGrid(2)", "Clear Model"},         {"cmdLoadGsp", "Open Plenair Project"},
        {"cmdSaveGsp", "Save Plenair Project"},     {"cmdPrintGus", "Print Plenair Project"},
        {"cmdMajorOptions", "Calculation Options"}, {"optDuct(0)", "Draw Rigid Duct"},
        {"optDuct(1)", "Draw Flexible Duct"},       {"optDuct(2)", "Draw Duct Connection"},
        {"cmdLessDuct(2)", "Remove Last Duct"},     {"chkLabels", "Show/Hide Duct Labels"},
        {"chkParam", "View/Set Duct Parameters"},   {"cmdGus", "Solve Project"},
        {"cmdCalcPressure", "Show Pressure Drops"}, {"cmdClose", "Return to Plenair Lite"},
    };
    EXPECT_FALSE(Get("cmdCalcPressure").isVisible());
    EXPECT_TRUE(Get<ToggleButton>("optDuct(0)").IsOn());
    EXPECT_TRUE(Get<ToggleButton>("chkLabels").IsOn());
    EXPECT_FALSE(Get<ToggleButton>("chkParam").IsOn());
    Get("cmdCalcPressure").show();
    Get("cmdClearGrid(2)").setFocus();
    const QWidget* left = nullptr;
    for (const auto& [name, toolTip] : buttons) {
        SCOPED_TRACE(name);
        const auto& button = Get<Button>(name);
        EXPECT_EQ(button.toolTip(), toolTip);
        EXPECT_EQ(button.text(), std::string(name) == "cmdClose" ? "&Close" : "");
        const bool next = std::string(name) == "optDuct(1)" || std::string(name) == "optDuct(2)";
        if (next) { // in a group the arrows go on, and select
            Press(Qt::Key_Right);
            EXPECT_TRUE(Get<ToggleButton>(name).IsOn());
        }
        EXPECT_EQ(Focused(), name);
        EXPECT_TRUE(left == nullptr || left->geometry().right() < button.geometry().left());
        EXPECT_TRUE(Solver().Client()->rect().contains(button.geometry()));
        left = &button;
        if (std::string(name) != "optDuct(0)" && std::string(name) != "optDuct(1)") {
            Press(Qt::Key_Tab);
        }
    }
}

// Each row: clicks and other events in turn, the ducts afterwards, and whether a point is held.
TEST_F(SolverGrid, EventsOfTheDrawing) {
    struct Row {
        const char* name;
        std::function<void()> events;
        const char* network;
        bool holding;
    };
    const auto left = [this](int column, int row) { ClickGrid(column, row); };
    const auto right = [this] { ClickGrid(9, 9, Qt::RightButton); };
    const Row rows[] = {
        {"nothing", [] {}, "", false},
        {"the first click holds", [=] { left(1, 1); }, "", true},
        {"a right click while idle", [=] { right(); }, "", false},
        {"the second makes a duct", [=] { left(1, 1), left(2, 3); }, "R 1,1-2,3", true},
        {"the middle button draws too", [=, this] { left(1, 1), ClickGrid(2, 3, Qt::MiddleButton); },
         "R 1,1-2,3", true},
        {"a chain", [=] { left(1, 1), left(2, 1), left(3, 1); }, "R 1,1-2,1 R 2,1-3,1", true},
        {"the same place twice", [=] { left(1, 1), left(1, 1); }, "R 1,1-1,1", true},
        {"a right click ends a chain", [=] { left(1, 1), left(2, 1), right(), left(3, 1), left(4, 1); },
         "R 1,1-2,1 R 3,1-4,1", true},
        {"the type changes in a chain",
         [=, this] {
             left(1, 1), left(2, 1), ClickOn("optDuct(1)"), left(3, 1), ClickOn("optDuct(2)"), left(4, 1);
         },
         "R 1,1-2,1 F 2,1-3,1 C 3,1-4,1", true},
        {"labels off end a chain", [=, this] { left(1, 1), ClickOn("chkLabels"), left(2, 1); }, "", true},
        {"the sheet ends a chain", [=, this] { left(1, 1), left(2, 1), ClickOn("chkParam"); }, "R 1,1-2,1",
         false},
        {"removing ends a chain",
         [=, this] { left(1, 1), left(2, 1), left(3, 1), ClickOn("cmdLessDuct(2)"); }, "R 1,1-2,1", false},
        {"the last duct stays", [=, this] { left(1, 1), left(2, 1), ClickOn("cmdLessDuct(2)"); }, "R 1,1-2,1",
         true},
        {"the scroll bar ends a chain",
         [=, this] { left(1, 1), left(2, 1), left(3, 1), Get<ScrollBar>("scrDuctNo").setValue(2); },
         "R 1,1-2,1 R 2,1-3,1", false},
        {"a solved project takes nothing, nor forgets",
         [=] { left(1, 1), Solved = FlagSet, left(2, 1), right(); }, "", true},
    };
    OpenSolver();
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        desktop.ExpectMessage(MessageAnswer::Yes);
        ClickOn("cmdClearGrid(2)");
        for (const char* toggle : {"chkLabels", "chkParam", "optDuct(0)"}) {
            Get<ToggleButton>(toggle).SetOn(std::string(toggle) != "chkParam");
        }
        desktop.Log.clear();
        row.events();
        EXPECT_EQ(Network(), row.network);
        EXPECT_EQ(DrawPending != FlagClear, row.holding);
        EXPECT_EQ(desktop.Beeps(), Solved != FlagClear ? 2 : 0);
    }
}

TEST_F(SolverGrid, ASolvedProjectBeeps) {
    OpenSolver();
    DrawRow(3, "RF");
    Solved = FlagSet;
    for (const char* button : {"cmdSaveGsp", "cmdLessDuct(2)", "cmdGus"}) {
        ClickOn(button);
    }
    ClickGrid(5, 5);
    EXPECT_EQ(desktop.Log, Notes(4, "beep"));
    EXPECT_EQ(DuctCount, 2);
    ClickOn("cmdClose"); // without a question
    EXPECT_TRUE(Window().isVisible());
    EXPECT_FALSE(SolverIsThere() && Solver().isVisible());
}

TEST_F(SolverGrid, ClearingAsks) {
    OpenSolver();
    DrawRow(3, "RFC");
    ShowSheet();
    ScrollOn();
    EXPECT_EQ(DuctNo(), "F2 #0000ff");
    EnterBox(5, "7");
    Get("cmdCalcPressure").show();
    Solved = FlagSet;
    desktop.ExpectMessage(MessageAnswer::No);
    ClickOn("cmdClearGrid(2)");
    EXPECT_EQ(DuctCount, 3);
    desktop.ExpectMessage(MessageAnswer::Yes);
    ClickOn("cmdClearGrid(2)");
    const MessageRequest& asked = desktop.Messages().back();
    EXPECT_EQ(asked.title + ": " + asked.text, "Load Project: Clear Existing Project?");
    EXPECT_EQ(asked.buttons, MessageButtons::YesNo);
    EXPECT_EQ(DuctCount, 0);
    EXPECT_EQ(Solved, FlagClear);
    EXPECT_FALSE(Get("cmdCalcPressure").isVisible());
    EXPECT_EQ(DuctNo(), "1 #008000");
    EXPECT_EQ(SheetTexts(), "0 0 0 0 0 0 0 0");
    ClickGrid(1, 1);
    ClickGrid(2, 1);
    EXPECT_EQ(Network(), "C 1,1-2,1") << "the type of the next duct stays";
    EXPECT_EQ(DuctNo(), "1 #008000") << "until the scroll bar moves";
}

TEST_F(SolverGrid, TheCall) {
    OpenSolver();
    Get("cmdGus").setFocus();
    Type("qx");
    EXPECT_EQ(desktop.Log, Notes());
    Type("Q");
    EXPECT_EQ(desktop.Log, Notes({"call"}));
}

TEST_F(SolverGrid, OptionsAreTheCallersAffair) {
    OpenSolver();
    int shown = 0;
    Solver().ShowOptions = [&] { ++shown; };
    ClickOn("cmdMajorOptions");
    Get("cmdMajorOptions").setFocus();
    Press(Qt::Key_Return);
    EXPECT_EQ(shown, 2);
}

// The picture as a user sees it.
TEST_F(SolverGrid, LinesMarksAndLabels) {
    OpenSolver();
    const QImage empty = Grid();
    const QSize size = empty.size();
    const int across = size.width() / CellsAcross;
    const int down = size.height() / CellsDown;
    const std::string line = Solver().palette().color(QPalette::Window).name().toStdString();
    EXPECT_EQ(ColourAt(empty, 0, down / 2), "#ffffff") << "no line on the edge";
    EXPECT_EQ(ColourAt(empty, across * 5 / 2, down / 2), "#ffffff");
    int lines = 0;
    for (int x = 0; x < size.width(); ++x) {
        lines += ColourAt(empty, x, down / 2) == line ? 1 : 0;
    }
    EXPECT_EQ(lines, CellsAcross - 1);

    DrawRow(3, "RFC");
    const int y = size.height() * 3 / CellsDown;
    const auto between = [&](int column) { return size.width() * (4 * column + 1) / (4 * CellsAcross); };
    const auto colours = [&](const QImage& image) {
        return ColourAt(image, between(1), y) + ColourAt(image, between(2), y) +
               ColourAt(image, between(3), y);
    };
    EXPECT_EQ(colours(Grid()), "#ff0000#0000ff#ffff00");
    ClickOn("chkLabels");
    const QImage unlabelled = Grid();
    ClickOn("chkLabels");
    const QImage drawn = Grid();
    EXPECT_EQ(colours(drawn), "#ff0000#0000ff#ffff00");
    const int end = size.width() / CellsAcross;
    EXPECT_EQ(ColourAt(drawn, end - 3, y - 2), "#000000") << "the mark of an end";
    EXPECT_EQ(ColourAt(drawn, end - 3, y + 3), "#000000");

    ShowSheet();
    ScrollOn();
    EXPECT_EQ(colours(Grid()), "#ff0000#00ff00#ffff00") << "the duct of the sheet is green";
    EXPECT_EQ(ColourAt(Grid(), between(2), y - 2), "#00ff00") << "and twice as wide";
    ClickOn("chkLabels");
    EXPECT_EQ(colours(Grid()), "#ff0000#0000ff#ffff00");
    EXPECT_EQ(Grid(), unlabelled);
    EXPECT_NE(Grid(), drawn);
    ClickOn("chkLabels");
    EXPECT_EQ(Grid(), drawn);
    ScrollBack();
    EXPECT_EQ(colours(Grid()), "#00ff00#0000ff#ffff00");
    ClickOn("chkParam");
    EXPECT_EQ(Grid(), drawn) << "hiding the sheet takes the green away";
    EXPECT_FALSE(Sheet().isVisible());
}

TEST_F(SolverGrid, ClosingAsks) {
    const auto close = [&](MessageAnswer answer) {
        desktop.ExpectMessage(answer);
        ClickOn("cmdClose");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    OpenSolver();
    ClickOn("chkParam");
    close(MessageAnswer::Cancel);
    const MessageRequest& asked = desktop.Messages().back();
    EXPECT_EQ(asked.title + ": " + asked.text,
              "Close Project Solver: Do you wish to save the current project?");
    EXPECT_EQ(asked.buttons, MessageButtons::YesNoCancel);
    EXPECT_EQ(asked.icon, MessageIcon::None);
    EXPECT_TRUE(Solver().isVisible() && Sheet().isVisible());

    desktop.ExpectFile(File("first.gsp"));
    desktop.ExpectMessage(MessageAnswer::Yes);
    close(MessageAnswer::Ok); // of "saved"
    EXPECT_EQ(ReadFile(File("first.gsp")).substr(0, 4), "\"\xA4"
                                                        "0\"");
    EXPECT_FALSE(SolverIsThere());
    EXPECT_TRUE(Window().isVisible());
    EndProgram();

    OpenSolver();
    DrawRow(3, "R");
    desktop.ExpectCancel(); // the save that this Yes asks for: the window closes all the same
    close(MessageAnswer::Yes);
    EXPECT_FALSE(SolverIsThere());
    EndProgram();

    OpenSolver();
    EXPECT_EQ(DuctCount, 0) << "opening clears the project";
    desktop.ExpectMessage(MessageAnswer::No);
    Press(Qt::Key_C, Qt::AltModifier);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(SolverIsThere());
}

} // namespace
} // namespace plenair
