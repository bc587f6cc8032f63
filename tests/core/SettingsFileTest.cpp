#include "core/SettingsFile.h"
#include "core/modRegistry.h"
#include "platform/desktop/Manual.h"
#include "support/Test.h"

#include <unistd.h>

namespace {

// Nothing here is a default.
const std::string OtherItems =
    "\"/some/folder\"\r\n4\r\n1.25\r\n6.5\r\n750\r\n50\r\n20\r\n0.0003\r\n0.004\r\n";
const std::string OtherLoaded = "/some/folder 4 1.25 6.5 750 50 20 0.0003 0.004";

class SettingsFile : public ProgramTest {
  protected:
    // Loads over other values, and gives all that the file holds, in its order.
    static std::string Loaded() {
        Settings = {-1, -1, -1, -1, -1, -1, "other.cfg", "other", -1, -1};
        LoadSettings();
        return Shown();
    }
    static std::string Shown() {
        const std::array numbers = {Settings.CalcBasis * 1.0,   Settings.MaxLPM,
                                    Settings.MaxVelocity,       Settings.Analysis,
                                    Settings.RoundOff * 1.0,    Settings.FluidTemp,
                                    Settings.SurfaceRoughness1, Settings.SurfaceRoughness2};
        return Settings.DefPath + " " +
               Joined(numbers, [](double number) { return ShortestText(number, Mark::Point); });
    }
    static std::string Defaults(const std::string& folder) {
        return folder + " 0 0.8 5 500 25 26 0.00015 0.002";
    }
    static RegistryValue Reminder() {
        return RegReadValue(HKEY_CURRENT_USER, kReminderSubKey, kReminderValueName);
    }

    // Loads the file, which must lead to the defaults, saved and told.
    void ExpectDefaultsTaken() {
        desktop.Expect("?Ok");
        EXPECT_EQ(Loaded(), Defaults(ProgramFolder()));
        EXPECT_EQ(Settings.ConfigFile, "User.cfg");
        EXPECT_EQ(ReadFile(File("User.cfg")),
                  "\"" + ProgramFolder() + "\"\r\n0\r\n0.8\r\n5\r\n500\r\n25\r\n26\r\n0.00015\r\n0.002\r\n");
        EXPECT_EQ(Reminder(), RegistryValue("112026"));
    }
};

TEST_F(SettingsFile, WhatCannotBeReadIsReplacedByTheDefaults) {
    fs::create_directory(File("folder.cfg"));
    WriteFile(File("User.cfg.bak"), OtherItems);
    WriteFile(File("User.cfg"), "bad");
    ExpectDefaultsTaken();
    fs::resize_file(File("User.cfg"), 0);
    fs::resize_file(File("User.cfg"), 1U << 30); // zeros, one endless item
    ExpectDefaultsTaken();
    fs::remove(File("User.cfg"));
    WriteFile(File("Site.cfg"), "bad");
    ExpectDefaultsTaken();
    EXPECT_EQ(ReadFile(File("Site.cfg")), "bad") << "of another name, it stays";
    // A regular file that opens and then gives an error for its first byte, for any user.
    fs::remove(File("Site.cfg"));
    fs::remove(File("User.cfg"));
    fs::create_symlink("/proc/self/mem", File("Site.cfg"));
    ExpectDefaultsTaken();
}

TEST_F(SettingsFile, WhatCannotBeSavedHoldsForTheRun) {
    fs::create_directory(File("User.cfg"));
    WriteFile(File("file"), "");
    fs::permissions(File("file"), fs::perms::all);
    fs::create_symlink("nowhere", File("link"));
    const std::string folders[] = {environment.Folder().Path(), File("file/folder"), File("file"),
                                   File("link")};
    for (const std::string& folder : folders) {
        SetProgramFolder(folder);
        desktop.Expect("?Ok");
        EXPECT_EQ(Loaded() + Settings.ConfigFile, Defaults(folder)) << "of no file";
        EXPECT_EQ(Reminder(), RegistryValue());
        if (folder == environment.Folder().Path()) {
            continue; // other files could be saved there
        }
        LoadSettings(); // tells nothing a second time
        desktop.Expect("?Ok");
        for (const double loss : {1.5, 2.5}) {
            Settings.MaxLPM = loss;
            SaveSettings(); // tells it once
            Loaded();
            EXPECT_EQ(Settings.MaxLPM, loss);
        }
    }
}

// The folder of the executable belongs to somebody else. Root may write everywhere, so that another does it.
TEST_F(SettingsFile, AnInstalledProgramKeepsItsFileWithTheUser) {
    const uid_t before = geteuid();
    const std::string users = File("data/plenair");
    const std::string installed = File("installed");
    fs::create_directory(installed);
    fs::permissions(environment.Folder().Path(), fs::perms::all);
    fs::permissions(environment.RegistryFolder(), fs::perms::all);
    const std::string ofRoot =
        "\"" + installed + "\"" + OtherItems.substr(OtherItems.find('\r')); // who ran it once
    const std::pair<std::string, std::string> rows[] = {{"", Defaults("/documents")},
                                                        {ofRoot, "/documents" + OtherLoaded.substr(12)},
                                                        {OtherItems, OtherLoaded}};
    for (const auto& [delivered, loaded] : rows) {
        const bool byAdministrator = !delivered.empty();
        if (byAdministrator) {
            fs::permissions(installed, fs::perms::owner_all);
            WriteFile(installed + "/Site.cfg", delivered);
        } else {
            desktop.Expect("?Ok");
        }
        fs::permissions(installed, fs::perms(0555));
        ASSERT_TRUE(before != 0 || seteuid(65534) == 0);
        fs::remove_all(File("data"));
        ChooseProgramFolder(installed, users, "/documents");
        EXPECT_EQ(Loaded(), loaded);
        EXPECT_EQ(Settings.ConfigFile, byAdministrator ? "Site.cfg" : "User.cfg");
        EXPECT_EQ(Reminder(), RegistryValue("112026"));
        EXPECT_EQ(fs::status(users).permissions(), fs::perms::owner_all);
        Settings.MaxLPM = 1.75;
        SaveSettings();
        Loaded();
        EXPECT_EQ(Settings.MaxLPM, 1.75);
        ASSERT_TRUE(before != 0 || seteuid(0) == 0);
    }
    EXPECT_EQ(ReadFile(installed + "/Site.cfg"), OtherItems);
    EXPECT_EQ(DeliveredPath("Site.cfg"), users + "/Site.cfg");
    EXPECT_EQ(DeliveredPath("Gus.psg"), installed + "/Gus.psg");
    std::string opened;
    Desktop().OpenManual = [&](const std::string& path, const std::string& anchor) {
        opened = path + "#" + anchor;
        return true;
    };
    fs::create_directory(installed + "/manual");
    WriteFile(installed + "/manual/manual.html", "");
    ShowManual("sheet");
    EXPECT_EQ(opened, installed + "/manual/manual.html#sheet");
    ChooseProgramFolder(File("data"), users, "/documents"); // where it may write
    EXPECT_EQ(ProgramFolder() + FirstFolderForFiles(), File("data") + File("data"));
}

TEST_F(SettingsFile, IsWrittenToTheByte) {
    SetNumberLocale({.DecimalMark = ",", .GroupMark = "."});
    Settings = {-3.25, 0.00009, 0, 1.0 / 3, 12345.5, 1e6, "Site.cfg", "/päth, \"here\"", -25, 4};
    const std::string saved = Shown();
    WriteFile(File("Site.cfg"), OtherItems + OtherItems);
    SaveSettings();
    EXPECT_EQ(ReadFile(File("Site.cfg")),
              "\"/päth, \"\"here\"\"\"\r\n4\r\n0.333333333333333\r\n12345.5\r\n1000000\r\n-25\r\n-3.25\r\n"
              "0.00009\r\n0\r\n");
    environment.SetToday(2026, 12, 1);
    EXPECT_EQ(Loaded(), saved);
    EXPECT_EQ(Reminder(), RegistryValue()) << "a file that loads has nothing to do with the registry";
}

} // namespace
