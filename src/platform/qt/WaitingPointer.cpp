#include "platform/qt/WaitingPointer.h"

#include "platform/desktop/Desktop.h"
#include "platform/qt/MessageBoxes.h"

#include <QApplication>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QKeyEvent>
#include <QObject>
#include <QPointer>

#include <memory>
#include <utility>
#include <vector>

namespace plenair {

namespace {

constexpr int kToldAfter = 250; // ms
constexpr int kAskedAfter = 50; // ms, again and again

// Takes all that the user does away from the windows while it lives, and gives it to them afterwards, apart
// from Escape.
class HeldInput : public QObject {
  public:
    HeldInput() { qApp->installEventFilter(this); }
    ~HeldInput() override {
        for (auto& [window, event] : m_held) {
            if (window != nullptr) {
                QCoreApplication::postEvent(window, event.release());
            }
        }
    }
    HeldInput(const HeldInput&) = delete;
    HeldInput& operator=(const HeldInput&) = delete;

    bool Escaped() const { return m_escaped; }

  protected:
    bool eventFilter(QObject* receiver, QEvent* event) override {
        if (event->type() == QEvent::ShortcutOverride) {
            event->accept(); // else a menu might open; it comes again as a key
            return true;
        }
        if (!receiver->isWindowType() || !(event->isInputEvent() || event->type() == QEvent::Close)) {
            return false;
        }
        if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
            m_escaped = true;
        } else {
            m_held.emplace_back(receiver, std::unique_ptr<QEvent>(event->clone()));
        }
        return true;
    }

  private:
    std::vector<std::pair<QPointer<QObject>, std::unique_ptr<QEvent>>> m_held;
    bool m_escaped = false;
};

class WaitingPointer {
  public:
    WaitingPointer() { m_since.start(); }
    ~WaitingPointer() {
        if (m_told) {
            ShowMousePointer(MousePointer::Default);
        }
    }
    WaitingPointer(const WaitingPointer&) = delete;
    WaitingPointer& operator=(const WaitingPointer&) = delete;

    bool GoOn() {
        if (!m_since.hasExpired(m_told ? kAskedAfter : kToldAfter)) {
            return true;
        }
        if (!m_told) {
            ShowMousePointer(MousePointer::Hourglass);
            m_told = true;
        }
        const HeldInput input;
        QCoreApplication::processEvents();
        m_since.start();
        return !input.Escaped();
    }

  private:
    QElapsedTimer m_since;
    bool m_told = false;
};

} // namespace

std::function<bool()> StartWaitingPointer() {
    return [waiting = std::make_shared<WaitingPointer>()] { return waiting->GoOn(); };
}

} // namespace plenair
