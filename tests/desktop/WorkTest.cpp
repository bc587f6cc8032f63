#include "desktop/DesktopTest.h"

#include <filesystem>

#include <sys/resource.h>

namespace plenair {
namespace {

// A user's work in the solver, lost and found.
class Work : public DesktopTest {
  protected:
    // The program with the solver open on two rigid ducts, and the sheet on the first of them.
    void DrawTwo() {
        Start();
        Play(R"(mnuFile>mnuFileMajor | active: frmMajorCalc
            @picGrid:100,100 @picGrid:200,100 @picGrid:300,100
            @chkParam | active: frmMajorParam)");
    }

    // Whether the recovery file holds that number. One in the making, which has another name, doesn't count:
    // a crash would still find the file before it.
    bool IsKept(double number) const {
        std::error_code none;
        const std::string bits(reinterpret_cast<const char*>(&number), sizeof number);
        for (const auto& entry : std::filesystem::directory_iterator(File("state/plenair"), none)) {
            if (entry.path().extension() == ".recovery" &&
                ReadFile(entry.path()).find(bits) != std::string::npos) {
                return true;
            }
        }
        return false;
    }
};

TEST_F(Work, AfterACrashTheProjectIsBack) {
    const auto restore = [this] {
        Start();
        Play(
            R"(mnuFile>mnuFileMajor | text QMessageBox: Plenair was not closed properly. Restore the project it held?
            @Yes | active: frmMajorCalc
            @chkParam | active: frmMajorParam; text lblDuctNo: R1; text txtParam(1): 123)");
    };
    DrawTwo();
    Play("@txtParam(1) | focus: txtParam(1)\n123 Return");
    AwaitThat("it is kept", [this] { return IsKept(123); });
    Kill();
    restore();
    EXPECT_EQ(Disconnect(), QProcess::NormalExit) << "crashes where the X server goes";
    rlimit before = {};
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit nothing = {0, before.rlim_max}; // a file beyond the user's limit is one that can't be saved
    setrlimit(RLIMIT_FSIZE, &nothing);
    restore();
    setrlimit(RLIMIT_FSIZE, &before);
    Play("@cmdSaveGsp | active: QFileDialog\nq.gsp Return | active: frmMajorCalc");
    Kill();
    restore();
    Play("@cmdClose @No | active: frmMinorCalc");
    EXPECT_TRUE(std::filesystem::is_empty(File("state/plenair")));
}

TEST_F(Work, AScreenReaderFindsEverything) {
    Start({TheScreen().Bus(), "QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1"});
    Child reader;
    reader.setEnvironment(TheScreen().Environment() << TheScreen().Bus());
    reader.setProcessChannelMode(QProcess::MergedChannels);
    reader.start("/usr/bin/python3", {PLENAIR_SPEECH});
    reader.waitForFinished(4 * kPatience);
    if (reader.exitCode() == 77) {
        GTEST_SKIP() << "python3-pyatspi is not installed";
    }
    EXPECT_EQ(reader.exitCode(), 0) << reader.readAll().toStdString();
}

TEST_F(Work, TablesPastedAndTheManualOpened) {
    WriteFile(File("x-www-browser"), "#!/bin/sh\necho \"$1\" >\"$HOME/opened\"\n");
    std::filesystem::permissions(File("x-www-browser"), std::filesystem::perms::owner_all);
    std::filesystem::create_directory(File("manual"));
    WriteFile(File("manual/manual.html"), "");
    const auto awaitPasted = [this](const std::string& form, const std::string& part) {
        AwaitThat(part + " in " + form,
                  [&] { return TheScreen().Pasted(form).find(part) != std::string::npos; });
    };
    DrawTwo();
    Play("@txtParam(1) | focus: txtParam(1)\n100.5 Return F1");
    AwaitThat("the browser is started",
              [this] { return ReadFile(File("opened")) == "file://" + File("manual/manual.html#sheet\n"); });
    Play("@optDuct(0) | active: frmMajorCalc\nControl+c");
    awaitPasted("UTF8_STRING", "\nR2\tRigid\t100.5\t0\t0\t0\t0\t0\t0\t0\n");
    awaitPasted("text/html", "<td align=\"right\">100.5</td>");
    awaitPasted("image/svg+xml", ">R2</text>");
    awaitPasted("image/png", "PNG");
    Play("@txtParam(1) | active: frmMajorParam; selected: txtParam(1) 100.5\nControl+c"); // the box's own
    AwaitThat("the text is there", [] { return TheScreen().Pasted("UTF8_STRING") == "100.5"; });
    Play("@cmdClose @No | active: frmMinorCalc\nAlt+h 300 Tab 500 Return Control+Shift+c");
    awaitPasted("UTF8_STRING", "\nRound\t\t\t375\t4.53\t0.69\n");
}

} // namespace
} // namespace plenair
