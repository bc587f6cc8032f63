#include "core/start/Main.h"
#include "platform/qt/ConnectDesktop.h"
#include "platform/qt/Icons.h"
#include "platform/qt/ReadableStyle.h"

#include <QApplication>

#include <csignal>

int main(int argc, char** argv) {
    std::signal(SIGXFSZ, SIG_IGN); // a file beyond the user's limit fails like one on a full disk
    QApplication::setStyle(new plenair::ReadableStyle); // one look whose margins the layout in twips fits
    // There is no command line: the toolkit's own options are not taken either.
    argc = 1;
    argv[1] = nullptr;
    QApplication application(argc, argv);
    QApplication::setApplicationName("Plenair");
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setWindowIcon(plenair::WindowIcon());
    plenair::ConnectDesktop();
    plenair::Main();
    const int result = QApplication::exec();
    plenair::Unload();
    return result;
}
