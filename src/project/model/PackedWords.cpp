#include "project/model/PackedWords.h"

#include <bit>
#include <unordered_map>

namespace plenair {

namespace {

constexpr std::size_t kWordBits = 64;

} // namespace

PackedWords::PackedWords(const std::vector<std::uint64_t>& words) : m_size(words.size()) {
    std::unordered_map<std::uint64_t, std::size_t> known;
    std::vector<std::size_t> numbers;
    numbers.reserve(words.size());
    for (const std::uint64_t word : words) {
        const auto [place, isNew] = known.try_emplace(word, m_different.size());
        if (isNew) {
            m_different.push_back(word);
        }
        numbers.push_back(place->second);
    }
    m_different.shrink_to_fit();
    m_bits = m_different.empty() ? 0 : static_cast<unsigned>(std::bit_width(m_different.size() - 1));
    m_numbers.resize((m_size * m_bits + kWordBits - 1) / kWordBits);
    for (std::size_t place = 0; m_bits > 0 && place < m_size; ++place) {
        const std::size_t at = place * m_bits;
        const std::size_t shift = at % kWordBits;
        m_numbers[at / kWordBits] |= numbers[place] << shift;
        if (shift + m_bits > kWordBits) {
            m_numbers[at / kWordBits + 1] |= numbers[place] >> (kWordBits - shift);
        }
    }
}

std::uint64_t PackedWords::operator[](std::size_t place) const {
    if (m_bits == 0) {
        return m_different[0];
    }
    const std::size_t at = place * m_bits;
    const std::size_t shift = at % kWordBits;
    std::uint64_t number = m_numbers[at / kWordBits] >> shift;
    if (shift + m_bits > kWordBits) {
        number |= m_numbers[at / kWordBits + 1] << (kWordBits - shift);
    }
    return m_different[number & ((std::uint64_t{1} << m_bits) - 1)];
}

std::size_t PackedWords::Bytes() const {
    return sizeof *this + (m_different.capacity() + m_numbers.capacity()) * sizeof(std::uint64_t);
}

} // namespace plenair
