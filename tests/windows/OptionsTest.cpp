#include "core/windows/frmInputs.h"
#include "windows/WindowTest.h"

#include <QScreen>
#include <QWindow>

namespace {

constexpr const char* kBoxes[] = {"txtMaxLPM",           "txtMaxVelocity", "txtAnalysis",
                                  "txtRoundOff",         "txtFluidTemp",   "txtSurfaceRoughness1",
                                  "txtSurfaceRoughness2"};

class Options : public WindowTest {
  protected:
    void SetUp() override {
        Start();
        questions["saved"] = [this] { // with a bar between the lines
            return QString::fromStdString(ReadFile(File("User.cfg"))).replace("\r\n", "|").toStdString();
        };
        questions["shown"] = [this] { // by the options: the basis that is on and the numbers
            const auto isOn = [this](const char* index) {
                return Find<Option>("optCalcBasis(" + std::string(index) + ")").isChecked() ? index : "";
            };
            return Joined(std::array{"0", "1", "2", "3"}, isOn) + " " +
                   Joined(kBoxes, [this](const char* box) { return Box(box).Text(); });
        };
    }

    // Opens the options from the menu and works on them; `steps` must close them.
    void WithOptions(const std::function<void()>& steps) {
        const auto work = [&](QWidget& options) {
            m_options = qobject_cast<frmInputs*>(&options);
            EXPECT_EQ(options.windowHandle()->transientParent(), Window().windowHandle());
            steps();
            EXPECT_FALSE(options.isVisible()) << "the options stay open";
        };
        WorkOn([this] { Play("mnuEdit>mnuEditOptions"); }, {work});
    }

    frmInputs* m_options = nullptr;
};

TEST_F(Options, ShowTheFileAndCancelWritesAndRestoresNothing) {
    const std::string folder = environment.Folder().Path();
    Play("@cmdMoreInfo @optCalcBasis(1) txtCalcBasis(1)=3 @optCalcBasis(0) !fill");
    WithOptions([&] {
        Play("| shown: 0 0.8 5 500 25 26 0.00015 0.002; text lblConfigFile: User.cfg; text txtDefPath: " +
             folder + "\ntxtFluidTemp=40 @optCalcBasis(3) Alt+C");
    });
    EXPECT_EQ(Settings.MaxVelocity, 5) << "as in the file";
    EXPECT_EQ(Settings.FluidTemp, 26);
    // The basis was stored by the click; the window is not brought up to date.
    Play("| basis: 3; text txtCalcBasis(1): 3; checked optCalcBasis(0): true; table: filled; saved: \"" +
         folder + "\"|0|0.8|5|500|25|26|0.00015|0.002|");
    SettingsRecord settings;
    settings.CalcBasis = 4; // which only Lite offers
    WriteSettingsFile(settings);
    WithOptions([&] { Play("| shown:  0.8 5 500 25 26 0.00015 0.002\n@cmdCancel"); });
}

TEST_F(Options, OkStoresSavesAndRefreshesTheWindow) {
    Play("@cmdMoreInfo @optCalcBasis(1) !fill");
    WithOptions([this] { Play("@cmdOK"); }); // even if only the basis is another
    Play("| checked optCalcBasis(0): true; table: blank; selected: txtInputA 500");
    SetNumberLocale({.DecimalMark = ",", .GroupMark = "."});
    Play("@optCalcBasis(4) txtCalcBasis(4)=4,4 txtInputA=500");
    WithOptions([this] {
        Play(R"(txtDefPath=/no,"folder" @optCalcBasis(2) | basis: 2
            txtMaxLPM=1,5 txtMaxVelocity=6 txtAnalysis=1.000 txtRoundOff=24,5 txtFluidTemp=-3
            txtSurfaceRoughness1=0,0003 txtSurfaceRoughness2=4E-03)");
        EXPECT_EQ(Settings.MaxLPM, 0.8) << "only by OK";
        Play("Alt+O");
    });
    EXPECT_EQ(Settings.DefPath, "/no,\"folder\"");
    EXPECT_EQ(Settings.RoundOff, 24) << "halves go to even";
    Play("| saved: \"/no,\"\"folder\"\"\"|2|1.5|6|1000|24|-3|0.0003|0.004|; checked optCalcBasis(2): true; "
         "selected: txtInputA 500\n"
         "| text txtCalcBasis(0): 1,5; text txtCalcBasis(1): 6; text txtCalcBasis(2): 1,5\n"
         "| text txtCalcBasis(9): 6; text txtCalcBasis(3): 1000; text txtCalcBasis(4): 4,4");
}

TEST_F(Options, WhatIsNoNumberOrCannotBeWrittenIsRefused) {
    const std::string before = Ask("saved");
    const std::string path = File("User.cfg");
    WithOptions([&] {
        Play("txtDefPath=/elsewhere");
        for (const std::string box : kBoxes) {
            const bool isStep = box == "txtRoundOff";
            const std::string text = isStep ? "32767.5" : "1,5";
            const std::string reason = isStep ? "is no size step: these go from -32768 to 32767."
                                              : "is no number here, where the decimal mark is \".\".";
            const std::string good = Box(box).Text();
            Play(box + "=" + text + " ?Ok @cmdOK | selected: " + box + " " + text + "\n" + box + "=" + good);
            EXPECT_EQ(InWords(desktop.Messages().back()), "Options: " + Ask("accessibleName " + box) +
                                                              ":\n\n\"" + text + "\" " + reason +
                                                              " [Ok Exclamation]");
        }
        EXPECT_EQ(Ask("saved"), before);
        fs::remove(path);
        fs::create_directory(path);
        Play("?Ok @cmdOK");
        EXPECT_EQ(InWords(desktop.Messages().back()),
                  "Options: The settings can't be saved.\n\n" + path + ": Is a directory [Ok Exclamation]");
        EXPECT_EQ(Settings.DefPath, environment.Folder().Path()) << "nothing at all is stored";
        fs::remove(path);
        Play("txtRoundOff=32767 @cmdOK");
    });
    EXPECT_EQ(Settings.RoundOff, 32767);
    EXPECT_EQ(Settings.DefPath, "/elsewhere");
}

TEST_F(Options, KeysGoThroughTheControls) {
    SettingsRecord settings;
    settings.CalcBasis = 4; // no option of its own
    WriteSettingsFile(settings);
    WithOptions([this] {
        EXPECT_EQ(m_options->frameGeometry().topLeft(),
                  m_options->screen()->geometry().topLeft() + QPoint(267, 200));
        const QImage picture = m_options->grab().toImage();
        const std::string rim = m_options->palette().color(QPalette::Dark).name().toStdString();
        EXPECT_EQ(ColourAt(picture, 0, 60) + ColourAt(picture, 60, 0), rim + rim);
        EXPECT_TRUE(ColourAt(picture, 1, 60) != rim && ColourAt(picture, 60, 1) != rim);
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
        Play("| basis: 4\nRight | basis: 1; checked optCalcBasis(1): true\nLeft Down | basis: 2\n@cmdCancel");
    });
    EXPECT_TRUE(Window().isActiveWindow());
}

} // namespace
