#include "platform/qt/MessageBoxes.h"

#include "platform/qt/FormFont.h"
#include "platform/qt/QtText.h"
#include "platform/qt/WindowInUse.h"

#include <QApplication>
#include <QDialog>
#include <QFont>
#include <QFontMetrics>
#include <QGridLayout>
#include <QInputDialog>
#include <QLabel>
#include <QLayout>
#include <QMessageBox>
#include <QSizePolicy>
#include <QSpacerItem>
#include <QString>

#include <algorithm>

namespace plenair {

namespace {

QMessageBox::Icon IconOf(MessageIcon icon) {
    switch (icon) {
    case MessageIcon::Critical:
        return QMessageBox::Critical;
    case MessageIcon::Question:
        return QMessageBox::Question;
    case MessageIcon::Exclamation:
        return QMessageBox::Warning;
    case MessageIcon::Information:
        return QMessageBox::Information;
    case MessageIcon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons ButtonsOf(MessageButtons buttons) {
    switch (buttons) {
    case MessageButtons::OkCancel:
        return QMessageBox::Ok | QMessageBox::Cancel;
    case MessageButtons::YesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case MessageButtons::YesNo:
        return QMessageBox::Yes | QMessageBox::No;
    case MessageButtons::RetryCancel:
        return QMessageBox::Retry | QMessageBox::Cancel;
    case MessageButtons::Ok:
        break;
    }
    return QMessageBox::Ok;
}

// What a window must be wide to show its title whole. No desktop tells how it writes titles: most do it in
// bold letters of about this size, and have buttons and a margin at both ends.
int WidthForTitle(const QString& title) {
    constexpr double kPoints = 11;
    constexpr int kButtons = 4;
    QFont bold = QApplication::font("QMdiSubWindowTitleBar");
    bold.setBold(true);
    bold.setPointSizeF(std::max(bold.pointSizeF(), kPoints));
    const QFontMetrics letters(bold);
    return letters.horizontalAdvance(title) + kButtons * 2 * letters.height();
}

// The box takes its size from its layout whenever it is shown.
void WidenToTitle(QMessageBox& box) {
    auto* rows = static_cast<QGridLayout*>(box.layout());
    auto* width = new QSpacerItem(WidthForTitle(box.windowTitle()), 0, QSizePolicy::Minimum);
    rows->addItem(width, rows->rowCount(), 0, 1, rows->columnCount());
}

} // namespace

MessageAnswer AskByMessageBox(const MessageRequest& request) {
    const PointerForTheUser pointer;
    QMessageBox box(WindowInUse());
    box.setFont(FormFont());
    box.setWindowTitle(ToQt(request.Title));
    box.setTextFormat(Qt::PlainText);
    box.setText(ToQt(request.Text));
    box.setIcon(IconOf(request.Icon));
    box.setStandardButtons(ButtonsOf(request.Buttons));
    WidenToTitle(box);
    switch (box.exec()) {
    case QMessageBox::Ok:
        return MessageAnswer::Ok;
    case QMessageBox::Yes:
        return MessageAnswer::Yes;
    case QMessageBox::No:
        return MessageAnswer::No;
    case QMessageBox::Retry:
        return MessageAnswer::Retry;
    case QMessageBox::Cancel:
        return MessageAnswer::Cancel;
    default:
        return AnswerWhenClosed(request.Buttons);
    }
}

std::string AskByInputBox(const InputRequest& request) {
    const PointerForTheUser pointer;
    QInputDialog box(WindowInUse());
    box.setFont(FormFont());
    box.setWindowTitle(ToQt(request.Title));
    box.setLabelText(ToQt(request.Prompt));
    // The box takes its size from what it holds, whatever width it is told.
    box.findChild<QLabel*>()->setMinimumWidth(WidthForTitle(box.windowTitle()));
    return box.exec() == QDialog::Accepted ? FromQt(box.textValue()) : std::string();
}

void ShowMousePointer(MousePointer pointer) {
    while (QApplication::overrideCursor() != nullptr) {
        QApplication::restoreOverrideCursor();
    }
    if (pointer == MousePointer::Hourglass) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
    }
}

PointerForTheUser::PointerForTheUser()
    : m_before(QApplication::overrideCursor() != nullptr ? MousePointer::Hourglass : MousePointer::Default) {
    ShowMousePointer(MousePointer::Default);
}

PointerForTheUser::~PointerForTheUser() {
    ShowMousePointer(m_before);
}

} // namespace plenair
