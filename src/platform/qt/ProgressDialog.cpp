#include "platform/qt/ProgressDialog.h"

#include "platform/qt/FormFont.h"
#include "platform/qt/QtText.h"
#include "platform/qt/WindowInUse.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QProgressDialog>

#include <memory>

namespace plenair {

namespace {

constexpr int kShownAfter = 500;    // ms
constexpr int kShownAnewAfter = 20; // ms; the dialog costs more than a step

class ShownProgress {
  public:
    explicit ShownProgress(const ProgressRequest& request)
        : m_dialog(QString(), QProgressDialog::tr("Cancel"), 0, request.Steps, WindowInUse()) {
        auto* const text = new QLabel(ToQt(request.Text));
        text->setTextFormat(Qt::PlainText); // it may name a file
        text->setAlignment(Qt::AlignCenter);
        m_dialog.setLabel(text);
        m_dialog.setFont(FormFont());
        m_dialog.setWindowTitle(ToQt(request.Title));
        m_dialog.setWindowModality(Qt::ApplicationModal);
        m_dialog.setMinimumDuration(kShownAfter);
        m_dialog.setAutoReset(false); // it ends with the work
        m_dialog.setValue(0);         // from now on it measures
        m_sinceShown.start();
    }

    bool GoOn(int done) {
        if (m_sinceShown.hasExpired(kShownAnewAfter)) {
            m_dialog.setValue(done);
            m_sinceShown.start();
        }
        return !m_dialog.wasCanceled();
    }

  private:
    QProgressDialog m_dialog;
    QElapsedTimer m_sinceShown;
};

} // namespace

ProgressStep StartProgressDialog(const ProgressRequest& request) {
    return [shown = std::make_shared<ShownProgress>(request)](int done) { return shown->GoOn(done); };
}

} // namespace plenair
