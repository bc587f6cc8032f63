#pragma once

#include "platform/qt/FocusEvents.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include <functional>

// Small controls. Each carries its own name, index included, as its object name.
namespace plenair {

// The name of a member of a control array: txtCalcBasis(2).
QString ArrayName(const QString& name, int index);

// An option of a group. Click runs whenever the option goes on, by the user or by SetOn, and only if it was
// off. An access key that several options of the window share goes to the next of them after the one that is
// on, and selects it.
class Option : public QRadioButton {
    Q_OBJECT

  public:
    Option(const QString& name, const QString& caption, QWidget* parent);

    void SetOn() { setChecked(true); }

    std::function<void()> Click;

  protected:
    bool event(QEvent* event) override;
};

// A push button. Its access key presses it at once.
class Button : public QPushButton, public FocusEvents {
    Q_OBJECT

  public:
    Button(const QString& name, const QString& caption, QWidget* parent);

    std::function<void()> Click;

  protected:
    bool event(QEvent* event) override;
};

// A text without a background, or, opaque, with one of any colour.
class Label : public QLabel {
    Q_OBJECT

  public:
    Label(const QString& name, const QString& caption, QWidget* parent);

    void SetOpaque(bool opaque) { setAutoFillBackground(opaque); }
    bool IsOpaque() const { return autoFillBackground(); }
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
