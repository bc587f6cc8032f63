#include "platform/qt/FocusEvents.h"

#include "platform/qt/Form.h"
#include "platform/qt/KeyRepeat.h"
#include "platform/qt/WindowInUse.h"

#include <QApplication>
#include <QEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QObject>
#include <QPointer>

#include <algorithm>
#include <utility>

namespace plenair {

namespace {

bool IsControlOfAForm(const QWidget* widget) {
    return widget != nullptr && widget->focusPolicy() != Qt::NoFocus && widget->isVisible() &&
           qobject_cast<Form*>(widget->window()) != nullptr;
}

bool HasEnteredControl(const QWidget* window) {
    const auto& entered = EnteredControls();
    return std::any_of(entered.begin(), entered.end(),
                       [window](const QPointer<QWidget>& control) { return control->window() == window; });
}

// Leaves what is entered elsewhere, now that the user is in `window`, at `control`. What is hidden or waits
// for that window stays entered.
void LeaveOthers(const QWidget* window, const QWidget* control) {
    const QList<QPointer<QWidget>> entered = EnteredControls();
    for (const QPointer<QWidget>& other : entered) {
        const bool stays = other == nullptr || other == control || !other->window()->isVisible() ||
                           (other->window() != window && window->isModal());
        if (!stays && EnteredControls().removeOne(other)) {
            if (auto* told = dynamic_cast<FocusEvents*>(other.data())) {
                told->TellLostFocus();
            }
        }
    }
}

// The form that the user came to last.
QPointer<Form>& LastForm() {
    static QPointer<Form> s_form;
    return s_form;
}

// The user is at a control of this form; where that is news, the form is told, unless it has a control that
// is entered still and may be typed in.
void ComeTo(Form* form, bool isBeingUsed) {
    if (std::exchange(LastForm(), form) != form && !isBeingUsed && form->GotFocus) {
        form->GotFocus();
    }
}

void Enter(QWidget* control, bool byPress) {
    static QPointer<QWidget> s_coming; // to which the handlers that run here may prefer another
    if (!IsControlOfAForm(control) || EnteredControls().contains(control)) {
        return;
    }
    const QPointer<QWidget> target = control;
    auto* form = qobject_cast<Form*>(control->window());
    const bool isBeingUsed = HasEnteredControl(form);
    s_coming = target;
    LeaveOthers(form, control);
    if (s_coming != target || target == nullptr || EnteredControls().contains(target)) {
        return;
    }
    EnteredControls().append(target);
    ComeTo(form, isBeingUsed);
    if (auto* told = dynamic_cast<FocusEvents*>(target.data());
        told != nullptr && EnteredControls().contains(target)) {
        told->TellGotFocus(byPress);
    }
}

bool IsModifier(int key) {
    return (key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock) || key == Qt::Key_AltGr ||
           (key >= Qt::Key_Super_L && key <= Qt::Key_Hyper_R);
}

// Sees what the toolkit's own events don't tell of: why the focus moved, presses in windows that aren't
// active yet, which may come before the desktop makes them so, and keys in a box that got the keyboard by
// waking.
class InputWatcher : public QObject {
  public:
    using QObject::QObject;

    void FocusMoved(QWidget* now) {
        if (!IsControlOfAForm(now)) {
            return;
        }
        const bool wasAway = std::exchange(m_isAway, false);
        m_handedOn = false;
        switch (m_reason) {
        case Qt::ActiveWindowFocusReason:
            Wake(qobject_cast<Form*>(now->window()), wasAway);
            break;
        case Qt::PopupFocusReason:
        case Qt::MenuBarFocusReason:
            break;
        default:
            Enter(now, m_reason == Qt::MouseFocusReason);
        }
    }

    bool eventFilter(QObject* receiver, QEvent* event) override {
        auto* widget = qobject_cast<QWidget*>(receiver);
        if (widget == nullptr || !widget->isEnabled()) {
            return false;
        }
        switch (event->type()) {
        case QEvent::FocusIn:
            m_reason = static_cast<QFocusEvent*>(event)->reason();
            break;
        case QEvent::MouseButtonPress:
            Press(widget, Qt::ClickFocus);
            break;
        case QEvent::Wheel:
            Press(widget, Qt::WheelFocus);
            break;
        case QEvent::ShortcutOverride: // comes before a key that may be one of the window and not of the
                                       // control
            if (!IsModifier(static_cast<QKeyEvent*>(event)->key()) && IsControlOfAForm(widget)) {
                LeaveOthers(widget->window(), widget);
            }
            break;
        case QEvent::KeyPress:
            if (!IsModifier(static_cast<QKeyEvent*>(event)->key())) {
                Key(widget);
            }
            break;
        case QEvent::InputMethod:
            if (!static_cast<QInputMethodEvent*>(event)->commitString().isEmpty()) {
                Key(widget);
            }
            break;
        default:
            break;
        }
        return false;
    }

    // The keyboard is with another program.
    void GoAway() { m_isAway = true; }

  private:
    // The desktop's list of windows has no entry for one like the sheet: coming back from another program by
    // that list, the user comes back to it through the window that it belongs to.
    void Wake(Form* form, bool wasAway) {
        Form* last = LastForm();
        const bool isHandedOn = wasAway && last != nullptr && last != form && last->isVisible() &&
                                last->windowType() == Qt::Tool && !form->isModal();
        if (isHandedOn) {
            m_handedOn = true;
            last->activateWindow();
        } else {
            ComeTo(form, HasEnteredControl(form));
        }
    }

    void Press(QWidget* widget, Qt::FocusPolicy needed) {
        if (std::exchange(m_handedOn, false)) {
            widget->window()->activateWindow(); // it was the press that brought the user back
        }
        // In the active window the toolkit has moved the focus by now, and told of it; where it is somewhere
        // else, a handler wanted it there.
        const bool isMovedOn = widget->window()->isActiveWindow() && widget != QApplication::focusWidget();
        if ((widget->focusPolicy() & needed) == needed && !isMovedOn) {
            Enter(widget, true);
        }
    }

    static void Key(QWidget* widget) {
        // A key may come before the desktop has told that the window is active.
        const QWidget* focus = QApplication::focusWidget();
        if (widget == (focus != nullptr ? focus : widget->window()->focusWidget())) {
            Enter(widget, false);
        }
    }

    Qt::FocusReason m_reason = Qt::NoFocusReason;
    bool m_isAway = false;
    bool m_handedOn = false;
};

} // namespace

void FocusEvents::TellGotFocus(bool) {
    if (GotFocus) {
        GotFocus();
    }
}

void FocusEvents::TellLostFocus() {
    if (LostFocus) {
        LostFocus();
    }
}

void WatchFocus() {
    auto* watcher = new InputWatcher(qApp);
    qApp->installEventFilter(watcher);
    QObject::connect(qApp, &QApplication::focusChanged, watcher,
                     [watcher](QWidget*, QWidget* now) { watcher->FocusMoved(now); });
    QObject::connect(qApp, &QApplication::applicationStateChanged, watcher,
                     [watcher](Qt::ApplicationState state) {
                         if (state != Qt::ApplicationActive) {
                             watcher->GoAway();
                         }
                     });
    TellRepeatFromRelease();
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
    Enter(control, false);
}

} // namespace plenair
