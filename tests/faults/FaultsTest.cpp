#include "faults/Faults.h"
#include "core/SettingsFile.h"
#include "core/modRegistry.h"
#include "lite/CalculationLog.h"
#include "platform/files/FileFailure.h"
#include "platform/files/Folders.h"
#include "project/FakeWindows.h"
#include "project/ProjectFiles.h"
#include "project/ProjectKeeper.h"
#include "project/Recovery.h"
#include "project/model/History.h"
#include "project/model/ProjectBlocks.h"
#include "support/LiteArrays.h"

#include <cerrno>

#include <grp.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#ifdef PLENAIR_WINDOWS
#include "platform/qt/DesktopPrinter.h"

#include <QGuiApplication>
#endif

namespace {

// The work on files as a user does it, in a folder of the test's own: what the dialog is answered with, and
// what the user is told.
class FileWork : public ProjectTest {
  protected:
    FileWork() {
        Desktop().AskByMessageBox = [this](const MessageRequest& request) {
            m_told.push_back(request.Text);
            return request.Buttons == MessageButtons::YesNo ? MessageAnswer::Yes
                                                            : AnswerWhenClosed(request.Buttons);
        };
        Desktop().ShowDialog = [this](DialogKind, CommonDialog& dialog) {
            dialog.FileName = m_chosen;
            return true;
        };
    }

    const std::string& Folder() const { return environment.Folder().Path(); }

    std::set<std::string> Names() const { return environment.Folder().Names(); }
    void RemoveAll() const {
        for (const std::string& name : Names()) {
            fs::remove(File(name));
        }
    }

    // Runs the work in a process of its own and gives how that ended, as waitpid tells it.
    static int InChild(const std::function<bool()>& work) {
        const pid_t child = fork();
        if (child == 0) {
            _exit(work() && !HasFailure() ? 0 : 1);
        }
        int status = 0;
        waitpid(child, &status, 0);
        return status;
    }

    bool Told(const std::string& part) const {
        return !m_told.empty() && m_told.back().find(part) != std::string::npos;
    }

    // Makes a project of so many ducts and gives the text of its file.
    static std::string NewProject(std::int16_t ducts) {
        StartProject();
        DuctCount = ducts;
        FitDucts();
        return ProjectText();
    }

    // All of these give whether the user saw it done.
    bool Save(std::int16_t ducts = 2) {
        NewProject(ducts);
        m_told.clear();
        SaveProject(windows);
        return Told("Plenair Project Saved");
    }

    bool Load(std::int16_t ducts = 2) {
        StartProject();
        m_told.clear();
        LoadProject(windows);
        EXPECT_GE(DuctCount, 0);
        return DuctCount == ducts;
    }

    bool Record() {
        LogRows.resize(1);
        LogCount = 1;
        m_told.clear();
        RecordLog(m_lite);
        EXPECT_EQ(LogCount == 0, Told("Plenair Minor Calculation Log Saved."));
        return LogCount == 0;
    }

    LiteArrays m_lite;
    std::string m_chosen = File("plant.gsp"); // in the file dialog
    std::vector<std::string> m_told;
};

// Something that reads or writes one file of the folder.
struct Operation {
    std::string Name;
    std::string File;
    std::optional<std::string> Older; // what the file holds before, if it is there
    bool IsTold;                      // of a failure
    std::function<bool()> Run;        // whether the user sees it done
    // Whether the file may hold this afterwards, neither as it was nor as it is to be.
    std::function<bool(const std::string& content)> MayHold = [](const std::string&) { return false; };
};

// Each operation with each of its system calls going wrong in each way.
class FaultsTest : public FileWork {
  protected:
    std::vector<Operation> Operations();

    void StartOver(const Operation& operation) {
        RemoveAll();
        if (operation.Older) {
            WriteFile(File(operation.File), *operation.Older);
        }
        SetRegistryFile(operation.File == "registry" ? File("registry")
                                                     : environment.RegistryFolder() + "/r");
        m_told.clear();
    }

    void ExpectWhole(const Operation& operation, bool done) {
        const bool isThere = fs::exists(File(operation.File));
        const std::string content = ReadFile(File(operation.File));
        const bool isOlder =
            isThere == operation.Older.has_value() && content == operation.Older.value_or("");
        EXPECT_TRUE(content == m_newer || operation.MayHold(content) || (isOlder && !done)) << content;
    }

    void TryAgain(const Operation& operation) {
        if (operation.Name == "restoring") {
            StartOver(operation); // what can't be read is gone
        }
        m_told.clear();
        EXPECT_TRUE(operation.Run());
        ExpectWhole(operation, true);
        EXPECT_EQ(Names(), std::set<std::string>{operation.File});
    }

    // Runs it with the fault in that call. Gives whether there was such a call.
    bool Attack(const Operation& operation, int fault, long call) {
        ArmFault(Folder().c_str(), call, fault);
        const bool done = operation.Run();
        const bool isReached = DisarmFault() >= call;
        const std::string struck = StruckCall();
        m_calls += struck + ", ";
        const bool mustPass =
            !isReached || fault == kShortCount || (fault == EINTR && (struck == "read" || struck == "write"));
        const bool mustFail = !mustPass && (struck == "write" || struck == "fsync" || struck == "rename");
        EXPECT_TRUE(done ? !mustFail : !mustPass) << struck;
        EXPECT_TRUE(done || m_told.empty() != operation.IsTold);
        ExpectWhole(operation, done);
        for (const std::string& name : Names()) {
            EXPECT_EQ(name, operation.File) << "left over";
        }
        return isReached;
    }

    bool Kill(const Operation& operation, int fault, long call) {
        const int status = InChild([&] {
            ArmFault(Folder().c_str(), call, fault);
            operation.Run();
            if (fault == kPowerCut) {
                LoseWhatIsNotOnTheDisk();
            }
            return true;
        });
        ExpectWhole(operation, !WIFSIGNALED(status));
        return WIFSIGNALED(status);
    }

    std::string m_newer; // what the operation under attack leaves when all goes well
    std::string m_calls; // of the operation, over and over
};

std::vector<Operation> FaultsTest::Operations() {
    const std::string older = NewProject(1);
    const std::string settings = "\"/home\"\r\n0\r\n1\r\n5\r\n500\r\n25\r\n20\r\n0\r\n0\r\n";
    const auto store = [](const char* name) {
        RegCreateKey(HKEY_CURRENT_USER, "Key");
        RegWriteValue(HKEY_CURRENT_USER, "Key", name, "data", REG_SZ);
        return RegReadValue(HKEY_CURRENT_USER, "Key", name) == RegistryValue("data");
    };
    const auto start = [this] {
        LoadSettings();
        return m_told.empty() || Told("Saved as User.cfg.");
    };
    const auto report = [this] {
        NewProject(2);
        ProjectName = "plant.gsp";
        EnterFolder(Folder());
        m_told.clear();
        WriteSolutionReport();
        EXPECT_TRUE(m_told.empty() || Told(File("plant.Gus") + ": "));
        return m_told.empty();
    };
    const auto options = [this] {
        Settings.ConfigFile = "User.cfg";
        try {
            SaveSettings();
        } catch (const FileFailure& failure) {
            EXPECT_TRUE(std::string(failure.what()).starts_with(File("User.cfg") + ": "));
            m_told.emplace_back(failure.what());
        }
        return m_told.empty();
    };
#ifdef PLENAIR_WINDOWS
    static int s_arguments = 0;
    static const QGuiApplication s_application(s_arguments, nullptr);
    const auto print = [this] {
        try {
            PrintToFile(File("plant.pdf"));
            const auto paper = MakeDesktopPrinter();
            paper->Box({0, 0}, {1000, 1000}, 0);
            paper->EndDoc();
            return true;
        } catch (const PrinterFailure&) {
            return false;
        }
    };
#endif
    const auto keep = [] {
        NewProject(2);
        StartHistory();
        return KeepAtOnce();
    };
    const auto restore = [this] {
        LeaveKept();
        StartProject();
        OfferRecovery(windows);
        m_told.emplace_back(); // it isn't told where the file can't be opened
        return DuctCount == 1;
    };
    SetRegistryFile(File("registry"));
    store("first");
    const std::string registry = ReadFile(File("registry"));
    SetStateFolder(Folder());
    NewProject(1);
    StartHistory();
    StartKeeping();
    EXPECT_TRUE(KeepAtOnce());
    const std::string kept = *Names().begin(); // a name of digits
    const std::string recovery = ReadFile(File(kept));
    return {
        {"save", "plant.gsp", older, false, [this] { return Save(); }},
        {"first save", "plant.gsp", std::nullopt, false, [this] { return Save(); }},
        {"load", "plant.gsp", older, false, [this] { return Load(1); }},
        {"report", "plant.Gus", older, true, report},
        // Written in place: what was written before a failure stays.
        {"log", "plant.gsp", "older log", false, [this] { return Record(); },
         [this](const std::string& content) { return m_newer.starts_with(content); }},
        {"options", "User.cfg", settings, true, options},
        {"first start", "User.cfg", std::nullopt, true, start},
        // A file that can't be read is answered like one that is missing.
        {"start", "User.cfg", settings, true, [=, this] { return start() && m_told.empty(); },
         [](const std::string& content) { return content.starts_with("\"" + ProgramFolder()); }},
        {"recovery", kept, recovery, false, keep},
        {"restoring", kept, recovery, true, restore,
         [](const std::string& content) { return content.empty(); }},
#ifdef PLENAIR_WINDOWS
        {"PDF", "plant.pdf", "older document", false, print, // it tells its time, so that no two are the same
         [](const std::string& content) {
             return content.starts_with("%PDF") && content.ends_with("%%EOF\n");
         }},
#endif
        // It is whole with its first value alone, or with both.
        {"registry", "registry", registry, false, [=] { return store("second"); }},
    };
}

TEST_F(FaultsTest, AnyCallMayFail) {
    for (const Operation& operation : Operations()) {
        StartOver(operation);
        EXPECT_TRUE(operation.Run()) << operation.Name;
        m_newer = ReadFile(File(operation.File));
        for (const int fault : {ENOSPC, EIO, EACCES, EINTR, int{kShortCount}, int{kKilled}, int{kPowerCut}}) {
            bool isReached = true;
            for (long call = 1; isReached && !HasFailure(); ++call) {
                SCOPED_TRACE(operation.Name + ", fault " + std::to_string(fault) + " in call " +
                             std::to_string(call));
                StartOver(operation);
                isReached = fault == kKilled || fault == kPowerCut ? Kill(operation, fault, call)
                                                                   : Attack(operation, fault, call);
                TryAgain(operation);
            }
        }
        // A new name is brought to the disk too.
        const std::size_t renamed = m_calls.rfind("rename, ");
        EXPECT_EQ(renamed == m_calls.npos, m_calls.find("fsync of a folder", renamed) == m_calls.npos);
        m_calls.clear();
    }
    LeaveKept();
    SetStateFolder("");
}

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
