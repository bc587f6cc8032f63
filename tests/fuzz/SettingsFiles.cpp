#include "core/Settings.h"
#include "core/SettingsFile.h"
#include "fuzz/Fuzz.h"
#include "platform/desktop/Desktop.h"
#include "platform/files/ProgramFolder.h"
#include "platform/files/RegistryStore.h"
#include "support/TemporaryFolder.h"

#include <tuple>

// Settings files: one that is read is written and read again to the same, any other gives the defaults.
namespace {

auto Fields() {
    return std::make_tuple(Settings.DefPath, Settings.CalcBasis, Settings.MaxLPM, Settings.MaxVelocity,
                           Settings.Analysis, Settings.RoundOff, Settings.FluidTemp,
                           Settings.SurfaceRoughness1, Settings.SurfaceRoughness2);
}

} // namespace

FUZZER(settings) {
    static const TemporaryFolder s_folder;
    static const std::string s_file = s_folder.File("User.cfg");
    SetProgramFolder(s_folder.Path());
    SetRegistryFile("");
    bool isTold = false;
    Desktop().AskByMessageBox = [&](const MessageRequest& request) {
        REQUIRE(request.Text == "Configuration File Missing.  Default Values Set and Saved as User.cfg.");
        isTold = true;
        return MessageAnswer::Ok;
    };
    WriteFile(s_file, std::string(input));
    Settings = {};
    LoadSettings();
    REQUIRE(Settings.ConfigFile == "User.cfg");
    if (isTold) {
        Settings.DefPath = SettingsRecord().DefPath;
        const auto loaded = Fields();
        Settings = {};
        REQUIRE(loaded == Fields());
        return;
    }
    REQUIRE(ReadFile(s_file) == input);
    SaveSettings(); // rounds to the digits that a file has
    LoadSettings();
    const auto loaded = Fields();
    const std::string written = ReadFile(s_file);
    SaveSettings();
    LoadSettings();
    REQUIRE(!isTold && Fields() == loaded && ReadFile(s_file) == written);
}
