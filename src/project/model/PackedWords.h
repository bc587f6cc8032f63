#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace plenair {

// A row of 64-bit words that has few different ones, such as the values of one field over many ducts: each
// different word once, and for every place its number, in as few bits as these numbers need.
class PackedWords {
  public:
    explicit PackedWords(const std::vector<std::uint64_t>& words);

    std::size_t Size() const { return m_size; }
    std::uint64_t operator[](std::size_t place) const;
    bool operator==(const PackedWords&) const = default;

    // In memory, its own included.
    std::size_t Bytes() const;

  private:
    std::size_t m_size;
    unsigned m_bits = 0; // of each number
    std::vector<std::uint64_t> m_different;
    std::vector<std::uint64_t> m_numbers;
};

} // namespace plenair
