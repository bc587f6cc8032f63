#pragma once

// What the tests share. The program's names are at home in them.
// IWYU pragma: begin_exports
#include "core/Settings.h"
#include "platform/desktop/Desktop.h"
#include "platform/files/ProgramFolder.h"
#include "platform/text/NumberText.h"
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
}
using namespace plenair;
