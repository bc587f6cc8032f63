#include "platform/qt/OtherPrograms.h"

#include "platform/desktop/DesktopEntry.h"
#include "platform/qt/Twips.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>

#include <algorithm>

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

// Starts the first of these commands that can be.
bool StartFirst(const QList<QStringList>& commands) {
    return std::any_of(commands.begin(), commands.end(), Start);
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
    QFile entry(QStandardPaths::locate(QStandardPaths::ApplicationsLocation, name));
    return !entry.fileName().isEmpty() && entry.open(QIODevice::ReadOnly) ? entry.readAll() : QByteArray();
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

} // namespace

void PlayByOtherProgram(const std::string& path) {
    // The players of the sound servers first: one that has the device to itself may find it taken.
    const QString sound = ToQt(path);
    StartFirst({{"paplay", sound}, {"pw-play", sound}, {"aplay", "--quiet", "--nonblock", sound}});
}

bool EditByOtherProgram(const std::string& path) {
    const QByteArray entry = TextEditorEntry();
    const auto command =
        CommandOn(std::string_view(entry.data(), static_cast<std::size_t>(entry.size())), path);
    if (command && StartEntry(*command)) {
        return true;
    }
    QList<QStringList> editors;
    for (const char* editor : {"gnome-text-editor", "gedit", "kate", "kwrite", "mousepad", "xed", "pluma",
                               "featherpad", "leafpad", "geany", "gvim", "emacs"}) {
        editors.append({editor, ToQt(path)});
    }
    return StartFirst(editors);
}

} // namespace plenair
