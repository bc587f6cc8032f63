#include "platform/qt/WindowInUse.h"

#include <QApplication>

namespace plenair {

QList<QPointer<QWidget>>& EnteredControls() {
    static QList<QPointer<QWidget>> s_entered;
    s_entered.removeAll(nullptr);
    return s_entered;
}

QWidget* WindowInUse() {
    QWidget* active = QApplication::activeWindow();
    if (active != nullptr && active->isVisible()) {
        return active;
    }
    QWidget* last = nullptr;
    for (const QPointer<QWidget>& control : EnteredControls()) {
        last = control->window()->isVisible() ? control->window() : last;
    }
    return last;
}

} // namespace plenair
