#include "platform/qt/OtherPrograms.h"

#include "platform/desktop/Desktop.h"
#include "platform/desktop/DesktopEntry.h"
#include "platform/qt/QtText.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QIODevice>
#include <QList>
#include <QObject>
#include <QProcess>
#include <QStandardPaths>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <algorithm>
#include <optional>
#include <vector>

namespace plenair {

namespace {

constexpr char kPlainText[] = "text/plain";
constexpr char kWebPages[] = "x-scheme-handler/https";

// False if there is no such program to start.
bool Prepare(QProcess& process, QStringList command) {
    process.setProgram(QStandardPaths::findExecutable(command.takeFirst()));
    process.setArguments(command);
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    return !process.program().isEmpty();
}

// Detached: the system looks after its end, so that it leaves nothing behind here.
bool Start(const QStringList& command) {
    QProcess process;
    return Prepare(process, command) && process.startDetached();
}

// Starts the first of these commands that can be.
bool StartFirst(const QList<QStringList>& commands) {
    return std::any_of(commands.begin(), commands.end(), Start);
}

// A sound that still plays ends with the program, without a word.
class Player : public QProcess {
  public:
    Player() : QProcess(QCoreApplication::instance()) {}
    ~Player() override {
        disconnect();
        kill();
        waitForFinished();
    }
    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;
};

// Starts the first of these players, and the next one once it turns out that it failed.
void PlayByFirst(QList<QStringList> commands) {
    if (commands.isEmpty()) {
        return;
    }
    auto* player = new Player;
    const bool isThere = Prepare(*player, commands.takeFirst());
    const auto giveWay = [player, commands] {
        player->deleteLater();
        PlayByFirst(commands);
    };
    if (!isThere) {
        giveWay();
        return;
    }
    QObject::connect(player, &QProcess::finished, player, [=](int code, QProcess::ExitStatus status) {
        code == 0 && status == QProcess::NormalExit ? player->deleteLater() : giveWay();
    });
    QObject::connect(player, &QProcess::errorOccurred, player, [=](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            giveWay();
        }
    });
    player->start();
}

// A pipe of that name would keep the program waiting.
std::string ContentOf(const QString& path) {
    QFile file(path);
    return QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "";
}

std::vector<std::string> ContentsOf(const QStringList& folders, const QStringList& names) {
    std::vector<std::string> contents;
    for (const QString& folder : folders) {
        for (const QString& name : names) {
            contents.push_back(ContentOf(folder + "/" + name));
        }
    }
    return contents;
}

// The lists that say which application a user, an administrator or the desktop wants for a type of files.
// They are read here: a program that tells of them may hang, and a click would wait for it.
std::vector<std::string> ListsOfDefaults() {
    QStringList names;
    for (const QString& desktop :
         qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(':', Qt::SkipEmptyParts)) {
        names.append(desktop.toLower() + "-mimeapps.list");
    }
    names.append("mimeapps.list");
    return ContentsOf(QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation) +
                          QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation),
                      names);
}

// What the applications that are installed say of themselves.
std::vector<std::string> ListsOfInstalled() {
    return ContentsOf(QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation),
                      {"mimeinfo.cache"});
}

bool StartEntry(const EntryCommand& command) {
    QStringList arguments;
    for (const std::string& argument : command.Arguments) {
        arguments.append(ToQt(argument));
    }
    if (!command.InTerminal) {
        return Start(arguments);
    }
    return StartFirst({QStringList("xdg-terminal-exec") + arguments,
                       QStringList({"x-terminal-emulator", "-e"}) + arguments});
}

// Starts the first application for that type that these lists name and that can be started.
bool StartFromLists(const char* type, const std::vector<std::string>& lists, const std::string& path) {
    const std::vector<std::string> names = ApplicationsFor(type, lists);
    return std::any_of(names.begin(), names.end(), [&](const std::string& name) {
        const QString entry = QStandardPaths::locate(QStandardPaths::ApplicationsLocation, ToQt(name));
        const auto command = CommandOn(ContentOf(entry), path);
        return command && StartEntry(*command);
    });
}

} // namespace

void PlayByOtherProgram(const std::string& path) {
    const QString sound = ToQt(path);
    if (!QFileInfo(sound).isReadable()) {
        Beep();
        return;
    }
    // The players of the sound servers first: one that has the device to itself may find it taken.
    PlayByFirst({{"paplay", sound}, {"pw-play", sound}, {"aplay", "--quiet", "--nonblock", sound}});
}

bool EditByOtherProgram(const std::string& path) {
    QList<QStringList> editors;
    for (const char* editor : {"gnome-text-editor", "gedit", "kate", "kwrite", "mousepad", "xed", "pluma",
                               "featherpad", "leafpad", "geany", "gvim", "emacs"}) {
        editors.append({editor, ToQt(path)});
    }
    return StartFromLists(kPlainText, ListsOfDefaults(), path) || StartFirst(editors) ||
           StartFromLists(kPlainText, ListsOfInstalled(), path);
}

bool OpenManualByOtherProgram(const std::string& path, const std::string& anchor) {
    // An application for files would be handed the file without the place in it; a browser takes both.
    QUrl url = QUrl::fromLocalFile(ToQt(path));
    url.setFragment(ToQt(anchor));
    const QString place = url.toString(QUrl::FullyEncoded);
    QList<QStringList> browsers;
    for (const char* browser : {"x-www-browser", "firefox", "firefox-esr", "chromium", "google-chrome",
                                "epiphany", "konqueror", "falkon", "xdg-open"}) {
        browsers.append({browser, place});
    }
    const std::string argument = FromQt(place);
    return StartFromLists(kWebPages, ListsOfDefaults(), argument) ||
           StartFromLists(kWebPages, ListsOfInstalled(), argument) || StartFirst(browsers);
}

} // namespace plenair
