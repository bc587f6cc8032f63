#include "desktop/Screen.h"

#include <QCoreApplication>
#include <QStandardPaths>

#include <gtest/gtest.h>

#include <cstdio>

namespace {

plenair::Screen* s_screen = nullptr;

} // namespace

plenair::Screen& plenair::TheScreen() {
    return *s_screen;
}

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    const QString windowManager = argc > 1 ? argv[1] : "openbox";
    if (QStandardPaths::findExecutable(windowManager.section(' ', 0, 0)).isEmpty()) {
        std::fprintf(stderr, "%s is not installed: skipped\n", qPrintable(windowManager));
        return 77;
    }
    try {
        plenair::Screen screen(windowManager);
        s_screen = &screen;
        return RUN_ALL_TESTS();
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
}
