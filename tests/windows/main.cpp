#include "platform/desktop/Desktop.h"
#include "windows/WindowTest.h"

#include "platform/files/ProgramFolder.h"
#include "platform/files/RegistryStore.h"
#include "platform/qt/ConnectDesktop.h"
#include "platform/qt/ReadableStyle.h"

#include <QApplication>
#include <QDialog>
#include <QLocale>
#include <QTimer>

#include <cstdio>

namespace {

// Fails the test at once on a dialog that it did not expect, and closes it, so that nothing waits for a user.
class DialogWatch : public QObject {
  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* dialog = qobject_cast<QDialog*>(watched);
        if (dialog != nullptr && event->type() == QEvent::Show && !plenair::dialogsExpected) {
            ADD_FAILURE() << "unexpected dialog: " << dialog->windowTitle().toStdString();
            QTimer::singleShot(0, dialog, &QDialog::reject);
        }
        return QObject::eventFilter(watched, event);
    }
};

// The offscreen platform tells at every window what it can't do.
void Report(QtMsgType, const QMessageLogContext&, const QString& message) {
    if (!message.startsWith("This plugin does not support")) {
        std::fprintf(stderr, "%s\n", qPrintable(message));
    }
}

} // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    qInstallMessageHandler(Report);
    const QByteArray screens = qgetenv("PLENAIR_SCREENS"); // a file that describes them
    qputenv("QT_QPA_PLATFORM", screens.isEmpty() ? "offscreen" : "offscreen:configfile=" + screens);
    QLocale::setDefault(QLocale(QLocale::English, QLocale::India));
    QApplication::setStyle(new plenair::ReadableStyle);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    plenair::ConnectDesktop();
    plenair::connected = plenair::Desktop();
    plenair::connectedNumbers = plenair::CurrentNumberLocale();
    // Each test has a folder and a store of its own; between them there is none. No other program is started.
    plenair::SetRegistryFile("");
    plenair::SetProgramFolder("");
    plenair::SetStateFolder("");
    plenair::Desktop().PlaySound = {};
    plenair::Desktop().StartEditor = {};
    DialogWatch watch;
    application.installEventFilter(&watch);
    return RUN_ALL_TESTS();
}
