#include "platform/qt/Stacking.h"

#include <QApplication>
#include <QEvent>
#include <QHash>
#include <QPointer>
#include <QWidget>
#include <QWindow>

#include <utility>

#ifdef PLENAIR_XCB
#include <QtGui/qguiapplication_platform.h>

#include <cstdlib>
#include <cstring>

#include <xcb/xcb.h>
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

class DialogWatcher : public QObject {
  public:
    explicit DialogWatcher(QObject* parent) : QObject(parent) {
        connect(qApp, &QGuiApplication::focusWindowChanged, this, &DialogWatcher::KeyboardHasGoneTo);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::KeyPress) {
            m_returnTo = nullptr; // the user decides from here
        }
        auto* dialog = qobject_cast<QWidget*>(watched);
        if (dialog == nullptr || !dialog->isModal() || !dialog->isWindow()) {
            return false;
        }
        QWindow* const window = dialog->windowHandle();
        if (event->type() == QEvent::Show) {
            m_owners[dialog] = window->transientParent();
            window->setTransientParent(HighestOn(window->transientParent()));
        } else if (event->type() == QEvent::Hide) {
            const QPointer<QWindow> owner = m_owners.take(dialog);
            if (owner != nullptr && owner->isVisible()) {
                m_returnTo = owner;
                owner->requestActivate();
            }
        }
        return false;
    }

  private:
    // Some window managers give the keyboard of a dialog that is gone to the window that it stood on, after
    // all that was asked for before. Asked for once more, they leave it.
    void KeyboardHasGoneTo(const QWindow* window) {
        if (window != nullptr && m_returnTo != nullptr && window != m_returnTo &&
            window == HighestOn(m_returnTo)) {
            const QPointer<QWindow> owner = std::exchange(m_returnTo, nullptr);
            owner->requestActivate();
        }
    }

    QHash<QWidget*, QPointer<QWindow>> m_owners; // of the dialogs that are shown
    QPointer<QWindow> m_returnTo;                // where the keyboard belongs after the last one
};

#ifdef PLENAIR_XCB
xcb_atom_t AtomOf(xcb_connection_t* connection, const char* name) {
    const auto length = static_cast<std::uint16_t>(std::strlen(name));
    auto* reply = xcb_intern_atom_reply(connection, xcb_intern_atom(connection, 0, length, name), nullptr);
    const xcb_atom_t atom = reply != nullptr ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    std::free(reply);
    return atom;
}
#endif

} // namespace

void KeepDialogsAbove() {
    qApp->installEventFilter(new DialogWatcher(qApp));
}

void KeepOffTaskBar(QWindow& window) {
#ifdef PLENAIR_XCB
    auto* x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    if (xcb_connection_t* const connection = x11 != nullptr ? x11->connection() : nullptr) {
        // The toolkit keeps what stands in the property when it adds its own.
        const xcb_atom_t skip = AtomOf(connection, "_NET_WM_STATE_SKIP_TASKBAR");
        xcb_change_property(connection, XCB_PROP_MODE_APPEND, static_cast<xcb_window_t>(window.winId()),
                            AtomOf(connection, "_NET_WM_STATE"), XCB_ATOM_ATOM, 32, 1, &skip);
    }
#else
    static_cast<void>(window);
#endif
}

} // namespace plenair
