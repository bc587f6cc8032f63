#include "platform/files/Folders.h"
#include "platform/qt/ConnectDesktop.h"
#include "platform/qt/FileDialogs.h"
#include "platform/qt/OtherPrograms.h"
#include "platform/text/DateText.h"
#include "windows/WindowTest.h"

#include <QDir>
#include <QLineEdit>
#include <QLocale>
#include <QMessageBox>

namespace {

// The log in the window, with the desktop's own file dialogs.
class Log : public WindowTest {
  protected:
    Log() { Desktop().ShowDialog = ShowFileDialog; }
    void SetUp() override { Start(); }

    // Chooses a menu entry and does the steps in the dialogs that follow: the name of a file, or what a
    // message tells and the answer to it.
    void Choose(const std::string& entry,
                const std::vector<std::pair<std::string, QMessageBox::StandardButton>>& steps) {
        dialogsExpected = true;
        std::vector<DialogStep> all;
        for (const auto& step : steps) {
            all.emplace_back([&](QWidget& dialog) {
                if (auto* const box = qobject_cast<QMessageBox*>(&dialog)) {
                    EXPECT_EQ(box->text().toStdString(), m_environment.Folder().Path() + step.first);
                    QTest::mouseClick(box->button(step.second), Qt::LeftButton);
                } else {
                    auto* const name = dialog.findChild<QLineEdit*>();
                    name->setText(QString::fromStdString(step.first));
                    QTest::keyClick(name, Qt::Key_Return);
                }
            });
        }
        WorkOn([&] { Play("mnuFile>" + entry); }, all);
    }
};

TEST_F(Log, SavingAsksBeforeItReplacesAFile) {
    const char* const question = "/old.pnl already exists.\nDo you want to replace it?";
    Play("!fill @cmdLog(2)");
    Choose("mnuFileLog", {});
    Play("| enabled mnuFileLog: true"); // cancelled
    WriteFile(File("old.pnl"), "old");
    desktop.ExpectMessage(MessageAnswer::Ok);
    Choose("mnuFileLog", {{"old", {}}, {question, QMessageBox::No}, {"my \"new\"", {}}});
    EXPECT_EQ(ReadFile(File("old.pnl")), "old");
    EXPECT_TRUE(ReadFile(File("my \"new\".pnl")).ends_with("500\t375\t300\t1.3\t4.68\t0.69\t0\r\n"));
    EXPECT_EQ(CurrentFolder(), m_environment.Folder().Path());
    Play("@cmdLog(2) ?Ok");
    Choose("mnuFileLog", {{"old.pnl", {}}, {question, QMessageBox::Yes}});
    EXPECT_EQ(ReadFile(File("old.pnl")), ReadFile(File("my \"new\".pnl"))) << "replaced, nothing is appended";
}

TEST_F(Log, OpeningShowsTheFileInTheEditor) {
    const std::string other = File("other");
    fs::create_directory(other);
    WriteFile(other + "/my log.pnl", "");
    WriteFile(other + "/plain", "");
    Choose("mnuFileLogOpen", {{other + "/my log", {}}});
    EXPECT_EQ(Settings.DefPath, other);
    Choose("mnuFileLogOpen", {{"plain", {}}}); // the dialog opens in the last folder
    Play("| log: editor " + other + "/my log.pnl, editor " + other + "/plain");
}

TEST(Desktop, FiltersAndDates) {
    EXPECT_EQ(NameFilters("Plenair Logs (*.pnl)|*.pnl|Both|*.gsp;*.*|rest").join('|'),
              "Plenair Logs (*.pnl) (*.pnl)|Both (*.gsp *)");
    const std::pair<const char*, const char*> rows[] = {
        {"en_GB", "08-Nov-26"}, {"en_US", "Nov-08-26"}, {"ja_JP", "26-11月-08"}};
    for (const auto& [name, text] : rows) {
        SetDateLocale(DatesOf(QLocale(name)));
        EXPECT_EQ(MediumDate({2026, 11, 8, 0, 0, 0, 0}), text) << name;
    }
    SetDateLocale({});
}

TEST(Desktop, AFolderOfTheUserIsOneWhateverTheCurrentFolder) {
    const std::string home = QDir::homePath().toStdString();
    const std::pair<const char*, std::string> rows[] = {
        {"", home + "/.local/share"}, {"data", home + "/.local/share"}, {"/my data/ü/", "/my data/ü"}};
    for (const auto& [value, folder] : rows) {
        qputenv("PLENAIR_FOLDER", value);
        EXPECT_EQ(FolderOfUser("PLENAIR_FOLDER", ".local/share"), folder);
    }
}

// Scripts stand in for all programs of the desktop, whose own can't be found. Each notes its name and its
// arguments.
TEST(Programs, TheEditorAndThePlayerAreThoseOfTheDesktop) {
    const TemporaryFolder folder;
    std::map<const char*, QByteArray> before;
    for (const char* name :
         {"PATH", "XDG_DATA_HOME", "XDG_DATA_DIRS", "XDG_CONFIG_HOME", "XDG_CONFIG_DIRS"}) {
        before[name] = qgetenv(name);
        qputenv(name, folder.Path().c_str());
    }
    qputenv("XDG_CURRENT_DESKTOP", "Some:Desk");
    const auto add = [&](const std::string& name, const std::string& does) {
        WriteFile(folder.File(name), "#!/bin/sh\n" + does + "\n");
        fs::permissions(folder.File(name), fs::perms::owner_all);
    };
    const std::string part = folder.File("part");
    const std::string note = folder.File("note");
    for (const char* name : {"gnome-text-editor", "notes", "x-terminal-emulator", "aplay"}) {
        add(name, "(printf '%s' \"${0##*/}\"; for a; do printf '[%s]' \"$a\"; done) > '" + part +
                      "'; /bin/mv '" + part + "' '" + note + "'");
    }
    const auto noted = [&] {
        EXPECT_TRUE(QTest::qWaitFor([&] { return fs::exists(note); }));
        const std::string text = ReadFile(note);
        fs::remove(note);
        return text;
    };
    const std::string log = "/logs/my $log; \"1\".pnl";
    EXPECT_TRUE(EditByOtherProgram(log));
    EXPECT_EQ(noted(), "gnome-text-editor[" + log + "]") << "the desktop names none";
    add("xdg-mime", "exec /bin/sleep 60"); // nothing of the desktop's that may hang is asked
    fs::create_directory(folder.File("applications"));
    WriteFile(folder.File("applications/notes.desktop"),
              "[Desktop Entry]\nExec=notes --new %f\nTerminal=true\n");
    WriteFile(folder.File("desk-mimeapps.list"),
              "[Default Applications]\ntext/plain=gone.desktop;notes.desktop\n");
    EXPECT_TRUE(EditByOtherProgram(log));
    EXPECT_EQ(noted(), "x-terminal-emulator[-e][notes][--new][" + log + "]");
    const std::string sound = folder.File("Gus \"1\".psg");
    WriteFile(sound, "");
    add("paplay", "exit 1"); // and pw-play isn't there
    PlayByOtherProgram(sound);
    EXPECT_EQ(noted(), "aplay[--quiet][--nonblock][" + sound + "]");
    int beeps = 0;
    const ScopedDesktop desktop;
    Desktop().Beep = [&] { ++beeps; };
    PlayByOtherProgram(folder.File("missing.psg"));
    EXPECT_EQ(beeps, 1);
    qputenv("PATH", folder.File("applications").c_str());
    PlayByOtherProgram(sound); // silence
    EXPECT_FALSE(EditByOtherProgram(log));
    EXPECT_EQ(beeps, 1);
    for (const auto& [name, value] : before) {
        value.isNull() ? qunsetenv(name) : qputenv(name, value);
    }
    qunsetenv("XDG_CURRENT_DESKTOP");
}

} // namespace
