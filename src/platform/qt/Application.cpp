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

} // namespace

int RunProgram(int argc, char** argv, void (*start)(), void (*end)()) {
    QApplication::setStyle(new ReadableStyle); // one look whose margins the layout in twips fits
    argc = 1;
    argv[1] = nullptr;
    QApplication application(argc, argv);
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
