#include "windows/WindowTest.h"

#include "core/Main.h"
#include "platform/NumberText.h"
#include "platform/Sound.h"

#include <QApplication>
#include <QGuiApplication>
#include <QScreen>
#include <QTimer>

#include <filesystem>

namespace plenair {
namespace {

class StartOfTheProgram : public WindowTest {
  protected:
    ~StartOfTheProgram() override { SetSoundProvider({}); }

    std::string SettingsFile() const { return m_environment.Folder().File("User.cfg"); }

    std::map<std::string, std::string> BasisTexts() const {
        std::map<std::string, std::string> texts;
        for (const char* index : {"0", "1", "2", "3", "4", "9"}) {
            texts[index] = Text("txtCalcBasis(" + std::string(index) + ")");
        }
        return texts;
    }
};

using Texts = std::map<std::string, std::string>;
const Texts DefaultTexts = {{"0", "0.8"}, {"1", "5"}, {"2", "0.8"}, {"3", "500"}, {"4", "5"}, {"9", "5"}};

TEST_F(StartOfTheProgram, TheFirstStart) {
    std::filesystem::remove(SettingsFile());
    std::string order;
    SetMessageBoxProvider([&](const MessageRequest& request) {
        order += request.title + (QApplication::topLevelWidgets().empty() ? "" : " over a window") + ", ";
        return MessageAnswer::Ok;
    });
    SetSoundProvider([&](const std::string&) { order += "call, "; });
    Start();
    EXPECT_EQ(order, "Defaults Set, call, ");
    EXPECT_TRUE(std::filesystem::exists(SettingsFile()));
    EXPECT_EQ(Window().windowTitle(), "Plenair Lite");
    EXPECT_EQ(BasisTexts(), DefaultTexts);
    EXPECT_TRUE(Find<Option>("optCalcBasis(0)").isChecked());
    EXPECT_EQ(Text("txtInputA"), "");
    EXPECT_EQ(Text("txtInputB"), "");
    EXPECT_EQ(Focused(), "txtInputB");
    EXPECT_TRUE(IsBlank());
    EXPECT_EQ(Find<Label>("lblInputB").text(), "&Height (mm)");
    EXPECT_EQ(Find<Label>("lblInputA").text(), "Flow &Rate (L/s)");
    EXPECT_FALSE(Find<QAction>("mnuFileLog").isEnabled());
    EXPECT_EQ(Find<MSFlexGrid>("grdMinorCalc").Row(), 0);
    EXPECT_EQ(Find<MSFlexGrid>("grdMinorCalc").Col(), 0);
}

TEST_F(StartOfTheProgram, ShowsTheSettingsOfTheFile) {
    SettingsRecord settings;
    settings.MaxLPM = 1.25;
    settings.MaxVelocity = 1234.5;
    settings.Analysis = 0.00002;
    settings.CalcBasis = 4;
    WriteSettingsFile(settings);
    const Texts point = {{"0", "1.25"},    {"1", "1234.5"}, {"2", "1.25"},
                         {"3", "0.00002"}, {"4", "1234.5"}, {"9", "1234.5"}};
    Start();
    EXPECT_EQ(BasisTexts(), point);
    EXPECT_EQ(Find<Label>("lblInputA").text(), "&Width (mm)");
    EXPECT_EQ(Focused(), "txtInputB");
    Unload();

    SetNumberLocale({.decimalMark = ",", .groupMark = "."});
    Start();
    EXPECT_EQ(Text("txtCalcBasis(0)"), "1,25");
    EXPECT_EQ(Text("txtCalcBasis(1)"), "1234,5");
    EXPECT_EQ(Text("txtCalcBasis(3)"), "0,00002");
    EXPECT_EQ(Settings.MaxLPM, 1.25);
    EXPECT_EQ(Settings.MaxVelocity, 1234.5);
}

TEST_F(StartOfTheProgram, TheBasisOfTheFileIsInForce) {
    const std::pair<int, int> rows[] = {{0, 0}, {1, 1}, {2, 2},  {3, 3},      {4, 4},
                                        {5, 0}, {9, 0}, {-1, 0}, {-32768, 0}, {32767, 0}};
    for (const auto& [inFile, selected] : rows) {
        SCOPED_TRACE(inFile);
        SettingsRecord settings;
        settings.CalcBasis = static_cast<std::int16_t>(inFile);
        WriteSettingsFile(settings);
        Start();
        EXPECT_EQ(Settings.CalcBasis, selected);
        for (int i = 0; i < 5; ++i) {
            const std::string index = "(" + std::to_string(i) + ")";
            EXPECT_EQ(Find<Option>("optCalcBasis" + index).isChecked(), i == selected) << i;
            EXPECT_EQ(Box("txtCalcBasis" + index).isEnabled(), i == selected) << i;
        }
        EXPECT_EQ(Box("txtCalcBasis(9)").isEnabled(), selected == 2);
        EXPECT_EQ(Focused(), "txtInputB");
        Unload();
    }
}

TEST_F(StartOfTheProgram, TypedTargetsChangeTheMemoryAndNotTheFile) {
    const std::string saved = ReadFile(SettingsFile());
    Start();
    Unfold();
    Enter("txtCalcBasis(0)", "1.5");
    EXPECT_EQ(Settings.MaxLPM, 1.5);
    Type("x");
    EXPECT_EQ(Settings.MaxLPM, 1.5) << "a text that is no number leaves it";
    Press(Qt::Key_Backspace);
    Press(Qt::Key_V, Qt::AltModifier);
    Type("6.25");
    EXPECT_EQ(Settings.MaxVelocity, 6.25);
    Press(Qt::Key_C, Qt::AltModifier);
    Type("9");
    Press(Qt::Key_A, Qt::AltModifier);
    Type("9");
    Press(Qt::Key_A, Qt::AltModifier);
    Type("9");
    EXPECT_EQ(Settings.MaxLPM, 1.5);
    EXPECT_EQ(Settings.MaxVelocity, 6.25);
    EXPECT_EQ(Settings.Analysis, 500);
    EXPECT_EQ(Settings.CalcBasis, 4);
    Unload();
    EXPECT_EQ(ReadFile(SettingsFile()), saved);
    Start();
    EXPECT_EQ(BasisTexts(), DefaultTexts);
    EXPECT_EQ(Settings.CalcBasis, 0);
}

TEST_F(StartOfTheProgram, LeavingWritesNothing) {
    const std::string saved = ReadFile(SettingsFile());
    const std::function<void()> ways[] = {
        [this] { ChooseFromMenu("mnuFile", "mnuFileExit"); },
        [this] { Window().close(); },
        [] {
            Press(Qt::Key_F, Qt::AltModifier);
            Press(Qt::Key_X);
        },
    };
    for (const auto& leave : ways) {
        Start();
        Unfold();
        Enter("txtCalcBasis(0)", "1.5");
        bool left = true;
        QTimer::singleShot(0, &Window(), leave);
        QTimer::singleShot(5000, &Window(), [&] {
            left = false;
            QApplication::exit();
        });
        QApplication::exec();
        EXPECT_TRUE(left);
        Unload();
        EXPECT_EQ(ReadFile(SettingsFile()), saved);
    }
}

TEST_F(StartOfTheProgram, StandsAtTheTopRight) {
    Start();
    QTest::qWait(50);
    const QRect frame = Window().frameGeometry();
    EXPECT_EQ(frame.right() + 1, QGuiApplication::primaryScreen()->geometry().right() + 1);
    EXPECT_EQ(frame.top(), 20);
    EXPECT_EQ(Window().minimumSize(), Window().maximumSize()) << "the frame can't be dragged to another size";
    EXPECT_FALSE(Window().windowFlags() & Qt::WindowMaximizeButtonHint);
}

} // namespace
} // namespace plenair
