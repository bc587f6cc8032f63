#include "platform/qt/Controls.h"

#include "platform/qt/DevicePixels.h"
#include "platform/qt/Icons.h"
#include "platform/qt/ReadableStyle.h"
#include "platform/qt/Twips.h"

#include <QApplication>
#include <QChar>
#include <QEvent>
#include <QKeyEvent>
#include <QKeySequence>
#include <QList>
#include <QPainter>
#include <QPen>
#include <QRectF>
#include <QShortcutEvent>
#include <QSize>

#include <cmath>
#include <memory>

namespace plenair {

namespace {

// Access keys answer at once, without the flash of a pressed button that the toolkit gives them.
bool IsAccessKey(const QEvent* event) {
    return event->type() == QEvent::Shortcut;
}

bool IsOwnAccessKey(const QEvent* event) {
    return IsAccessKey(event) && !static_cast<const QShortcutEvent*>(event)->isAmbiguous();
}

// Runs `tell` once at each click of the user, and whenever `button` goes on (or off, unless `onlyOn`) without
// one.
void TellClicks(QAbstractButton* button, bool onlyOn, const std::function<void()>& tell) {
    const auto told = std::make_shared<bool>(false);
    QObject::connect(button, &QAbstractButton::pressed, button, [told] { *told = false; });
    QObject::connect(button, &QAbstractButton::toggled, button, [=](bool on) {
        if (on || !onlyOn) {
            *told = true;
            tell();
        }
    });
    QObject::connect(button, &QAbstractButton::clicked, button, [=] {
        if (!*told) {
            tell();
        }
    });
}

} // namespace

QString ArrayName(const QString& name, int index) {
    return QString("%1(%2)").arg(name).arg(index);
}

Option::Option(const QString& name, const QString& caption, QWidget* parent) : QRadioButton(caption, parent) {
    setObjectName(name);
    setFocusPolicy(Qt::NoFocus);
    TellClicks(this, true, [this] {
        BecomeTabStop();
        if (Click) {
            Click();
        }
    });
}

void Option::BecomeTabStop() {
    for (Option* option : parentWidget()->findChildren<Option*>(Qt::FindDirectChildrenOnly)) {
        if (option->focusPolicy() != Qt::NoFocus) {
            option->setFocusPolicy(option == this ? Qt::StrongFocus : Qt::ClickFocus);
        }
    }
}

void Option::keyPressEvent(QKeyEvent* event) {
    QRadioButton::keyPressEvent(event);
    // The toolkit moves the focus by the arrows, but chooses only where an option was on before.
    auto* focused = qobject_cast<Option*>(QApplication::focusWidget());
    if (focused != nullptr && focused != this && !focused->isChecked()) {
        focused->click();
    }
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
    sharing[next]->click();
    return true;
}

Button::Button(const QString& name, const QString& caption, QWidget* parent) : QPushButton(caption, parent) {
    setObjectName(name);
    setFocusPolicy(Qt::NoFocus);
    connect(this, &QPushButton::clicked, this, [this] {
        if (Click && !isCheckable()) {
            Click();
        }
    });
}

void Button::SetFocusable() {
    setFocusPolicy(Qt::StrongFocus);
}

void Button::SetIcon(const QString& icon, const QString& toolTip) {
    m_icon = icon;
    setToolTip(toolTip);
    setAccessibleName(toolTip);
    setIcon(ButtonIcon(icon, palette()));
    SetFocusable();
}

void Button::resizeEvent(QResizeEvent*) {
    constexpr int kMargin = 4; // room for the frame of the focus
    setIconSize(size() - QSize(2 * kMargin, 2 * kMargin));
}

void Button::changeEvent(QEvent* event) {
    QPushButton::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && !m_icon.isEmpty()) {
        setIcon(ButtonIcon(m_icon, palette()));
    }
}

void Button::keyPressEvent(QKeyEvent* event) {
    if (KeyPress && !event->text().isEmpty() && !(event->modifiers() & Qt::AltModifier)) {
        KeyPress(event->text().front().unicode());
    }
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (!event->isAutoRepeat()) { // a key held down clicks once
            click();
        }
        return;
    }
    QPushButton::keyPressEvent(event);
}

ToggleButton::ToggleButton(Kind kind, const QString& name, QWidget* parent)
    : Button(name, QString(), parent) {
    setCheckable(true);
    setAutoExclusive(kind == Kind::Option);
    TellClicks(this, kind == Kind::Option, [this] {
        if (Click) {
            Click();
        }
    });
}

bool Button::event(QEvent* event) {
    if (!IsOwnAccessKey(event)) {
        return QPushButton::event(event);
    }
    click();
    return true;
}

bool CheckBox::event(QEvent* event) {
    if (!IsOwnAccessKey(event)) {
        return QCheckBox::event(event);
    }
    click();
    return true;
}

void Button::paintEvent(QPaintEvent* event) {
    QPushButton::paintEvent(event);
    if (hasFocus()) {
        constexpr int kInset = 2;
        QPainter painter(this);
        const QRectF inside = QRectF(rect()).adjusted(kInset, kInset, -kInset, -kInset);
        DevicePixels(painter).DrawFrame(inside, palette().color(QPalette::ButtonText));
    }
}

void ToggleButton::initStyleOption(QStyleOptionButton* option) const {
    Button::initStyleOption(option);
    if (isChecked()) {
        constexpr double kTint = 0.35;
        option->palette.setColor(QPalette::Button, Mixed(palette().color(QPalette::Button),
                                                         palette().color(QPalette::Highlight), kTint));
    }
}

void ToggleButton::paintEvent(QPaintEvent* event) {
    Button::paintEvent(event);
    if (isChecked()) {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QColor line = palette().color(QPalette::Highlight);
        const bool canBeSeen = Contrast(line, palette().color(QPalette::Window)) > 2;
        painter.setPen(QPen(canBeSeen ? line : palette().color(QPalette::ButtonText), 2));
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 2, 2);
    }
}

ScrollBar::ScrollBar(const QString& name, QWidget* parent) : QScrollBar(Qt::Horizontal, parent) {
    setObjectName(name);
    setFocusPolicy(Qt::WheelFocus);
    setTracking(false);
    setPageStep(1);
    connect(this, &QScrollBar::valueChanged, this, [this] {
        if (Change) {
            Change();
        }
    });
}

void ScrollBar::paintEvent(QPaintEvent* event) {
    QScrollBar::paintEvent(event);
    if (hasFocus()) { // the style has no sign for it
        QPainter painter(this);
        painter.setPen(
            QPen(palette().color(QPalette::Highlight), 2, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        painter.drawRect(rect().adjusted(1, 1, -1, -1));
    }
}

void ScrollBar::keyPressEvent(QKeyEvent* event) {
    // The toolkit takes these two the wrong way round.
    if (event->key() == Qt::Key_Right || event->key() == Qt::Key_Left) {
        triggerAction(event->key() == Qt::Key_Right ? SliderSingleStepAdd : SliderSingleStepSub);
        return;
    }
    QScrollBar::keyPressEvent(event);
}

Label::Label(const QString& name, const QString& caption, QWidget* parent) : QLabel(caption, parent) {
    setObjectName(name);
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
    const DevicePixels pixels(painter);
    const QRect area = pixels.Whole(QRectF(rect()));
    painter.fillRect(area.left(), area.top(), area.width(), pixels.Thickness(height()),
                     palette().color(QPalette::Mid));
}

Picture::Picture(const QString& name, const QString& icon, QWidget* parent) : QWidget(parent), m_icon(icon) {
    setObjectName(name);
}

void Picture::paintEvent(QPaintEvent*) {
    // The drawings are 16 pixels wide in a place of 17; whole pixels keep their edges sharp.
    QPainter painter(this);
    const double side = std::round(16 * FormScale());
    DrawIcon(painter, m_icon, QRectF(0, 0, side, side), palette().color(QPalette::WindowText));
}

} // namespace plenair
