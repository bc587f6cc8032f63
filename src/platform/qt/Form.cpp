#include "platform/qt/Form.h"

#include "platform/qt/FormFont.h"
#include "platform/qt/Panels.h"
#include "platform/qt/Stacking.h"
#include "platform/qt/Twips.h"
#include "platform/qt/WindowInUse.h"

#include <QActionEvent>
#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QRect>
#include <QScreen>
#include <QShortcut>
#include <QTimer>
#include <QWidgetList>
#include <QWindow>

#include <chrono>

namespace plenair {

namespace {

bool IsInput(const QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
        return true;
    default:
        return false;
    }
}

// The frame that the desktop has put around a window last. The next one's will most likely be the same.
QMargins s_lastFrame;

QRect PrimaryScreen() {
    return QGuiApplication::primaryScreen()->geometry();
}

// From an open menu one Escape leads back to where the keyboard was. The toolkit's own would stop at the bar,
// which then takes what is typed for a box.
class FormMenuBar : public QMenuBar {
  public:
    using QMenuBar::QMenuBar;

  protected:
    void actionEvent(QActionEvent* event) override {
        QMenuBar::actionEvent(event);
        if (event->type() == QEvent::ActionAdded && event->action()->menu() != nullptr) {
            event->action()->menu()->installEventFilter(this);
        }
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* const menu = qobject_cast<QMenu*>(watched);
        if (menu == nullptr || event->type() != QEvent::KeyPress ||
            !static_cast<QKeyEvent*>(event)->matches(QKeySequence::Cancel)) {
            return QMenuBar::eventFilter(watched, event);
        }
        menu->close();
        QMenuBar::keyPressEvent(static_cast<QKeyEvent*>(event));
        return true;
    }
};

} // namespace

Form::Form(const QString& name, const QString& caption, Qt::WindowFlags flags)
    : QWidget(nullptr, flags), m_client(new QWidget(this)) {
    setObjectName(name);
    setWindowTitle(caption);
    setFont(FormFont());
    setAttribute(Qt::WA_AlwaysShowToolTips); // also while another window of the program has the keyboard
}

QShortcut* Form::AddKeys(const QList<QKeySequence>& keys, const std::function<void()>& action) {
    auto* shortcut = new QShortcut(this);
    shortcut->setKeys(keys);
    connect(shortcut, &QShortcut::activated, this, action);
    m_keys += keys;
    return shortcut;
}

QMenuBar* Form::MenuBar() {
    if (m_menuBar == nullptr) {
        m_menuBar = new FormMenuBar(this);
        m_menuBar->setNativeMenuBar(false);
        connect(new QShortcut(Qt::Key_F10, this), &QShortcut::activated, m_menuBar,
                [this] { m_menuBar->setActiveAction(m_menuBar->actions().constFirst()); });
    }
    return m_menuBar;
}

void Form::SetClientSize(double width, double height) {
    m_clientSize = QSize(ToPixelsX(width), ToPixelsY(height));
    LayOut();
}

void Form::LayOut() {
    const int menuHeight = m_menuBar != nullptr ? m_menuBar->sizeHint().height() : 0;
    if (m_menuBar != nullptr) {
        m_menuBar->setGeometry(0, 0, m_clientSize.width(), menuHeight);
    }
    m_client->setGeometry(QRect(QPoint(0, menuHeight), m_clientSize));
    setFixedSize(m_clientSize.width(), m_clientSize.height() + menuHeight);
    if (isVisible() && windowHandle()->geometry().topLeft() != geometry().topLeft()) {
        // On its way to another place, which the toolkit now takes for that of the client area.
        windowHandle()->setFramePosition(m_askedFor);
    }
}

void Form::Place(QWidget* control, double left, double top, double width, double height) {
    control->setGeometry(ToPixels(left, top, width, height));
}

// The desktop's frame around the window; until it is known that around the last one.
QMargins Form::Frame() const {
    if (m_frame) {
        return *m_frame;
    }
    return windowFlags().testFlag(Qt::FramelessWindowHint) ? QMargins() : s_lastFrame;
}

// The frame's top left corner, as far as it is known.
QPoint Form::Corner() const {
    return m_frame ? geometry().topLeft() - QPoint(m_frame->left(), m_frame->top()) : m_askedFor;
}

void Form::FillScreen() {
    m_fillsScreen = true;
    // A pixel less until the frame is known: window managers drop the frame of a window that comes up as
    // large as the screen.
    const QSize clientSize =
        PrimaryScreen().marginsRemoved(Frame()).size() - (m_frame ? QSize(0, 0) : QSize(1, 1));
    if (clientSize != m_clientSize) {
        m_clientSize = clientSize;
        LayOut();
    }
    if (!m_frame || Corner() != PrimaryScreen().topLeft()) {
        MoveTo(0, 0);
    }
}

double Form::Left() const {
    return (Corner() - PrimaryScreen().topLeft()).x() * TwipsPerPixelX();
}

double Form::Top() const {
    return (Corner() - PrimaryScreen().topLeft()).y() * TwipsPerPixelY();
}

double Form::Width() const {
    return (width() + Frame().left() + Frame().right()) * TwipsPerPixelX();
}

double Form::Height() const {
    return (height() + Frame().top() + Frame().bottom()) * TwipsPerPixelY();
}

void Form::MoveTo(double left, double top) {
    PutOn({PrimaryScreen().topLeft() + QPoint(ToPixelsX(left), ToPixelsY(top)), Spot::Part::TopLeft});
}

void Form::MoveRightEdgeTo(double right, double top) {
    PutOn({PrimaryScreen().topLeft() + QPoint(ToPixelsX(right), ToPixelsY(top)), Spot::Part::TopRight});
}

void Form::MoveToCentre() {
    PutOn({PrimaryScreen().center(), Spot::Part::Centre});
}

void Form::PutOn(const Spot& spot) {
    m_spot = spot;
    PutInPlace();
}

// Where the frame may stand. A window as large as the screen only keeps its title bar clear of panels.
QRect Form::Room() const {
    const QRect room = FreeArea(*QGuiApplication::primaryScreen());
    const QRect whole = PrimaryScreen();
    return m_fillsScreen ? QRect(QPoint(whole.left(), room.top()), whole.bottomRight()) : room;
}

void Form::PutInPlace() {
    winId(); // makes the native window, which knows whether a place is that of the frame
    m_askedFor = m_spot ? FrameCorner(*m_spot, size().grownBy(Frame()), Room()) : *m_left;
    if (!windowHandle()->isVisible()) {
        // Else the toolkit would, when it shows the window, make this a place of the client area.
        setGeometry(QRect(m_askedFor, size()));
    } else if (m_frame && Corner() == m_askedFor) {
        return;
    }
    windowHandle()->setFramePosition(m_askedFor);
}

void Form::RepaintAtMostEvery(int milliseconds) {
    if (!m_sincePainted.isValid() || m_sincePainted.hasExpired(milliseconds)) {
        repaint();
        m_sincePainted.start();
    }
}

void Form::ShowModal() {
    const QPointer<QWidget> owner = WindowInUse();
    setWindowModality(Qt::ApplicationModal);
    if (owner != nullptr) {
        winId(); // makes the native window
        windowHandle()->setTransientParent(owner->windowHandle());
    }
    QEventLoop untilHidden;
    connect(this, &Form::Hidden, &untilHidden, &QEventLoop::quit);
    show();
    untilHidden.exec();
    if (owner != nullptr && owner->isVisible()) {
        owner->activateWindow();
    }
}

bool Form::WaitUntilOnScreen() {
    const QPointer<Form> self(this);
    if (isVisible() && !windowHandle()->isExposed()) {
        QEventLoop untilSeen;
        for (const auto signal : {&Form::OnScreen, &Form::Hidden}) {
            connect(this, signal, &untilSeen, &QEventLoop::quit);
        }
        connect(this, &QObject::destroyed, &untilSeen, &QEventLoop::quit);
        QTimer::singleShot(std::chrono::seconds(30), &untilSeen, &QEventLoop::quit);
        untilSeen.exec(QEventLoop::ExcludeUserInputEvents);
    }
    return self != nullptr && isVisible();
}

// The native window's events.
bool Form::eventFilter(QObject* watched, QEvent* event) {
    if (watched != windowHandle()) {
        return QWidget::eventFilter(watched, event);
    }
    // What the user did may have queued up until the window is gone; then it is meant for nobody.
    if (!isVisible()) {
        if (event->type() == QEvent::Expose && windowHandle()->isExposed()) {
            plenair::TakeFromScreen(*windowHandle());
        }
        return IsInput(event);
    }
    if (event->type() == QEvent::Expose && windowHandle()->isExposed() && !m_frame) {
        // The desktop makes its frame before it lets the window be seen.
        FrameIsKnown(windowHandle()->frameMargins());
        if (!m_spot && m_left) {
            PutInPlace();
        }
        emit OnScreen();
    }
    return false;
}

void Form::closeEvent(QCloseEvent* event) {
    event->ignore();
    const QWidget* modal = QApplication::activeModalWidget();
    if (isVisible() && (modal == nullptr || modal == this)) {
        emit CloseRequested();
    }
}

void Form::moveEvent(QMoveEvent*) {
    SeePlace();
}

void Form::resizeEvent(QResizeEvent*) {
    SeePlace();
}

void Form::SeePlace() {
    if (!isVisible() || !m_frame) {
        return;
    }
    const QMargins frame = windowHandle()->frameMargins();
    if (frame != *m_frame) {
        FrameIsKnown(frame);
    } else if (Corner() != m_askedFor) {
        m_spot.reset(); // the user has put it there, or the desktop knows better
    }
}

void Form::showEvent(QShowEvent* event) {
    if (event->spontaneous()) {
        return;
    }
    windowHandle()->installEventFilter(this);
    m_frame.reset();
    if (m_spot || m_left) {
        PutInPlace();
    }
    if (m_isOffTaskBar) {
        plenair::KeepOffTaskBar(*windowHandle());
    }
    // The desktop may have woken the window once more while it was being hidden, and the toolkit then takes
    // another control.
    if (m_focusWhenHidden != nullptr) {
        m_focusWhenHidden->setFocus(Qt::ActiveWindowFocusReason);
    }
}

void Form::hideEvent(QHideEvent* event) {
    if (!event->spontaneous()) {
        m_focusWhenHidden = focusWidget();
        m_left = Corner();
        emit Hidden();
    }
}

void Form::FrameIsKnown(const QMargins& frame) {
    m_frame = frame;
    s_lastFrame = frame.isNull() ? s_lastFrame : frame;
    if (m_fillsScreen) {
        FillScreen();
    } else if (m_spot && m_spot->Of != Spot::Part::TopLeft) {
        PutInPlace();
    }
}

} // namespace plenair
