#include "platform/qt/MessageBoxes.h"
#include "windows/WindowTest.h"

#include <QApplication>
#include <QMessageBox>
#include <QTimer>
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
    FillTable();
    ChooseFromMenu("mnuEdit", "mnuEditOptions");
    Press(Qt::Key_E, Qt::AltModifier);
    Press(Qt::Key_O);
    EXPECT_EQ(Focused(), "txtInputA") << "a menu takes the focus only for a while";
    ChooseFromMenu("mnuFile", "mnuFileMajor");
    EXPECT_EQ(done, "options, options, solver, ");
    Window().show();
    EXPECT_EQ(Table(), FilledTable) << "hidden meanwhile, with all that it holds";
}

TEST_F(Menus, HelpIsAnInformationBox) {
    desktop.ExpectMessage(MessageAnswer::Ok);
    desktop.ExpectMessage(MessageAnswer::Ok);
    Press(Qt::Key_F1);
    ChooseFromMenu("mnuHelp", "mnuHelpManual");
    ASSERT_EQ(desktop.Messages().size(), 2U);
    for (const MessageRequest& asked : desktop.Messages()) {
        EXPECT_TRUE(asked.Text.starts_with("For help with Plenair")) << asked.Text;
        EXPECT_EQ(asked.Icon, MessageIcon::Information);
    }
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
        EXPECT_TRUE(Window().isVisible());
        EXPECT_EQ(Window().frameGeometry(), place);
        EXPECT_TRUE(other.isActiveWindow()) << "it never takes the keyboard";
        EXPECT_EQ(Table(), FilledTable);
    }
    other.hide();
    Window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Window()));
    ChooseFromMenu("mnuView", "mnuViewOnTop");
    EXPECT_TRUE(entry.isChecked());
    EXPECT_EQ(Focused(), "txtInputA");
}

TEST_F(Menus, MessageBoxesOfTheDesktop) {
    Desktop().AskByMessageBox = AskByMessageBox; // the real one
    dialogsExpected = true;
    const struct {
        MessageButtons buttons;
        QMessageBox::StandardButton pressed; // NoButton: Escape
        MessageAnswer answer;
    } rows[] = {
        {MessageButtons::Ok, QMessageBox::Ok, MessageAnswer::Ok},
        {MessageButtons::Ok, QMessageBox::NoButton, MessageAnswer::Ok},
        {MessageButtons::YesNo, QMessageBox::Yes, MessageAnswer::Yes},
        {MessageButtons::YesNo, QMessageBox::NoButton, MessageAnswer::No},
        {MessageButtons::YesNoCancel, QMessageBox::No, MessageAnswer::No},
        {MessageButtons::YesNoCancel, QMessageBox::NoButton, MessageAnswer::Cancel},
        {MessageButtons::RetryCancel, QMessageBox::Retry, MessageAnswer::Retry},
    };
    for (const auto& row : rows) {
        QTimer::singleShot(20, &Window(), [&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            EXPECT_EQ(box->windowTitle(), "T");
            EXPECT_EQ(box->text(), "a <b>\nc");
            EXPECT_EQ(box->textFormat(), Qt::PlainText);
            EXPECT_EQ(box->icon(), QMessageBox::Critical);
            if (row.pressed == QMessageBox::NoButton) {
                QTest::keyClick(box, Qt::Key_Escape);
            } else {
                QTest::mouseClick(box->button(row.pressed), Qt::LeftButton);
            }
        });
        EXPECT_EQ(ShowMessage({"a <b>\nc", "T", row.buttons, MessageIcon::Critical}), row.answer);
    }
}

} // namespace
