#include "platform/desktop/Manual.h"

#include "platform/files/ProgramFolder.h"
#include "support/ScriptedDesktop.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace plenair {
namespace {

TEST(Manual, OpensWhereItIsOrTellsWhereItIsNot) {
    const ProgramEnvironment environment;
    ScriptedDesktop desktop;
    const std::string delivered = environment.Folder().File("usr/lib/plenair");
    const std::string users = environment.Folder().File("home/plenair");
    std::filesystem::create_directories(delivered + "/manual");
    ChooseProgramFolder("/nowhere", users, "");
    desktop.ExpectMessage(MessageAnswer::Ok);
    ShowManual("sheet");
    EXPECT_NE(desktop.LastText().find(users + "/manual/manual.html\n/nowhere/manual/manual.html"),
              std::string::npos);
    SetProgramFolder(delivered);
    WriteFile(delivered + "/manual/manual.html", "");
    bool hasBrowser = false;
    std::string opened;
    Desktop().OpenManual = [&](const std::string& path, const std::string& anchor) {
        opened = path + "#" + anchor;
        return hasBrowser;
    };
    desktop.ExpectMessage(MessageAnswer::Ok);
    ShowManual("sheet");
    EXPECT_NE(desktop.LastText().find(delivered + "/manual/manual.html"), std::string::npos);
    hasBrowser = true;
    ShowManual("sheet");
    EXPECT_EQ(opened, delivered + "/manual/manual.html#sheet");
}

} // namespace
} // namespace plenair
