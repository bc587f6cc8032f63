#pragma once

#include "extras/AboutCanvas.h"
#include "platform/qt/Controls.h"
#include "platform/qt/Form.h"

#include <QImage>

#include <functional>

namespace plenair {

// The mascot, on white.
class MascotPicture : public QWidget {
    Q_OBJECT

  public:
    MascotPicture(const QString& name, QWidget* parent);

    std::function<void()> Click;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    QImage m_mascot;
};

// The about box. Its show runs when it first becomes active, and only after that its texts and picture are
// visible. Each opening takes a new box.
class frmAbout : public Form {
    Q_OBJECT

  public:
    frmAbout();

    // Both show the box and run the show; the first goes on at once, the second when the user has closed it.
    void ShowPlain();
    void ShowModal() override;

    // Draws the show, to its end.
    void DoSomething();

  protected:
    bool event(QEvent* event) override;

  private:
    Label* AddLabel(const QString& name, double left, double top, double width, double height);
    void Form_Activate();

    AboutCanvas* m_canvas;
    MascotPicture* picGus;
    Label* lblPlenair;
    Label* lblCR;
    Label* lblStuff;
    bool m_showRuns = false;
};

} // namespace plenair
