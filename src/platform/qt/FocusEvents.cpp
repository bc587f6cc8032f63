#include "platform/qt/FocusEvents.h"

#include "platform/qt/Form.h"

#include <QApplication>
#include <QPointer>
#include <QWidget>

namespace plenair {

namespace {

// The control that has the focus as far as handlers are concerned.
QPointer<QWidget>& Current() {
    static QPointer<QWidget> s_current;
    return s_current;
}

bool IsControlOfAForm(const QWidget* widget) {
    return widget != nullptr && widget->focusPolicy() != Qt::NoFocus &&
           qobject_cast<Form*>(widget->window()) != nullptr;
}

void FocusMovedTo(QWidget* now) {
    if (now == Current() || !IsControlOfAForm(now)) {
        return;
    }
    const QPointer<QWidget> target = now;
    const QPointer<QWidget> before = Current();
    Current() = now;
    if (auto* control = dynamic_cast<FocusEvents*>(before.data())) {
        control->TellLostFocus();
    }
    // A handler may have moved the focus on; then that move has told of everything.
    if (Current() != target || target.isNull()) {
        return;
    }
    auto* form = qobject_cast<Form*>(target->window());
    if (form->GotFocus && (before.isNull() || before->window() != form)) {
        form->GotFocus();
    }
    auto* control = dynamic_cast<FocusEvents*>(target.data());
    if (Current() == target && control != nullptr) {
        control->TellGotFocus();
    }
}

// A window that isn't the active one gets the mouse button before the desktop makes it active, or it never
// becomes active. The click must find the focus moved all the same, and so must a key that comes after it.
class InputWatcher : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject* receiver, QEvent* event) override {
        auto* widget = qobject_cast<QWidget*>(receiver);
        if (widget == nullptr || widget == Current() || !widget->isEnabled()) {
            return false;
        }
        // In the active window the toolkit has moved the focus by now, and told of it; where it is somewhere
        // else, a handler wanted it there.
        if (widget->window()->isActiveWindow() && widget != QApplication::focusWidget()) {
            return false;
        }
        const bool takesClick = (widget->focusPolicy() & Qt::ClickFocus) == Qt::ClickFocus;
        const bool takesWheel = (widget->focusPolicy() & Qt::WheelFocus) == Qt::WheelFocus;
        if ((event->type() == QEvent::MouseButtonPress && takesClick) ||
            (event->type() == QEvent::Wheel && takesWheel)) {
            FocusMovedTo(widget);
        } else if (event->type() == QEvent::KeyPress && widget == QApplication::focusWidget()) {
            FocusMovedTo(widget);
        }
        return false;
    }
};

} // namespace

void WatchFocus() {
    QObject::connect(qApp, &QApplication::focusChanged, qApp,
                     [](QWidget*, QWidget* now) { FocusMovedTo(now); });
    qApp->installEventFilter(new InputWatcher(qApp));
}

QWidget* WindowInUse() {
    QWidget* active = QApplication::activeWindow();
    if (active != nullptr && active->isVisible()) {
        return active;
    }
    return Current() != nullptr && Current()->window()->isVisible() ? Current()->window() : nullptr;
}

void GiveFocus(QWidget* control) {
    if (!control->isVisible() || !control->isEnabled()) {
        return;
    }
    if (!control->window()->isActiveWindow()) {
        control->window()->activateWindow();
    }
    control->setFocus(Qt::OtherFocusReason);
    // A window that is about to become active again gets its focus from the desktop later; the handlers run
    // now.
    FocusMovedTo(control);
}

} // namespace plenair
