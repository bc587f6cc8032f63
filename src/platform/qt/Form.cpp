#include "platform/qt/Form.h"

#include "platform/qt/FocusEvents.h"
#include "platform/qt/FormFont.h"
#include "platform/qt/Twips.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QGuiApplication>
#include <QMenuBar>
#include <QRect>
#include <QScreen>
#include <QShortcut>
#include <QTimer>
#include <QWidgetList>
#include <QWindow>

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

// What the desktop's frame adds to a window, once one has been seen.
QSize s_frame(0, 0);

} // namespace

Form::Form(const QString& name, const QString& caption, Qt::WindowFlags flags)
    : QWidget(nullptr, flags), m_client(new QWidget(this)) {
    setObjectName(name);
    setWindowTitle(caption);
    setFont(FormFont());
    m_client->setObjectName("client");
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
        m_menuBar = new QMenuBar(this);
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
}

void Form::Place(QWidget* control, double left, double top, double width, double height) {
    control->setGeometry(ToPixels(left, top, width, height));
}

QSize Form::FrameSize() const {
    // Before a window is on the screen its own frame is not known; the frames of all windows look alike.
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        const QSize frame = window->frameGeometry().size() - window->size();
        if (qobject_cast<const Form*>(window) != nullptr && !frame.isEmpty()) {
            s_frame = frame;
        }
    }
    const QSize known = frameGeometry().size();
    return known != size() ? known : size() + s_frame;
}

void Form::FillScreen() {
    const QSize size = QGuiApplication::primaryScreen()->size() - (FrameSize() - this->size());
    if (size != m_clientSize) {
        m_clientSize = size;
        LayOut();
    }
    if (frameGeometry().topLeft() != QPoint(0, 0)) {
        MoveTo(0, 0);
    }
}

double Form::Left() const {
    return frameGeometry().left() * TwipsPerPixelX();
}

double Form::Top() const {
    return frameGeometry().top() * TwipsPerPixelY();
}

double Form::Width() const {
    return FrameSize().width() * TwipsPerPixelX();
}

double Form::Height() const {
    return FrameSize().height() * TwipsPerPixelY();
}

void Form::MoveTo(double left, double top) {
    Remember({left, top, false});
}

void Form::MoveRightEdgeTo(double right, double top) {
    Remember({right, top, true});
}

void Form::Remember(const Spot& spot) {
    m_firstSpot = spot;
    move(FirstPosition());
    if (m_seen) {
        m_firstSpot.reset();
    }
}

QPoint Form::FirstPosition() const {
    const int x = ToPixelsX(m_firstSpot->X);
    return {m_firstSpot->IsRightEdge ? x - FrameSize().width() : x, ToPixelsY(m_firstSpot->Top)};
}

// The desktop tells what its frame takes some time after the window is on the screen, and may until then have
// put the client area where the frame belongs. Anywhere else is where the user has put it.
void Form::CorrectFirstPosition() {
    const bool frameIsKnown = frameGeometry().size() != size();
    if (m_firstSpot && frameIsKnown && (!m_corrected || geometry().top() == FirstPosition().y())) {
        m_corrected = true;
        move(FirstPosition());
    }
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
    winId(); // makes the native window, which stays above its owner's, should that be held on top
    windowHandle()->setTransientParent(owner != nullptr ? owner->windowHandle() : nullptr);
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
    const QDeadlineTimer limit(30000);
    while (self != nullptr && isVisible() && !windowHandle()->isExposed() && !limit.hasExpired()) {
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents, 20);
    }
    return self != nullptr && isVisible();
}

bool Form::event(QEvent* event) {
    if (event->type() == QEvent::WinIdChange && windowHandle() != nullptr) {
        windowHandle()->installEventFilter(this);
    }
    return QWidget::event(event);
}

// The native window's events. What the user did may have queued up until the window is gone from the screen;
// then it is meant for nobody.
bool Form::eventFilter(QObject* watched, QEvent* event) {
    return (watched == windowHandle() && !isVisible() && IsInput(event)) ||
           QWidget::eventFilter(watched, event);
}

void Form::closeEvent(QCloseEvent* event) {
    event->ignore();
    const QWidget* modal = QApplication::activeModalWidget();
    if (isVisible() && (modal == nullptr || modal == this)) {
        emit CloseRequested();
    }
}

void Form::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    if (!event->spontaneous()) {
        m_focusWhenHidden = focusWidget();
        emit Hidden();
    }
}

void Form::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    // The desktop may have woken the window once more while it was being hidden, and the toolkit then takes
    // another control.
    if (!event->spontaneous() && m_focusWhenHidden != nullptr) {
        m_focusWhenHidden->setFocus(Qt::ActiveWindowFocusReason);
    }
}

void Form::paintEvent(QPaintEvent* event) {
    QWidget::paintEvent(event);
    if (!m_seen) {
        m_seen = true;
        for (const int wait : {0, 50, 200, 500}) {
            QTimer::singleShot(wait, this, &Form::CorrectFirstPosition);
        }
    }
}

} // namespace plenair
