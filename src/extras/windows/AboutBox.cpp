#include "extras/windows/AboutBox.h"

#include "extras/windows/frmAbout.h"
#include "platform/qt/Form.h"

#include <QObject>
#include <QPointer>

namespace plenair {

namespace {

// There only while it is open.
QPointer<frmAbout> s_about;

frmAbout* NewAboutBox() {
    auto* box = new frmAbout;
    s_about = box;
    // The box may be on its way out of a handler when it is closed.
    QObject::connect(box, &Form::CloseRequested, box, [box] {
        box->hide();
        box->deleteLater();
        s_about = nullptr;
    });
    return box;
}

bool BringToFront() {
    if (s_about == nullptr) {
        return false;
    }
    s_about->raise();
    s_about->activateWindow();
    return true;
}

} // namespace

void ShowAbout() {
    if (!BringToFront()) {
        NewAboutBox()->ShowModal();
    }
}

void ShowAboutPlainly() {
    if (!BringToFront()) {
        NewAboutBox()->ShowPlain();
    }
}

void UnloadAbout() {
    delete s_about;
}

} // namespace plenair
