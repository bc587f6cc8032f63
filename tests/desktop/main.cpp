#include "desktop/DesktopTest.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <sstream>

namespace plenair {

namespace {

std::unique_ptr<Screen> s_screen;

} // namespace

Screen& TheScreen() {
    return *s_screen;
}

} // namespace plenair

namespace {

bool IsInstalled(const std::string& program) {
    const char* path = std::getenv("PATH");
    std::istringstream folders(path != nullptr ? path : "");
    for (std::string folder; std::getline(folders, folder, ':');) {
        if (std::filesystem::exists(folder + "/" + program)) {
            return true;
        }
    }
    return false;
}

} // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const std::string windowManager = argc > 1 ? argv[1] : "openbox";
    if (!IsInstalled(windowManager.substr(0, windowManager.find(' ')))) {
        std::fprintf(stderr, "%s is not installed: skipped\n", windowManager.c_str());
        return 77;
    }
    try {
        plenair::s_screen = std::make_unique<plenair::Screen>(windowManager, "1280x1024");
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
    const int result = RUN_ALL_TESTS();
    plenair::s_screen.reset();
    return result;
}
