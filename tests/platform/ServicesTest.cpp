#include "platform/desktop/Clock.h"
#include "platform/desktop/CommonDialog.h"
#include "platform/desktop/DesktopEntry.h"
#include "platform/files/Folders.h"
#include "support/Test.h"

#include <ctime>

namespace {

TEST(CommonDialogTest, AcceptedFile) {
    const TemporaryFolder folder;
    ScriptedDesktop desktop;
    CommonDialog dialog;
    dialog.DefaultExt = "gsp";
    const std::string bare = folder.File("Lüftung");
    desktop.Expect("?=" + bare);
    dialog.ShowSave();
    EXPECT_EQ(dialog.FileName + " " + dialog.FileTitle, bare + ".gsp Lüftung.gsp");
    EXPECT_EQ(InCurrentFolder("x.Gus"), folder.File("x.Gus"));
    const std::pair<const char*, const char*> names[] = {
        {"Level 1.5", "Level 1.5.gsp"}, {"plant.d", "plant.d"},
        {"plant.7z", "plant.7z.gsp"},   {"plant.über", "plant.über"},
        {"plant.Z", "plant.Z"},         {"plant.A", "plant.A"},
        {"plant.z", "plant.z"},         {"plant.a", "plant.a"},
        {"plant.", "plant.gsp"},        {".gsp", ".gsp.gsp"}};
    for (const auto& [typed, saved] : names) {
        dialog.FileName = typed;
        EXPECT_EQ(WithDefaultExt(dialog), saved);
    }
    WriteFile(bare, ""); // then it is meant
    for (const std::string& path : {bare, folder.File("missing/plant.d")}) {
        desktop.Expect("?=" + path);
        dialog.ShowOpen();
        EXPECT_EQ(dialog.FileName, path);
    }
    EXPECT_EQ(CurrentFolder(), folder.Path());
    EnterFolder(TemporaryFolder().Path()); // which is gone
    EXPECT_EQ(CurrentFolder() + InCurrentFolder("plant.Gus"), "plant.Gus");
}

TEST(DesktopEntry, PathIsOneArgumentOfTheApplicationThatComesFirst) {
    const std::string path = "/logs/my $log; \"1\".pnl";
    const std::pair<std::string, std::vector<std::string>> rows[] = {
        {"notes", {"notes", path}},
        {"notes  --new %U --wait", {"notes", "--new", path, "--wait"}},
        {"notes \\", {"notes", "\\", path}},
        {"notes --file=%u", {"notes", "--file=" + path}},
        {"env A=b notes %i %c %F", {"env", "A=b", "notes", path}},
        {"notes 100%% %f", {"notes", "100%", path}},
        {R"("/opt/my notes/run" "" "a \\"b\\"" %f)", {"/opt/my notes/run", "", "a \"b\"", path}},
        {R"("/opt/\\$notes\\\\" %f)", {"/opt/$notes\\", path}}};
    for (const auto& [exec, arguments] : rows) {
        const auto command =
            CommandOn("[Desktop Entry]\nName=Notes\nExec=" + exec + "\r\nType=Application\n", path);
        ASSERT_TRUE(command) << exec;
        EXPECT_EQ(command->Arguments, arguments) << exec;
        EXPECT_FALSE(command->InTerminal);
    }
    EXPECT_TRUE(CommandOn("[Desktop Entry]\nTerminal=true\nExec=vi", path)->InTerminal);
    for (const char* none :
         {"Exec=notes\n[Other]\nExec=notes\n[Desktop Entry]\n",                                // of no group
          "[Desktop Entry]\nExec=%f notes\n", "[Desktop Entry]\nExec=notes\nHidden=true\n"}) { // removed
        EXPECT_FALSE(CommandOn(none, "/log")) << none;
    }
    const std::vector<std::string> lists = {
        "[Added Associations]\ntext/plain=c;\n[Default Applications]\ntext/html=x\ntext/plain = a ; b;;\r\n",
        "[MIME Cache]\ntext/plain=d;a\n[Default Applications]\n#text/plain=x\ntext/plain=b\n", "no list"};
    EXPECT_EQ(ApplicationsFor("text/plain", lists), (std::vector<std::string>{"a", "b", "c", "d"}));
}

TEST(Clock, IsTheMachines) {
    const ScopedDesktop before;
    Desktop().Clock = {};
    const std::time_t earliest = std::time(nullptr);
    const LocalTime now = Now();
    std::tm fields{now.Second, now.Minute, now.Hour, now.Day, now.Month - 1, now.Year - 1900, 0,
                   0,          -1,         0,        ""};
    const std::time_t told = std::mktime(&fields);
    EXPECT_TRUE(earliest <= told && told <= std::time(nullptr)) << told;
    EXPECT_TRUE(now.Millisecond >= 0 && now.Millisecond < 1000);
}

} // namespace
