#include "platform/qt/Application.h"

#include "platform/qt/ConnectDesktop.h"
#include "platform/qt/Form.h"
#include "platform/qt/Icons.h"
#include "platform/qt/ReadableStyle.h"

#include <QApplication>
#include <QEvent>
#include <QObject>

namespace plenair {

namespace {

class QuitWatcher : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::Quit) {
            return false;
        }
        EndProgram();
        return true;
    }
};

constexpr const char* kPlatform = "QT_QPA_PLATFORM";

// A Wayland desktop places windows itself and holds none above the others; its X server, where one answers,
// lets the program do so. False where somebody has named a platform, which then counts.
bool PreferX11() {
#if defined(Q_OS_UNIX) && !defined(Q_OS_DARWIN)
    return qEnvironmentVariableIsEmpty(kPlatform) &&
           qputenv(kPlatform, qEnvironmentVariableIsEmpty("DISPLAY") ? "wayland;xcb" : "xcb;wayland");
#else
    return false;
#endif
}

} // namespace

int RunProgram(int argc, char** argv, void (*start)(), void (*end)()) {
    const bool isOurChoice = PreferX11();
    QApplication::setStyle(new ReadableStyle); // one look whose margins the layout in twips fits
    argc = 1;
    argv[1] = nullptr;
    QApplication application(argc, argv);
    if (isOurChoice) {
        qunsetenv(kPlatform); // programs that this one starts choose for themselves
    }
    QApplication::setApplicationName("Plenair");
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setWindowIcon(WindowIcon());
    ConnectDesktop();
    start();
    const int status = QApplication::exec();
    end();
    return status;
}

void EndProgram() {
    QApplication::exit();
}

void EndWithSession(Form& window) {
    qApp->installEventFilter(new QuitWatcher(&window));
}

} // namespace plenair
