#include "core/Settings.h"
#include "core/SettingsFile.h"
#include "fuzz/Fuzz.h"
#include "fuzz/PlainReader.h"
#include "platform/desktop/Desktop.h"
#include "platform/files/ProgramFolder.h"
#include "platform/files/RegistryStore.h"
#include "platform/text/NumberText.h"
#include "support/TemporaryFolder.h"

#include <optional>
#include <tuple>

// Settings files: one of nine items is read as a plain reader does, and written and read again to the same;
// any other gives the defaults.
namespace {

auto Fields(const SettingsRecord& settings) {
    return std::make_tuple(settings.DefPath, settings.CalcBasis, settings.MaxLPM, settings.MaxVelocity,
                           settings.Analysis, settings.RoundOff, settings.FluidTemp,
                           settings.SurfaceRoughness1, settings.SurfaceRoughness2);
}

std::optional<SettingsRecord> PlainSettings(std::string_view input) {
    PlainReader items(input, true);
    SettingsRecord read;
    read.DefPath = items.Text();
    double basis = 0;
    double step = 0;
    for (double* number : {&basis, &read.MaxLPM, &read.MaxVelocity, &read.Analysis, &step, &read.FluidTemp,
                           &read.SurfaceRoughness1, &read.SurfaceRoughness2}) {
        const auto value = items.AtEnd() ? std::nullopt : NumberFromText(items.Text(), Mark::Point);
        const bool isWhole = number == &basis || number == &step;
        if (!value || (isWhole && (*value < -32768.5 || *value >= 32767.5))) {
            return std::nullopt;
        }
        *number = isWhole ? std::nearbyint(*value) : *value;
    }
    read.CalcBasis = static_cast<std::int16_t>(basis >= 0 && basis <= 4 ? basis : 0);
    read.RoundOff = static_cast<std::int16_t>(step);
    return read;
}

// How often the defaults were told of.
int Load() {
    int told = 0;
    const ScopedDesktop before;
    Desktop().AskByMessageBox = [&](const MessageRequest& request) {
        REQUIRE(request.Text == "Configuration File Missing.  Default Values Set and Saved as User.cfg.");
        ++told;
        return MessageAnswer::Ok;
    };
    Settings = {};
    LoadSettings();
    return told;
}

} // namespace

FUZZER(settings) {
    static const TemporaryFolder s_folder;
    static const std::string s_file = s_folder.File("User.cfg");
    SetProgramFolder(s_folder.Path());
    SetRegistryFile("");
    WriteFile(s_file, std::string(input));
    const auto plain = PlainSettings(input);
    REQUIRE(Load() == (plain ? 0 : 1) && Settings.ConfigFile == "User.cfg");
    if (!plain) {
        Settings.DefPath = SettingsRecord().DefPath;
        REQUIRE(Fields(Settings) == Fields({}));
        return;
    }
    REQUIRE(Fields(Settings) == Fields(*plain) && ReadFile(s_file) == input);
    SaveSettings(); // rounds to the digits that a file has
    REQUIRE(Load() == 0);
    const auto loaded = Fields(Settings);
    const std::string written = ReadFile(s_file);
    SaveSettings();
    REQUIRE(Load() == 0 && Fields(Settings) == loaded && ReadFile(s_file) == written);
}
