#include "platform/drawing/LayeredPicture.h"
#include "platform/files/Folders.h"
#include "platform/qt/Clipboard.h"
#include "platform/qt/ConnectDesktop.h"
#include "platform/qt/FileDialogs.h"
#include "platform/qt/FormFont.h"
#include "platform/qt/MessageBoxes.h"
#include "platform/qt/OtherPrograms.h"
#include "platform/qt/Twips.h"
#include "platform/text/DateText.h"
#include "platform/text/SpreadsheetDocument.h"
#include "windows/WindowTest.h"

#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QLocale>
#include <QMessageBox>
#include <QMimeData>
#include <QTimer>

namespace {

// The desktop's own services in place of the scripted ones.
class Services : public WindowTest {
  protected:
    Services() { dialogsExpected = true; }

    // Opens file dialogs by a script and does the steps in them: the name of a file, or what a message tells
    // and the answer to it. Gives what was offered at first: title, folder, name and filter.
    std::string Choose(const std::string& script,
                       const std::vector<std::pair<std::string, QMessageBox::StandardButton>>& steps) {
        std::vector<DialogStep> all;
        QString offered;
        for (const auto& step : steps) {
            all.emplace_back([&](QWidget& dialog) {
                if (auto* const box = qobject_cast<QMessageBox*>(&dialog)) {
                    EXPECT_EQ(box->text().toStdString(), environment.Folder().Path() + step.first);
                    EXPECT_EQ(box->windowTitle(), offered.section('|', 0, 0));
                    EXPECT_TRUE(box->textFormat() == Qt::PlainText &&
                                box->defaultButton() == box->button(QMessageBox::No));
                    QTest::mouseClick(box->button(step.second), Qt::LeftButton);
                } else {
                    auto* const name = dialog.findChild<QLineEdit*>();
                    if (offered.isEmpty()) {
                        offered = dialog.windowTitle() + "|" +
                                  dynamic_cast<QFileDialog&>(dialog).directory().path() + "|" + name->text() +
                                  "|" + dialog.findChild<QComboBox*>("fileTypeCombo")->currentText();
                    }
                    name->setText(QString::fromStdString(step.first));
                    QTest::keyClick(name, Qt::Key_Return);
                }
            });
        }
        WorkOn([&] { Play(script); }, all);
        return offered.toStdString();
    }

    // The box holds its title in large bold letters, with buttons at both ends.
    static void ExpectRoomForTitle(const QWidget& box, int room) {
        const QFontMetrics bold(QFont(QApplication::font().family(), 11, QFont::Bold));
        EXPECT_EQ(room, bold.horizontalAdvance(box.windowTitle()) + 8 * bold.height());
        EXPECT_GE(box.width(), room);
    }

    const QString m_title = "What a window asks, at some length, in its title";
};

TEST_F(Services, FileDialogs) {
    Start();
    Desktop().ShowDialog = connected.ShowDialog;
    const char* const question = "/old.pnl already exists.\nDo you want to replace it?";
    Play("!fill @cmdLog(2)");
    Choose("mnuFile>mnuFileLog | enabled mnuFileLog: true", {}); // cancelled
    WriteFile(File("old.pnl"), "old");
    WriteFile(File("old"), ""); // isn't what is meant
    Choose("?Ok mnuFile>mnuFileLog", {{"old", {}}, {question, QMessageBox::No}, {"my \"new\"", {}}});
    EXPECT_EQ(ReadFile(File("old.pnl")), "old");
    EXPECT_TRUE(ReadFile(File("my \"new\".pnl")).ends_with("500\t375\t300\t1.3\t4.68\t0.69\t0\r\n"));
    EXPECT_EQ(CurrentFolder(), environment.Folder().Path());
    Choose("@cmdLog(2) ?Ok mnuFile>mnuFileLog", {{"old.pnl", {}}, {question, QMessageBox::Yes}});
    EXPECT_EQ(ReadFile(File("old.pnl")), ReadFile(File("my \"new\".pnl"))) << "replaced, nothing is appended";

    const std::string other = File("other");
    fs::create_directory(other);
    WriteFile(other + "/my log.pnl", "");
    WriteFile(other + "/plain", "");
    desktop.Log.clear();
    Choose("mnuFile>mnuFileLogOpen", {{other + "/my log", {}}});
    EXPECT_EQ(Choose("mnuFile>mnuFileLogOpen", {{"\"plain\"", {}}}),
              "Open|" + other + "||Plenair Logs (*.pnl)");
    Play("| log: editor " + other + "/my log.pnl, editor " + other + "/plain");
    EXPECT_EQ(Settings.DefPath, other);
    Choose("mnuFile>mnuFileMajor ?Ok @cmdSaveGsp", {{"p", {}}});
    EXPECT_EQ(Choose("?Ok @cmdSaveGsp", {{"../p", {}}}),
              "Save As|" + other + "|p.gsp|Plenair Projects (*.gsp)");
    Choose("@cmdLoadGsp", {{"no/p", {}}, {"/no\nThere is no such folder.", QMessageBox::Ok}, {"p", {}}});
    EXPECT_EQ(ProjectName, "p.gsp");
    EXPECT_EQ((NameFilters("Plenair Logs (*.pnl)|*.pnl|Both|*.gsp;*.*") + NameFilters("rest")).join('|'),
              "Plenair Logs (*.pnl) (*.pnl)|Both (*.gsp *)");
}

TEST(FolderOfUser, IsTheSameWhateverTheCurrentFolder) {
    const std::string home = QDir::homePath().toStdString() + "/.local/share";
    const std::pair<const char*, std::string> rows[] = {
        {"", home}, {"a/b", home}, {"/my data/ü/", "/my data/ü"}};
    for (const auto& [value, folder] : rows) {
        qputenv("PLENAIR_FOLDER", value);
        EXPECT_EQ(FolderOfUser("PLENAIR_FOLDER", ".local/share"), folder);
    }
}

TEST_F(Services, MessageBoxes) {
    Desktop().AskByMessageBox = connected.AskByMessageBox;
    ShowMousePointer(MousePointer::Hourglass);
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
    int row = 0;
    for (const auto& press : presses) {
        const int icon = row++ % 5; // none, critical, question, exclamation, information
        const QMessageBox::Icon shown[] = {QMessageBox::NoIcon, QMessageBox::Critical, QMessageBox::Question,
                                           QMessageBox::Warning, QMessageBox::Information};
        const auto answer = [&](QWidget& dialog) {
            auto& box = dynamic_cast<QMessageBox&>(dialog);
            EXPECT_EQ(box.windowTitle() + "|" + box.text(), m_title + "|a <b>\nc");
            ExpectRoomForTitle(box, box.layout()->itemAt(box.layout()->count() - 1)->sizeHint().width());
            EXPECT_EQ(QApplication::overrideCursor(), nullptr) << "no hourglass meanwhile";
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_EQ(box.icon(), shown[icon]);
            std::get<1>(press) == kEscape ? QTest::keyClick(&box, Qt::Key_Escape)
                                          : QTest::mouseClick(box.button(std::get<1>(press)), Qt::LeftButton);
        };
        const MessageRequest request{"a <b>\nc", m_title.toStdString(), std::get<0>(press),
                                     static_cast<MessageIcon>(16 * icon)};
        MessageAnswer given = {};
        WorkOn([&] { given = ShowMessage(request); }, {answer});
        EXPECT_TRUE(given == std::get<2>(press) && QApplication::overrideCursor() != nullptr) << row;
    }
    ShowMousePointer(MousePointer::Default);
}

TEST_F(Services, InputBoxes) {
    for (const auto key : {Qt::Key_Return, Qt::Key_Escape}) {
        const auto type = [=, this](QWidget& dialog) {
            EXPECT_EQ(dialog.windowTitle() + "|" + dynamic_cast<QInputDialog&>(dialog).labelText(),
                      m_title + "|Path?");
            ExpectRoomForTitle(dialog, dialog.findChild<QLabel*>()->minimumWidth());
            EXPECT_EQ(dialog.font(), FormFont());
            QTest::keyClicks(dialog.focusWidget(), "1,2");
            QTest::keyClick(dialog.focusWidget(), key);
        };
        std::string given;
        WorkOn([&] { given = connected.AskByInputBox({"Path?", m_title.toStdString()}); }, {type});
        EXPECT_EQ(given, key == Qt::Key_Return ? "1,2" : "");
    }
}

TEST_F(Services, CopiesInAllTheirForms) {
    const TableRows table = {{"Duct", "Type", "Flow"}, {"R1", "Rigid", "100.5"}};
    const auto copied = [] { return QApplication::clipboard()->mimeData(); };
    const auto png = [&] { return QImage::fromData(copied()->data("image/png")); };
    LayeredPicture picture;
    RecordedSurface& lines = picture.BaseLines;
    picture.SetSize({1200, 900});
    lines.SetLineWidth(2);
    lines.Line({150, 150}, {150150, 100150}, 0x0000FF);
    lines.Box({300, 75}, {750, 825}, 0xFF0000);
    lines.SetPosition({375, 375});
    lines.Print("R12");
    PictureBox box("box", picture, nullptr);
    box.resize(80, 60);
    box.setFont(FormFont());
    CopyToDesktopClipboard({table, &picture});
    std::string all;
    for (const QString& format : copied()->formats()) {
        const QString text = copied()->data(format);
        const bool isText = !text.startsWith("PK") && format != "image/png";
        all += (format + "\n" + (isText ? text : "") + "\n").toStdString();
    }
    ExpectAsInFile("copied.txt", all);
    EXPECT_EQ(copied()->data(copied()->formats()[2]).toStdString(), SpreadsheetDocument(table));
    const QImage shown = box.grab().toImage();
    EXPECT_EQ(png().convertToFormat(shown.format()), shown);

    // At the end of the program they are made in advance, but for a picture that would take long.
    for (const bool isLarge : {false, true}) {
        while (lines.Items().size() < 10'000U + (isLarge ? 1 : 0)) {
            lines.Line({}, {}, 0);
        }
        CopyToDesktopClipboard({table, &picture});
        QTimer::singleShot(0, [] { QApplication::exit(); });
        QApplication::exec();
        SetFormScale(2);
        EXPECT_EQ(copied()->formats().size(), isLarge ? 4 : 6);
        EXPECT_EQ(png().size(), isLarge ? QSize(0, 0) : shown.size());
        SetFormScale(1);
    }
}

TEST_F(Services, NumbersAndDatesOfLocales) {
    SetNumberLocale(connectedNumbers);
    EXPECT_EQ(NumberFromText("12,34,567.5"), 1234567.5);
    EXPECT_EQ(NumberFromText("1,234,567.5"), std::nullopt);

    const std::tuple<const char*, int, const char*> rows[] = {
        {"en_GB", 1, "08-Jan-26"}, {"en_US", 12, "Dec-08-26"}, {"ja_JP", 11, "26-11月-08"}};
    for (const auto& [name, month, text] : rows) {
        SetDateLocale(DatesOf(QLocale(name)));
        EXPECT_EQ(MediumDate({2026, month, 8, 0, 0, 0, 0}), text) << name;
    }
    SetDateLocale({});
}

// Scripts stand in for all programs of the desktop, whose own can't be found. Each notes its name and its
// arguments.
TEST_F(Services, EditorBrowserAndPlayerAreThoseOfTheDesktop) {
    std::map<const char*, QByteArray> before;
    for (const char* name : {"PATH", "XDG_DATA_HOME", "XDG_DATA_DIRS", "XDG_CONFIG_HOME", "XDG_CONFIG_DIRS",
                             "XDG_CURRENT_DESKTOP"}) {
        before[name] = qgetenv(name);
        qputenv(name, environment.Folder().Path().c_str());
    }
    qputenv("XDG_CURRENT_DESKTOP", "Some:Desk");
    const auto add = [&](const std::string& name, const std::string& does) {
        WriteFile(File(name), "#!/bin/sh\n" + does + "\n");
        fs::permissions(File(name), fs::perms::owner_all);
    };
    const std::string part = "'" + File("part") + "'";
    const auto noteOf = [&](const std::string& name) {
        add(name, "(printf '%s' \"${0##*/}\"; for a; do printf '[%s]' \"$a\"; done) > " + part +
                      "; /bin/mv " + part + " '" + File("note") + "'");
    };
    questions["noted"] = [&] {
        EXPECT_TRUE(QTest::qWaitFor([&] { return fs::exists(File("note")); }));
        const std::string text = ReadFile(File("note"));
        fs::remove(File("note"));
        return text;
    };
    const std::string log = "/logs/my $log; \"1\".pnl";
    const auto edit = [&] { return EditByOtherProgram(log); };
    // Where the desktop names none, the first that is there.
    const std::tuple<std::vector<std::string>, std::function<bool()>, std::string> rows[] = {
        {{"gnome-text-editor", "kate", "emacs"}, edit, log},
        {{"x-www-browser", "firefox", "xdg-open"},
         [] { return OpenManualByOtherProgram("/my manual.html", "sheet"); },
         "file:///my%20manual.html#sheet"}};
    for (const auto& [names, open, argument] : rows) {
        std::for_each(names.begin(), names.end(), noteOf);
        for (const std::string& name : names) {
            EXPECT_TRUE(open());
            EXPECT_EQ(Ask("noted"), name + "[" + argument + "]");
            fs::remove(File(name));
        }
        EXPECT_FALSE(open());
    }
    for (const char* name : {"notes", "x-terminal-emulator", "aplay"}) {
        noteOf(name);
    }
    add("xdg-mime", "exec /bin/sleep 60"); // nothing of the desktop's that may hang is asked
    fs::create_directory(File("applications"));
    WriteFile(File("applications/notes.desktop"), "[Desktop Entry]\nExec=notes --new %u\nTerminal=true\n");
    for (const std::string list : {"desk-mimeapps.list", "mimeapps.list", "applications/mimeinfo.cache"}) {
        WriteFile(File(list), "[Default Applications]\n[MIME Cache]\ntext/plain=gone.desktop;notes.desktop\n"
                              "x-scheme-handler/https=notes.desktop\n");
        for (const auto& [names, open, argument] : rows) {
            EXPECT_TRUE(open()) << list;
            EXPECT_EQ(Ask("noted"), "x-terminal-emulator[-e][notes][--new][" + argument + "]");
        }
        fs::remove(File(list));
    }
    add("Gus \"1\".psg", "");
    add("paplay", "exit 1");
    WriteFile(File("pw-play"), ""); // which is no program
    fs::permissions(File("pw-play"), fs::perms::owner_all);
    PlayByOtherProgram(File("Gus \"1\".psg"));
    EXPECT_EQ(Ask("noted"), "aplay[--quiet][--nonblock][" + File("Gus \"1\".psg") + "]");
    noteOf("pw-play");
    PlayByOtherProgram(File("Gus \"1\".psg"));
    EXPECT_EQ(Ask("noted"), "pw-play[" + File("Gus \"1\".psg") + "]");
    PlayByOtherProgram(File("missing.psg"));
    qputenv("PATH", File("applications").c_str());
    PlayByOtherProgram(File("Gus \"1\".psg")); // silence
    EXPECT_FALSE(edit());
    Play("| log: beep");
    for (const auto& [name, value] : before) {
        value.isNull() ? qunsetenv(name) : qputenv(name, value);
    }
}

} // namespace
