#include "core/SettingsFile.h"
#include "core/modRegistry.h"
#include "faults/FileWork.h"

#include <grp.h>
#include <sys/stat.h>
#include <sys/xattr.h>

namespace {

constexpr uid_t kOther = 4141;
constexpr uid_t kUser = 4242; // the number of the user's first group too
constexpr gid_t kShared = 4343;

// Where files lie, how they are named, whose they are, and who else works on them.
class PlacesTest : public FileWork {
  protected:
    PlacesTest() { fs::permissions(Folder(), fs::perms::all); }

    // Whether the work succeeds as an ordinary user of that group beside the own one.
    static bool AsUser(gid_t group, const std::function<bool()>& work) {
        return InChild([&] {
                   return setgroups(1, &group) == 0 && setgid(kUser) == 0 && setuid(kUser) == 0 && work();
               }) == 0;
    }

    void Make(uid_t owner, gid_t group, mode_t mode) {
        std::error_code missing;
        fs::remove(m_chosen, missing);
        WriteFile(m_chosen, "older");
        ASSERT_TRUE(chown(m_chosen.c_str(), owner, group) == 0 && chmod(m_chosen.c_str(), mode) == 0);
    }
};

TEST_F(PlacesTest, OddNames) {
    std::string edited;
    Desktop().StartEditor = [&](const std::string& path) {
        edited = path;
        return true;
    };
    for (const std::string stem :
         {"-rf", " a  b ", "'single' \"double\"", "line\nfeed", "$(touch x); `touch y` & |", "%f %U", "~",
          "..", "\xFF\xFE not UTF-8", "\U0001F98A", "a,b\"c"}) {
        SCOPED_TRACE(stem);
        const std::string folder = File(stem + "d");
        fs::create_directory(folder);
        m_chosen = folder + "/" + stem + ".gsp";
        EXPECT_TRUE(Save() && ReadFile(m_chosen) == NewProject(2) && Load());
        EXPECT_EQ(ProjectName, stem + ".gsp");
        WriteSolutionReport();
        EXPECT_EQ(ReadFile(folder + "/" + stem + ".Gus"), ProjectText());
        m_chosen = folder + "/" + stem + ".pnl";
        EXPECT_TRUE(Record());
        OpenLog(m_lite);
        EXPECT_EQ(edited, m_chosen);
        EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 3);
        Settings.ConfigFile = "Site.cfg";
        SaveSettings();
        LoadSettings();
        EXPECT_EQ(Settings.DefPath, folder);
    }
    m_chosen = File(std::string(251, 'x') + ".gsp");
    EXPECT_TRUE(Save() && Load());
    m_chosen = File(std::string(252, 'x') + ".gsp");
    EXPECT_FALSE(Save() || Load() || Record());
    EXPECT_TRUE(m_told.empty());
}

TEST_F(PlacesTest, FilesOfAllKindsAndOwners) {
    if (getuid() != 0) {
        GTEST_SKIP() << "needs root to make files of other users";
    }
    const std::string target = File("t");
    const struct {
        const char* Name;
        std::function<void()> Make;
        bool IsSaved;
        bool IsRecorded; // a log is written in place
    } rows[] = {
        // clang-format off
        {"nothing", [] {}, true, true},
        {"folder", [&] { fs::create_directory(m_chosen); }, false, false},
        {"pipe", [&] { mkfifo(m_chosen.c_str(), 0666); }, false, false},
        {"device", [&] { fs::create_symlink("/dev/null", m_chosen); }, false, false},
        {"own file", [&] { Make(kUser, kUser, 0600); }, true, true},
        {"own file, not to be written", [&] { Make(kUser, kUser, 0400); }, false, false},
        {"own file, not to be read", [&] { Make(kUser, kUser, 0200); }, true, true},
        {"another's file", [&] { Make(kOther, kOther, 0644); }, false, false},
        {"another's file for all", [&] { Make(kOther, kOther, 0666); }, true, true},
        {"link", [&] { WriteFile(target, "older"), chmod(target.c_str(), 0666), fs::create_symlink("t", m_chosen); }, true, true},
        {"dangling link", [&] { fs::create_symlink("t", m_chosen); }, true, true},
        {"link into nowhere", [&] { fs::create_symlink("no/t", m_chosen); }, false, false},
        {"link to itself", [&] { fs::create_symlink(m_chosen, m_chosen); }, false, false},
        {"closed folder", [&] { Make(kUser, kUser, 0600), chmod(Folder().c_str(), 0555); }, false, true},
        // clang-format on
    };
    for (const auto& row : rows) {
        for (const bool records : {false, true}) {
            SCOPED_TRACE(row.Name + std::string(records ? ", recorded" : ", saved"));
            RemoveAll();
            chmod(Folder().c_str(), 0777);
            row.Make();
            const auto type = fs::symlink_status(m_chosen).type();
            const bool isDone = records ? row.IsRecorded : row.IsSaved;
            EXPECT_TRUE(AsUser(kUser, [&] { return (records ? Record() : Save()) == isDone; }));
            std::error_code loop;
            const bool isFile = fs::is_regular_file(m_chosen, loop);
            const std::string content = isFile ? ReadFile(m_chosen) : "";
            EXPECT_TRUE(isDone ? content.starts_with(records ? "Plenair" : NewProject(2))
                               : !isFile || content == "older");
            EXPECT_TRUE(fs::symlink_status(m_chosen).type() == type || type == fs::file_type::not_found);
            EXPECT_LE(Names().size(), Names().count("t") + 1);
            AsUser(kUser, [&] { return Load(); }); // ends, also where it can't be read
        }
    }
}

TEST_F(PlacesTest, RightsAreThoseOfTheOlderFileOrOfTheMask) {
    if (getuid() != 0) {
        GTEST_SKIP() << "needs root to make files of other users";
    }
    using Rights = std::tuple<uid_t, gid_t, mode_t>;
    const struct {
        const char* Name;
        Rights Before;
        gid_t UsersGroup;
        Rights After;
    } rows[] = {
        {"shared with a group of the user's", {kOther, kShared, 0664}, kShared, {kUser, kShared, 0664}},
        {"own, with a group of the user's", {kUser, kShared, 0640}, kShared, {kUser, kShared, 0640}},
        {"own, with a group of others", {kUser, kShared, 0640}, kUser, {kUser, kUser, 0600}},
        {"own, of a group of others, read by all", {kUser, kShared, 0664}, kUser, {kUser, kUser, 0644}},
        {"for all", {kOther, kShared, 0666}, kUser, {kUser, kUser, 0666}},
        {"for all but its group", {kOther, kShared, 0606}, kUser, {kUser, kUser, 0606}},
    };
    for (const auto& row : rows) {
        std::apply([this](auto... rights) { Make(rights...); }, row.Before);
        EXPECT_TRUE(AsUser(row.UsersGroup, [&] { return Save(); })) << row.Name;
        struct stat now {};
        ASSERT_EQ(stat(m_chosen.c_str(), &now), 0);
        EXPECT_EQ((Rights{now.st_uid, now.st_gid, now.st_mode & 07777U}), row.After) << row.Name;
    }
    fs::remove(m_chosen);
    const mode_t before = umask(027);
    EXPECT_TRUE(Save());
    umask(before);
    EXPECT_EQ(fs::status(m_chosen).permissions(), fs::perms(0640));
    // Rights of one more user, beside those of the mode: version 2, then entries of tag, rights and user.
    const std::string list("\2\0\0\0\1\0\6\0\xFF\xFF\xFF\xFF\2\0\6\0\x2D\x10\0\0\4\0\0\0\xFF\xFF\xFF\xFF"
                           "\x10\0\6\0\xFF\xFF\xFF\xFF\x20\0\0\0\xFF\xFF\xFF\xFF",
                           44);
    const char* const name = "system.posix_acl_access";
    if (setxattr(m_chosen.c_str(), name, list.data(), list.size(), 0) == 0) {
        EXPECT_TRUE(Save());
        std::string kept(list.size(), '\0');
        EXPECT_EQ(getxattr(m_chosen.c_str(), name, kept.data(), kept.size()), 44);
        EXPECT_EQ(kept, list);
        setxattr(Folder().c_str(), "system.posix_acl_default", list.data(), list.size(), 0);
        removexattr(m_chosen.c_str(), name);
        EXPECT_TRUE(Save() && getxattr(m_chosen.c_str(), name, nullptr, 0) < 0) << "as the folder hands down";
    }
}

TEST_F(PlacesTest, ProgramsThatMeetOnOneFileLoseNothing) {
    constexpr int kPrograms = 4;
    constexpr int kRounds = 25;
    Settings.ConfigFile = "User.cfg";
    std::set<std::string> whole;
    for (std::int16_t program = 0; program < kPrograms; ++program) {
        whole.insert(NewProject(program));
    }
    Save(0);
    SaveSettings();
    std::vector<pid_t> children;
    for (int program = 0; program < kPrograms; ++program) {
        children.push_back(fork());
        for (int round = 0; children.back() == 0; ++round) {
            Save(static_cast<std::int16_t>(program));
            Settings.FluidTemp = program;
            SaveSettings();
            RegCreateKey(HKEY_CURRENT_USER, "Key");
            RegWriteValue(HKEY_CURRENT_USER, "Key", std::to_string(program * 100 + round), "set", REG_SZ);
            if (round == kRounds) {
                _exit(0);
            }
        }
    }
    m_told.clear();
    for (const pid_t child : children) {
        while (waitpid(child, nullptr, WNOHANG) == 0) {
            EXPECT_TRUE(whole.contains(ReadFile(m_chosen)));
            LoadSettings();
        }
    }
    EXPECT_TRUE(m_told.empty()) << "a settings file was not whole";
    EXPECT_EQ(Names(), (std::set<std::string>{"User.cfg", "plant.gsp"}));
    int set = 0;
    for (int name = 0; name < kPrograms * 100; ++name) {
        set += RegReadValue(HKEY_CURRENT_USER, "Key", std::to_string(name)) == RegistryValue("set") ? 1 : 0;
    }
    EXPECT_EQ(set, kPrograms * (kRounds + 1));
}

} // namespace
