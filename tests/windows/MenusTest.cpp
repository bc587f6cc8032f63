#include "platform/qt/MessageBoxes.h"
#include "windows/WindowTest.h"

#include <QMessageBox>
#include <QWindow>

namespace {

class Menus : public WindowTest {
  protected:
    void SetUp() override { Start(); }
};

TEST_F(Menus, EntriesLeadOutOfTheWindow) {
    const auto open = [this](const std::string& what) {
        desktop.Log.push_back(what + (Window().isVisible() ? " beside it" : ""));
    };
    Window().OpenProjectSolver = [&] { open("solver"); };
    Window().ShowOptions = [&] { open("options"); };
    Play(R"(!fill ?Ok F1 ?Ok mnuHelp>mnuHelpManual mnuEdit>mnuEditOptions
        Alt+E o | focus: txtInputA
        mnuFile>mnuFileMajor)"); // a menu takes the focus only for a while
    const std::string help =
        "Plenair: For help with Plenair, you should consult the user manual, which is available free of "
        "charge, and should accompany the installation package to be included in the program directory."
        "\n\nCall me (Corin) if you need another copy.  Contact details are under \"About Plenair\" from the "
        "Help menu. [Ok Information]";
    EXPECT_EQ(InWords(desktop.Messages().at(0)), help);
    EXPECT_EQ(InWords(desktop.Messages().at(1)), help);
    desktop.Log.erase(desktop.Log.begin(), desktop.Log.begin() + 2);
    Window().show();
    Play("| table: filled; log: options beside it, options beside it, solver");
}

TEST_F(Menus, AlwaysOnTopComesAndGoes) {
    Play("!fill");
    const QRect place = Window().frameGeometry();
    QAction& entry = Find<QAction>("mnuViewOnTop");
    EXPECT_FALSE(entry.isChecked());
    QWidget other; // the window that the user is in
    other.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    for (const bool on : {true, false, true, false}) {
        entry.trigger();
        QCoreApplication::processEvents();
        EXPECT_TRUE(entry.isChecked() == on && Window().isVisible());
        EXPECT_EQ(Window().windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint), on);
        EXPECT_TRUE(other.isActiveWindow()) << "it never takes the keyboard";
        EXPECT_EQ(Window().frameGeometry(), place);
    }
    Play("| table: filled");
}

TEST_F(Menus, MessageBoxesOfTheDesktop) {
    Desktop().AskByMessageBox = AskByMessageBox; // the real one
    dialogsExpected = true;
    constexpr auto kEscape = QMessageBox::NoButton;
    const std::tuple<MessageButtons, QMessageBox::StandardButton, MessageAnswer> presses[] = {
        {MessageButtons::Ok, QMessageBox::Ok, MessageAnswer::Ok},
        {MessageButtons::Ok, kEscape, MessageAnswer::Ok},
        {MessageButtons::OkCancel, QMessageBox::Ok, MessageAnswer::Ok},
        {MessageButtons::OkCancel, kEscape, MessageAnswer::Cancel},
        {MessageButtons::YesNo, QMessageBox::Yes, MessageAnswer::Yes},
        {MessageButtons::YesNo, kEscape, MessageAnswer::No},
        {MessageButtons::YesNoCancel, QMessageBox::No, MessageAnswer::No},
        {MessageButtons::YesNoCancel, kEscape, MessageAnswer::Cancel},
        {MessageButtons::RetryCancel, QMessageBox::Retry, MessageAnswer::Retry}};
    const std::pair<MessageIcon, QMessageBox::Icon> icons[] = {
        {MessageIcon::None, QMessageBox::NoIcon},
        {MessageIcon::Critical, QMessageBox::Critical},
        {MessageIcon::Question, QMessageBox::Question},
        {MessageIcon::Exclamation, QMessageBox::Warning},
        {MessageIcon::Information, QMessageBox::Information}};
    for (std::size_t row = 0; row < std::size(presses); ++row) {
        const auto [buttons, pressed, answer] = presses[row];
        const auto [icon, shown] = icons[row % std::size(icons)];
        const auto press = [&, pressed = pressed, shown = shown](QWidget& dialog) {
            auto& box = dynamic_cast<QMessageBox&>(dialog);
            EXPECT_EQ(box.windowTitle() + "|" + box.text(), "T|a <b>\nc");
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_EQ(box.icon(), shown);
            pressed == kEscape ? QTest::keyClick(&box, Qt::Key_Escape)
                               : QTest::mouseClick(box.button(pressed), Qt::LeftButton);
        };
        MessageAnswer given = {};
        WorkOn(
            [&, buttons = buttons, icon = icon] {
                given = ShowMessage({"a <b>\nc", "T", buttons, icon});
            },
            {press});
        EXPECT_EQ(given, answer) << row;
    }
}

} // namespace
