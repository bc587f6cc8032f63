#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

#ifndef PLENAIR_FUZZER
#include <gtest/gtest.h>
#endif

// What the fuzzers share. Each is one file with FUZZER(name) { ... }, which tries one `input`. What must hold
// is said by REQUIRE, which ends the fuzzer with the input as its finding. libFuzzer drives them; where it is
// not built, plenair_tests has them try their corpus and what little changes make of it.
namespace plenair {}
using namespace plenair;

#define REQUIRE(holds)                                                                                       \
    if (!(holds)) {                                                                                          \
        throw std::logic_error(__FILE__ ":" + std::to_string(__LINE__) + ": doesn't hold: " #holds);         \
    }

#ifndef PLENAIR_FUZZER
void TryCorpus(const std::string& name, void (*run)(std::string_view input));
#define DRIVE(name)                                                                                          \
    TEST(Fuzz, name) {                                                                                       \
        TryCorpus(#name, TryInput);                                                                          \
    }
#else
#define DRIVE(name)                                                                                          \
    extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {                      \
        TryInput({reinterpret_cast<const char*>(data), size});                                               \
        return 0;                                                                                            \
    }
#endif

#define FUZZER(name)                                                                                         \
    static void TryInput(std::string_view input);                                                            \
    DRIVE(name)                                                                                              \
    static void TryInput(std::string_view input)

// Takes a number below `bound` off the front; 0 where nothing is left.
inline std::size_t Choose(std::string_view& input, std::size_t bound) {
    const std::size_t choice = input.empty() ? 0 : static_cast<unsigned char>(input.front()) % bound;
    input.remove_prefix(input.empty() ? 0 : 1);
    return choice;
}
