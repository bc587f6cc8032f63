#include "platform/qt/Form.h"

#include "platform/qt/Twips.h"

#include <QCloseEvent>
#include <QMenuBar>
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

double Form::Left() const {
    return frameGeometry().left() * TwipsPerPixelX();
}

double Form::Top() const {
    return frameGeometry().top() * TwipsPerPixelY();
}

void Form::MoveTo(double left, double top) {
    m_topRight = -1;
    move(ToPixelsX(left), ToPixelsY(top));
}

void Form::MoveToTopRight(double top) {
    move(ToPixelsX(ScreenWidth()) - frameGeometry().width(), ToPixelsY(top));
    m_topRight = top;
}

void Form::closeEvent(QCloseEvent* event) {
    event->ignore();
    emit CloseRequested();
}

void Form::paintEvent(QPaintEvent* event) {
    QWidget::paintEvent(event);
    if (m_topRight >= 0) {
        // First on the screen: by now the desktop has put its frame around the window.
        const double top = m_topRight;
        m_topRight = -1;
        QTimer::singleShot(0, this, [this, top] { MoveTo(ScreenWidth() - frameGeometry().width() * TwipsPerPixelX(), top); });
    }
}

} // namespace plenair
