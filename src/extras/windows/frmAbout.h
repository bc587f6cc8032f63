#pragma once

#include "platform/qt/Controls.h"
#include "platform/qt/Form.h"
#include "platform/qt/Pictures.h"
#include "platform/qt/StrokeCanvas.h"

#include <QShowEvent>
#include <QString>

namespace plenair {

// The about box. Being shown for the first time makes it play its show, and only after that its texts and its
// picture are visible; each opening takes a new box.
class frmAbout : public Form {
    Q_OBJECT

  public:
    frmAbout();

    // Shows the box beside the other windows and comes back when the show is over.
    void ShowPlain();

    // Draws the show, to its end.
    void DoSomething();

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    Label* AddLabel(const QString& name, double left, double top, double width, double height);
    void Form_Activate();
    void ShowStuff();
    void picGus_Click();

    StrokeCanvas* m_canvas;
    ImagePicture* picGus;
    Label* lblPlenair;
    Label* lblCR;
    Label* lblStuff;
    bool m_showRuns = false;
};

} // namespace plenair
