#include "platform/qt/FocusEvents.h"

#include "platform/qt/Form.h"

#include <QApplication>
#include <QPointer>
#include <QWidget>

namespace plenair {

namespace {

// The control that has the focus as far as handlers are concerned.
QPointer<QWidget>& Current() {
    static QPointer<QWidget> current;
    return current;
}

void FocusMovedTo(QWidget* now) {
    if (now == nullptr || now == Current() || qobject_cast<Form*>(now->window()) == nullptr ||
        now->focusPolicy() == Qt::NoFocus) {
        return;
    }
    QPointer<QWidget> before = Current();
    Current() = now;
    if (auto* control = dynamic_cast<FocusEvents*>(before.data()); control && control->LostFocus) {
        control->LostFocus();
    }
    // The handler may have moved the focus on; then that move has told of everything.
    if (Current() != now) {
        return;
    }
    if (auto* control = dynamic_cast<FocusEvents*>(now); control && control->GotFocus) {
        control->GotFocus();
    }
}

} // namespace

void WatchFocus() {
    QObject::connect(qApp, &QApplication::focusChanged, qApp,
                     [](QWidget*, QWidget* now) { FocusMovedTo(now); });
}

void GiveFocus(QWidget* control) {
    if (!control->isVisible() || !control->isEnabled()) {
        return;
    }
    if (!control->window()->isActiveWindow()) {
        control->window()->activateWindow();
    }
    control->setFocus(Qt::OtherFocusReason);
}

} // namespace plenair
