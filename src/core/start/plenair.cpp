#include "core/start/Main.h"
#include "platform/qt/Application.h"

#include <csignal>

int main(int argc, char** argv) {
    std::signal(SIGXFSZ, SIG_IGN); // a file beyond the user's limit fails like one on a full disk
    return plenair::RunProgram(argc, argv, plenair::Main, plenair::Unload);
}
