#include "faults/FileWork.h"

#include "core/SettingsFile.h"
#include "core/modRegistry.h"
#include "platform/desktop/Editor.h"
#include "platform/files/FileFailure.h"

#include <cstring>

#include <fcntl.h>
#include <grp.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace plenair {
namespace {

namespace fs = std::filesystem;

constexpr uid_t kOther = 4141;
constexpr uid_t kUser = 4242; // the number of the user's first group too
constexpr gid_t kShared = 4343;

// Where files lie, how they are named, whose they are, and who else works on them.
class PlacesTest : public FileWork {
  protected:
    PlacesTest() { fs::permissions(Folder(), fs::perms::all); }

    // Runs the work in a process of its own, as an ordinary user of that group beside the own one, and gives
    // its result.
    static bool AsUser(gid_t group, const std::function<bool()>& work) {
        const pid_t child = fork();
        if (child == 0) {
            const bool isUser = setgroups(1, &group) == 0 && setgid(kUser) == 0 && setuid(kUser) == 0;
            _exit(isUser && work() && !HasFailure() ? 0 : 1);
        }
        int status = 0;
        waitpid(child, &status, 0);
        return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }

    void Make(uid_t owner, gid_t group, mode_t mode) {
        std::error_code missing;
        fs::remove(m_chosen, missing);
        WriteFile(m_chosen, "older");
        ASSERT_EQ(chown(m_chosen.c_str(), owner, group), 0);
        ASSERT_EQ(chmod(m_chosen.c_str(), mode), 0);
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
        fs::create_directory(Path(stem + "d"));
        m_chosen = Path(stem + "d/" + stem + ".gsp");
        EXPECT_TRUE(Save());
        EXPECT_EQ(ReadFile(m_chosen), NewProject(2));
        EXPECT_TRUE(Load());
        EXPECT_EQ(ProjectName, stem + ".gsp");
        WriteSolutionReport();
        EXPECT_EQ(ReadFile(Path(stem + "d/" + stem + ".Gus")), ProjectText());
        Settings.DefPath = Path(stem + "d");
        Settings.ConfigFile = "Site.cfg";
        SaveSettings();
        LoadSettings();
        EXPECT_EQ(Settings.DefPath, Path(stem + "d"));
        m_chosen = Path(stem + "d/" + stem + ".pnl");
        EXPECT_TRUE(Record());
        OpenLog(m_lite);
        EXPECT_EQ(edited, m_chosen);
        EXPECT_EQ(std::distance(fs::directory_iterator(Path(stem + "d")), {}), 3);
    }
    m_chosen = Path(std::string(251, 'x') + ".gsp");
    EXPECT_TRUE(Save() && Load());
    m_chosen = Path(std::string(252, 'x') + ".gsp");
    EXPECT_FALSE(Save() || Load() || Record());
    EXPECT_TRUE(m_told.empty());
}

TEST_F(PlacesTest, FilesOfAllKindsAndOwners) {
    if (getuid() != 0) {
        GTEST_SKIP() << "needs root to make files of other users";
    }
    const struct {
        const char* Name;
        std::function<void()> Make;
        bool IsSaved;
        bool IsRecorded; // a log is written in place
    } rows[] = {
        {"nothing", [] {}, true, true},
        {"folder", [&] { fs::create_directory(m_chosen); }, false, false},
        {"pipe", [&] { mkfifo(m_chosen.c_str(), 0666); }, false, false},
        {"device", [&] { fs::create_symlink("/dev/null", m_chosen); }, false, false},
        {"own file", [&] { Make(kUser, kUser, 0600); }, true, true},
        {"own file, not to be written", [&] { Make(kUser, kUser, 0400); }, false, false},
        {"own file, not to be read", [&] { Make(kUser, kUser, 0200); }, true, true},
        {"another's file", [&] { Make(kOther, kOther, 0644); }, false, false},
        {"another's file for all", [&] { Make(kOther, kOther, 0666); }, true, true},
        {"link",
         [&] {
             WriteFile(Path("t"), "older"), chmod(Path("t").c_str(), 0666), fs::create_symlink("t", m_chosen);
         },
         true, true},
        {"dangling link", [&] { fs::create_symlink("t", m_chosen); }, true, true},
        {"link into nowhere", [&] { fs::create_symlink("no/t", m_chosen); }, false, false},
        {"link to itself", [&] { fs::create_symlink(m_chosen, m_chosen); }, false, false},
        {"closed folder", [&] { Make(kUser, kUser, 0600), chmod(Folder().c_str(), 0555); }, false, true},
    };
    for (const auto& row : rows) {
        for (const bool records : {false, true}) {
            SCOPED_TRACE(row.Name + std::string(records ? ", recorded" : ", saved"));
            for (const std::string& name : Names()) {
                fs::remove(Path(name));
            }
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
    const struct {
        const char* Name;
        uid_t Owner;
        gid_t Group;
        mode_t Mode;
        gid_t UsersGroup;
        gid_t GroupAfter;
        mode_t ModeAfter;
    } rows[] = {
        {"shared with a group of the user's", kOther, kShared, 0664, kShared, kShared, 0664},
        {"own, with a group of the user's", kUser, kShared, 0640, kShared, kShared, 0640},
        {"own, with a group of others", kUser, kShared, 0640, kUser, kUser, 0600},
        {"own, with a group of others, read by all", kUser, kShared, 0664, kUser, kUser, 0644},
        {"for all", kOther, kShared, 0666, kUser, kUser, 0666},
        {"for all but its group", kOther, kShared, 0606, kUser, kUser, 0606},
    };
    for (const auto& row : rows) {
        Make(row.Owner, row.Group, row.Mode);
        EXPECT_TRUE(AsUser(row.UsersGroup, [&] { return Save(); })) << row.Name;
        struct stat status {};
        ASSERT_EQ(stat(m_chosen.c_str(), &status), 0);
        EXPECT_EQ(status.st_uid, kUser) << row.Name;
        EXPECT_EQ(status.st_gid, row.GroupAfter) << row.Name;
        EXPECT_EQ(status.st_mode & 07777U, row.ModeAfter) << row.Name;
    }
    fs::remove(m_chosen);
    const mode_t before = umask(027);
    EXPECT_TRUE(Save());
    umask(before);
    EXPECT_EQ(fs::status(m_chosen).permissions(), fs::perms(0640));
    // Rights of one more user, beside those of the mode.
    const auto entry = [](std::uint16_t tag, std::uint16_t rights, std::uint32_t who = ~0U) {
        std::string bytes(8, '\0');
        std::memcpy(bytes.data(), &tag, 2), std::memcpy(&bytes[2], &rights, 2),
            std::memcpy(&bytes[4], &who, 4);
        return bytes;
    };
    const std::string list = std::string("\2\0\0\0", 4) + entry(1, 6) + entry(2, 6, kOther) + entry(4, 0) +
                             entry(16, 6) + entry(32, 0);
    const char* const name = "system.posix_acl_access";
    if (setxattr(m_chosen.c_str(), name, list.data(), list.size(), 0) == 0) {
        EXPECT_TRUE(Save());
        std::string kept(100, '\0');
        kept.resize(static_cast<std::size_t>(
            std::max<ssize_t>(getxattr(m_chosen.c_str(), name, kept.data(), 100), 0)));
        EXPECT_EQ(kept, list);
    }
}

TEST_F(PlacesTest, AFullDiskKeepsTheOlderFile) {
    if (unshare(CLONE_NEWNS) != 0 || mount("", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
        mount("small", Folder().c_str(), "tmpfs", 0, "size=64k") != 0) {
        GTEST_SKIP() << "needs root to make a small disk";
    }
    EXPECT_TRUE(Save(100));
    const std::string older = ReadFile(m_chosen);
    WriteFile(Path("stuff"), std::string(30'000, 'x'));
    EXPECT_FALSE(Save(900));
    EXPECT_TRUE(m_told.empty());
    EXPECT_EQ(ReadFile(m_chosen), older);
    EXPECT_EQ(Names().size(), 2U);
    fs::remove(Path("stuff"));
    EXPECT_TRUE(Save(900));
    EXPECT_EQ(umount2(Folder().c_str(), MNT_DETACH), 0);
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
            RegWriteValue(HKEY_CURRENT_USER, "Key", std::to_string(program), std::to_string(round), REG_SZ);
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
    for (int program = 0; program < kPrograms; ++program) {
        EXPECT_EQ(RegReadValue(HKEY_CURRENT_USER, "Key", std::to_string(program)),
                  RegistryValue(std::to_string(kRounds)));
    }
}

} // namespace
} // namespace plenair
