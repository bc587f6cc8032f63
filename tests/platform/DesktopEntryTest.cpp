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

} // namespace
} // namespace plenair
