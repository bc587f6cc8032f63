#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace plenair {

// A row of 64-bit words that has few different ones, such as the values of one field over many ducts: each
// different word once, and for every place its number, in as few bits as these numbers need.
struct PackedWords {
    std::size_t Size = 0;
    unsigned Bits = 0; // of each number
    std::vector<std::uint64_t> Different;
    std::vector<std::uint64_t> Numbers;

    bool operator==(const PackedWords&) const = default;
};

PackedWords Pack(const std::vector<std::uint64_t>& words);

// The word at a place, which must be below Size.
std::uint64_t WordAt(const PackedWords& packed, std::size_t place);

// In memory, its own included.
std::size_t BytesOf(const PackedWords& packed);

} // namespace plenair
