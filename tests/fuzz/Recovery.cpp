#include "fuzz/Fuzz.h"
#include "platform/files/FileFailure.h"
#include "project/model/ProjectState.h"

#include <cstring>

// Recovery files whose sum is right, whatever else they hold: what is read is written and read again to the
// same.
namespace {

std::string WithRightSum(std::string_view input) {
    std::string content = "PRECVRY1" + std::string(8, '\0') + std::string(input);
    content.resize(content.size() / 8 * 8);
    std::uint64_t sum = 0xCBF29CE484222325;
    for (std::size_t at = 16; at < content.size(); at += 8) {
        std::uint64_t word = 0;
        std::memcpy(&word, &content[at], 8);
        sum = (sum ^ word) * 0x100000001B3;
        sum ^= sum >> 32;
    }
    std::memcpy(&content[8], &sum, 8);
    return content;
}

} // namespace

FUZZER(recovery) {
    const ProjectState solved{{DuctBits{}}, true, false, ""};
    const std::string ours = KeptContent(solved, std::string(input));
    REQUIRE(ours[16] == 1 && ReadKept(ours).State == solved && WithRightSum(ours.substr(16)) == ours);
    for (const std::string& content : {std::string(input), WithRightSum(input)}) {
        try {
            const KeptProject kept = ReadKept(content);
            const std::string written = KeptContent(kept.State, kept.Folder);
            const KeptProject again = ReadKept(written);
            REQUIRE(KeptContent(again.State, again.Folder) == written && written.size() == content.size());
            TakeState(again.State);
        } catch (const FileFailure&) {
            // Not whole.
        }
    }
}
