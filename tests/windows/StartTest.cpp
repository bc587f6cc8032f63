#include "core/start/Main.h"
#include "windows/WindowTest.h"

#include <QApplication>
#include <QScreen>
#include <QTimer>

namespace {

class StartOfTheProgram : public WindowTest {
  protected:
    std::string SettingsFile() const { return m_environment.Folder().File("User.cfg"); }
};

TEST_F(StartOfTheProgram, TheFirstStart) {
    fs::remove(SettingsFile());
    std::string order;
    Desktop().AskByMessageBox = [&](const MessageRequest& request) {
        order += request.Title + (QApplication::topLevelWidgets().empty() ? "" : " over a window") + ", ";
        return MessageAnswer::Ok;
    };
    Desktop().PlaySound = [&](const std::string&, unsigned) { order += "call, "; };
    Start();
    EXPECT_EQ(order, "Defaults Set, call, ");
    EXPECT_TRUE(fs::exists(SettingsFile()));
    EXPECT_EQ(Window().windowTitle(), "Plenair Lite");
    EXPECT_EQ(BasisTexts(), "0.8 5 0.8 500 5 5 ");
    EXPECT_EQ(Text("txtInputA") + Text("txtInputB"), "");
    EXPECT_EQ(Focused(), "txtInputB");
    EXPECT_TRUE(IsBlank());
    EXPECT_EQ(Find<Label>("lblInputB").text(), "&Height (mm)");
    EXPECT_EQ(Find<Label>("lblInputA").text(), "Flow &Rate (L/s)");

    QTest::qWait(50);
    const QRect frame = Window().frameGeometry();
    EXPECT_EQ(frame.right(), Window().screen()->geometry().right());
    EXPECT_EQ(frame.top(), 20);
    EXPECT_EQ(Window().minimumSize(), Window().maximumSize()) << "the frame can't be dragged to another size";
    EXPECT_FALSE(Window().windowFlags() & Qt::WindowMaximizeButtonHint);
}

TEST_F(StartOfTheProgram, ShowsTheSettingsOfTheFile) {
    SettingsRecord settings;
    settings.MaxLPM = 1.25;
    settings.MaxVelocity = 1234.5;
    settings.Analysis = 0.00002;
    WriteSettingsFile(settings);
    Start();
    EXPECT_EQ(BasisTexts(), "1.25 1234.5 1.25 0.00002 1234.5 1234.5 ");
    Unload();
    SetNumberLocale({.DecimalMark = ",", .GroupMark = "."});
    Start();
    EXPECT_EQ(BasisTexts(), "1,25 1234,5 1,25 0,00002 1234,5 1234,5 ");
    EXPECT_EQ(Settings.MaxVelocity, 1234.5);
    Unload();

    for (const auto& [inFile, selected] :
         {std::pair(2, 2), std::pair(4, 4), std::pair(5, 0), std::pair(-1, 0)}) {
        SCOPED_TRACE(inFile);
        settings.CalcBasis = static_cast<std::int16_t>(inFile);
        WriteSettingsFile(settings);
        Start();
        EXPECT_EQ(Settings.CalcBasis, selected);
        EXPECT_EQ(Find<Label>("lblInputA").text(), selected == 4 ? "&Width (mm)" : "Flow &Rate (L/s)");
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

TEST_F(StartOfTheProgram, TypedTargetsChangeTheMemoryAndLeavingWritesNothing) {
    const std::string saved = ReadFile(SettingsFile());
    const std::function<void()> ways[] = {[this] { ChooseFromMenu("mnuFile", "mnuFileExit"); },
                                          [this] { Window().close(); }};
    for (const auto& leave : ways) {
        Start();
        EXPECT_EQ(BasisTexts(), "0.8 5 0.8 500 5 5 ");
        Unfold();
        Enter("txtCalcBasis(0)", "1.5");
        Press(Qt::Key_V, Qt::AltModifier);
        Type("6.25");
        for (const auto key : {Qt::Key_C, Qt::Key_A, Qt::Key_A}) {
            Press(key, Qt::AltModifier);
            Type("9");
        }
        EXPECT_EQ(Settings.MaxLPM, 1.5);
        EXPECT_EQ(Settings.MaxVelocity, 6.25);
        EXPECT_EQ(Settings.Analysis, 500);
        EXPECT_EQ(Settings.CalcBasis, 4);
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

} // namespace
