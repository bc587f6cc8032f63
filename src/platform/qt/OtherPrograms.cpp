#include "platform/qt/OtherPrograms.h"

#include "platform/DesktopEntry.h"
#include "platform/qt/Twips.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>

namespace plenair {

namespace {

// Detached: the system looks after its end, so that it leaves nothing behind here.
bool Start(QStringList command) {
    QProcess process;
    process.setProgram(QStandardPaths::findExecutable(command.takeFirst()));
    process.setArguments(command);
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    return !process.program().isEmpty() && process.startDetached();
}

// Starts the first of these commands whose program is on this machine, each of them on the file `path`.
bool StartFirst(const QList<QStringList>& commands, const QString& path) {
    for (const QStringList& command : commands) {
        if (!QStandardPaths::findExecutable(command.front()).isEmpty()) {
            return Start(command + QStringList(path));
        }
    }
    return false;
}

// Content of the desktop entry of the user's application for plain text; empty if the desktop names none.
QByteArray TextEditorEntry() {
    constexpr int kPatience = 3000;
    QProcess query;
    query.start("xdg-mime", {"query", "default", "text/plain"}, QIODevice::ReadOnly);
    if (!query.waitForFinished(kPatience)) {
        query.kill();
        query.waitForFinished(kPatience);
        return {};
    }
    const QString name = QString::fromUtf8(query.readAllStandardOutput()).trimmed();
    const QString path = QStandardPaths::locate(QStandardPaths::ApplicationsLocation, name);
    QFile entry(path);
    return !name.isEmpty() && entry.open(QIODevice::ReadOnly) ? entry.readAll() : QByteArray();
}

bool StartEntry(const EntryCommand& command) {
    QStringList arguments;
    for (const std::string& argument : command.arguments) {
        arguments.append(ToQt(argument));
    }
    if (!command.inTerminal) {
        return Start(arguments);
    }
    for (const QStringList& terminal :
         {QStringList{"xdg-terminal-exec"}, QStringList{"x-terminal-emulator", "-e"}}) {
        if (Start(terminal + arguments)) {
            return true;
        }
    }
    return false;
}

} // namespace

void PlayByOtherProgram(const std::string& path) {
    // The players of the sound servers first: one that has the device to itself may find it taken.
    StartFirst({{"paplay"}, {"pw-play"}, {"aplay", "--quiet", "--nonblock"}}, ToQt(path));
}

bool EditByOtherProgram(const std::string& path) {
    const QByteArray entry = TextEditorEntry();
    const auto command =
        CommandOn(std::string_view(entry.data(), static_cast<std::size_t>(entry.size())), path);
    if (command && StartEntry(*command)) {
        return true;
    }
    return StartFirst({{"gnome-text-editor"},
                       {"gedit"},
                       {"kate"},
                       {"kwrite"},
                       {"mousepad"},
                       {"xed"},
                       {"pluma"},
                       {"featherpad"},
                       {"leafpad"},
                       {"geany"},
                       {"gvim"},
                       {"emacs"}},
                      ToQt(path));
}

} // namespace plenair
