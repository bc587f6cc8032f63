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
    Desktop().PlaySound = [&](const std::string&, unsigned) { order += "call"; };
    Start();
    EXPECT_EQ(order, "Defaults Set, call");
    EXPECT_TRUE(fs::exists(File("User.cfg")));
    Play("| bases: 0.8 5 0.8 500 5 5; text txtInputA: ; text txtInputB: ; focus: txtInputB; table: blank");
    const QRect frame = Window().frameGeometry();
    EXPECT_EQ(frame.topRight(), QPoint(Window().screen()->geometry().right(), 20));
    EXPECT_EQ(Window().minimumSize(), Window().maximumSize()) << "the frame can't be dragged to another size";
}

TEST_F(StartOfTheProgram, ShowsTheSettingsOfTheFile) {
    SettingsRecord settings;
    settings.MaxLPM = 1.25;
    settings.MaxVelocity = 1234.5;
    settings.Analysis = 0.00002;
    const std::tuple<int, const char*, const char*> bases[] = {
        {0, "0", "basis: 0; enabled: 0; text lblInputA: Flow &Rate (L/s)"},
        {2, "2", "basis: 2; enabled: 29; text lblInputA: Flow &Rate (L/s)"},
        {4, "4", "basis: 4; enabled: 4; text lblInputA: &Width (mm)"},
        {5, "0", "basis: 0; enabled: 0; text lblInputA: Flow &Rate (L/s)"},
        {-1, "0", "basis: 0; enabled: 0; text lblInputA: Flow &Rate (L/s)"}};
    for (const auto& [inFile, selected, seen] : bases) {
        SetNumberLocale({.DecimalMark = inFile == 0 ? "." : ",", .GroupMark = ""});
        settings.CalcBasis = static_cast<std::int16_t>(inFile);
        WriteSettingsFile(settings);
        Start();
        Play(std::string("| focus: txtInputB; checked optCalcBasis(") + selected + "): true; " + seen +
             "; bases: " +
             (inFile == 0 ? "1.25 1234.5 1.25 0.00002 1234.5 1234.5"
                          : "1,25 1234,5 1,25 0,00002 1234,5 1234,5"));
        EXPECT_EQ(Settings.MaxVelocity, 1234.5);
        EndProgram();
    }
}

TEST_F(StartOfTheProgram, TypedTargetsChangeTheMemoryAndLeavingWritesNothing) {
    const std::string saved = ReadFile(File("User.cfg"));
    for (const bool byMenu : {true, false}) {
        Start();
        Play("| bases: 0.8 5 0.8 500 5 5\n"
             "@cmdMoreInfo txtCalcBasis(0)=1.5 Alt+V 6.25 Alt+C 9 Alt+A 9 Alt+A 9 | basis: 4");
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
