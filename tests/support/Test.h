#pragma once

// What the tests share. The program's names are at home in them.
// IWYU pragma: begin_exports
#include "core/Settings.h"
#include "platform/desktop/Desktop.h"
#include "platform/files/ProgramFolder.h"
#include "platform/text/NumberText.h"
#include "support/Script.h"
#include "support/ScriptedDesktop.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <deque>
#include <filesystem>
#include <functional>
#include <limits>
#include <map>
#include <optional>
#include <random>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <tuple>
#include <utility>
#include <variant>
#include <vector>
// IWYU pragma: end_exports

namespace plenair {

namespace fs = std::filesystem;

// A test with a program's folder of its own and a scripted desktop, which plays scripts (support/Script.h).
class ProgramTest : public testing::Test {
  protected:
    void Play(const std::string& script) {
        const testing::ScopedTrace trace(__FILE__, __LINE__, script);
        PlayScript(
            script, [this](const std::string& step) { Do(step); },
            [this](const std::string& question, const std::string& answer) {
                EXPECT_EQ(Ask(question), answer) << question;
            });
    }
    virtual void Do(const std::string& step) {
        EXPECT_TRUE(desktop.Expect(step, environment.Folder().Path())) << "unknown step: " << step;
    }
    virtual std::string Ask(const std::string& question) {
        return question == "log" ? desktop.LogInOneLine() : "unknown question";
    }

    std::string File(const std::string& name) const { return environment.Folder().File(name); }

    ProgramEnvironment environment;
    ScriptedDesktop desktop;
};

} // namespace plenair

using namespace plenair;
