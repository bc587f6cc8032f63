#include "platform/qt/Form.h"

#include "platform/qt/Twips.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QScreen>
#include <QTimer>

namespace plenair {

namespace {

// A small sans serif that fits the layout in twips, metric-compatible with the one it was drawn with.
QFont FormFont() {
    QFont font;
    font.setFamilies({"Liberation Sans", "Arial", "Helvetica", "Noto Sans", "DejaVu Sans"});
    font.setPointSizeF(8.25);
    return font;
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

QMenuBar* Form::MenuBar() {
    if (m_menuBar == nullptr) {
        m_menuBar = new QMenuBar(this);
        m_menuBar->setNativeMenuBar(false);
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
    MoveToSpot({left, top, false});
}

void Form::MoveRightEdgeTo(double right, double top) {
    MoveToSpot({right, top, true});
}

void Form::MoveToSpot(const Spot& spot) {
    const int left = spot.isRightEdge ? ToPixelsX(spot.x) - FrameSize().width() : ToPixelsX(spot.x);
    move(left, ToPixelsY(spot.top));
    if (!m_seen) {
        m_firstSpot = spot;
    }
}

void Form::closeEvent(QCloseEvent* event) {
    event->ignore();
    emit CloseRequested();
}

void Form::paintEvent(QPaintEvent* event) {
    QWidget::paintEvent(event);
    if (!m_seen) {
        m_seen = true;
        if (m_firstSpot) {
            QTimer::singleShot(0, this, [this] { MoveToSpot(*m_firstSpot); });
        }
    }
}

} // namespace plenair
