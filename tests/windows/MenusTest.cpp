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
    std::string done;
    Window().OpenProjectSolver = [&] { done += Window().isVisible() ? "solver beside it, " : "solver, "; };
    Window().ShowOptions = [&] { done += "options, "; };
    Play("?Ok ?Ok F1 mnuHelp>mnuHelpManual");
    for (const MessageRequest& asked : desktop.Messages()) {
        EXPECT_EQ(
            InWords(asked),
            "Plenair: For help with Plenair, you should consult the user manual, which is available free of "
            "charge, and should accompany the installation package to be included in the program "
            "directory.\n\nCall me (Corin) if you need another copy.  Contact details are under \"About "
            "Plenair\" from the Help menu. [Ok Information]");
    }
    FillTable();
    Play("mnuEdit>mnuEditOptions\n"
         "Alt+E o | focus: txtInputA\n" // a menu takes the focus only for a while
         "mnuFile>mnuFileMajor");
    EXPECT_EQ(done, "options, options, solver, ");
    Window().show();
    EXPECT_EQ(Table(), FilledTable) << "hidden meanwhile, with all that it holds";
}

TEST_F(Menus, AlwaysOnTopComesAndGoes) {
    FillTable();
    const QRect place = Window().frameGeometry();
    QAction& entry = Find<QAction>("mnuViewOnTop");
    EXPECT_FALSE(entry.isChecked());
    QWidget other; // the window that the user is in
    other.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    for (const bool on : {true, false, true, false}) {
        entry.trigger();
        QCoreApplication::processEvents();
        EXPECT_EQ(entry.isChecked(), on);
        EXPECT_EQ(Window().windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint), on);
        EXPECT_TRUE(Window().isVisible() && other.isActiveWindow()) << "it never takes the keyboard";
        EXPECT_EQ(Window().frameGeometry(), place);
        EXPECT_EQ(Table(), FilledTable);
    }
    other.hide();
    Window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Window()));
    Play("mnuView>mnuViewOnTop | focus: txtInputA");
    EXPECT_TRUE(entry.isChecked());
}

TEST_F(Menus, MessageBoxesOfTheDesktop) {
    Desktop().AskByMessageBox = AskByMessageBox; // the real one
    dialogsExpected = true;
    const struct {
        MessageButtons buttons;
        MessageIcon icon;
        QMessageBox::StandardButton pressed; // NoButton: Escape
        MessageAnswer answer;
        QMessageBox::Icon shown;
    } rows[] = {
        // clang-format off
        {MessageButtons::Ok, MessageIcon::None, QMessageBox::Ok, MessageAnswer::Ok, QMessageBox::NoIcon},
        {MessageButtons::Ok, MessageIcon::Critical, QMessageBox::NoButton, MessageAnswer::Ok, QMessageBox::Critical},
        {MessageButtons::OkCancel, MessageIcon::None, QMessageBox::Ok, MessageAnswer::Ok, QMessageBox::NoIcon},
        {MessageButtons::OkCancel, MessageIcon::None, QMessageBox::NoButton, MessageAnswer::Cancel, QMessageBox::NoIcon},
        {MessageButtons::YesNo, MessageIcon::Question, QMessageBox::Yes, MessageAnswer::Yes, QMessageBox::Question},
        {MessageButtons::YesNo, MessageIcon::Exclamation, QMessageBox::NoButton, MessageAnswer::No, QMessageBox::Warning},
        {MessageButtons::YesNoCancel, MessageIcon::Information, QMessageBox::No, MessageAnswer::No, QMessageBox::Information},
        {MessageButtons::YesNoCancel, MessageIcon::None, QMessageBox::NoButton, MessageAnswer::Cancel, QMessageBox::NoIcon},
        {MessageButtons::RetryCancel, MessageIcon::None, QMessageBox::Retry, MessageAnswer::Retry, QMessageBox::NoIcon},
        // clang-format on
    };
    for (const auto& row : rows) {
        const auto answer = [&](QWidget& dialog) {
            auto& box = dynamic_cast<QMessageBox&>(dialog);
            EXPECT_EQ(box.windowTitle() + "|" + box.text(), "T|a <b>\nc");
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_EQ(box.icon(), row.shown);
            row.pressed == QMessageBox::NoButton ? QTest::keyClick(&box, Qt::Key_Escape)
                                                 : QTest::mouseClick(box.button(row.pressed), Qt::LeftButton);
        };
        WorkOn(
            [&] {
                EXPECT_EQ(ShowMessage({"a <b>\nc", "T", row.buttons, row.icon}), row.answer);
            },
            {answer});
    }
}

} // namespace
