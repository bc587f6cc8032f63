#include "core/windows/frmInputs.h"
#include "windows/WindowTest.h"

#include <QApplication>
#include <QTimer>

namespace {

constexpr const char* kBoxes[] = {"txtMaxLPM",           "txtMaxVelocity", "txtAnalysis",
                                  "txtRoundOff",         "txtFluidTemp",   "txtSurfaceRoughness1",
                                  "txtSurfaceRoughness2"};

class Options : public WindowTest {
  protected:
    void SetUp() override { Start(); }

    // Opens the options from the menu and works on them; `steps` must close them.
    void WithOptions(const std::function<void()>& steps) {
        bool opened = false;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
            m_options = qobject_cast<frmInputs*>(QApplication::activeModalWidget());
            if (m_options == nullptr || !m_options->isActiveWindow()) {
                return;
            }
            timer.stop();
            opened = true;
            steps();
            EXPECT_FALSE(m_options->isVisible()) << "the options stay open";
            m_options->hide();
        });
        timer.start(5);
        ChooseFromMenu("mnuEdit", "mnuEditOptions");
        EXPECT_TRUE(opened);
    }

    template <typename Control>
    Control& Get(const std::string& name) const {
        return *m_options->findChild<Control*>(QString::fromStdString(name));
    }
    void EnterOption(const std::string& name, const std::string& text) const {
        ClickOn(&Get<TextBox>(name));
        Get<TextBox>(name).SelectAll();
        text.empty() ? Press(Qt::Key_Delete) : Type(text.c_str());
    }
    void ClickOption(const std::string& name) const { ClickOn(&Get<QWidget>(name)); }

    // What the options show: the basis that is on, or -1, and the numbers.
    std::string Shown() const {
        int on = -1;
        for (int i = 0; i < 4; ++i) {
            on = Get<Option>("optCalcBasis(" + std::to_string(i) + ")").isChecked() ? i : on;
        }
        std::string shown = std::to_string(on);
        for (const char* box : kBoxes) {
            shown += " " + Get<TextBox>(box).Text();
        }
        return shown;
    }

    std::string File() const { return ReadFile(m_environment.Folder().File("User.cfg")); }

    frmInputs* m_options = nullptr;
};

TEST_F(Options, ShowTheFileAndForgetWhatChangedInMemory) {
    Unfold();
    Enter("txtCalcBasis(0)", "3");
    WithOptions([this] {
        EXPECT_EQ(Get<Label>("lblConfigFile").text(), "User.cfg");
        EXPECT_EQ(Get<TextBox>("txtDefPath").Text(), m_environment.Folder().Path());
        EXPECT_EQ(Shown(), "0 0.8 5 500 25 26 0.00015 0.002");
        ClickOption("cmdCancel");
    });
    EXPECT_EQ(Settings.MaxLPM, 0.8);
    EXPECT_EQ(Text("txtCalcBasis(0)"), "3") << "the window is not brought up to date";
}

TEST_F(Options, OkStoresSavesAndRefreshesTheWindow) {
    SetNumberLocale({.DecimalMark = ",", .GroupMark = "."});
    Unfold();
    Click("optCalcBasis(4)");
    Enter("txtCalcBasis(4)", "4,4");
    Enter("txtInputA", "500");
    WithOptions([this] {
        EXPECT_EQ(Shown().substr(0, 2), "0 ") << "that of the file";
        EnterOption("txtDefPath", "/no such, \"folder\"");
        ClickOption("optCalcBasis(2)");
        EXPECT_EQ(Settings.CalcBasis, 2) << "at once";
        const char* numbers[] = {"1,5", "6", "1.000", "24,5", "-3", "0,0003", "4E-03"};
        for (std::size_t i = 0; i < std::size(kBoxes); ++i) {
            EnterOption(kBoxes[i], numbers[i]);
        }
        EXPECT_EQ(Settings.MaxLPM, 0.8) << "only by OK";
        Press(Qt::Key_O, Qt::AltModifier);
    });
    EXPECT_EQ(File(),
              "\"/no such, \"\"folder\"\"\"\r\n2\r\n1.5\r\n6\r\n1000\r\n24\r\n-3\r\n0.0003\r\n0.004\r\n");
    EXPECT_EQ(Settings.DefPath, "/no such, \"folder\"");
    EXPECT_EQ(Settings.RoundOff, 24) << "halves to even";
    EXPECT_EQ(BasisTexts(), "1,5 6 1,5 1000 4,4 6 ");
    EXPECT_TRUE(Find<Option>("optCalcBasis(2)").isChecked());
    EXPECT_EQ(Ask("selected"), "txtInputA 500");
}

TEST_F(Options, OkThatChangesOnlyTheBasisBlanksTheTable) {
    Unfold();
    Click("optCalcBasis(1)");
    FillTable();
    EXPECT_FALSE(IsBlank());
    WithOptions([this] { ClickOption("cmdOK"); });
    EXPECT_TRUE(Find<Option>("optCalcBasis(0)").isChecked()) << "that of the file";
    EXPECT_TRUE(IsBlank());
    EXPECT_EQ(Ask("selected"), "txtInputA 500");
}

TEST_F(Options, CancelWritesAndRestoresNothing) {
    FillTable();
    const std::string before = File();
    WithOptions([this] {
        EnterOption("txtFluidTemp", "40");
        ClickOption("optCalcBasis(3)");
        Press(Qt::Key_C, Qt::AltModifier);
    });
    EXPECT_EQ(File(), before);
    EXPECT_EQ(Settings.FluidTemp, 26);
    EXPECT_EQ(Settings.CalcBasis, 3) << "stored by the click";
    EXPECT_TRUE(Find<Option>("optCalcBasis(0)").isChecked());
    EXPECT_EQ(Table(), FilledTable);
}

TEST_F(Options, WhatIsNoNumberOrCannotBeWrittenIsRefused) {
    const std::string before = File();
    const std::string path = m_environment.Folder().File("User.cfg");
    const char* texts[] = {"1,5", "", "x", "32767.5", "1e999", "0.1 m", " "};
    WithOptions([&] {
        EnterOption("txtDefPath", "/elsewhere");
        for (std::size_t i = 0; i < std::size(kBoxes); ++i) {
            const auto& box = Get<TextBox>(kBoxes[i]);
            SCOPED_TRACE(kBoxes[i]);
            const std::string good = box.Text();
            EnterOption(kBoxes[i], texts[i]);
            desktop.ExpectMessage(MessageAnswer::Ok);
            ClickOption("cmdOK");
            for (const std::string& part : {box.accessibleName().toStdString(), "\"" + box.Text() + "\""}) {
                EXPECT_NE(desktop.LastText().find(part), std::string::npos) << part;
            }
            EXPECT_EQ(Focused(), kBoxes[i]);
            EXPECT_EQ(box.selectedText().toStdString(), texts[i]);
            EXPECT_TRUE(m_options->isVisible());
            EnterOption(kBoxes[i], good);
        }
        EXPECT_EQ(File(), before);
        fs::remove(path);
        fs::create_directory(path);
        desktop.ExpectMessage(MessageAnswer::Ok);
        ClickOption("cmdOK");
        EXPECT_NE(desktop.LastText().find(path), std::string::npos);
        EXPECT_TRUE(m_options->isVisible());
        EXPECT_EQ(Settings.DefPath, m_environment.Folder().Path()) << "nothing at all is stored";
        fs::remove(path);
        ClickOption("cmdOK");
    });
    EXPECT_EQ(Settings.DefPath, "/elsewhere");
}

TEST_F(Options, KeysGoThroughTheControls) {
    WithOptions([this] {
        EXPECT_TRUE(m_options->windowFlags().testFlag(Qt::FramelessWindowHint));
        std::string order;
        for (int i = 0; i < 12; ++i) {
            const std::string name = Focused();
            const auto* box = qobject_cast<TextBox*>(QApplication::focusWidget());
            const bool selected = box != nullptr && !box->selectedText().isEmpty();
            order += name + (selected ? " (selected) " : " ");
            Press(Qt::Key_Escape);
            if (!name.starts_with("cmd")) {
                Press(Qt::Key_Return);
            }
            m_options->close(); // as a desktop's key does
            Press(Qt::Key_Tab);
        }
        EXPECT_EQ(order,
                  "txtDefPath optCalcBasis(0) txtMaxLPM txtMaxVelocity txtAnalysis txtRoundOff (selected) "
                  "txtFluidTemp (selected) txtSurfaceRoughness1 (selected) cmdOK cmdCancel "
                  "txtSurfaceRoughness2 (selected) txtDefPath ");
        Press(Qt::Key_Right);
        EXPECT_EQ(Settings.CalcBasis, 1);
        ClickOption("cmdCancel");
    });
    EXPECT_TRUE(Window().isActiveWindow());
}

} // namespace
