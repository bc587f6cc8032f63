#include "lite/CalculationLog.h"
#include "platform/CurrentFolder.h"
#include "platform/Editor.h"
#include "platform/qt/Desktop.h"
#include "platform/qt/FileDialogs.h"
#include "platform/qt/OtherPrograms.h"
#include "windows/WindowTest.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QLocale>
#include <QMessageBox>
#include <QTimer>

#include <filesystem>
#include <functional>

namespace plenair {
namespace {

// The log in the window, with the desktop's own file dialogs.
class Log : public WindowTest {
  protected:
    Log() : m_folder(CurrentFolder()) {
        SetCommonDialogProvider(ShowFileDialog);
        SetEditorProvider([this](const std::string& path) {
            m_edited += path;
            return true;
        });
    }
    ~Log() override {
        SetCommonDialogProvider({});
        SetEditorProvider({});
        EnterFolder(m_folder);
    }
    void SetUp() override { Start(); }

    std::string File(const std::string& name) const { return m_environment.Folder().File(name); }
    bool CanRecord() const { return Find<QAction>("mnuFileLog").isEnabled(); }

    // Chooses a menu entry and, in the dialogs that follow, does one step after the other. Escape ends what
    // is left.
    void Choose(const std::string& entry, std::vector<std::function<void(QWidget&)>> steps) {
        const ExpectDialogs expected;
        std::size_t next = 0;
        QTimer timer;
        timer.setInterval(30);
        QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
            QWidget* const dialog = QApplication::activeModalWidget();
            if (dialog == nullptr || !dialog->isActiveWindow()) {
                return;
            }
            if (next < steps.size()) {
                steps[next++](*dialog);
            } else {
                QTest::keyClick(dialog, Qt::Key_Escape);
            }
        });
        timer.start();
        ChooseFromMenu("mnuFile", entry);
        EXPECT_EQ(next, steps.size()) << "dialogs that didn't come";
    }

    static std::function<void(QWidget&)> NameFile(const std::string& name) {
        return [name](QWidget& dialog) {
            auto* const box = dialog.findChild<QLineEdit*>();
            ASSERT_NE(box, nullptr) << dialog.windowTitle().toStdString();
            box->setText(QString::fromStdString(name));
            QTest::keyClick(box, Qt::Key_Return);
        };
    }

    static std::function<void(QWidget&)> Answer(const char* asked, QMessageBox::StandardButton button) {
        return [=](QWidget& dialog) {
            auto* const box = qobject_cast<QMessageBox*>(&dialog);
            ASSERT_NE(box, nullptr);
            EXPECT_TRUE(box->text().contains(asked)) << box->text().toStdString();
            QTest::mouseClick(box->button(button), Qt::LeftButton);
        };
    }

    std::string m_edited;

  private:
    std::string m_folder;
};

TEST_F(Log, RowsAreRecordedByKeyAndButton) {
    Press(Qt::Key_3, Qt::AltModifier);
    EXPECT_EQ(LogCount, 0) << "nothing is shown yet";
    EXPECT_EQ(Focused(), "txtInputB");
    FillTable();
    Press(Qt::Key_H, Qt::AltModifier);
    Press(Qt::Key_3, Qt::AltModifier);
    EXPECT_TRUE(HasFocusSelected("txtInputA"));
    Click("cmdLog(4)");
    EXPECT_EQ(Table(), FilledTable);
    EXPECT_TRUE(CanRecord());
    ASSERT_EQ(LogCount, 2);
    EXPECT_EQ(LogRows[0].Height, 300);
    EXPECT_EQ(LogRows[1].Vel, 4.61F);
    Unfold();
    Click("optCalcBasis(3)");
    Enter("txtInputA", "500");
    Press(Qt::Key_Return);
    Click("cmdLog(1)");
    EXPECT_EQ(LogCount, 2) << "an analysis fills row 2 alone";
    Click("cmdLog(2)");
    ASSERT_EQ(LogCount, 2) << "row 4, column 3 is the current cell, and blank";
    Window().SetCurrentCell(2, 0);
    Click("cmdLog(2)");
    ASSERT_EQ(LogCount, 3);
    EXPECT_EQ(LogRows[2].Basis, 3);
}

TEST_F(Log, SavingAsksBeforeItReplacesAFile) {
    FillTable();
    Click("cmdLog(2)");
    Choose("mnuFileLog", {});
    EXPECT_TRUE(CanRecord()) << "cancelled";
    WriteFile(File("old.pnl"), "old");
    m_messages.Expect(MessageAnswer::Ok);
    Choose("mnuFileLog",
           {NameFile("old"), Answer("old.pnl already exists", QMessageBox::No), NameFile("my new")});
    EXPECT_EQ(ReadFile(File("old.pnl")), "old");
    EXPECT_TRUE(ReadFile(File("my new.pnl")).ends_with("500\t375\t300\t1.3\t4.68\t0.69\t0\r\n"));
    EXPECT_EQ(CurrentFolder(), m_environment.Folder().Path());
    EXPECT_FALSE(CanRecord());

    Click("cmdLog(2)");
    m_messages.Expect(MessageAnswer::Ok);
    Choose("mnuFileLog", {NameFile("old.pnl"), Answer("old.pnl already exists", QMessageBox::Yes)});
    EXPECT_EQ(ReadFile(File("old.pnl")), ReadFile(File("my new.pnl")));
}

TEST_F(Log, OpeningTakesAFileThatIsThere) {
    const std::string other = File("other");
    std::filesystem::create_directory(other);
    WriteFile(other + "/my log.pnl", "");
    WriteFile(other + "/plain", "");
    Choose("mnuFileLogOpen", {NameFile("missing"), Answer("no such file", QMessageBox::Ok)});
    EXPECT_EQ(m_edited, "");
    EXPECT_EQ(Settings.DefPath, m_environment.Folder().Path());
    Choose("mnuFileLogOpen", {NameFile(other + "/my log")});
    EXPECT_EQ(m_edited, other + "/my log.pnl");
    EXPECT_EQ(Settings.DefPath, other);
    m_edited.clear();
    Choose("mnuFileLogOpen", {NameFile("plain")}); // the dialog opens in the last folder
    EXPECT_EQ(m_edited, other + "/plain");
}

TEST_F(Log, AFolderThatMustBeThere) {
    CommonDialog dialog;
    dialog.InitDir = m_environment.Folder().Path();
    dialog.DefaultExt = "gsp";
    const std::pair<int, const char*> rows[] = {{PathMustExist, ""}, {0, "missing/plant.gsp"}};
    for (const auto& [flags, expected] : rows) {
        dialog.Flags = flags;
        // Any menu entry will do.
        Window().OpenLog = [&] { dialog.ShowSave(); };
        std::vector<std::function<void(QWidget&)>> steps = {NameFile(File("missing/plant"))};
        if (flags == PathMustExist) {
            steps.push_back(Answer("no such folder", QMessageBox::Ok));
        }
        Choose("mnuFileLogOpen", steps);
        EXPECT_EQ(dialog.FileName, *expected == '\0' ? "" : File(expected));
    }
}

TEST(FileDialogs, FiltersShowEachPatternOnce) {
    EXPECT_EQ(NameFilters("Plenair Logs (*.pnl)|*.pnl|All Files (*.*)|*.*").join('|'),
              "Plenair Logs (*.pnl)|All Files (*)");
    EXPECT_EQ(NameFilters("Both|*.gsp;*.Gus|rest").join('|'), "Both (*.gsp *.Gus)");
    EXPECT_TRUE(NameFilters("").isEmpty());
}

TEST(Dates, FollowTheLocaleOfTheDesktop) {
    const std::pair<const char*, const char*> rows[] = {{"en_GB", "08-Nov-26"},
                                                        {"en_US", "Nov-08-26"},
                                                        {"de_DE", "08-Nov-26"},
                                                        {"ja_JP", "26-11月-08"},
                                                        {"C", "08-Nov-26"}};
    for (const auto& [name, text] : rows) {
        SetDateLocale(DatesOf(QLocale(name)));
        EXPECT_EQ(MediumDate({2026, 11, 8, 0, 0, 0, 0}), text) << name;
    }
    SetDateLocale({});
}

// Programs of the desktop, of which scripts stand in for all. Each notes its name and its arguments.
class Programs : public testing::Test {
  protected:
    Programs() : m_path(qgetenv("PATH")), m_data(qgetenv("XDG_DATA_HOME")) {
        qputenv("PATH", (m_folder.Path() + ":/bin:/usr/bin").c_str());
        qputenv("XDG_DATA_HOME", m_folder.Path().c_str());
        std::filesystem::create_directory(m_folder.File("applications"));
    }
    ~Programs() override {
        qputenv("PATH", m_path);
        m_data.isNull() ? qunsetenv("XDG_DATA_HOME") : qputenv("XDG_DATA_HOME", m_data);
    }

    void AddProgram(const std::string& name, const std::string& does) {
        WriteFile(m_folder.File(name), "#!/bin/sh\n" + does + "\n");
        std::filesystem::permissions(m_folder.File(name), std::filesystem::perms::owner_all);
    }
    void AddNotingProgram(const std::string& name) {
        AddProgram(name, "(echo \"${0##*/}\"; for a; do echo \"[$a]\"; done) > '" + m_folder.File("part") +
                             "'; mv '" + m_folder.File("part") + "' '" + m_folder.File("noted") + "'");
    }
    std::string Noted() {
        EXPECT_TRUE(QTest::qWaitFor([this] { return std::filesystem::exists(m_folder.File("noted")); }));
        const std::string noted = ReadFile(m_folder.File("noted"));
        std::filesystem::remove(m_folder.File("noted"));
        return noted;
    }

    TemporaryFolder m_folder;

  private:
    QByteArray m_path;
    QByteArray m_data;
};

TEST_F(Programs, TheEditorIsThatOfTheDesktopElseACommonOne) {
    const std::string log = "/logs/my $log; \"1\".pnl";
    AddNotingProgram("gnome-text-editor");
    AddNotingProgram("notes");
    AddNotingProgram("x-terminal-emulator");
    EXPECT_TRUE(EditByOtherProgram(log));
    EXPECT_EQ(Noted(), "gnome-text-editor\n[" + log + "]\n") << "the desktop names none";
    AddProgram("xdg-mime", "test \"$*\" = 'query default text/plain' && echo notes.desktop");
    EXPECT_TRUE(EditByOtherProgram(log));
    EXPECT_EQ(Noted(), "gnome-text-editor\n[" + log + "]\n") << "it names one that is gone";
    WriteFile(m_folder.File("applications/notes.desktop"), "[Desktop Entry]\nExec=notes --new %f\n");
    EXPECT_TRUE(EditByOtherProgram(log));
    EXPECT_EQ(Noted(), "notes\n[--new]\n[" + log + "]\n");
    WriteFile(m_folder.File("applications/notes.desktop"), "[Desktop Entry]\nExec=notes\nTerminal=true\n");
    EXPECT_TRUE(EditByOtherProgram(log));
    EXPECT_EQ(Noted(), "x-terminal-emulator\n[-e]\n[notes]\n[" + log + "]\n");
}

TEST_F(Programs, TheCallGoesToTheFirstPlayer) {
    AddNotingProgram("aplay");
    PlayByOtherProgram("/a b/Gus.psg");
    EXPECT_EQ(Noted(), "aplay\n[--quiet]\n[--nonblock]\n[/a b/Gus.psg]\n");
    AddNotingProgram("paplay");
    PlayByOtherProgram("/a b/Gus.psg");
    EXPECT_EQ(Noted(), "paplay\n[/a b/Gus.psg]\n");
    qputenv("PATH", m_folder.File("applications").c_str());
    PlayByOtherProgram("/a b/Gus.psg"); // silence
    EXPECT_FALSE(EditByOtherProgram("/a b/Gus.psg"));
}

} // namespace
} // namespace plenair
