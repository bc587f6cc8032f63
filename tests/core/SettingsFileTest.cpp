#include "core/SettingsFile.h"

#include "core/Settings.h"
#include "core/modRegistry.h"
#include "platform/NumberText.h"
#include "platform/TextFiles.h"
#include "support/Scripted.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

namespace plenair {
namespace {

namespace fs = std::filesystem;

const std::string DefaultsMessage = "Configuration File Missing.  Default Values Set and Saved as User.cfg.";

std::string NineItems(const std::string& defPath) {
    return "\"" + defPath + "\"\r\n0\r\n0.8\r\n5\r\n500\r\n25\r\n26\r\n0.00015\r\n0.002\r\n";
}

// Nothing here is a default.
const std::string OtherLoaded = "/some/folder 4 1.25 6.5 750 50 20 0.0003 0.004";
const std::string OtherItems =
    "\"/some/folder\"\r\n4\r\n1.25\r\n6.5\r\n750\r\n50\r\n20\r\n0.0003\r\n0.004\r\n";

class SettingsFile : public testing::Test {
  protected:
    ~SettingsFile() override { UnloadOptions = {}; }

    std::string File(const std::string& name) const { return m_environment.Folder().File(name); }
    const std::string& Folder() const { return m_environment.Folder().Path(); }

    // Every field away from its default, so that a test sees which ones are written.
    void Disturb() { Settings = {-1, -1, -1, -1, -1, -1, "other.cfg", "other", -1, -1}; }

    // All fields that the file holds, in its order.
    std::string Loaded() const {
        std::string loaded = Settings.DefPath + " " + std::to_string(Settings.CalcBasis);
        for (const double number :
             {Settings.MaxLPM, Settings.MaxVelocity, Settings.Analysis, Settings.RoundOff * 1.0,
              Settings.FluidTemp, Settings.SurfaceRoughness1, Settings.SurfaceRoughness2}) {
            loaded += " " + ShortestText(number, Mark::Point);
        }
        return loaded;
    }

    std::string Defaults() const { return ProgramFolder() + " 0 0.8 5 500 25 26 0.00015 0.002"; }

    std::string Reminder() const {
        const RegistryValue value = RegReadValue(HKEY_CURRENT_USER, ReminderSubKey, ReminderValueName);
        const auto* text = std::get_if<std::string>(&value);
        return text != nullptr ? *text : "";
    }

    // Loads the file, which must lead to the defaults, saved and told.
    void ExpectDefaultsTaken() {
        Disturb();
        m_messages.Expect(MessageAnswer::Ok);
        LoadSettings();
        EXPECT_EQ(Loaded(), Defaults());
        EXPECT_EQ(Settings.ConfigFile, "User.cfg");
        EXPECT_EQ(ReadFile(File("User.cfg")), NineItems(Folder()));
        ASSERT_FALSE(m_messages.Asked().empty());
        const MessageRequest& asked = m_messages.Asked().back();
        EXPECT_EQ(asked.text, DefaultsMessage);
        EXPECT_EQ(asked.title, "Defaults Set");
        EXPECT_EQ(asked.buttons, MessageButtons::Ok);
        EXPECT_EQ(asked.icon, MessageIcon::Information);
    }

    ProgramEnvironment m_environment;
    ScriptedMessages m_messages;
};

TEST_F(SettingsFile, AFirstStartMakesTheFileAndNotesTheMonth) {
    EXPECT_EQ(Reminder(), "");
    ExpectDefaultsTaken();
    EXPECT_EQ(Reminder(), "112026");
    m_environment.SetToday(2026, 12, 1);
    Disturb();
    LoadSettings();
    EXPECT_EQ(Loaded(), Defaults());
    EXPECT_EQ(Reminder(), "112026") << "a file that loads has nothing to do with the registry";
}

TEST_F(SettingsFile, TheDefaultsPathKeepsItsOrder) {
    std::string order;
    SetMessageBoxProvider([&](const MessageRequest&) {
        order += "message after " + Reminder();
        return MessageAnswer::Ok;
    });
    UnloadOptions = [&] {
        order += fs::exists(File("User.cfg")) ? "file, " : "no file, ";
        order += Settings.ConfigFile + ", " + (Reminder().empty() ? "unload, " : "unload too late, ");
    };
    LoadSettings();
    EXPECT_EQ(order, "file, User.cfg, unload, message after 112026");
}

TEST_F(SettingsFile, LoadsWhatStandsForNineItems) {
    const struct {
        const char* name;
        std::string content;
    } rows[] = {
        {"as written", OtherItems},
        {"nothing behind the last item", OtherItems.substr(0, OtherItems.size() - 2)},
        {"ten items", OtherItems + "99\r\n"},
        {"anything behind", OtherItems + std::string("\0\"\xff", 3)},
        {"lone LF", "\"/some/folder\"\n4\n1.25\n6.5\n750\n50\n20\n0.0003\n0.004\n"},
        {"lone CR", "\"/some/folder\"\r4\r1.25\r6.5\r750\r50\r20\r0.0003\r0.004\r"},
        {"commas", "/some/folder,4,1.25,6.5,750,50,20,0.0003,0.004"},
        {"blanks", "  /some/folder \r\n 4\r\n\t1.25 \r\n6.5  , 750\r\n50\r\n 20\r\n0.0003 \r\n 0.004"},
        {"forms of numbers",
         "\"/some/folder\"\r\n+4\r\n125E-2\r\n6.50\r\n7.5E+02\r\n50.0\r\n20.\r\n.0003\r\n4e-03\r\n"},
        {"whole numbers go to the even one", "/some/folder,4.5,1.25,6.5,750,49.5,20,0.0003,0.004"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Disturb();
        WriteFile(File("Site.cfg"), row.content);
        LoadSettings();
        EXPECT_EQ(Loaded(), OtherLoaded);
        EXPECT_EQ(Settings.ConfigFile, "Site.cfg");
        EXPECT_EQ(ReadFile(File("Site.cfg")), row.content);
    }
    EXPECT_FALSE(fs::exists(File("User.cfg")));
}

TEST_F(SettingsFile, ValuesThatAreNotLookedAtLoad) {
    for (const char* items :
         {"/nowhere/at all,5,0,0,0,0,0,0,0", "\"\",-32768,-1,-1,-1,32767,-300,-1,1E300"}) {
        WriteFile(File("User.cfg"), items);
        LoadSettings();
    }
    EXPECT_EQ(Settings.DefPath, "");
    EXPECT_EQ(Settings.CalcBasis, -32768);
    EXPECT_EQ(Settings.SurfaceRoughness2, 1E300);
}

TEST_F(SettingsFile, WhatCannotBeReadIsReplacedByTheDefaults) {
    struct Row {
        std::string name;
        std::string content;
    };
    std::vector<Row> rows = {
        {"empty", ""},
        {"a blank", " "},
        {"only line ends", "\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n"},
        {"binary", std::string("\x7f"
                               "ELF\0\x01\x02\xff\xfe,\r\n\"\0",
                               14)},
        {"zeros", std::string(100'000, '\0')},
        {"an open quote", "\"/some/folder\r\n4\r\n1.25\r\n6.5\r\n750\r\n50\r\n20\r\n0.0003\r\n0.004\r\n"},
        {"an empty line", "/some/folder\r\n4\r\n\r\n6.5\r\n750\r\n50\r\n20\r\n0.0003\r\n0.004\r\n"},
        {"a word", "/some/folder,4,1.25,fast,750,50,20,0.0003,0.004"},
        {"infinity", "/some/folder,4,1.25,inf,750,50,20,0.0003,0.004"},
        {"hexadecimal", "/some/folder,0x4,1.25,6.5,750,50,20,0.0003,0.004"},
        {"too large for 16 bits", "/some/folder,4,1.25,6.5,750,32768,20,0.0003,0.004"},
        {"too large at all", "/some/folder,4,1E309,6.5,750,50,20,0.0003,0.004"},
        {"the last is no number", "/some/folder,4,1.25,6.5,750,50,20,0.0003,rough"},
    };
    std::size_t end = 0;
    for (int items = 1; items <= 9; ++items) {
        rows.push_back({"cut before item " + std::to_string(items), OtherItems.substr(0, end)});
        end = OtherItems.find("\r\n", end) + 2;
    }
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        WriteFile(File("User.cfg"), row.content);
        ExpectDefaultsTaken();
    }
}

TEST_F(SettingsFile, ABadFileOfAnotherNameStays) {
    WriteFile(File("Site.cfg"), "bad");
    ExpectDefaultsTaken();
    EXPECT_EQ(ReadFile(File("Site.cfg")), "bad");
}

TEST_F(SettingsFile, AGigabyteOfZerosCostsNothing) {
    WriteFile(File("User.cfg"), "");
    fs::resize_file(File("User.cfg"), 1U << 30);
    const auto begin = std::chrono::steady_clock::now();
    ExpectDefaultsTaken();
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(500));
}

TEST_F(SettingsFile, AFileWhoseReadingFails) {
    // A regular file that opens and then gives an error for its first byte, for any user.
    fs::create_symlink("/proc/self/mem", File("Site.cfg"));
    ExpectDefaultsTaken();
}

TEST_F(SettingsFile, DefaultsThatCannotBeSavedHoldForTheRun) {
    const struct {
        const char* name;
        std::function<void()> prepare;
    } rows[] = {
        {"a folder has the name", [this] { fs::create_directory(File("User.cfg")); }},
        {"no program's folder", [this] { SetProgramFolder(Folder() + "/gone"); }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Disturb();
        row.prepare();
        UnloadOptions = [] { ADD_FAILURE() << "the steps after the writing are skipped"; };
        m_messages.Expect(MessageAnswer::Ok);
        LoadSettings();
        EXPECT_EQ(Loaded(), Defaults());
        EXPECT_EQ(Reminder(), "");
        const std::string& text = m_messages.LastText();
        EXPECT_NE(text.find(ProgramFolder() + "/User.cfg"), std::string::npos) << text;
        EXPECT_NE(text.find(row.name == rows[0].name ? "directory" : "No such file"), std::string::npos)
            << text;
        EXPECT_NE(text.find("defaults hold for this run"), std::string::npos) << text;
        EXPECT_EQ(m_messages.Asked().back().title, "Defaults Set");
    }
}

TEST_F(SettingsFile, OfTwoFilesOnlyOneIsTouched) {
    WriteFile(File("A.cfg"), OtherItems);
    WriteFile(File("B.cfg"), OtherItems);
    WriteFile(File("C.cfg.bak"), "bad");
    fs::create_directory(File("D.cfg"));
    LoadSettings();
    EXPECT_EQ(Loaded(), OtherLoaded);
    ASSERT_TRUE(Settings.ConfigFile == "A.cfg" || Settings.ConfigFile == "B.cfg");
    Settings.MaxLPM = 1.5;
    SaveSettings();
    const std::string untouched = Settings.ConfigFile == "A.cfg" ? "B.cfg" : "A.cfg";
    EXPECT_EQ(ReadFile(File(untouched)), OtherItems);
    EXPECT_NE(ReadFile(File(Settings.ConfigFile)), OtherItems);
    EXPECT_FALSE(fs::exists(File("User.cfg")));
}

TEST_F(SettingsFile, IsWrittenToTheByte) {
    SetNumberLocale({.decimalMark = ",", .groupMark = "."});
    Settings = {-3.25, 0.00009, 0, 1.0 / 3, 12345.5, 1e6, "Site.cfg", "/päth, \"here\"", -25, 4};
    const std::string saved = Loaded();
    WriteFile(File("Site.cfg"), OtherItems + OtherItems);
    SaveSettings();
    EXPECT_EQ(ReadFile(File("Site.cfg")),
              "\"/päth, \"\"here\"\"\"\r\n4\r\n0.333333333333333\r\n12345.5\r\n1000000\r\n-25\r\n-3.25\r\n"
              "0.00009\r\n0\r\n");
    Disturb();
    LoadSettings();
    EXPECT_EQ(Loaded(), saved);
}

} // namespace
} // namespace plenair
