#include "core/SettingsFile.h"

#include "core/Settings.h"
#include "core/modRegistry.h"
#include "platform/desktop/MessageBox.h"
#include "platform/files/Folders.h"
#include "platform/files/ItemReader.h"
#include "platform/files/WholeFiles.h"
#include "platform/text/NumberText.h"

#include <cmath>

namespace plenair {

namespace {

const std::string kDefaultFile = "User.cfg";

double ReadNumber(ItemReader& file) {
    const auto number = NumberFromText(file.ReadText(), Mark::Point);
    if (!number) {
        throw FileFailure("an item that should be a number is none");
    }
    return *number;
}

std::int16_t ReadWholeNumber(ItemReader& file) {
    const double whole = std::nearbyint(ReadNumber(file));
    if (whole < -32768.0 || whole > 32767.0) {
        throw FileFailure("an item is too large for a whole number");
    }
    return static_cast<std::int16_t>(whole);
}

void ReadSettings(const std::string& path) {
    ItemReader file(path, Quotes::Doubled);
    Settings.DefPath = file.ReadText();
    Settings.CalcBasis = ReadWholeNumber(file);
    Settings.MaxLPM = ReadNumber(file);
    Settings.MaxVelocity = ReadNumber(file);
    Settings.Analysis = ReadNumber(file);
    Settings.RoundOff = ReadWholeNumber(file);
    Settings.FluidTemp = ReadNumber(file);
    Settings.SurfaceRoughness1 = ReadNumber(file);
    Settings.SurfaceRoughness2 = ReadNumber(file);
}

std::string PathOf(const std::string& name) {
    return ProgramFolder() + "/" + name;
}

// Everything at its default, so that nothing of a half-read file survives; ConfigFile only follows once the
// file is there.
void SetDefaults() {
    SettingsRecord defaults;
    defaults.DefPath = ProgramFolder();
    defaults.ConfigFile = Settings.ConfigFile;
    Settings = defaults;
}

// The file always has a point as decimal mark, whatever the locale.
void WriteSettings(const std::string& name) {
    const std::string lines[] = {
        Quoted(Settings.DefPath),
        std::to_string(Settings.CalcBasis),
        ShortestText(Settings.MaxLPM, Mark::Point),
        ShortestText(Settings.MaxVelocity, Mark::Point),
        ShortestText(Settings.Analysis, Mark::Point),
        std::to_string(Settings.RoundOff),
        ShortestText(Settings.FluidTemp, Mark::Point),
        ShortestText(Settings.SurfaceRoughness1, Mark::Point),
        ShortestText(Settings.SurfaceRoughness2, Mark::Point),
    };
    std::string content;
    for (const std::string& line : lines) {
        content += line + "\r\n";
    }
    WriteWholeFile(PathOf(name), content);
}

void TakeDefaults() {
    SetDefaults();
    try {
        WriteSettings(kDefaultFile);
    } catch (const FileFailure& failure) {
        ShowMessage({"The default settings can't be saved.\n\n" + std::string(failure.what()) +
                         "\n\nThe defaults hold for this run.",
                     "Defaults Set", MessageButtons::Ok, MessageIcon::Exclamation});
        return;
    }
    Settings.ConfigFile = kDefaultFile;
    RegCreateKey(HKEY_CURRENT_USER, ReminderSubKey);
    RegWriteValue(HKEY_CURRENT_USER, ReminderSubKey, ReminderValueName, ReminderMonth(), REG_SZ);
    ShowMessage({"Configuration File Missing.  Default Values Set and Saved as User.cfg.", "Defaults Set",
                 MessageButtons::Ok, MessageIcon::Information});
}

} // namespace

void LoadSettings() {
    try {
        Settings.ConfigFile.clear();
        Settings.ConfigFile = FirstFileWithExtension(ProgramFolder(), ".cfg").value_or("");
        if (!Settings.ConfigFile.empty()) {
            ReadSettings(PathOf(Settings.ConfigFile));
            return;
        }
    } catch (const FileFailure&) {
        // A file that can't be read is answered like one that is missing.
    }
    TakeDefaults();
}

void SaveSettings() {
    // Defaults that could not be saved leave no name of a file in use.
    WriteSettings(Settings.ConfigFile.empty() ? kDefaultFile : Settings.ConfigFile);
}

} // namespace plenair
