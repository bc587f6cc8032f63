#include "platform/desktop/DesktopEntry.h"

#include <gtest/gtest.h>

namespace plenair {
namespace {

TEST(DesktopEntry, PathIsOneArgument) {
    const std::string path = "/logs/my $log; \"1\".pnl";
    const std::pair<std::string, std::vector<std::string>> rows[] = {
        {"notes", {"notes", path}},
        {"notes  --new %U --wait", {"notes", "--new", path, "--wait"}},
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
}

TEST(DesktopEntry, ApplicationsComeInTheOrderOfTheirWorth) {
    const std::vector<std::string> lists = {
        "[Added Associations]\ntext/plain=c;\n[Default Applications]\ntext/html=x\ntext/plain = a ; b;;\r\n",
        "[MIME Cache]\ntext/plain=d;a\n[Default Applications]\n#text/plain=x\ntext/plain=b\n", "no list"};
    EXPECT_EQ(ApplicationsFor("text/plain", lists), (std::vector<std::string>{"a", "b", "c", "d"}));
    EXPECT_FALSE(CommandOn("Exec=notes\n[Other]\nExec=notes\n[Desktop Entry]\n", "/log")) << "of no group";
    EXPECT_FALSE(CommandOn("[Desktop Entry]\nExec=%f notes\n", "/log"));
    EXPECT_FALSE(CommandOn("[Desktop Entry]\nExec=notes\nHidden=true\n", "/log")) << "removed";
}

} // namespace
} // namespace plenair
