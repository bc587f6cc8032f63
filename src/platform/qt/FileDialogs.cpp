#include "platform/qt/FileDialogs.h"

#include "platform/qt/QtText.h"
#include "platform/qt/WindowInUse.h"

#include <QDialog>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QList>
#include <QMessageBox>
#include <QRegularExpression>
#include <QString>

namespace plenair {

namespace {

// Names of files are no markup.
QMessageBox::StandardButton Ask(const QString& title, const QString& text,
                                QMessageBox::StandardButtons buttons) {
    QMessageBox box(QMessageBox::Warning, title, QString(), buttons, WindowInUse());
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
    box.setDefaultButton(QMessageBox::No);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

void Warn(const QString& title, const QString& file, const QString& reason) {
    Ask(title, QDir::toNativeSeparators(file) + "\n" + reason, QMessageBox::Ok);
}

bool UserReplaces(const QString& title, const QString& file) {
    return Ask(title, QDir::toNativeSeparators(file) + " already exists.\nDo you want to replace it?",
               QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

// False if the user has to name another file. One to be opened need not be there: the caller deals with that.
bool MayTake(DialogKind kind, const QString& title, const QString& file, int flags) {
    const QFileInfo info(file);
    if ((flags & kPathMustExist) != 0 && !info.dir().exists()) {
        Warn(title, info.path(), "There is no such folder.");
        return false;
    }
    const bool asks = kind == DialogKind::Save && (flags & kOverwritePrompt) != 0 && info.exists();
    return !asks || UserReplaces(title, file);
}

// The toolkit takes quotes for those around several names, and drops what stands before the first one.
QString ChosenFile(const QFileDialog& dialog) {
    const auto* const box = dialog.findChild<QLineEdit*>("fileNameEdit");
    const QString name = box != nullptr ? box->text() : QString();
    const bool holdsQuotes = name.contains('"') && !name.startsWith('"');
    return holdsQuotes ? dialog.directory().absoluteFilePath(name) : dialog.selectedFiles().constFirst();
}

} // namespace

QStringList NameFilters(const std::string& filter) {
    const QStringList parts = ToQt(filter).split('|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QStringList patterns = parts[i + 1].split(';');
        patterns.replaceInStrings(QRegularExpression("^\\*\\.\\*$"), "*"); // names without a point too
        filters.append(parts[i] + " (" + patterns.join(' ') + ")");
    }
    return filters;
}

bool ShowFileDialog(DialogKind kind, CommonDialog& properties) {
    QFileDialog dialog(WindowInUse());
    dialog.setAcceptMode(kind == DialogKind::Save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    // Whether the file is there can only be judged when its name has its extension.
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(NameFilters(properties.Filter));
    if (QFileInfo(ToQt(properties.InitDir)).isDir()) {
        dialog.setDirectory(ToQt(properties.InitDir));
    }
    if (!properties.FileName.empty()) {
        dialog.selectFile(ToQt(properties.FileName));
    }
    while (dialog.exec() == QDialog::Accepted) {
        CommonDialog chosen = properties;
        chosen.FileName = FromQt(ChosenFile(dialog));
        if (kind == DialogKind::Save || !QFileInfo::exists(ToQt(chosen.FileName))) {
            chosen.FileName = WithDefaultExt(chosen);
        }
        if (MayTake(kind, dialog.windowTitle(), ToQt(chosen.FileName), properties.Flags)) {
            properties.FileName = chosen.FileName;
            return true;
        }
    }
    return false;
}

} // namespace plenair
