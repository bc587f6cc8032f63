#include "core/start/Main.h"
#include "platform/qt/ConnectDesktop.h"
#include "platform/qt/Icons.h"

#include <QApplication>

int main(int argc, char** argv) {
    QApplication::setStyle("Fusion"); // one look whose margins the layout in twips fits
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
