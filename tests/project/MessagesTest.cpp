#include "core/SettingsFile.h"
#include "extras/Misc.h"
#include "lite/CalculateMinorStuff.h"
#include "lite/CalculationLog.h"
#include "platform/desktop/Manual.h"
#include "project/CalculateMajorStuff.h"
#include "project/FakeWindows.h"
#include "project/PressureCalcs.h"
#include "project/ProjectFiles.h"
#include "project/ProjectKeeper.h"
#include "project/Recovery.h"
#include "project/model/History.h"
#include "support/LiteArrays.h"

namespace {

// What the program shows below its windows, and what follows from each answer.
class Messages : public ProjectTest {
  protected:
    Messages() {
        Desktop().AskByMessageBox = [this](const MessageRequest& asked) {
            if (InWords(asked) == m_about) {
                ++m_seen;
                if (m_answer == MessageAnswer::Retry) {
                    fs::remove(File("plant.Gus")); // what was in the way
                }
                return m_answer;
            }
            return asked.Title.starts_with("Plenair's")          ? MessageAnswer::No
                   : asked.Buttons < MessageButtons::YesNoCancel ? MessageAnswer::Ok
                                                                 : MessageAnswer::Yes;
        };
        Desktop().ShowDialog = [this](DialogKind kind, CommonDialog& dialog) {
            m_dialog = std::to_string(static_cast<int>(kind)) + " " + dialog.Filter + " " +
                       dialog.DefaultExt + " " + std::to_string(dialog.Flags) + " " + dialog.InitDir + " " +
                       dialog.FileName;
            dialog.FileName = std::exchange(m_file, "");
            return !dialog.FileName.empty();
        };
        Desktop().AskByInputBox = [this](const InputRequest& asked) {
            EXPECT_EQ(asked.Title + asked.Prompt, "Pressure DropPlease list duct path separated by commas.");
            return m_path;
        };
        ShowAboutAfterReminder = [this] { m_events += " about"; };
    }
    ~Messages() override {
        ShowAboutAfterReminder = {};
        LeaveKept();
        SetStateFolder("");
    }

    // One duct that can be solved and nothing else; plant.gsp is what a file dialog is answered with.
    void Prepare() {
        for (const std::string& name : environment.Folder().Names()) {
            fs::remove_all(File(name));
        }
        SetProgramFolder(environment.Folder().Path());
        Settings = SettingsRecord();
        Settings.DefPath = environment.Folder().Path();
        environment.SetToday(2026, 11, 24);
        environment.NoteReminder();
        Play("Start +R:100,0,200,5000,5,0.8 Redraw");
        printer.Log();
        m_file = File("plant.gsp");
        m_seen = 0;
        m_events.clear();
    }

    // What there is, and what has happened.
    std::string Ask(const std::string&) override {
        const bool printed = printer.Log().find("|page") != std::string::npos;
        return std::to_string(DuctCount) + (fs::is_regular_file(File("plant.gsp")) ? " saved" : "") +
               (fs::is_regular_file(File("plant.Gus")) ? " reported" : "") +
               (Solved == kFlagSet ? " solved" : "") + (PlotShowing == kFlagSet ? " plotted" : "") +
               (printed ? " data" : "") + m_events;
    }

    std::string m_about; // the message that is answered with m_answer
    MessageAnswer m_answer = MessageAnswer::Ok;
    int m_seen = 0;
    std::string m_file, m_path, m_dialog, m_events;
    LiteArrays lite;
};

TEST_F(Messages, AndWhatEachAnswerDoes) {
    const auto solve = [&] { SolveProject(windows); };
    const auto ask = [&](const char* path) {
        m_path = path;
        AskForPath(windows);
    };
    const auto recover = [&] {
        SetStateFolder(File("state"));
        StartHistory();
        StartKeeping();
        KeepAtOnce();
        LeaveKept();
        StartProject();
        OfferRecovery(windows);
    };
    const auto keepBelowAFile = [&] { // told of at the first opening alone
        WriteFile(File("file"), "");
        SetStateFolder(File("file/plenair"));
        for (int opening = 0; opening < 2; ++opening) {
            StartHistory();
            StartKeeping();
            KeepAtOnce();
            EndKeeping();
        }
    };
    using enum MessageAnswer;
    const std::string manual = File("manual/manual.html"), report = File("plant.Gus"),
                      settings = File("User.cfg");
    const struct {
        std::string About;
        std::function<void()> Act;
        std::vector<std::pair<MessageAnswer, std::string>> States{{Ok, "1"}};
    } rows[] = {
        // clang-format off
        {"Close Project Solver: Do you wish to save the current project? [YesNoCancel]",
         [&] { m_events = AskBeforeClosing(windows) ? " closes" : ""; },
         {{Yes, "1 saved closes"}, {No, "1 closes"}, {Cancel, "1"}}},
        {"Load Project: Clear Existing Project? [YesNo Question]", [&] { ClearGrid(windows); }, {{Yes, "0"}, {No, "1"}}},
        {"Load Project: Clear Existing Project? [YesNo Question]", [&] { LoadProject(windows); }, {{Yes, "0"}, {No, "1"}}},
        {"Save: Plenair Project Saved [Ok Exclamation]", [&] { SaveProject(windows); }, {{Ok, "1 saved"}}},
        {"Save: The report of the next solution will be named \"plant.Gus\" and replace what is saved as \"plant.Gus\" "
         "now.\n\nSave the project under this name all the same? [YesNo Question]",
         [&] { m_file = report, SaveProject(windows); }, {{Yes, "1 reported"}, {No, "1"}}},
        {"Solve: Gus will begin by saving your project. [OkCancel]", solve,
         {{Ok, "1 saved reported solved"}, {Cancel, "1"}}},
        {"Plenair: Plenair Solution Complete [Ok Exclamation]", solve, {{Ok, "1 saved reported solved"}}},
        {"Error: Unexpected zero value encountered.  Solution incomplete. [Ok Critical]",
         [&] { Duct(1).Flow = 0, solve(); }, {{Ok, "1 saved"}}},
        {"Solve: The solution report can't be written.\n" + report + ": Is a directory [RetryCancel Exclamation]",
         [&] { fs::create_directory(report), solve(); }, {{Cancel, "1 saved solved"}, {Retry, "1 saved reported solved"}}},
        {"Project Solver: Plenair was not closed properly. Restore the project it held? [YesNo Question]",
         [&] { recover(); }, {{Yes, "1"}, {No, "0"}}},
        {"Project Solver: The project can't be kept against a crash or a power cut.\n\n" + File("file/plenair") +
         ": Not a directory\n\nNothing else is affected. [Ok Exclamation]", keepBelowAFile},
        {"Print Project: There is nothing to print, since this project has no ducts. [Ok Exclamation]",
         [&] { ClearProject(), PrintShown(windows, printer); }, {{Ok, "0"}}},
        {"Print Project: Do you wish to include duct data with the printout? [YesNo]",
         [&] { PrintShown(windows, printer); }, {{Yes, "1 data"}, {No, "1"}}},
        {"Total Pressure Drop: Total Pressure is 4 Pa.\n\nProceed with plot? [YesNo]",
         [&] { ask("1"); }, {{Yes, "1 plotted"}, {No, "1"}}},
        {"Total Pressure Drop: \"7\" is no duct.  This project has duct 1 only. [Ok Exclamation]", [&] { ask("7"); }},
        {"Total Pressure Drop: \"7\" is no duct.  This project has no ducts. [Ok Exclamation]",
         [&] { ClearProject(), ask("7"); }, {{Ok, "0"}}},
        {"Total Pressure Drop: There is nothing to plot, since the ducts of this path have no length. [Ok Exclamation]",
         [&] { ask("0"); }},
        {"Total Pressure Drop: There is nothing to plot, since the pressure does not drop along this path. [Ok Exclamation]",
         [&] { Duct(1).LossPerMetre = 0, ask("1"); }},
        {"Plenair: Error in Calculation.  Calculation basis not yet available. [Ok]",
         [&] { CalculateBasis(lite, 500, 300, 1, 5); }},
        {"Record Log: Plenair Minor Calculation Log Saved.\nThe Log has been reset [Ok Exclamation]",
         [&] { RecordLog(lite); }, {{Ok, "1 saved"}}},
        {"Plenair: Liar! [Ok]", [&] { environment.SetToday(2026, 12, 1), MonthlyReminder(); }, {{Ok, "1 about"}}},
        {"Plenair: The manual is in none of the places where it should be:\n\n" + manual + " [Ok Exclamation]",
         [] { ShowManual("sheet"); }},
        {"Plenair: No browser could be started to show the manual:\n\n" + manual + " [Ok Exclamation]",
         [&] { fs::create_directory(File("manual")), WriteFile(manual, ""), ShowManual("sheet"); }},
        {"Defaults Set: Configuration File Missing.  Default Values Set and Saved as User.cfg. [Ok Information]",
         [] { LoadSettings(); }},
        {"Defaults Set: The settings file can't be looked for.\n\n" + settings + ": Not a directory [Ok Exclamation]",
         [&] { WriteFile(settings, ""), ChooseProgramFolder(settings, File("users"), ""), LoadSettings(); }},
        {"Defaults Set: The default settings can't be saved.\n\n" + settings +
         ": Is a directory\n\nThe defaults hold for this run. [Ok Exclamation]",
         [&] { fs::create_directory(settings), LoadSettings(); }},
        {"Options: The settings can't be saved.\n\n" + settings + "/User.cfg: Not a directory\n\n"
         "They hold for this run. [Ok Exclamation]",
         [&] { WriteFile(settings, ""), SetProgramFolder(settings), SaveSettings(); }},
        // clang-format on
    };
    for (const auto& [about, act, states] : rows) {
        for (const auto& [answer, state] : states) {
            Prepare();
            m_about = about;
            m_answer = answer;
            act();
            EXPECT_EQ(m_seen, 1) << about;
            EXPECT_EQ(Ask(""), state) << about;
        }
    }
}

TEST_F(Messages, DialogsAndWhatTheyOffer) {
    const std::string project = " Plenair Projects (*.gsp)|*.gsp|All Files (*.*)|*.* gsp ";
    const std::string log = " Plenair Logs (*.pnl)|*.pnl|All Files (*.*)|*.* pnl ";
    const std::pair<std::function<void()>, std::string> rows[] = {
        {[&] { SaveProject(windows); }, "0" + project + "2 F before.gsp"},
        {[&] { ClearProject(), LoadProject(windows); }, "1" + project + "2048 F "},
        {[&] { PrintShown(windows, printer); }, "2" + project + "12 F "},
        {[&] { OpenLog(lite); }, "1" + log + "0 F "},
        {[&] { lite.dialog.FileName = "older", RecordLog(lite); }, "0" + log + "2 F "}};
    for (const auto& [act, shown] : rows) {
        Prepare();
        ProjectName = "before.gsp";
        Settings.DefPath = "F";
        m_file.clear();
        act();
        EXPECT_EQ(m_dialog, shown);
    }
    EXPECT_TRUE(solver.dialog.PrinterDefault);
}

} // namespace
