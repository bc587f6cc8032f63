#pragma once

#include "platform/qt/Spot.h"

#include <QCloseEvent>
#include <QElapsedTimer>
#include <QEvent>
#include <QHideEvent>
#include <QKeySequence>
#include <QList>
#include <QMargins>
#include <QMoveEvent>
#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QResizeEvent>
#include <QShortcut>
#include <QShowEvent>
#include <QSize>
#include <QString>
#include <QWidget>

#include <functional>
#include <optional>

class QMenuBar;
class QShortcut;

namespace plenair {

// A window of the program: fixed layout in twips, a frame that can't be dragged to another size, and room for
// a menu bar above the client area. Positions are those of the frame, sizes those of the client area, so that
// the layout doesn't depend on what the desktop's frame and menu bar take.
class Form : public QWidget {
    Q_OBJECT

  public:
    Form(const QString& name, const QString& caption, Qt::WindowFlags flags);

    // The area in which controls stand.
    QWidget* Client() const { return m_client; }

    // Makes the menu bar at the first call.
    QMenuBar* MenuBar();

    // Fixes the client area's size in twips. What lies outside it is cut off, and counts as visible still.
    void SetClientSize(double width, double height);

    // Puts a control of the client area in its place, in twips.
    static void Place(QWidget* control, double left, double top, double width, double height);

    // The frame's position, in twips from the primary screen's top left corner, and its size.
    double Left() const;
    double Top() const;
    double Width() const;
    double Height() const;

    // Puts the frame's top left corner, its top right one or its centre at a place in twips from the primary
    // screen's top left corner, but not beyond what panels leave of that screen. What depends on the frame is
    // put right when the desktop has made it. From then on the window stays where the user leaves it, also
    // when it is hidden and shown again. A desktop that places windows itself takes no notice.
    void MoveTo(double left, double top);
    void MoveRightEdgeTo(double right, double top);
    void MoveToCentre();
    void PutOn(const Spot& spot);

    // The frame's top left corner on the desktop, in logical pixels.
    QPoint Corner() const;

    // Puts the frame over the whole primary screen, and gives the client area what the frame leaves.
    void FillScreen();

    // Keeps the window out of task bars. Call before it is first shown.
    void KeepOffTaskBar() { m_isOffTaskBar = true; }

    // Any of these keys, held down again and again, runs `action` while the window is the active one,
    // whatever has the focus in it. What a text box would do by such a key is not done.
    QShortcut* AddKeys(const QList<QKeySequence>& keys, const std::function<void()>& action);
    bool HasKey(const QKeySequence& key) const { return m_keys.contains(key); }

    // Paints the whole window at once, unless this did so less than `milliseconds` ago: then a change waits
    // for the next time, or for the loop of events.
    void RepaintAtMostEvery(int milliseconds);

    // The user comes to this window from another one of the program, and is not in the midst of a control
    // here; runs before a control's own.
    std::function<void()> GotFocus;

    // Shows the window over the active one and waits until it is hidden. In the meantime no other window of
    // the program takes input; afterwards the one that was active is so again.
    void ShowModal();

    // Waits until the window, shown before, can be seen; false if it is hidden or ends meanwhile. The user's
    // input waits too. A desktop that shows it nowhere, as on a locked screen, is not waited for for ever.
    bool WaitUntilOnScreen();

  signals:
    // The user closes the window by its frame. It stays open unless a handler does something about it. Not
    // for a window that is hidden, or that waits for a dialog.
    void CloseRequested();

    // The program takes the window off the screen.
    void Hidden();

    // The window can be seen, after it was shown.
    void OnScreen();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    void LayOut();
    QMargins Frame() const;
    QRect Room() const;
    void PutInPlace();
    void FrameIsKnown(const QMargins& frame);
    void SeePlace();

    QWidget* m_client;
    QList<QKeySequence> m_keys;
    QMenuBar* m_menuBar = nullptr;
    QPointer<QWidget> m_focusWhenHidden;
    QSize m_clientSize;
    QElapsedTimer m_sincePainted; // by RepaintAtMostEvery
    bool m_fillsScreen = false;
    bool m_isOffTaskBar = false;

    // Where the program put the window; nothing once the user, or the desktop, has put it elsewhere.
    std::optional<Spot> m_spot;
    std::optional<QPoint> m_left; // where the corner of the frame was when the window was last hidden
    QPoint m_askedFor;            // where the desktop was last asked to put the corner of the frame

    // The frame that the desktop has put around the window; nothing until the window is seen.
    std::optional<QMargins> m_frame;
};

} // namespace plenair
