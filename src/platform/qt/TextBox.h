#pragma once

#include "platform/qt/FocusEvents.h"

#include <QEvent>
#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QRect>
#include <QString>
#include <QWidget>

#include <functional>
#include <string>

namespace plenair {

// A text box of one line. Handlers run at once: Change before the statement after SetText, and only if the
// text differs; KeyPress before the box deals with the character. Of a text that is too wide for the box the
// start is seen, the whole in a tool tip, and an ellipsis where it is cut.
class TextBox : public QLineEdit, public FocusEvents {
    Q_OBJECT

  public:
    TextBox(const QString& name, QWidget* parent);

    std::string Text() const;
    void SetText(const std::string& text);

    // Selects from the start to the end of the text.
    void SelectAll();

    // Whether Tab stops here. The mouse and access keys always reach the box.
    void SetTabStop(bool stop) { setFocusPolicy(stop ? Qt::StrongFocus : Qt::ClickFocus); }

    std::function<void()> Change;

    // A key that gives a character, with its code: Backspace 8, Enter 13 and Escape 27 included, as are
    // characters typed with Ctrl and each of a text from an input method. Not Delete, Tab, the arrows, Home,
    // End, and nothing typed with Alt. Auto-repeat repeats it.
    std::function<void(int character)> KeyPress;

    // Any key. KeyDown runs when it goes down, and again at each auto-repeat; KeyUp runs once, when the user
    // lets go of a key that went down in a text box. Both get its code: one of KeyCodes.h, the character of a
    // letter or digit, or 0 for a key that has none.
    std::function<void(int keyCode)> KeyDown;
    std::function<void(int keyCode)> KeyUp;

    void TellGotFocus(bool byPress) override;

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    bool IsKeyOfWindow(const QKeyEvent& event) const;
    QRect TextArea() const;
    bool IsTextTooWide() const;

    // Runs `focusEvent`, which selects or deselects for reasons of its own, and leaves the selection as it
    // was.
    void KeepingSelection(const std::function<void()>& focusEvent);

    // A click that enters the box, or wakes the window around it, leaves the selection alone, from the press
    // until the button is up again.
    bool m_entering = false;
    bool m_wasEntered = false;   // by a press that is yet to come here
    bool m_wasWoken = false;     // and nothing was typed or clicked since
    bool m_wakesByPress = false; // a press came before the desktop made the window active
};

} // namespace plenair
