#include "platform/qt/ConnectDesktop.h"

#include "platform/desktop/CommonDialog.h"
#include "platform/desktop/Desktop.h"
#include "platform/desktop/MessageBox.h"
#include "platform/desktop/Progress.h"
#include "platform/files/ProgramFolder.h"
#include "platform/files/RegistryStore.h"
#include "platform/qt/Accessibility.h"
#include "platform/qt/Clipboard.h"
#include "platform/qt/DesktopPrinter.h"
#include "platform/qt/FileDialogs.h"
#include "platform/qt/FocusEvents.h"
#include "platform/qt/FormFont.h"
#include "platform/qt/MessageBoxes.h"
#include "platform/qt/OtherPrograms.h"
#include "platform/qt/ProgressDialog.h"
#include "platform/qt/QtText.h"
#include "platform/qt/Stacking.h"
#include "platform/qt/WaitingPointer.h"
#include "platform/text/NumberText.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QList>
#include <QLocale>
#include <QStandardPaths>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <array>
#include <cstddef>
#include <functional>
#include <string>

namespace plenair {

namespace {

// The desktop tells no sizes of groups, but a grouped number shows them.
NumberLocale DesktopNumbers() {
    const QLocale desktop;
    NumberLocale numbers;
    numbers.DecimalMark = FromQt(desktop.decimalPoint());
    numbers.GroupMark = FromQt(desktop.groupSeparator());
    QLocale plain(desktop);
    plain.setNumberOptions(QLocale::DefaultNumberOptions);
    const QStringList groups = plain.toString(1000000000LL).split(desktop.groupSeparator());
    if (groups.size() >= 3) {
        numbers.FirstGroup = static_cast<int>(groups[groups.size() - 1].size());
        numbers.OtherGroups = static_cast<int>(groups[groups.size() - 2].size());
    }
    return numbers;
}

bool ShowCommonDialog(DialogKind kind, CommonDialog& dialog) {
    const PointerForTheUser pointer;
    return kind == DialogKind::Printer ? ShowPrintDialog(dialog) : ShowFileDialog(kind, dialog);
}

} // namespace

std::string FolderOfUser(const char* variable, const char* belowHome) {
    const QString folder = qEnvironmentVariable(variable);
    return FromQt(
        QDir::cleanPath(folder.startsWith('/') ? folder : QDir::home().absoluteFilePath(belowHome)));
}

DateLocale DatesOf(const QLocale& locale) {
    const QString pattern = locale.dateFormat(QLocale::ShortFormat);
    DateLocale dates;
    if (pattern.indexOf('y') < pattern.indexOf('d')) {
        dates.Order = DateOrder::YearMonthDay;
    } else if (pattern.indexOf('M') < pattern.indexOf('d')) {
        dates.Order = DateOrder::MonthDayYear;
    }
    for (int month = 1; month <= 12; ++month) {
        dates.ShortMonths[static_cast<std::size_t>(month - 1)] =
            FromQt(locale.standaloneMonthName(month, QLocale::ShortFormat));
    }
    return dates;
}

void ConnectDesktop() {
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    ChooseProgramFolder(FromQt(QApplication::applicationDirPath()),
                        FolderOfUser("XDG_DATA_HOME", ".local/share") + "/plenair",
                        FromQt(QFileInfo(documents).isDir() ? documents : QDir::homePath()));
    SetStateFolder(FolderOfUser("XDG_STATE_HOME", ".local/state") + "/plenair");
    SetRegistryFile(FolderOfUser("XDG_CONFIG_HOME", ".config") + "/plenair/registry");
    SetNumberLocale(DesktopNumbers());
    SetDateLocale(DatesOf(QLocale()));
    Desktop() = {
        .AskByMessageBox = AskByMessageBox,
        .AskByInputBox = AskByInputBox,
        .ShowDialog = ShowCommonDialog,
        .StartProgress = StartProgressDialog,
        .StartWaiting = StartWaitingPointer,
        .PlaySound = [](const std::string& path, unsigned) { PlayByOtherProgram(path); },
        .StartEditor = EditByOtherProgram,
        .OpenManual = OpenManualByOtherProgram,
        .Copy = CopyToDesktopClipboard,
        .Beep = [] { QApplication::beep(); },
        .ShowPointer = ShowMousePointer,
        .RunLater = [](int milliseconds,
                       std::function<void()> action) { QTimer::singleShot(milliseconds, qApp, action); },
        .Clock = {},
    };
    TakeDesktopFont();
    InstallAccessibility();
    WatchFocus();
    KeepDialogsAbove();
    AwaitKeyboard();
}

} // namespace plenair
