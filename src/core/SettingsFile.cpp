#include "core/SettingsFile.h"

#include "core/Settings.h"
#include "core/modRegistry.h"
#include "platform/desktop/MessageBox.h"
#include "platform/files/FileFailure.h"
#include "platform/files/Folders.h"
#include "platform/files/ItemReader.h"
#include "platform/files/ProgramFolder.h"
#include "platform/files/WholeFiles.h"
#include "platform/text/NumberText.h"

#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace plenair {

namespace {

const std::string kDefaultFile = "User.cfg";

double ReadNumber(ItemReader& file) {
    const auto number = NumberFromText(file.ReadText(), Mark::Point);
    if (!number) {
        throw ContentFailure();
    }
    return *number;
}

std::int16_t ReadWholeNumber(ItemReader& file) {
    const double whole = std::nearbyint(ReadNumber(file));
    if (whole < -32768.0 || whole > 32767.0) {
        throw ContentFailure();
    }
    return static_cast<std::int16_t>(whole);
}

void ReadSettings(const std::string& path) {
    ItemReader file(path, Quotes::Doubled);
    Settings.DefPath = file.ReadText();
    Settings.CalcBasis = ReadWholeNumber(file);
    if (Settings.CalcBasis < 0 || Settings.CalcBasis > 4) {
        Settings.CalcBasis = 0; // there is no such basis, and every window must agree which counts instead
    }
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
    defaults.DefPath = FirstFolderForFiles();
    defaults.ConfigFile = Settings.ConfigFile;
    Settings = defaults;
}

// What stands for a settings file where the program's folder takes none: good for this run, and this folder.
struct HeldSettings {
    std::string Folder;
    SettingsRecord Record;
    bool ToldOfSaving = false;
};

std::optional<HeldSettings>& Held() {
    static std::optional<HeldSettings> s_held;
    if (s_held && s_held->Folder != ProgramFolder()) {
        s_held.reset();
    }
    return s_held;
}

HeldSettings& Hold() {
    if (!Held()) {
        Held() = HeldSettings{ProgramFolder(), {}, false};
    }
    Held()->Record = Settings;
    return *Held();
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
    MakeProgramFolder();
    WriteWholeFile(PathOf(name), content);
}

// The first settings file of a folder. Where it can't be searched, `failure` takes the folder and the reason.
std::optional<std::string> FirstSettingsFile(const std::string& folder, std::string& failure) {
    try {
        return FirstFileWithExtension(folder, ".cfg");
    } catch (const FileFailure& reason) {
        failure = reason.what();
        throw;
    }
}

// Takes the settings that an administrator put beside the executable as the first ones of this user. False if
// there are none.
bool TakeDeliveredSettings(std::string& failure) {
    if (DeliveryFolder() == ProgramFolder()) {
        return false;
    }
    const auto name = FirstSettingsFile(DeliveryFolder(), failure);
    if (!name) {
        return false;
    }
    ReadSettings(DeliveryFolder() + "/" + *name);
    if (Settings.DefPath == DeliveryFolder()) {
        Settings.DefPath = FirstFolderForFiles(); // the default of somebody who may write there
    }
    Settings.ConfigFile = *name;
    NoteReminder(); // a new user isn't asked in the first month
    try {
        WriteSettings(*name);
    } catch (const FileFailure&) {
        Hold(); // the next start takes them from the same place
    }
    return true;
}

void TakeDefaults(const std::string& unsearched) {
    SetDefaults();
    try {
        WriteSettings(kDefaultFile);
    } catch (const FileFailure& failure) {
        if (!ProgramFolderTakesFiles()) {
            Hold();
        }
        ShowMessage({"The default settings can't be saved.\n\n" + std::string(failure.what()) +
                         "\n\nThe defaults hold for this run.",
                     "Defaults Set", MessageButtons::Ok, MessageIcon::Exclamation});
        return;
    }
    Settings.ConfigFile = kDefaultFile;
    NoteReminder();
    if (!unsearched.empty()) {
        ShowMessage({"The settings file can't be looked for.\n\n" + unsearched, "Defaults Set",
                     MessageButtons::Ok, MessageIcon::Exclamation});
    }
    ShowMessage({"Configuration File Missing.  Default Values Set and Saved as User.cfg.", "Defaults Set",
                 MessageButtons::Ok, MessageIcon::Information});
}

} // namespace

void LoadSettings() {
    if (Held()) {
        Settings = Held()->Record;
        return;
    }
    std::string unsearched; // a folder, and why
    try {
        Settings.ConfigFile.clear();
        Settings.ConfigFile = FirstSettingsFile(ProgramFolder(), unsearched).value_or("");
        if (!Settings.ConfigFile.empty()) {
            ReadSettings(PathOf(Settings.ConfigFile));
            return;
        }
        if (TakeDeliveredSettings(unsearched)) {
            return;
        }
    } catch (const FileFailure&) {
        // A file that can't be read is answered like one that is missing.
    }
    TakeDefaults(unsearched);
}

void SaveSettings() {
    try {
        // Defaults that could not be saved leave no name of a file in use.
        WriteSettings(Settings.ConfigFile.empty() ? kDefaultFile : Settings.ConfigFile);
        Held().reset();
    } catch (const FileFailure& failure) {
        if (ProgramFolderTakesFiles()) {
            throw;
        }
        if (!std::exchange(Hold().ToldOfSaving, true)) {
            ShowMessage({"The settings can't be saved.\n\n" + std::string(failure.what()) +
                             "\n\nThey hold for this run.",
                         "Options", MessageButtons::Ok, MessageIcon::Exclamation});
        }
    }
}

} // namespace plenair
