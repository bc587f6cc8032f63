#include "platform/qt/Stacking.h"

#include <QApplication>
#include <QEvent>
#include <QPointer>
#include <QWidget>
#include <QWindow>

#include <utility>

#ifdef PLENAIR_XCB
#include "platform/qt/XServer.h"

#include <QAbstractNativeEventFilter>
#endif

namespace plenair {

namespace {

// The small window that stands on `window`, or that window itself.
QWindow* HighestOn(QWindow* window) {
    for (QWindow* other : QGuiApplication::topLevelWindows()) {
        if (other->type() == Qt::Tool && other->isVisible() && other->transientParent() == window) {
            return other;
        }
    }
    return window;
}

#ifdef PLENAIR_XCB
// Keeps from the toolkit its own requests for the keyboard, which the server sends back to it: it takes one
// for the grant. If the request is not granted, as for a window that is hidden meanwhile, the keyboard stays
// where it was, and nothing would ever tell the toolkit so.
class RequestFilter : public QAbstractNativeEventFilter {
  public:
    bool nativeEventFilter(const QByteArray&, void* message, qintptr*) override {
        const auto* event = static_cast<const xcb_client_message_event_t*>(message);
        return (event->response_type & 0x7f) == XCB_CLIENT_MESSAGE && event->type == m_request;
    }

  private:
    xcb_atom_t m_request = AtomOf(Server(), "_NET_ACTIVE_WINDOW");
};
#endif

// Window managers give the keyboard of a window that goes to the one for which it was transient. The toolkit
// tells them which that is only when the window comes.
void GoesBackTo(const QWindow& owner, const QWindow& dialog) {
#ifdef PLENAIR_XCB
    if (xcb_connection_t* const server = Server()) {
        const auto id = static_cast<xcb_window_t>(owner.winId());
        xcb_change_property(server, XCB_PROP_MODE_REPLACE, static_cast<xcb_window_t>(dialog.winId()),
                            XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW, 32, 1, &id);
    }
#else
    static_cast<void>(owner);
    static_cast<void>(dialog);
#endif
}

class DialogWatcher : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* dialog = qobject_cast<QWidget*>(watched);
        if (dialog != nullptr && dialog->isModal() && event->type() == QEvent::Show) {
            StandAbove(*dialog->windowHandle());
        }
        return false;
    }

  private:
    void StandAbove(QWindow& dialog) {
        const QPointer<QWindow> owner(dialog.transientParent());
        if (owner == nullptr) {
            return;
        }
        dialog.setTransientParent(HighestOn(owner));
        auto* const untilHidden = new QObject(this);
        // A dialog that is shown again finds the sheet anew.
        const auto goBack = [=, window = &dialog](bool isVisible) {
            if (!isVisible) {
                untilHidden->deleteLater();
                if (owner != nullptr) {
                    GoesBackTo(*owner, *window);
                    window->setTransientParent(owner);
                    // A manager that reads this only when the dialog is gone takes the sheet instead.
                    if (owner->isVisible() && HighestOn(owner) != owner) {
                        owner->requestActivate();
                    }
                }
            }
        };
        connect(&dialog, &QWindow::visibleChanged, untilHidden, goBack);
        if (QGuiApplication::platformName() == "xcb") {
            // The window manager knows by now on which window the dialog stands, and the toolkit must not: at
            // a click on that window it would force the keyboard there, and then no window would have it.
            QMetaObject::invokeMethod(
                untilHidden, [window = &dialog] { window->setTransientParent(nullptr); },
                Qt::QueuedConnection);
        }
    }
};

} // namespace

void KeepDialogsAbove() {
    qApp->installEventFilter(new DialogWatcher(qApp));
}

void AwaitKeyboard() {
#ifdef PLENAIR_XCB
    if (Server() != nullptr) {
        static RequestFilter s_filter;
        qApp->installNativeEventFilter(&s_filter);
    }
#endif
}

void TakeFromScreen(QWindow& window) {
#ifdef PLENAIR_XCB
    if (xcb_connection_t* const server = Server()) {
        xcb_unmap_window(server, static_cast<xcb_window_t>(window.winId()));
        xcb_flush(server);
    }
#else
    static_cast<void>(window);
#endif
}

void KeepOffTaskBar(QWindow& window) {
#ifdef PLENAIR_XCB
    if (xcb_connection_t* const server = Server()) {
        // The toolkit keeps what stands in the property when it adds its own.
        const xcb_atom_t skip = AtomOf(server, "_NET_WM_STATE_SKIP_TASKBAR");
        xcb_change_property(server, XCB_PROP_MODE_APPEND, static_cast<xcb_window_t>(window.winId()),
                            AtomOf(server, "_NET_WM_STATE"), XCB_ATOM_ATOM, 32, 1, &skip);
    }
#else
    static_cast<void>(window);
#endif
}

} // namespace plenair
