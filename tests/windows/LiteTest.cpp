#include "lite/CalculationLog.h"
#include "platform/desktop/Clipboard.h"
#include "platform/qt/Twips.h"
#include "windows/WindowTest.h"

#include <QMenuBar>
#include <QScreen>

namespace {

class Lite : public WindowTest {
  protected:
    Lite() {
        questions["bases"] = [this] { // the texts of their boxes; in brackets those that can't be entered
            return Joined(std::array{0, 1, 2, 9, 3, 4}, [this](int index) {
                const TextBox& box = Box("txtCalcBasis(" + std::to_string(index) + ")");
                return box.isEnabled() ? box.Text() : "(" + box.Text() + ")";
            });
        };
        questions["panel"] = [this] { return std::to_string(Window().height() - m_folded); };
        questions["recorded"] = [] { // the heights
            return Joined(LogRows, [](const auto& row) { return ShortestText(row.Height); });
        };
        actions["paste"] = [this] { Box("txtInputA").insert("700"); }; // by the mouse
    }
    void SetUp() override {
        Start();
        m_folded = Window().height();
    }

    int m_folded = 0;
};

TEST_F(Lite, TheFirstStart) {
    EndProgram();
    fs::remove(File("User.cfg"));
    Desktop().AskByMessageBox = [&](const MessageRequest& request) {
        EXPECT_TRUE(QApplication::topLevelWidgets().empty() && desktop.Log.empty()) << "before all else";
        EXPECT_EQ(request.Title, "Defaults Set");
        return MessageAnswer::Ok;
    };
    Start();
    EXPECT_TRUE(fs::exists(File("User.cfg")));
    Play("| bases: 0.8 (5) (0.8) (5) (500) (5); text txtInputA: ; text txtInputB: ; focus: txtInputB; table: "
         "blank");
    const QRect frame = Window().frameGeometry();
    EXPECT_EQ(frame.topRight(), Window().screen()->geometry().topRight() + QPoint(0, 20));
    EXPECT_EQ(Window().Client()->geometry().bottomRight(), Window().rect().bottomRight());
    EXPECT_TRUE(Window().Top() == 300 && Window().Left() + Window().Width() == ScreenWidth());
    EXPECT_EQ(Window().MenuBar()->geometry(), QRect(0, 0, Window().width(), Window().Client()->y()));
    EXPECT_FALSE(Window().MenuBar()->isNativeMenuBar());
    EXPECT_EQ(Window().minimumSize(), Window().maximumSize()) << "the frame can't be dragged to another size";
}

TEST_F(Lite, StartsWithTheSettingsOfTheFile) {
    SettingsRecord settings;
    settings.MaxLPM = 1.25;
    settings.MaxVelocity = 1234.5;
    settings.Analysis = 0.00002;
    const std::tuple<int, const char*, const char*> rows[] = {
        {0, ".",
         "basis: 0; bases: 1.25 (1234.5) (1.25) (1234.5) (0.00002) (1234.5); text lblInputA: Flow &Rate "
         "(L/s)"},
        {2, ",",
         "basis: 2; bases: (1,25) (1234,5) 1,25 1234,5 (0,00002) (1234,5); text lblInputA: Flow &Rate (L/s)"},
        {4, ",", "basis: 4; checked optCalcBasis(4): true; text lblInputA: &Width (mm)"},
        {5, ",", "basis: 0; checked optCalcBasis(0): true; text lblInputA: Flow &Rate (L/s)"},
        {-1, ",", "basis: 0; checked optCalcBasis(0): true"}};
    for (const auto& [basis, mark, seen] : rows) {
        EndProgram();
        SetNumberLocale({.DecimalMark = mark, .GroupMark = ""});
        settings.CalcBasis = static_cast<std::int16_t>(basis);
        WriteSettingsFile(settings);
        Start();
        Play(std::string("| focus: txtInputB; ") + seen);
        EXPECT_EQ(Settings.MaxVelocity, 1234.5);
    }
}

TEST_F(Lite, TypedTargetsChangeTheMemoryAlone) {
    const std::string saved = ReadFile(File("User.cfg"));
    Play("@cmdMoreInfo txtCalcBasis(0)=1.5 Alt+V 6.25 Alt+C 9 Alt+A 9 Alt+A 9 | basis: 4");
    EXPECT_EQ(Settings.MaxLPM, 1.5);
    EXPECT_EQ(Settings.MaxVelocity, 6.25);
    EXPECT_EQ(Settings.Analysis, 500);
    EndProgram();
    EXPECT_EQ(ReadFile(File("User.cfg")), saved);
}

TEST_F(Lite, FiveDuctsAndTheirLamps) {
    Play(R"(300 Tab | focus: txtInputA
        500 Return | table: filled; selected: txtInputA 500
        Down | text txtInputB: 325; selected: txtInputB 325
        Up | text txtInputB: 300; table: filled
        @txtInputA @txtInputB | selected: txtInputB 300
        End @txtInputB | selected: txtInputB 
        Tab Alt+H Alt+E Escape | selected: txtInputB 300; table: filled
        @cmdMoreInfo @txtCalcBasis(0) | selected: txtCalcBasis(0) 0.8; table: blank
        txtInputB=100 txtInputA=350 Enter | table: 3225 50 4.00 0.58 #ff0000, 1700 75 4.15 0.64 #ff0000, )"
         "1100 100 4.23 0.67 #ff0000, 800 125 4.28 0.69 #ffae00, 625 150 4.31 0.70 #ffff00, round 325 4.22 "
         "0.67\n| accessibleName lblRatio(4): row 5: slightly slender, 4 to 5");
}

TEST_F(Lite, CharactersClearTheResults) {
    for (const std::string box : {"@txtInputA ", "@txtInputB "}) {
        for (const std::string key : {"7", "x", "Space", "Backspace", "Escape", "Ctrl+C"}) {
            Play("!fill " + box + key + " | table: blank");
        }
        for (const std::string key :
             {"Delete", "Left", "Right", "Home", "End", "PgUp", "F5", "Tab", "!paste"}) {
            Play("!fill " + box + key + " | table: filled");
        }
    }
}

TEST_F(Lite, EnterCalculatesFromEveryBox) {
    Play(R"(@cmdMoreInfo txtInputA=500 txtInputB=300
        @txtInputA End Return | selected: txtInputA 500; table: filled
        @txtInputB Return | selected: txtInputA 500; table: filled
        @optCalcBasis(1) @txtCalcBasis(1) Return | selected: txtInputA 500; table: filled
        @optCalcBasis(2) @txtCalcBasis(2) Return | selected: txtInputA 500; table: filled
        @txtCalcBasis(9) Return | selected: txtInputA 500; table: filled
        @optCalcBasis(3) @txtCalcBasis(3) Return | table: 500 300 3.54 0.35 #00ff00, round 425 3.52 0.35
        @optCalcBasis(4) @txtCalcBasis(4) Return | table: 500 300 5.00 0.66 #00ff00, ( 705 L/s ), round 425 4.97 0.66
        @optCalcBasis(0))");
    environment.SetToday(2026, 12, 1); // nor does the reminder come where a text is no number
    for (const std::string box : {"txtInputA", "txtInputB", "txtCalcBasis(0)"}) {
        Play("txtCalcBasis(0)=0.8 txtInputB=300 txtInputA=500 " + box +
             "=x Return | table: blank; focus: txtInputA");
    }
    EXPECT_EQ(Settings.MaxLPM, 0.8) << "what is no number leaves it";
}

TEST_F(Lite, CopyOfTheResults) {
    std::string copied;
    Desktop().Copy = [&](const ClipboardContent& content) { copied += TabSeparated(content.Table); };
    Play("!fill Ctrl+Shift+C | table: filled\n" // no character for the box
         "1 Ctrl+Shift+C");                     // there is nothing to copy
    EXPECT_EQ(copied, "Shape\tWidth (mm)\tHeight (mm)\tDiameter (mm)\tVelocity (m/s)\tLoss (Pa/m)\n"
                      "Rectangular\t450\t250\t\t4.74\t0.72\nRectangular\t400\t275\t\t4.80\t0.74\n"
                      "Rectangular\t375\t300\t\t4.68\t0.69\nRectangular\t350\t325\t\t4.61\t0.67\n"
                      "Rectangular\t325\t350\t\t4.61\t0.67\nRound\t\t\t375\t4.53\t0.69\n");
}

// A click on the option that is on is a click, too.
TEST_F(Lite, ABasisMovesBoxesCaptionAndFocus) {
    Play(R"(@cmdMoreInfo !fill
        @optCalcBasis(0) | basis: 0; table: blank; selected: txtCalcBasis(0) 0.8
        Alt+H | tabs: txtInputB txtInputA txtCalcBasis(0)
        !fill @optCalcBasis(1) | basis: 1; table: blank; selected: txtCalcBasis(1) 5
        Alt+H | bases: (0.8) 5 (0.8) (5) (500) (5); tabs: txtInputB txtInputA txtCalcBasis(1)
        @optCalcBasis(2) | basis: 2; selected: txtCalcBasis(2) 0.8; text lblInputA: Flow &Rate (L/s)
        Alt+H | bases: (0.8) (5) 0.8 5 (500) (5); tabs: txtInputB txtInputA txtCalcBasis(2) txtCalcBasis(9)
        @optCalcBasis(3) | basis: 3; selected: txtCalcBasis(3) 500; text lblInputA: &Width (mm)
        Alt+H | bases: (0.8) (5) (0.8) (5) 500 (5); tabs: txtInputB txtInputA txtCalcBasis(3)
        @optCalcBasis(4) | basis: 4; selected: txtCalcBasis(4) 5; text lblInputA: &Width (mm)
        Alt+H | text txtInputA: 500; text txtInputB: 300; tabs: txtInputB txtInputA txtCalcBasis(4)
        @optCalcBasis(1) | text lblInputA: Flow &Rate (L/s)
        @cmdMoreInfo Alt+H | tabs: txtInputB txtInputA
        Shift+Tab | focus: txtInputA)");
}

TEST_F(Lite, AccessKeysSelectReachAndRecord) {
    const std::string bases = R"(Alt+V | basis: 1; focus: txtCalcBasis(1)
        Alt+C | basis: 2; focus: txtCalcBasis(2)
        Alt+P | basis: 0; focus: txtCalcBasis(0)
        Alt+A | basis: 3; focus: txtCalcBasis(3)
        Alt+A | basis: 4; focus: txtCalcBasis(4)
        Alt+V Alt+A | basis: 3; focus: txtCalcBasis(3)
        Alt+R | focus: txtCalcBasis(3)
        Alt+W | focus: txtInputA
        )";
    Play("Alt+R | focus: txtInputA\nAlt+H | focus: txtInputB\n" + bases);
    Play("@cmdMoreInfo " + bases);
    Play(R"(Alt+P !fill Alt+1 @cmdLog(0) Alt+2 @cmdLog(1) Alt+3 @cmdLog(2) Alt+4 @cmdLog(3) Alt+5 @cmdLog(4)
        | text txtInputA: 500; recorded: 250 250 275 275 300 300 325 325 350 350)");
}

TEST_F(Lite, FoldingShowsAndHidesThePanel) {
    Play(R"(Alt+H @cmdMoreInfo | focus: txtInputA; text cmdMoreInfo: &Less; panel: 140
        Alt+H @cmdMoreInfo | focus: txtInputA; text cmdMoreInfo: &More; panel: 0
        Alt+M | text cmdMoreInfo: &Less; panel: 140
        Alt+L | text cmdMoreInfo: &More; panel: 0
        txtInputA=5 Alt+L | text cmdMoreInfo: &More; selected: txtInputA 
        Alt+M | selected: txtInputA 5)");
}

TEST_F(Lite, ResultsArePainted) {
    const std::string names[] = {"grdMinorCalc", "grdOtherShapes"};
    std::map<std::string, QImage> blank;
    for (const std::string step : {"", "!fill", "5"}) {
        Play(step);
        for (const std::string& name : names) {
            const QImage seen = OnScreen(name);
            EXPECT_EQ(seen != blank.try_emplace(name, seen).first->second, step == "!fill") << name << step;
        }
    }
}

TEST_F(Lite, EntriesLeadOutOfTheWindow) {
    const auto open = [this](const std::string& what) {
        desktop.Log.push_back(what + (Window().isVisible() ? " beside it" : ""));
    };
    Window().OpenProjectSolver = [&] { open("solver"); };
    Window().ShowOptions = [&] { open("options"); };
    Play("!fill ?Ok F1 ?Ok mnuHelp>mnuHelpManual mnuEdit>mnuEditOptions\n"
         "Alt+E o | focus: txtInputA\n" // a menu takes the focus only for a while
         "mnuFile>mnuFileMajor");
    const std::string help =
        "For help with Plenair, you should consult the user manual, which is available free of charge, and "
        "should accompany the installation package to be included in the program directory.\n\nCall me "
        "(Corin) if you need another copy.  Contact details are under \"About Plenair\" from the Help menu.";
    EXPECT_EQ(InWords(desktop.Messages().at(0)), "Plenair: " + help + " [Ok Information]");
    Window().show();
    Play("| table: filled");
    EXPECT_EQ(Ask("log"),
              "message: " + help + ", message: " + help + ", options beside it, options beside it, solver");
}

TEST_F(Lite, AlwaysOnTopComesAndGoesWhereTheWindowStands) {
    const QRect place = Window().frameGeometry();
    for (const std::string on : {"true", "false", "true"}) {
        Play("mnuView>mnuViewOnTop | checked mnuViewOnTop: " + on + "; visible cmdMoreInfo: true");
        const Qt::WindowFlags flags = Window().windowFlags() & Window().windowHandle()->flags();
        EXPECT_EQ(flags.testFlag(Qt::WindowStaysOnTopHint), on == "true");
        EXPECT_EQ(Window().frameGeometry(), place);
    }
}

} // namespace
