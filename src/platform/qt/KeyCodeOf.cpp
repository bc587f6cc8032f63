#include "platform/qt/KeyCodeOf.h"

#include "platform/desktop/KeyCodes.h"

#include <QKeyEvent>

namespace plenair {

int KeyCodeOf(const QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Backspace:
        return kKeyBackspace;
    case Qt::Key_Tab:
        return kKeyTab;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return kKeyEnter;
    case Qt::Key_Escape:
        return kKeyEscape;
    case Qt::Key_PageUp:
        return kKeyPageUp;
    case Qt::Key_PageDown:
        return kKeyPageDown;
    case Qt::Key_End:
        return kKeyEnd;
    case Qt::Key_Home:
        return kKeyHome;
    case Qt::Key_Left:
        return kKeyLeft;
    case Qt::Key_Up:
        return kKeyUpArrow;
    case Qt::Key_Right:
        return kKeyRight;
    case Qt::Key_Down:
        return kKeyDownArrow;
    case Qt::Key_Delete:
        return kKeyDelete;
    default:
        return event->key() >= Qt::Key_Space && event->key() <= Qt::Key_AsciiTilde ? event->key() : 0;
    }
}

} // namespace plenair
