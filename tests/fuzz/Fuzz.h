#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include <sys/mman.h>
#include <unistd.h>

// What the fuzzers share; each is one file that defines Run. The program's names are at home in them.
namespace plenair {}
using namespace plenair;

// Tries one input. What must hold is said by REQUIRE, which ends the fuzzer with the input as its finding.
void Run(std::string_view input);

#define REQUIRE(holds)                                                                                       \
    if (!(holds)) {                                                                                          \
        std::fprintf(stderr, "%s:%d: doesn't hold: %s\n", __FILE__, __LINE__, #holds);                       \
        std::abort();                                                                                        \
    }

// Takes a number below `bound` off the front; 0 where nothing is left.
inline std::size_t Choose(std::string_view& input, std::size_t bound) {
    const std::size_t choice = input.empty() ? 0 : static_cast<unsigned char>(input.front()) % bound;
    input.remove_prefix(input.empty() ? 0 : 1);
    return choice;
}

// A file in memory that holds `content`, the same one for each call, and its path.
inline std::string FileOf(std::string_view content) {
    static const int s_file = memfd_create("fuzz", MFD_CLOEXEC);
    REQUIRE(ftruncate(s_file, 0) == 0);
    REQUIRE(pwrite(s_file, content.data(), content.size(), 0) == static_cast<ssize_t>(content.size()));
    return "/proc/self/fd/" + std::to_string(s_file);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Run({reinterpret_cast<const char*>(data), size});
    return 0;
}
