#include "platform/qt/Controls.h"

#include "platform/qt/Icons.h"

#include <QEvent>
#include <QPainter>
#include <QShortcutEvent>

namespace plenair {

namespace {

// Access keys answer at once, without the flash of a pressed button that the toolkit gives them.
bool IsAccessKey(const QEvent* event) {
    return event->type() == QEvent::Shortcut;
}

} // namespace

QString ArrayName(const QString& name, int index) {
    return QString("%1(%2)").arg(name).arg(index);
}

Option::Option(const QString& name, const QString& caption, QWidget* parent) : QRadioButton(caption, parent) {
    setObjectName(name);
    setFocusPolicy(Qt::NoFocus);
    connect(this, &QRadioButton::toggled, this, [this](bool on) {
        if (on && Click) {
            Click();
        }
    });
}

bool Option::event(QEvent* event) {
    if (!IsAccessKey(event)) {
        return QRadioButton::event(event);
    }
    // All options of the window with this access key, in the order in which they were made.
    QList<Option*> sharing;
    for (Option* option : window()->findChildren<Option*>()) {
        if (option->shortcut() == shortcut()) {
            sharing.append(option);
        }
    }
    qsizetype next = 0;
    for (qsizetype i = 0; i < sharing.size(); ++i) {
        if (sharing[i]->isChecked()) {
            next = (i + 1) % sharing.size();
        }
    }
    sharing[next]->SetOn();
    return true;
}

Button::Button(const QString& name, const QString& caption, QWidget* parent) : QPushButton(caption, parent) {
    setObjectName(name);
    setFocusPolicy(Qt::NoFocus);
    setAutoDefault(false);
    connect(this, &QPushButton::clicked, this, [this] {
        if (Click) {
            Click();
        }
    });
}

bool Button::event(QEvent* event) {
    if (!IsAccessKey(event) || static_cast<QShortcutEvent*>(event)->isAmbiguous()) {
        return QPushButton::event(event);
    }
    click();
    return true;
}

Label::Label(const QString& name, const QString& caption, QWidget* parent) : QLabel(caption, parent) {
    setObjectName(name);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setTextFormat(Qt::PlainText);
}

void Label::SetBackColour(const QColor& colour) {
    QPalette own = palette();
    own.setColor(QPalette::Window, colour);
    setPalette(own);
}

Line::Line(const QString& name, QWidget* parent) : QWidget(parent) {
    setObjectName(name);
}

void Line::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Mid));
}

Picture::Picture(const QString& name, const QString& icon, QWidget* parent) : QWidget(parent), m_icon(icon) {
    setObjectName(name);
}

void Picture::paintEvent(QPaintEvent*) {
    // The drawings are 16 pixels wide in a place of 17; whole pixels keep their edges sharp.
    QPainter painter(this);
    DrawIcon(painter, m_icon, QRectF(0, 0, 16, 16), palette().color(QPalette::WindowText));
}

} // namespace plenair
