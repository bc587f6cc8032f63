#include "platform/qt/TextBox.h"

#include "platform/desktop/KeyCodes.h"
#include "platform/qt/Form.h"
#include "platform/qt/KeyCodeOf.h"
#include "platform/qt/QtText.h"
#include "platform/qt/TextFit.h"

#include <QHelpEvent>
#include <QKeyEvent>

#include <QChar>
#include <QFontMetrics>
#include <QPainter>
#include <QPalette>
#include <QSet>
#include <QSize>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QTextDocument>
#include <QToolTip>
#include <utility>

namespace plenair {

namespace {

constexpr int kTextMargin = 2; // the line edit's own, on both sides of a text

// The keys that went down in any box, and aren't up yet as far as boxes know.
QSet<int>& KeysDown() {
    static QSet<int> s_keys;
    return s_keys;
}

// The characters that a key gives; none for a key that only moves or edits.
QString CharactersOf(const QKeyEvent* event) {
    if (event->modifiers() & Qt::AltModifier) {
        return {};
    }
    switch (event->key()) {
    case Qt::Key_Backspace:
        return QString(QChar(kKeyBackspace));
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return QString(QChar(kKeyEnter));
    case Qt::Key_Escape:
        return QString(QChar(kKeyEscape));
    case Qt::Key_Delete:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return {};
    default:
        break;
    }
    if ((event->modifiers() & Qt::ControlModifier) && event->key() >= Qt::Key_A &&
        event->key() <= Qt::Key_Z) {
        return QString(QChar(event->key() - Qt::Key_A + 1));
    }
    return event->text();
}

} // namespace

TextBox::TextBox(const QString& name, QWidget* parent) : QLineEdit(parent) {
    setObjectName(name);
    connect(this, &QLineEdit::textChanged, this, [this] {
        if (Change) {
            Change();
        }
    });
}

std::string TextBox::Text() const {
    return FromQt(text());
}

void TextBox::SetText(const std::string& text) {
    setText(ToQt(text));
    setCursorPosition(0);
}

void TextBox::SelectAll() {
    // With the caret at the end only the end of a long text would be seen.
    const int length = static_cast<int>(text().size());
    IsTextTooWide() ? setSelection(length, -length) : selectAll();
}

// Where the line edit paints of its text; it keeps a margin inside on both sides.
QRect TextBox::TextArea() const {
    QStyleOptionFrame how;
    initStyleOption(&how);
    return style()->subElementRect(QStyle::SE_LineEditContents, &how, this);
}

bool TextBox::IsTextTooWide() const {
    return fontMetrics().horizontalAdvance(text()) > TextArea().width() - 2 * kTextMargin;
}

bool TextBox::IsKeyOfWindow(const QKeyEvent& event) const {
    const auto* form = qobject_cast<const Form*>(window());
    return form != nullptr && form->HasKey(event.keyCombination());
}

bool TextBox::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && IsKeyOfWindow(*static_cast<QKeyEvent*>(event))) {
        return true; // not taken: the window's action runs, and not what the line edit would do
    }
    if (event->type() == QEvent::ToolTip) {
        const QString shown = IsTextTooWide() ? text() : QString();
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                           Qt::mightBeRichText(shown) ? Qt::convertFromPlainText(shown) : shown, this);
        return true;
    }
    return QLineEdit::event(event);
}

void TextBox::paintEvent(QPaintEvent* event) {
    QLineEdit::paintEvent(event);
    if (!IsTextTooWide()) {
        return;
    }
    // Over what the line edit shows of the text, which could pass for the whole of it.
    QPainter painter(this);
    const auto write = [&](const QRect& place, const QString& text) {
        painter.fillRect(place, palette().color(QPalette::Base));
        painter.setPen(palette().color(QPalette::Text));
        painter.drawText(place.adjusted(kTextMargin, 0, -kTextMargin, 0), Qt::AlignLeft | Qt::AlignVCenter,
                         text);
    };
    const QRect area = TextArea();
    if (!hasFocus()) {
        write(area, TextThatFits(font(), text(), area.width() - 2 * kTextMargin));
        return;
    }
    // While it is typed in, at the ends that are out of sight, but never over the caret.
    const QString mark(QChar(0x2026));
    const int width = fontMetrics().horizontalAdvance(mark) + 2 * kTextMargin;
    const int caret = cursorRect().center().x();
    const int start = caret - fontMetrics().horizontalAdvance(text().left(cursorPosition()));
    const bool isStartSeen = start >= area.left();
    const bool isEndSeen = start + fontMetrics().horizontalAdvance(text()) <= area.right() + 1;
    if (!isStartSeen && caret > area.left() + width) {
        write(QRect(area.topLeft(), QSize(width, area.height())), mark);
    }
    if (!isEndSeen && caret < area.right() - width) {
        write(QRect(area.right() + 1 - width, area.top(), width, area.height()), mark);
    }
}

void TextBox::keyPressEvent(QKeyEvent* event) {
    KeysDown().insert(event->key());
    if (KeyDown) {
        KeyDown(KeyCodeOf(event));
    }
    const bool isPrintable = !event->text().isEmpty() && event->text().front().isPrint();
    if (isPrintable && (event->modifiers() & (Qt::AltModifier | Qt::ControlModifier)) == Qt::AltModifier) {
        // An access key that nothing here has. The line edit would type it.
        event->ignore();
        return;
    }
    for (const QChar character : CharactersOf(event)) {
        m_wasWoken = false;
        if (KeyPress) {
            KeyPress(character.unicode());
        }
    }
    QLineEdit::keyPressEvent(event);
}

void TextBox::keyReleaseEvent(QKeyEvent* event) {
    // A key that went down in a menu or a dialog may come up here.
    if (!event->isAutoRepeat() && KeysDown().remove(event->key()) && KeyUp) {
        KeyUp(KeyCodeOf(event));
    }
    QLineEdit::keyReleaseEvent(event);
}

void TextBox::inputMethodEvent(QInputMethodEvent* event) {
    if (KeyPress) {
        for (const QChar character : event->commitString()) {
            KeyPress(character.unicode());
        }
    }
    QLineEdit::inputMethodEvent(event);
}

void TextBox::KeepingSelection(const std::function<void()>& focusEvent) {
    const int cursor = cursorPosition();
    const int length = selectionLength();
    const int start = selectionStart();
    focusEvent();
    if (length == 0) {
        deselect();
        setCursorPosition(cursor);
    } else if (cursor == start) {
        setSelection(start + length, -length);
    } else {
        setSelection(start, length);
    }
}

void TextBox::focusInEvent(QFocusEvent* event) {
    // What is selected is the handler's affair here.
    KeepingSelection([&] { QLineEdit::focusInEvent(event); });
    if (event->reason() == Qt::ActiveWindowFocusReason) {
        m_wasWoken = !std::exchange(m_wakesByPress, false);
    }
}

void TextBox::focusOutEvent(QFocusEvent* event) {
    if (event->reason() == Qt::MenuBarFocusReason) {
        KeepingSelection([&] { QLineEdit::focusOutEvent(event); });
    } else {
        QLineEdit::focusOutEvent(event);
    }
}

void TextBox::TellGotFocus(bool byPress) {
    FocusEvents::TellGotFocus(byPress);
    m_wasEntered = byPress && GotFocus;
    m_wasWoken = false;
}

void TextBox::mousePressEvent(QMouseEvent* event) {
    m_wakesByPress = !isActiveWindow();
    const bool wakes = std::exchange(m_wasWoken, false) || m_wakesByPress;
    const bool enters = std::exchange(m_wasEntered, false);
    // The middle button pastes, the right one opens a menu.
    m_entering = event->button() == Qt::LeftButton &&
                 (enters || (wakes && hasSelectedText() && selectedText() == text()));
    if (!m_entering) {
        QLineEdit::mousePressEvent(event);
    }
}

void TextBox::mouseMoveEvent(QMouseEvent* event) {
    if (!m_entering) {
        QLineEdit::mouseMoveEvent(event);
    }
}

void TextBox::mouseReleaseEvent(QMouseEvent* event) {
    if (!m_entering) {
        QLineEdit::mouseReleaseEvent(event);
    }
    m_entering = false;
}

} // namespace plenair
