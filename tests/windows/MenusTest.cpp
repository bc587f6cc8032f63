#include "windows/WindowTest.h"

#include "platform/Editor.h"
#include "platform/RegistryStore.h"
#include "platform/Sound.h"
#include "platform/TextFiles.h"
#include "platform/qt/Desktop.h"

#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QTimer>
#include <QWindow>

namespace plenair {
namespace {

class Menus : public WindowTest {
  protected:
    void SetUp() override { Start(); }
};

TEST_F(Menus, StandInOrder) {
    std::string menus;
    for (const QAction* menu : Window().MenuBar()->actions()) {
        menus += menu->text().toStdString() + ":";
        for (const QAction* entry : menu->menu()->actions()) {
            menus += " " + entry->objectName().toStdString() + " ";
            menus += entry->isSeparator() ? "-" : entry->text().toStdString();
            menus += entry->isEnabled() ? "" : " (disabled)";
        }
        menus += "\n";
    }
    EXPECT_EQ(menus, "&File: mnuFileMajor &Project Solver mnuFile1 - mnuFileLog &Record Log (disabled) "
                     "mnuFileLogOpen &Open Log mnuFile2 - mnuFileExit E&xit\n"
                     "&Edit: mnuEditOptions &Options\n"
                     "View: mnuViewOnTop Always On &Top\n"
                     "Help: mnuHelpManual &Help! mnuHelp1 - mnuHelpAbout &About Plenair\n");
}

TEST_F(Menus, EntriesLeadOutOfTheWindow) {
    std::string done;
    Window().OpenProjectSolver = [&] { done += Window().isVisible() ? "solver beside it, " : "solver, "; };
    Window().RecordLog = [&] { done += "record, "; };
    Window().OpenLog = [&] { done += "open, "; };
    Window().ShowOptions = [&] { done += "options, "; };
    Window().ShowAbout = [&] { done += "about, "; };
    Window().EndProgram = [&] { done += "end, "; };
    FillTable();
    ChooseFromMenu("mnuFile", "mnuFileLog");
    Press(Qt::Key_Escape); // the disabled entry leaves the menu open
    EXPECT_EQ(done, "");
    Window().EnableRecordLog(true);
    ChooseFromMenu("mnuFile", "mnuFileLog");
    ChooseFromMenu("mnuFile", "mnuFileLogOpen");
    ChooseFromMenu("mnuEdit", "mnuEditOptions");
    ChooseFromMenu("mnuHelp", "mnuHelpAbout");
    ChooseFromMenu("mnuFile", "mnuFileExit");
    Press(Qt::Key_E, Qt::AltModifier);
    Press(Qt::Key_O);
    EXPECT_EQ(done, "record, open, options, about, end, options, ");
    EXPECT_EQ(Table(), FilledTable);
    EXPECT_EQ(Focused(), "txtInputA") << "a menu takes the focus only for a while";
    done.clear();
    ChooseFromMenu("mnuFile", "mnuFileMajor");
    EXPECT_EQ(done, "solver, ");
    Window().show();
    EXPECT_EQ(Table(), FilledTable) << "hidden meanwhile, with all that it holds";
}

TEST_F(Menus, HelpIsAnInformationBox) {
    for (int way = 0; way < 2; ++way) {
        m_messages.Expect(MessageAnswer::Ok);
        if (way == 0) {
            Press(Qt::Key_F1);
        } else {
            ChooseFromMenu("mnuHelp", "mnuHelpManual");
        }
        ASSERT_EQ(m_messages.Asked().size(), static_cast<std::size_t>(way + 1));
        const MessageRequest& asked = m_messages.Asked().back();
        EXPECT_EQ(
            asked.text,
            "For help with Plenair, you should consult the user manual, which is available free of charge, "
            "and should accompany the installation package to be included in the program directory.\n\n"
            "Call me (Corin) if you need another copy.  Contact details are under \"About Plenair\" from "
            "the Help menu.");
        EXPECT_EQ(asked.title, "Plenair");
        EXPECT_EQ(asked.icon, MessageIcon::Information);
        EXPECT_EQ(asked.buttons, MessageButtons::Ok);
    }
}

TEST_F(Menus, AlwaysOnTopComesAndGoes) {
    FillTable();
    const QRect place = Window().frameGeometry();
    const auto isOnTop = [this] {
        return Window().windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint);
    };
    QAction& entry = Find<QAction>("mnuViewOnTop");
    EXPECT_FALSE(entry.isChecked());
    EXPECT_FALSE(isOnTop());
    QWidget other; // the window that the user is in
    other.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    for (int i = 1; i <= 4; ++i) {
        const bool on = i % 2 == 1;
        entry.trigger();
        QCoreApplication::processEvents();
        EXPECT_EQ(entry.isChecked(), on);
        EXPECT_EQ(isOnTop(), on);
        EXPECT_TRUE(Window().isVisible());
        EXPECT_EQ(Window().frameGeometry(), place);
        EXPECT_TRUE(other.isActiveWindow()) << "it never takes the keyboard";
        EXPECT_EQ(Table(), FilledTable);
    }
    other.hide();
    Window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Window()));
    ChooseFromMenu("mnuView", "mnuViewOnTop");
    EXPECT_TRUE(isOnTop());
    EXPECT_EQ(Focused(), "txtInputA");
}

TEST_F(Menus, MessageBoxesOfTheDesktop) {
    // The real ones in place of the script. That also connects the user's folder and store, so they go again.
    const std::string folder = ProgramFolder();
    ConnectDesktop();
    SetRegistryFile("");
    SetProgramFolder(folder);
    SetSoundProvider({});
    SetEditorProvider({});
    const ExpectDialogs expected;
    const struct {
        MessageRequest request;
        QMessageBox::StandardButton pressed; // NoButton: Escape
        MessageAnswer answer;
    } rows[] = {
        {{"a <b>\nc", "T", MessageButtons::Ok, MessageIcon::None}, QMessageBox::Ok, MessageAnswer::Ok},
        {{"a", "T", MessageButtons::Ok, MessageIcon::Critical}, QMessageBox::NoButton, MessageAnswer::Ok},
        {{"a", "T", MessageButtons::YesNo, MessageIcon::Question}, QMessageBox::Yes, MessageAnswer::Yes},
        {{"a", "T", MessageButtons::YesNo, MessageIcon::Question}, QMessageBox::No, MessageAnswer::No},
        {{"a", "T", MessageButtons::YesNo, MessageIcon::Question}, QMessageBox::NoButton, MessageAnswer::No},
        {{"a", "T", MessageButtons::YesNoCancel, MessageIcon::Exclamation},
         QMessageBox::NoButton,
         MessageAnswer::Cancel},
        {{"a", "T", MessageButtons::YesNoCancel, MessageIcon::Exclamation},
         QMessageBox::No,
         MessageAnswer::No},
        {{"a", "T", MessageButtons::OkCancel, MessageIcon::Information},
         QMessageBox::Cancel,
         MessageAnswer::Cancel},
        {{"a", "T", MessageButtons::RetryCancel, MessageIcon::Information},
         QMessageBox::Retry,
         MessageAnswer::Retry},
    };
    const std::map<MessageIcon, QMessageBox::Icon> icons = {
        {MessageIcon::None, QMessageBox::NoIcon},
        {MessageIcon::Critical, QMessageBox::Critical},
        {MessageIcon::Question, QMessageBox::Question},
        {MessageIcon::Exclamation, QMessageBox::Warning},
        {MessageIcon::Information, QMessageBox::Information}};
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        SCOPED_TRACE(i);
        const auto& row = rows[i];
        QTimer::singleShot(20, &Window(), [&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            EXPECT_EQ(box->windowTitle().toStdString(), row.request.title);
            EXPECT_EQ(box->text().toStdString(), row.request.text);
            EXPECT_EQ(box->textFormat(), Qt::PlainText);
            EXPECT_EQ(box->icon(), icons.at(row.request.icon));
            if (row.pressed == QMessageBox::NoButton) {
                QTest::keyClick(box, Qt::Key_Escape);
            } else {
                ASSERT_NE(box->button(row.pressed), nullptr);
                QTest::mouseClick(box->button(row.pressed), Qt::LeftButton);
            }
            if (box->isVisible()) {
                ADD_FAILURE() << "the box did not close";
                box->reject();
            }
        });
        EXPECT_EQ(ShowMessage(row.request), row.answer);
    }
}

} // namespace
} // namespace plenair
