#include "core/start/Main.h"
#include "windows/WindowTest.h"

#include <QScreen>
#include <QTimer>

namespace {

class StartOfTheProgram : public WindowTest {};

TEST_F(StartOfTheProgram, TheFirstStart) {
    fs::remove(File("User.cfg"));
    std::string order;
    Desktop().AskByMessageBox = [&](const MessageRequest& request) {
        order += request.Title + (QApplication::topLevelWidgets().empty() ? "" : " over a window") + ", ";
        return MessageAnswer::Ok;
    };
    Desktop().PlaySound = [&](const std::string&, unsigned) { order += "call, "; };
    Start();
    EXPECT_EQ(order, "Defaults Set, call, ");
    EXPECT_TRUE(fs::exists(File("User.cfg")));
    EXPECT_EQ(Window().windowTitle(), "Plenair Lite");
    EXPECT_EQ(BasisTexts(), "0.8 5 0.8 500 5 5 ");
    Play(
        "| text txtInputA: ; text txtInputB: ; focus: txtInputB; table: blank; text lblInputB: &Height (mm); "
        "text lblInputA: Flow &Rate (L/s)");
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
    EndProgram();
    SetNumberLocale({.DecimalMark = ",", .GroupMark = "."});
    Start();
    EXPECT_EQ(BasisTexts(), "1,25 1234,5 1,25 0,00002 1234,5 1234,5 ");
    EXPECT_EQ(Settings.MaxVelocity, 1234.5);
    const std::pair<int, const char*> bases[] = {{2, "2"}, {4, "4"}, {5, "0"}, {-1, "0"}};
    for (const auto& [inFile, selected] : bases) {
        EndProgram();
        settings.CalcBasis = static_cast<std::int16_t>(inFile);
        WriteSettingsFile(settings);
        Start();
        Play("| focus: txtInputB; basis: " + std::string(selected) +
             "; text lblInputA: " + (*selected == '4' ? "&Width (mm)" : "Flow &Rate (L/s)"));
        for (const std::string index : {"0", "1", "2", "3", "4"}) {
            EXPECT_EQ(Find<Option>("optCalcBasis(" + index + ")").isChecked(), index == selected) << index;
            EXPECT_EQ(Box("txtCalcBasis(" + index + ")").isEnabled(), index == selected) << index;
        }
        EXPECT_EQ(Box("txtCalcBasis(9)").isEnabled(), *selected == '2');
    }
}

TEST_F(StartOfTheProgram, TypedTargetsChangeTheMemoryAndLeavingWritesNothing) {
    const std::string saved = ReadFile(File("User.cfg"));
    for (const bool byMenu : {true, false}) {
        Start();
        EXPECT_EQ(BasisTexts(), "0.8 5 0.8 500 5 5 ");
        Play("@cmdMoreInfo txtCalcBasis(0)=1.5 Alt+V 6.25 Alt+C 9 Alt+A 9 Alt+A 9 | basis: 4");
        EXPECT_EQ(Settings.MaxLPM, 1.5);
        EXPECT_EQ(Settings.MaxVelocity, 6.25);
        EXPECT_EQ(Settings.Analysis, 500);
        bool left = true;
        QTimer::singleShot(0, &Window(),
                           [&] { byMenu ? Play("mnuFile>mnuFileExit") : void(Window().close()); });
        QTimer::singleShot(5000, &Window(), [&] {
            left = false;
            QApplication::exit();
        });
        QApplication::exec();
        EXPECT_TRUE(left);
        EndProgram();
        EXPECT_EQ(ReadFile(File("User.cfg")), saved);
    }
}

} // namespace
