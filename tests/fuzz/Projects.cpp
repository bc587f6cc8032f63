#include "fuzz/Fuzz.h"
#include "platform/files/FileFailure.h"
#include "project/model/ProjectBlocks.h"
#include "project/model/ProjectModel.h"

#include <array>
#include <cmath>
#include <vector>

#include <sys/mman.h>
#include <unistd.h>

// Project files: a plain reader of the format agrees on what each holds, and what was read and is written can
// be read again to the same.
namespace {

constexpr std::size_t kNumbers = 14; // of a block
using Block = std::array<double, kNumbers>;

// The elements of a file, item by item.
class PlainReader {
  public:
    explicit PlainReader(std::string_view text) : m_rest(text) {}

    std::vector<Block> Read() {
        std::vector<Block> blocks;
        for (std::string_view item = Text(); !m_rest.empty(); item = m_rest.empty() ? item : Text()) {
            if (item.starts_with('\xA4')) {
                blocks.emplace_back();
                for (std::size_t i = 0; i < kNumbers; ++i) {
                    if (m_rest.empty() || !Number(i == 0 || i == 1 || i == 9, blocks.back()[i])) {
                        return blocks;
                    }
                }
            }
        }
        return blocks;
    }

  private:
    std::string_view Take(std::size_t count) {
        const std::string_view taken = m_rest.substr(0, count);
        m_rest.remove_prefix(taken.size());
        return taken;
    }

    void SkipBlanks() { Take(std::min(m_rest.find_first_not_of(" \t"), m_rest.size())); }

    void SkipSeparator() {
        SkipBlanks();
        Take(m_rest.starts_with("\r\n") ? 2 : m_rest.find_first_of(",\r\n") == 0 ? 1 : 0);
    }

    std::string_view Text() {
        SkipBlanks();
        std::string_view item;
        if (m_rest.starts_with('"')) {
            Take(1);
            item = Take(m_rest.find('"'));
            Take(1);
        } else {
            item = Take(m_rest.find_first_of(",\r\n"));
            item = item.substr(0, item.find_last_not_of(" \t") + 1);
        }
        SkipSeparator();
        return item;
    }

    // False where the number is too large for its field.
    bool Number(bool isSingle, double& value) {
        SkipBlanks();
        const std::string item(Take(m_rest.find_first_of(", \t\r\n")));
        SkipSeparator();
        char* end = nullptr;
        const double read =
            isSingle ? static_cast<double>(std::strtof(item.c_str(), &end)) : std::strtod(item.c_str(), &end);
        if (!item.empty() && item.find_first_not_of("0123456789.eE+-") == item.npos && *end == '\0') {
            value = std::isfinite(read) ? read : 0;
            return std::isfinite(read);
        }
        return true;
    }

    std::string_view m_rest;
};

Block NumbersOf(const DuctRecord& duct) {
    return {duct.Colour, duct.Spare,  duct.EndX,     duct.EndY,         duct.EquivRound,
            duct.Flow,   duct.Height, duct.Length,   duct.LossPerMetre, duct.ConnCoefficient,
            duct.StartX, duct.StartY, duct.Velocity, duct.Width};
}

void Read(std::string_view text) {
    static const int s_file = memfd_create("fuzz", MFD_CLOEXEC);
    REQUIRE(ftruncate(s_file, 0) == 0 && pwrite(s_file, text.data(), text.size(), 0) >= 0);
    StartReading();
    try {
        ReadProjectText("/proc/self/fd/" + std::to_string(s_file));
    } catch (const FileFailure&) {
        // What was read up to there stays.
    }
}

} // namespace

FUZZER(projects) {
    Read(input);
    const std::vector<Block> blocks = PlainReader(input).Read();
    REQUIRE(blocks.size() == static_cast<std::size_t>(DuctCount + 1));
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        REQUIRE(NumbersOf(Ducts[i]) == blocks[i]);
    }
    if (DuctCount >= 0) {
        const std::string written = ProjectText();
        const std::int16_t count = DuctCount;
        Read(written);
        REQUIRE(DuctCount == count && ProjectText() == written);
    }
}
