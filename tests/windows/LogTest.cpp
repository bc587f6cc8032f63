#include "lite/CalculationLog.h"
#include "platform/desktop/Desktop.h"
#include "platform/files/Folders.h"
#include "platform/qt/ConnectDesktop.h"
#include "platform/qt/FileDialogs.h"
#include "platform/qt/OtherPrograms.h"
#include "platform/text/DateText.h"
#include "platform/text/NumberText.h"
#include "windows/WindowTest.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QLocale>
#include <QMessageBox>
#include <QTimer>

#include <algorithm>
#include <array>
#include <filesystem>

namespace plenair {
namespace {

// The log in the window, with the desktop's own file dialogs.
class Log : public WindowTest {
  protected:
    Log() : m_folder(CurrentFolder()) {
        Desktop().ShowDialog = ShowFileDialog;
        Desktop().StartEditor = [this](const std::string& path) {
            m_edited += path;
            return true;
        };
    }
    ~Log() override {
        Desktop().ShowDialog = {};
        Desktop().StartEditor = {};
        SetDateLocale({});
        EnterFolder(m_folder);
    }
    void SetUp() override { Start(); }

    std::string File(const std::string& name) const { return m_environment.Folder().File(name); }
    bool CanRecord() const { return Find<QAction>("mnuFileLog").isEnabled(); }

    void SetRow(int row, const std::array<const char*, 4>& texts) {
        for (int column = 0; column < 4; ++column) {
            Window().SetMinorCell(row, column, texts[static_cast<std::size_t>(column)]);
        }
    }

    // File dialogs give this path from now on; empty: they are cancelled.
    static void SetDialogAnswer(const std::string& path) {
        Desktop().ShowDialog = [path](DialogKind, CommonDialog& dialog) {
            dialog.FileName = path;
            return !path.empty();
        };
    }
    std::string Save() {
        SetDialogAnswer(File("log.pnl"));
        m_messages.Expect(MessageAnswer::Ok);
        ChooseFromMenu("mnuFile", "mnuFileLog");
        return ReadFile(File("log.pnl"));
    }

    struct Step {
        std::string text;                                           // the name of a file, or what is asked
        QMessageBox::StandardButton button = QMessageBox::NoButton; // the answer to that
    };
    // Chooses a menu entry and does the steps in the dialogs that follow. Escape ends what is left.
    void Choose(const std::string& entry, const std::vector<Step>& steps) {
        dialogsExpected = true;
        std::size_t next = 0;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
            QWidget* const dialog = QApplication::activeModalWidget();
            if (dialog == nullptr || !dialog->isActiveWindow()) {
                return;
            }
            if (next == steps.size()) {
                QTest::keyClick(dialog, Qt::Key_Escape);
                return;
            }
            const Step& step = steps[next++];
            if (auto* const box = qobject_cast<QMessageBox*>(dialog)) {
                EXPECT_TRUE(box->text().contains(step.text.c_str())) << box->text().toStdString();
                QTest::mouseClick(box->button(step.button), Qt::LeftButton);
            } else {
                auto* const name = dialog->findChild<QLineEdit*>();
                name->setText(QString::fromStdString(step.text));
                QTest::keyClick(name, Qt::Key_Return);
            }
        });
        timer.start(30);
        ChooseFromMenu("mnuFile", entry);
        EXPECT_EQ(next, steps.size()) << "dialogs that didn't come";
    }

    std::string m_edited;
    std::string m_folder;
};

TEST_F(Log, ClicksThatRecordAndThatDoNot) {
    FillTable();
    const struct {
        const char *name, *inputA, *inputB;
        int currentRow, currentColumn, clicked;
        bool records;
    } rows[] = {
        {"after a calculation", "500", "300", 0, 0, 2, true},
        {"after a recording", "500", "300", 2, 3, 0, true},
        {"the same row again", "500", "300", 2, 3, 2, true},
        {"no flow", "", "300", 0, 0, 2, false},
        {"no height", "500", "", 0, 0, 2, false},
        {"an input that is no number", "5oo", "300", 0, 0, 2, false},
        {"a height that is no number", "500", "3oo", 0, 0, 2, true},
        {"the current cell is blank, the row is not", "500", "300", 1, 0, 2, false},
        {"the row is blank, the current cell is not", "500", "300", 2, 3, 1, false},
        {"the row holds the flow of an analysis", "500", "300", 2, 3, 3, false},
        {"a width of 0", "500", "300", 2, 3, 4, false},
    };
    SetRow(1, {"", "", "", ""});
    SetRow(3, {"", "( 512", "L/s )", ""});
    SetRow(4, {"0", "300", "4.50", "0.69"});
    const auto& grid = Find<MSFlexGrid>("grdMinorCalc");
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        ResetLog(Window());
        Box("txtInputA").SetText(row.inputA);
        Box("txtInputB").SetText(row.inputB);
        Window().FocusInputB();
        Window().SetCurrentCell(row.currentRow, row.currentColumn);
        Click("cmdLog(" + std::to_string(row.clicked) + ")");
        EXPECT_EQ(LogCount, row.records ? 1 : 0);
        EXPECT_EQ(CanRecord(), row.records);
        EXPECT_EQ(Focused(), row.records ? "txtInputA" : "txtInputB");
        EXPECT_EQ(grid.Row(), row.records ? row.clicked : row.currentRow);
        EXPECT_EQ(grid.Col(), row.records ? 3 : row.currentColumn);
    }
}

TEST_F(Log, FileInTwoLocales) {
    const std::string headings = "Flow\tWidth\tHeight\tRatio\tVel\tPa/m\tCalculation Basis\r\n";
    Desktop().Clock = [] { return LocalTime{2026, 11, 8, 17, 7, 59, 0}; };
    FillTable();
    Press(Qt::Key_1, Qt::AltModifier);
    Box("txtInputA").SetText("1234567.8");
    SetRow(2, {"300", "1000", "12.50", "0.00"});
    Settings.CalcBasis = 3;
    Press(Qt::Key_3, Qt::AltModifier);
    Press(Qt::Key_3, Qt::AltModifier);
    EXPECT_EQ(Save(), "Plenair Minor Calculation Log\r\n08-Nov-26\r\n05:07 PM\r\n" + headings +
                          "500\t450\t250\t1.8\t4.74\t0.72\t0\r\n"
                          "1234568\t300\t1000\t3.3\t12.5\t0\t3\r\n"
                          "1234568\t300\t1000\t3.3\t12.5\t0\t3\r\n");
    EXPECT_EQ(m_messages.LastText(), "Plenair Minor Calculation Log Saved.\nThe Log has been reset");
    EXPECT_EQ(LogCount, 0);
    EXPECT_FALSE(CanRecord());

    SetNumberLocale({.DecimalMark = ",", .GroupMark = "."});
    DateLocale dates;
    dates.Order = DateOrder::YearMonthDay;
    dates.ShortMonths[10] = "nov.";
    SetDateLocale(dates);
    Box("txtInputA").SetText("0,05");
    SetRow(0, {"450", "250", "4,74", "0,72"});
    Settings.CalcBasis = 0;
    Press(Qt::Key_1, Qt::AltModifier);
    EXPECT_EQ(Save(), "Plenair Minor Calculation Log\r\n26-nov.-08\r\n05:07 PM\r\n" + headings +
                          "0,05\t450\t250\t1,8\t4,74\t0,72\t0\r\n");
}

TEST_F(Log, FullLogBeepsAndStaysUsable) {
    int beeps = 0;
    Desktop().Beep = [&] { ++beeps; };
    FillTable();
    Click("cmdLog(0)");
    LogCount = 32766;
    LogRows.resize(32766, LogRows[0]);
    Click("cmdLog(2)");
    Click("cmdLog(0)");
    EXPECT_EQ(LogCount, 32767);
    EXPECT_EQ(beeps, 1);
    Desktop().Beep = {};
    const std::string text = Save();
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 4 + 32767);
    EXPECT_TRUE(text.ends_with("500\t375\t300\t1.3\t4.68\t0.69\t0\r\n"));
}

TEST_F(Log, WhatCannotBeSavedOrOpenedChangesNothing) {
    FillTable();
    Click("cmdLog(2)");
    std::filesystem::create_directory(File("folder.pnl"));
    for (const std::string& path : {std::string(), File("missing/log.pnl"), File("folder.pnl")}) {
        SetDialogAnswer(path);
        RecordLog(Window());
        EXPECT_EQ(LogCount, 1);
        EXPECT_TRUE(CanRecord());
    }
    Settings.DefPath = "/where it was";
    Desktop().StartEditor = [](const std::string&) { return false; };
    OpenLog(Window());
    EXPECT_EQ(Settings.DefPath, "/where it was") << "no editor";
}

TEST_F(Log, SavingAsksBeforeItReplacesAFile) {
    FillTable();
    Click("cmdLog(2)");
    Choose("mnuFileLog", {});
    EXPECT_TRUE(CanRecord()) << "cancelled";
    WriteFile(File("old.pnl"), "old");
    m_messages.Expect(MessageAnswer::Ok);
    Choose("mnuFileLog", {Step{"old"}, Step{"old.pnl already exists", QMessageBox::No}, Step{"my new"}});
    EXPECT_EQ(ReadFile(File("old.pnl")), "old");
    EXPECT_TRUE(ReadFile(File("my new.pnl")).ends_with("500\t375\t300\t1.3\t4.68\t0.69\t0\r\n"));
    EXPECT_EQ(CurrentFolder(), m_environment.Folder().Path());
    Click("cmdLog(2)");
    m_messages.Expect(MessageAnswer::Ok);
    Choose("mnuFileLog", {Step{"old.pnl"}, Step{"old.pnl already exists", QMessageBox::Yes}});
    EXPECT_EQ(ReadFile(File("old.pnl")), ReadFile(File("my new.pnl"))) << "replaced, nothing is appended";
}

TEST_F(Log, OpeningShowsTheFileInTheEditor) {
    const std::string other = File("other");
    std::filesystem::create_directory(other);
    WriteFile(other + "/my log.pnl", "");
    WriteFile(other + "/plain", "");
    Choose("mnuFileLogOpen", {Step{other + "/my log"}});
    EXPECT_EQ(m_edited, other + "/my log.pnl");
    EXPECT_EQ(Settings.DefPath, other);
    m_edited.clear();
    Choose("mnuFileLogOpen", {Step{"plain"}}); // the dialog opens in the last folder
    EXPECT_EQ(m_edited, other + "/plain");
}

TEST(Desktop, FiltersAndDates) {
    EXPECT_EQ(NameFilters("Plenair Logs (*.pnl)|*.pnl|All Files (*.*)|*.*").join('|'),
              "Plenair Logs (*.pnl) (*.pnl)|All Files (*.*) (*)");
    EXPECT_EQ(NameFilters("Both|*.gsp;*.*|rest").join('|'), "Both (*.gsp *)");
    const std::pair<const char*, const char*> rows[] = {
        {"en_GB", "08-Nov-26"}, {"en_US", "Nov-08-26"}, {"ja_JP", "26-11月-08"}};
    for (const auto& [name, text] : rows) {
        SetDateLocale(DatesOf(QLocale(name)));
        EXPECT_EQ(MediumDate({2026, 11, 8, 0, 0, 0, 0}), text) << name;
    }
    SetDateLocale({});
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
        std::filesystem::permissions(folder.File(name), std::filesystem::perms::owner_all);
    };
    const std::string part = folder.File("part");
    const std::string note = folder.File("note");
    for (const char* name : {"gnome-text-editor", "notes", "x-terminal-emulator", "aplay"}) {
        add(name, "(printf '%s' \"${0##*/}\"; for a; do printf '[%s]' \"$a\"; done) > '" + part +
                      "'; /bin/mv '" + part + "' '" + note + "'");
    }
    const auto noted = [&] {
        EXPECT_TRUE(QTest::qWaitFor([&] { return std::filesystem::exists(note); }));
        const std::string text = ReadFile(note);
        std::filesystem::remove(note);
        return text;
    };
    const std::string log = "/logs/my $log; \"1\".pnl";
    EXPECT_TRUE(EditByOtherProgram(log));
    EXPECT_EQ(noted(), "gnome-text-editor[" + log + "]") << "the desktop names none";
    add("xdg-mime", "exec /bin/sleep 60"); // nothing of the desktop's that may hang is asked
    std::filesystem::create_directory(folder.File("applications"));
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
} // namespace plenair
