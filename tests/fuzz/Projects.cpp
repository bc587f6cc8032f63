#include "fuzz/Fuzz.h"
#include "fuzz/PlainReader.h"
#include "platform/files/FileFailure.h"
#include "project/model/ProjectBlocks.h"
#include "project/model/ProjectModel.h"
#include "support/TemporaryFolder.h"

#include <array>
#include <vector>

// Project files: a plain reader of the format agrees on what each holds, and what was read and is written can
// be read again to the same.
namespace {

constexpr std::size_t kNumbers = 14; // of a block
using Block = std::array<double, kNumbers>;

std::vector<Block> PlainBlocks(std::string_view text) {
    PlainReader reader(text);
    std::vector<Block> blocks;
    for (std::string item = reader.Text(); !reader.AtEnd(); item = reader.AtEnd() ? item : reader.Text()) {
        if (item.starts_with('\xA4')) {
            blocks.emplace_back();
            for (std::size_t i = 0; i < kNumbers; ++i) {
                if (reader.AtEnd() || !reader.Number(i == 0 || i == 1 || i == 9, blocks.back()[i])) {
                    return blocks;
                }
            }
        }
    }
    return blocks;
}

Block NumbersOf(const DuctRecord& duct) {
    return {duct.Colour, duct.Spare,  duct.EndX,     duct.EndY,         duct.EquivRound,
            duct.Flow,   duct.Height, duct.Length,   duct.LossPerMetre, duct.ConnCoefficient,
            duct.StartX, duct.StartY, duct.Velocity, duct.Width};
}

void Read(std::string_view text) {
    static const TemporaryFolder s_folder;
    WriteFile(s_folder.File("p.gsp"), std::string(text));
    StartReading();
    try {
        ReadProjectText(s_folder.File("p.gsp"));
    } catch (const FileFailure&) {
        // What was read up to there stays.
    }
}

} // namespace

FUZZER(projects) {
    Read(input);
    const std::vector<Block> blocks = PlainBlocks(input);
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
