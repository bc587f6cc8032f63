#include "project/model/PackedWords.h"

#include <bit>
#include <unordered_map>

namespace plenair {

namespace {

constexpr std::size_t kWordBits = 64;

} // namespace

PackedWords Pack(const std::vector<std::uint64_t>& words) {
    PackedWords packed;
    packed.Size = words.size();
    std::unordered_map<std::uint64_t, std::size_t> known;
    std::vector<std::size_t> numbers;
    numbers.reserve(words.size());
    for (const std::uint64_t word : words) {
        const auto [place, isNew] = known.try_emplace(word, packed.Different.size());
        if (isNew) {
            packed.Different.push_back(word);
        }
        numbers.push_back(place->second);
    }
    packed.Different.shrink_to_fit();
    const std::size_t bits = packed.Different.empty() ? 0 : std::bit_width(packed.Different.size() - 1);
    packed.Bits = static_cast<unsigned>(bits);
    packed.Numbers.resize((packed.Size * bits + kWordBits - 1) / kWordBits);
    for (std::size_t place = 0; bits > 0 && place < packed.Size; ++place) {
        const std::size_t at = place * bits;
        const std::size_t shift = at % kWordBits;
        packed.Numbers[at / kWordBits] |= numbers[place] << shift;
        if (shift + bits > kWordBits) {
            packed.Numbers[at / kWordBits + 1] |= numbers[place] >> (kWordBits - shift);
        }
    }
    return packed;
}

std::uint64_t WordAt(const PackedWords& packed, std::size_t place) {
    if (packed.Bits == 0) {
        return packed.Different[0];
    }
    const std::size_t at = place * packed.Bits;
    const std::size_t shift = at % kWordBits;
    std::uint64_t number = packed.Numbers[at / kWordBits] >> shift;
    if (shift + packed.Bits > kWordBits) {
        number |= packed.Numbers[at / kWordBits + 1] << (kWordBits - shift);
    }
    return packed.Different[number & ((std::uint64_t{1} << packed.Bits) - 1)];
}

std::size_t BytesOf(const PackedWords& packed) {
    return sizeof packed + (packed.Different.capacity() + packed.Numbers.capacity()) * sizeof(std::uint64_t);
}

} // namespace plenair
