#include "faults/Faults.h"

#include "core/SettingsFile.h"
#include "core/modRegistry.h"
#include "faults/FileWork.h"
#include "platform/files/FileFailure.h"
#include "platform/files/Folders.h"
#include "platform/files/ProgramFolder.h"
#include "project/ProjectKeeper.h"
#include "project/model/History.h"

#include <cerrno>

#include <sys/wait.h>
#include <unistd.h>

namespace plenair {
namespace {

enum class Failure { IsTold, IsSilent };

// Something that reads or writes one file of the folder.
struct Operation {
    std::string Name;
    std::string File;
    std::optional<std::string> Older; // what the file holds before, if it is there
    Failure OfIt;
    std::function<bool()> Run; // whether the user sees it done
    // Whether the file may hold this afterwards, neither as it was nor as it is to be.
    std::function<bool(const std::string& content)> MayHold = [](const std::string&) { return false; };
};

// Each operation with each of its system calls going wrong in each way.
class FaultsTest : public FileWork {
  protected:
    void StartOver(const Operation& operation);
    void ExpectWhole(const Operation& operation, bool done);
    void ExpectNothingLeftOver(const Operation& operation);
    void TryAgain(const Operation& operation);
    void Attack(const Operation& operation, int fault);
    void Kill(const Operation& operation, int fault);
    std::vector<Operation> Operations();

    std::string m_newer; // what the operation under attack leaves when all goes well
};

std::vector<Operation> FaultsTest::Operations() {
    const std::string older = NewProject(1);
    const std::string settings = "\"/home\"\r\n0\r\n1\r\n5\r\n500\r\n25\r\n20\r\n0\r\n0\r\n";
    const auto store = [](const char* name) {
        RegCreateKey(HKEY_CURRENT_USER, "Key");
        RegWriteValue(HKEY_CURRENT_USER, "Key", name, "data", REG_SZ);
        return RegReadValue(HKEY_CURRENT_USER, "Key", name) == RegistryValue("data");
    };
    SetRegistryFile(Path("registry"));
    store("first");
    const std::string registry = ReadFile(Path("registry"));
    SetStateFolder(Folder());
    NewProject(1);
    StartHistory();
    StartKeeping();
    EXPECT_TRUE(KeepAtOnce());
    const std::string kept = *Names().begin(); // a name of digits
    const std::string recovery = ReadFile(Path(kept));
    return {
        {"save", "plant.gsp", older, Failure::IsSilent, [this] { return Save(); }},
        {"first save", "plant.gsp", std::nullopt, Failure::IsSilent, [this] { return Save(); }},
        {"load", "plant.gsp", older, Failure::IsSilent, [this] { return Load(1); }},
        {"report", "plant.Gus", older, Failure::IsTold,
         [this] {
             NewProject(2);
             ProjectName = "plant.gsp";
             EnterFolder(Folder());
             m_told.clear();
             WriteSolutionReport();
             EXPECT_TRUE(m_told.empty() || Told(Path("plant.Gus") + ": "));
             return m_told.empty();
         }},
        // Written in place: what was written before a failure stays.
        {"log", "plant.gsp", "older log", Failure::IsSilent, [this] { return Record(); },
         [this](const std::string& content) { return m_newer.starts_with(content); }},
        {"options", "User.cfg", settings, Failure::IsTold,
         [this] {
             Settings.ConfigFile = "User.cfg";
             try {
                 SaveSettings();
             } catch (const FileFailure& failure) {
                 EXPECT_TRUE(std::string(failure.what()).starts_with(Path("User.cfg") + ": "));
                 m_told.emplace_back(failure.what());
                 return false;
             }
             return true;
         }},
        {"first start", "User.cfg", std::nullopt, Failure::IsTold,
         [this] {
             LoadSettings();
             return m_told.empty() || Told("Saved as User.cfg.");
         }},
        // A file that can't be read is answered like one that is missing.
        {"start", "User.cfg", settings, Failure::IsTold,
         [this] {
             LoadSettings();
             return m_told.empty();
         },
         [](const std::string& content) { return content.starts_with("\"" + ProgramFolder()); }},
        {"recovery", kept, recovery, Failure::IsSilent,
         [] {
             NewProject(2);
             StartHistory();
             return KeepAtOnce();
         }},
        // It is whole with its first value alone, or with both.
        {"registry", "registry", registry, Failure::IsSilent, [=] { return store("second"); }},
    };
}

void FaultsTest::StartOver(const Operation& operation) {
    for (const std::string& name : Names()) {
        std::filesystem::remove(Path(name));
    }
    if (operation.Older) {
        WriteFile(Path(operation.File), *operation.Older);
    }
    SetRegistryFile(operation.File == "registry" ? Path("registry") : m_environment.RegistryFolder() + "/r");
    m_told.clear();
}

void FaultsTest::ExpectWhole(const Operation& operation, bool done) {
    const bool isThere = std::filesystem::exists(Path(operation.File));
    const std::string content = ReadFile(Path(operation.File));
    const bool isOlder = isThere == operation.Older.has_value() && content == operation.Older.value_or("");
    EXPECT_TRUE(content == m_newer || operation.MayHold(content) || (isOlder && !done)) << content;
}

void FaultsTest::ExpectNothingLeftOver(const Operation& operation) {
    for (const std::string& name : Names()) {
        EXPECT_EQ(name, operation.File);
    }
}

void FaultsTest::TryAgain(const Operation& operation) {
    m_told.clear();
    EXPECT_TRUE(operation.Run());
    ExpectWhole(operation, true);
    ExpectNothingLeftOver(operation);
}

void FaultsTest::Attack(const Operation& operation, int fault) {
    bool isReached = true;
    for (long call = 1; isReached && !HasFailure(); ++call) {
        SCOPED_TRACE(operation.Name + ", fault " + std::to_string(fault) + " in call " +
                     std::to_string(call));
        StartOver(operation);
        ArmFault(Folder().c_str(), call, fault);
        const bool done = operation.Run();
        isReached = DisarmFault() >= call;
        const std::string struck = StruckCall();
        const bool mustPass =
            !isReached || fault == kShortCount || (fault == EINTR && (struck == "read" || struck == "write"));
        const bool mustFail = !mustPass && (struck == "write" || struck == "fsync" || struck == "rename");
        EXPECT_TRUE(done ? !mustFail : !mustPass) << struck;
        EXPECT_TRUE(done || m_told.empty() == (operation.OfIt == Failure::IsSilent));
        ExpectWhole(operation, done);
        ExpectNothingLeftOver(operation);
        TryAgain(operation);
    }
}

void FaultsTest::Kill(const Operation& operation, int fault) {
    bool isKilled = true;
    for (long call = 1; isKilled && !HasFailure(); ++call) {
        SCOPED_TRACE(operation.Name + ", fault " + std::to_string(fault) + " in call " +
                     std::to_string(call));
        StartOver(operation);
        const pid_t child = fork();
        if (child == 0) {
            ArmFault(Folder().c_str(), call, fault);
            operation.Run();
            if (fault == kPowerCut) {
                LoseWhatIsNotOnTheDisk();
            }
            _exit(0);
        }
        int status = 0;
        waitpid(child, &status, 0);
        isKilled = WIFSIGNALED(status);
        ExpectWhole(operation, !isKilled);
        TryAgain(operation);
    }
}

TEST_F(FaultsTest, AnyCallMayFail) {
    for (const Operation& operation : Operations()) {
        StartOver(operation);
        EXPECT_TRUE(operation.Run()) << operation.Name;
        m_newer = ReadFile(Path(operation.File));
        for (const int fault : {ENOSPC, EIO, EACCES, EINTR, int{kShortCount}}) {
            Attack(operation, fault);
        }
        for (const int fault : {kKilled, kPowerCut}) {
            Kill(operation, fault);
        }
    }
    LeaveKept();
    SetStateFolder("");
}

} // namespace
} // namespace plenair
