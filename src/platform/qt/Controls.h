#pragma once

#include "platform/qt/FocusEvents.h"

#include <QCheckBox>
#include <QColor>
#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPaintEvent>
#include <QPalette>
#include <QPushButton>
#include <QRadioButton>
#include <QResizeEvent>
#include <QScrollBar>
#include <QString>
#include <QStyleOptionButton>
#include <QWidget>

#include <functional>

// Small controls. Each carries its own name, index included, as its object name.
namespace plenair {

// The name of a member of a control array: txtCalcBasis(2).
QString ArrayName(const QString& name, int index);

// An option of a group. Click runs at each click of the user, also on the option that is on, and by SetOn if
// it was off. An access key is a click; one that several options of the window share goes to the next of them
// after the one that is on. Where options have the focus, Tab enters the group at the one that is on, and the
// arrows choose.
class Option : public QRadioButton {
    Q_OBJECT

  public:
    Option(const QString& name, const QString& caption, QWidget* parent);

    void SetOn() { setChecked(true); }

    std::function<void()> Click;

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void BecomeTabStop();
};

// A push button. Its access key presses it at once, and Enter when it has the focus. It has none, and the
// focus stays where it was, unless SetFocusable has been called.
class Button : public QPushButton, public FocusEvents {
    Q_OBJECT

  public:
    Button(const QString& name, const QString& caption, QWidget* parent);

    void SetFocusable();

    // Shows an icon (solver/save) instead of a text, what it does as a tool tip, and takes the focus.
    void SetIcon(const QString& icon, const QString& toolTip);

    std::function<void()> Click;

    // A character typed while the button has the focus.
    std::function<void(int character)> KeyPress;

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

    // With a dark frame inside while it has the focus.
    void paintEvent(QPaintEvent* event) override;

  private:
    QString m_icon;
};

// An option or a check box that is drawn as a button; while it is on, it stays down, and has the ground and
// the border of something selected. Click runs at each click of the user, and whenever the program changes
// its state: of an option only when it goes on.
class ToggleButton : public Button {
    Q_OBJECT

  public:
    enum class Kind { Option, CheckBox };

    ToggleButton(Kind kind, const QString& name, QWidget* parent);

    bool IsOn() const { return isChecked(); }
    void SetOn(bool on) { setChecked(on); }

  protected:
    void initStyleOption(QStyleOptionButton* option) const override;
    void paintEvent(QPaintEvent* event) override;
};

// A horizontal scroll bar in steps of 1, with a frame while it has the focus. Change runs at once whenever
// the value changes, by the user (at the end of a drag), by SetValue, or because a maximum is set below it.
class ScrollBar : public QScrollBar, public FocusEvents {
    Q_OBJECT

  public:
    ScrollBar(const QString& name, QWidget* parent);

    std::function<void()> Change;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

// A check box. Its access key turns it at once.
class CheckBox : public QCheckBox, public FocusEvents {
    Q_OBJECT

  public:
    CheckBox(const QString& name, const QString& caption, QWidget* parent) : QCheckBox(caption, parent) {
        setObjectName(name);
    }

  protected:
    bool event(QEvent* event) override;
};

// A text without a background, or, opaque, with one of any colour.
class Label : public QLabel {
    Q_OBJECT

  public:
    Label(const QString& name, const QString& caption, QWidget* parent);

    void SetOpaque(bool opaque) { setAutoFillBackground(opaque); }
    void SetBackColour(const QColor& colour);
    QColor BackColour() const { return palette().color(QPalette::Window); }
};

// A straight horizontal line of one pixel, in a colour between text and background.
class Line : public QWidget {
    Q_OBJECT

  public:
    Line(const QString& name, QWidget* parent);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

// Shows an icon of the program, drawn sharply at any scale factor and in the text colour of the theme.
class Picture : public QWidget {
    Q_OBJECT

  public:
    // `icon` as in lite/width, below assets/icons and without its ending.
    Picture(const QString& name, const QString& icon, QWidget* parent);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QString m_icon;
};

} // namespace plenair
