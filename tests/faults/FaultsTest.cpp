#include "faults/Faults.h"
#include "core/SettingsFile.h"
#include "core/modRegistry.h"
#include "faults/FileWork.h"
#include "platform/files/Folders.h"
#include "project/ProjectKeeper.h"
#include "project/Recovery.h"
#include "project/model/History.h"

#include <cerrno>

#ifdef PLENAIR_WINDOWS
#include "platform/qt/DesktopPrinter.h"

#include <QGuiApplication>
#endif

namespace {

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

} // namespace
