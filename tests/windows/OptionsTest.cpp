#include "core/windows/frmInputs.h"
#include "windows/WindowTest.h"

namespace {

constexpr const char* kBoxes[] = {"txtMaxLPM",           "txtMaxVelocity", "txtAnalysis",
                                  "txtRoundOff",         "txtFluidTemp",   "txtSurfaceRoughness1",
                                  "txtSurfaceRoughness2"};

class Options : public WindowTest {
  protected:
    void SetUp() override { Start(); }

    // Opens the options from the menu and works on them; `steps` must close them.
    void WithOptions(const std::function<void()>& steps) {
        const auto work = [&](QWidget& options) {
            m_options = qobject_cast<frmInputs*>(&options);
            steps();
            EXPECT_FALSE(options.isVisible()) << "the options stay open";
        };
        WorkOn([this] { ChooseFromMenu("mnuEdit", "mnuEditOptions"); }, {work});
    }

    // What the options show: the basis that is on, or -1, and the numbers.
    std::string Shown() const {
        int on = -1;
        for (int i = 0; i < 4; ++i) {
            on = Find<Option>("optCalcBasis(" + std::to_string(i) + ")").isChecked() ? i : on;
        }
        std::string shown = std::to_string(on);
        for (const char* box : kBoxes) {
            shown += " " + Text(box);
        }
        return shown;
    }

    std::string Saved() const { return ReadFile(File("User.cfg")); }

    frmInputs* m_options = nullptr;
};

TEST_F(Options, ShowTheFileAndForgetWhatChangedInMemory) {
    Play("@cmdMoreInfo txtCalcBasis(0)=3");
    WithOptions([this] {
        EXPECT_EQ(Shown(), "0 0.8 5 500 25 26 0.00015 0.002");
        Play("| text lblConfigFile: User.cfg; text txtDefPath: " + m_environment.Folder().Path() +
             "\n@cmdCancel");
    });
    EXPECT_EQ(Settings.MaxLPM, 0.8);
    EXPECT_EQ(Text("txtCalcBasis(0)"), "3") << "the window is not brought up to date";
}

TEST_F(Options, OkStoresSavesAndRefreshesTheWindow) {
    SetNumberLocale({.DecimalMark = ",", .GroupMark = "."});
    Play("@cmdMoreInfo @optCalcBasis(4) txtCalcBasis(4)=4,4 txtInputA=500");
    WithOptions([this] {
        EXPECT_EQ(Shown().substr(0, 2), "0 ") << "that of the file";
        Enter("txtDefPath", "/no such, \"folder\"");
        Play("@optCalcBasis(2) | basis: 2\n" // at once
             "txtMaxLPM=1,5 txtMaxVelocity=6 txtAnalysis=1.000 txtRoundOff=24,5 txtFluidTemp=-3 "
             "txtSurfaceRoughness1=0,0003 txtSurfaceRoughness2=4E-03");
        EXPECT_EQ(Settings.MaxLPM, 0.8) << "only by OK";
        Play("Alt+O");
    });
    EXPECT_EQ(Saved(), // halves go to even
              "\"/no such, \"\"folder\"\"\"\r\n2\r\n1.5\r\n6\r\n1000\r\n24\r\n-3\r\n0.0003\r\n0.004\r\n");
    EXPECT_EQ(Settings.DefPath, "/no such, \"folder\"");
    EXPECT_EQ(Settings.RoundOff, 24);
    EXPECT_EQ(BasisTexts(), "1,5 6 1,5 1000 4,4 6 ");
    Play("| checked optCalcBasis(2): true; selected: txtInputA 500");
}

TEST_F(Options, OkThatChangesOnlyTheBasisBlanksTheTable) {
    Play("@cmdMoreInfo @optCalcBasis(1)");
    FillTable();
    WithOptions([this] { Click("cmdOK"); });
    Play("| checked optCalcBasis(0): true; table: blank; selected: txtInputA 500");
}

TEST_F(Options, CancelWritesAndRestoresNothing) {
    FillTable();
    const std::string before = Saved();
    WithOptions([this] { Play("txtFluidTemp=40 @optCalcBasis(3) Alt+C"); });
    EXPECT_EQ(Saved(), before);
    EXPECT_EQ(Settings.FluidTemp, 26);
    Play("| basis: 3; checked optCalcBasis(0): true; table: " + FilledTable); // stored by the click
}

TEST_F(Options, WhatIsNoNumberOrCannotBeWrittenIsRefused) {
    const std::string before = Saved();
    const std::string path = File("User.cfg");
    const std::pair<const char*, const char*> rows[] = {
        {"1,5", "is no number here, where the decimal mark is \".\"."},
        {"", "is no number."},
        {"x", "is no number."},
        {"32767.5", "is no size step: these go from -32768 to 32767."},
        {"1-2", "is no number."},
        {"0.1 m", "is no number."},
        {" ", "is no number."}};
    WithOptions([&] {
        Enter("txtDefPath", "/elsewhere");
        for (std::size_t i = 0; i < std::size(kBoxes); ++i) {
            const auto& [text, reason] = rows[i];
            const TextBox& box = Box(kBoxes[i]);
            const std::string good = box.Text();
            Enter(kBoxes[i], text);
            Play("?Ok @cmdOK | selected: " + std::string(kBoxes[i]) + " " + text);
            EXPECT_EQ(InWords(desktop.Messages().back()), "Options: " + box.accessibleName().toStdString() +
                                                              ":\n\n\"" + text + "\" " + reason +
                                                              " [Ok Exclamation]");
            EXPECT_TRUE(m_options->isVisible());
            Enter(kBoxes[i], good);
        }
        EXPECT_EQ(Saved(), before);
        fs::remove(path);
        fs::create_directory(path);
        Play("?Ok @cmdOK");
        EXPECT_EQ(InWords(desktop.Messages().back()),
                  "Options: The settings can't be saved.\n\n" + path + ": Is a directory [Ok Exclamation]");
        EXPECT_TRUE(m_options->isVisible());
        EXPECT_EQ(Settings.DefPath, m_environment.Folder().Path()) << "nothing at all is stored";
        fs::remove(path);
        Play("txtRoundOff=32767 @cmdOK");
    });
    EXPECT_EQ(Settings.RoundOff, 32767);
    EXPECT_EQ(Settings.DefPath, "/elsewhere");
}

TEST_F(Options, KeysGoThroughTheControls) {
    WithOptions([this] {
        EXPECT_TRUE(m_options->windowFlags().testFlag(Qt::FramelessWindowHint));
        std::string order;
        for (int i = 0; i < 12; ++i) {
            const std::string seen = Ask("selected");
            order += seen.ends_with(' ') ? seen : Focused() + "! ";
            Play(Focused().starts_with("cmd") ? "Escape" : "Escape Return");
            m_options->close(); // as a desktop's key does
            Play("Tab");
        }
        EXPECT_EQ(
            order,
            "txtDefPath optCalcBasis(0) txtMaxLPM txtMaxVelocity txtAnalysis txtRoundOff! txtFluidTemp! "
            "txtSurfaceRoughness1! cmdOK cmdCancel txtSurfaceRoughness2! txtDefPath ");
        Play("Right | basis: 1\n@cmdCancel");
    });
    EXPECT_TRUE(Window().isActiveWindow());
}

} // namespace
