#include "core/frmInputs.h"
#include "platform/NumberText.h"
#include "windows/WindowTest.h"

#include <QApplication>
#include <QTimer>

#include <filesystem>
#include <functional>

namespace plenair {
namespace {

constexpr const char* kBoxes[] = {"txtMaxLPM",           "txtMaxVelocity", "txtAnalysis",
                                  "txtRoundOff",         "txtFluidTemp",   "txtSurfaceRoughness1",
                                  "txtSurfaceRoughness2"};

class Options : public WindowTest {
  protected:
    void SetUp() override { Start(); }

    // Opens the options from the menu, or by `open`, and works on them; `steps` must close them.
    void WithOptions(const std::function<void()>& steps, const std::function<void()>& open = {}) {
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
        if (open) {
            open();
        } else {
            ChooseFromMenu("mnuEdit", "mnuEditOptions");
        }
        m_options = nullptr;
        EXPECT_TRUE(opened);
    }

    template <typename Control>
    Control& Get(const std::string& name) const {
        return *m_options->findChild<Control*>(QString::fromStdString(name));
    }
    TextBox& OptionBox(const std::string& name) const { return Get<TextBox>(name); }

    void EnterOption(const std::string& name, const std::string& text) const {
        ClickOn(&OptionBox(name));
        OptionBox(name).SelectAll();
        text.empty() ? Press(Qt::Key_Delete) : Type(text.c_str());
    }

    void Ok() const { ClickOn(&Get<Button>("cmdOK")); }
    void Cancel() const { ClickOn(&Get<Button>("cmdCancel")); }

    // The option that is on, or -1.
    int BasisShown() const {
        int on = -1;
        for (int i = 0; i < 4; ++i) {
            on = Get<Option>("optCalcBasis(" + std::to_string(i) + ")").isChecked() ? i : on;
        }
        return on;
    }

    // The numbers shown, with blanks between.
    std::string Numbers() const {
        std::string numbers;
        for (const char* box : kBoxes) {
            numbers += (numbers.empty() ? "" : " ") + OptionBox(box).Text();
        }
        return numbers;
    }

    std::string File(const std::string& name = "User.cfg") const {
        return ReadFile(m_environment.Folder().File(name));
    }

    frmInputs* m_options = nullptr;
};

TEST_F(Options, ShowTheFileAndForgetWhatChangedInMemory) {
    FillTable(); // steps MaxLPM
    Unfold();
    Enter("txtCalcBasis(0)", "3");
    EXPECT_EQ(Settings.MaxLPM, 3);
    WithOptions([this] {
        EXPECT_EQ(Get<Label>("lblConfigFile").text(), "User.cfg");
        EXPECT_EQ(OptionBox("txtDefPath").Text(), m_environment.Folder().Path());
        EXPECT_EQ(BasisShown(), 0);
        EXPECT_EQ(Numbers(), "0.8 5 500 25 26 0.00015 0.002");
        Cancel();
    });
    EXPECT_EQ(Settings.MaxLPM, 0.8);
    EXPECT_EQ(Text("txtCalcBasis(0)"), "3") << "the window is not brought up to date";
}

TEST_F(Options, OkStoresSavesAndRefreshesTheWindow) {
    NumberLocale german;
    german.decimalMark = ",";
    german.groupMark = ".";
    SetNumberLocale(german);
    Unfold();
    Click("optCalcBasis(4)");
    Enter("txtCalcBasis(4)", "4,4");
    Enter("txtInputA", "500");
    WithOptions([this] {
        EXPECT_EQ(BasisShown(), 0) << "that of the file";
        EnterOption("txtDefPath", "/no such, \"folder\"");
        ClickOn(&Get<Option>("optCalcBasis(2)"));
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
    EXPECT_EQ(Settings.SurfaceRoughness2, 0.004);
    const std::pair<const char*, const char*> shown[] = {
        {"txtCalcBasis(0)", "1,5"}, {"txtCalcBasis(1)", "6"},    {"txtCalcBasis(2)", "1,5"},
        {"txtCalcBasis(9)", "6"},   {"txtCalcBasis(3)", "1000"}, {"txtCalcBasis(4)", "4,4"}};
    for (const auto& [box, text] : shown) {
        EXPECT_EQ(Text(box), text) << box;
    }
    EXPECT_TRUE(Find<Option>("optCalcBasis(2)").isChecked());
    EXPECT_TRUE(HasFocusSelected("txtInputA"));
}

TEST_F(Options, CancelWritesAndRestoresNothing) {
    FillTable();
    const std::string before = File();
    WithOptions([this] {
        EnterOption("txtFluidTemp", "40");
        ClickOn(&Get<Option>("optCalcBasis(3)"));
        Press(Qt::Key_C, Qt::AltModifier);
    });
    EXPECT_EQ(File(), before);
    EXPECT_EQ(Settings.FluidTemp, 26);
    EXPECT_EQ(Settings.CalcBasis, 3) << "stored by the click";
    EXPECT_TRUE(Find<Option>("optCalcBasis(0)").isChecked());
    EXPECT_EQ(Table(), FilledTable);
}

TEST_F(Options, WhatIsNoNumberIsRefused) {
    const std::string before = File();
    const std::pair<const char*, const char*> rows[] = {
        {"txtMaxLPM", "1,5"},         {"txtMaxVelocity", ""},    {"txtAnalysis", "x"},
        {"txtRoundOff", "32767.5"},   {"txtFluidTemp", "1e999"}, {"txtSurfaceRoughness1", "0.1 m"},
        {"txtSurfaceRoughness2", " "}};
    WithOptions([&] {
        EnterOption("txtDefPath", "/elsewhere");
        for (const auto& [box, text] : rows) {
            SCOPED_TRACE(box);
            const std::string good = OptionBox(box).Text();
            EnterOption(box, text);
            m_messages.Expect(MessageAnswer::Ok);
            Ok();
            EXPECT_NE(m_messages.LastText().find(OptionBox(box).accessibleName().toStdString()),
                      std::string::npos);
            EXPECT_NE(m_messages.LastText().find("\"" + std::string(text) + "\""), std::string::npos);
            EXPECT_EQ(Focused(), box);
            EXPECT_EQ(OptionBox(box).selectedText().toStdString(), text);
            EXPECT_TRUE(m_options->isVisible());
            EnterOption(box, good);
        }
        EXPECT_EQ(Settings.DefPath, m_environment.Folder().Path()) << "nothing at all is stored";
        EXPECT_EQ(File(), before);
        EnterOption("txtRoundOff", "25.5");
        Ok();
    });
    EXPECT_EQ(Settings.RoundOff, 26);
    EXPECT_EQ(Settings.DefPath, "/elsewhere");
}

TEST_F(Options, AFileThatCannotBeWrittenLeavesTheDialogOpen) {
    const std::string path = m_environment.Folder().File("User.cfg");
    WithOptions([&] {
        std::filesystem::remove(path);
        std::filesystem::create_directory(path);
        EnterOption("txtFluidTemp", "40");
        m_messages.Expect(MessageAnswer::Ok);
        Ok();
        EXPECT_NE(m_messages.LastText().find(path), std::string::npos);
        EXPECT_NE(m_messages.LastText().find("Is a directory"), std::string::npos);
        EXPECT_TRUE(m_options->isVisible());
        EXPECT_EQ(Settings.FluidTemp, 26);
        Cancel();
    });
}

TEST_F(Options, AnotherFileAndABasisWithoutAnOption) {
    std::filesystem::remove(m_environment.Folder().File("User.cfg"));
    for (const std::int16_t basis : {std::int16_t{4}, std::int16_t{9}, std::int16_t{-1}}) {
        SettingsRecord settings;
        settings.ConfigFile = "Büro & Co.cfg";
        settings.CalcBasis = basis;
        WriteSettingsFile(settings);
        WithOptions([this] {
            EXPECT_EQ(Get<Label>("lblConfigFile").text(), "Büro & Co.cfg");
            EXPECT_EQ(BasisShown(), -1);
            Ok();
        });
        EXPECT_EQ(Settings.CalcBasis, basis);
        EXPECT_TRUE(File("Büro & Co.cfg").starts_with("\"\"\r\n" + std::to_string(basis) + "\r\n"));
        EXPECT_TRUE(Find<Option>("optCalcBasis(4)").isChecked()) << "it was the first of them";
    }
    Enter("txtInputB", "300");
    Enter("txtInputA", "500");
    Press(Qt::Key_Return);
    EXPECT_TRUE(IsBlank()) << "there is no such basis";
}

TEST_F(Options, AFileThatIsGoneIsMadeAnew) {
    std::filesystem::remove(m_environment.Folder().File("User.cfg"));
    Settings.FluidTemp = 40;
    m_messages.Expect(MessageAnswer::Ok);
    WithOptions([this] {
        EXPECT_EQ(m_messages.LastText(),
                  "Configuration File Missing.  Default Values Set and Saved as User.cfg.");
        EXPECT_EQ(Numbers(), "0.8 5 500 25 26 0.00015 0.002");
        Cancel();
    });
    EXPECT_TRUE(std::filesystem::exists(m_environment.Folder().File("User.cfg")));
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
        EXPECT_EQ(Focused(), "optCalcBasis(0)");
        Press(Qt::Key_Right);
        EXPECT_EQ(Settings.CalcBasis, 1);
        Cancel();
    });
    EXPECT_TRUE(Window().isActiveWindow());
    Click("cmdMoreInfo");
    EXPECT_EQ(Focused(), "txtInputA") << "it takes input again";
}

TEST_F(Options, OverTheSolverTheLiteWindowStaysAsItWas) {
    ChooseFromMenu("mnuFile", "mnuFileMajor");
    ASSERT_FALSE(Window().isVisible());
    QTest::qWait(0);
    QWidget* const solver = QApplication::activeWindow();
    ASSERT_NE(solver, nullptr);
    WithOptions(
        [this] {
            EnterOption("txtMaxLPM", "2");
            ClickOn(&Get<Option>("optCalcBasis(1)"));
            Ok();
        },
        [&] { ClickOn(solver->findChild<QWidget*>("cmdMajorOptions")); });
    EXPECT_EQ(Settings.MaxLPM, 2);
    EXPECT_EQ(Text("txtCalcBasis(0)"), "0.8");
    EXPECT_TRUE(Find<Option>("optCalcBasis(0)").isChecked());
}

} // namespace
} // namespace plenair
