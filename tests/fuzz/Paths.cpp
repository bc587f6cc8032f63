#include "fuzz/Fuzz.h"
#include "project/model/DuctPath.h"
#include "project/model/ProjectModel.h"

#include <vector>

// Lists of ducts as a user types them, in projects of different sizes. Each duct's length is its number.
FUZZER(paths) {
    if (Ducts.size() <= kMostDucts) {
        DuctCount = kMostDucts;
        FitDucts();
        for (int number = 0; number <= DuctCount; ++number) {
            Duct(number).Length = number;
        }
    }
    constexpr std::int16_t kSizes[] = {0, 1, 9, 12, 1000, kMostDucts};
    DuctCount = kSizes[Choose(input, std::size(kSizes))];
    std::vector<double> numbers; // that end within the text
    for (std::size_t at = 0; at < input.size();) {
        const std::size_t start = std::min(input.find_first_of("0123456789", at), input.size());
        at = std::min(input.find_first_not_of("0123456789", start), input.size());
        if (at < input.size()) {
            numbers.push_back(std::strtod(std::string(input.substr(start, at - start)).c_str(), nullptr));
        }
    }
    const std::int16_t before = PathCount;
    std::string path(input);
    try {
        ParseDuctPath(path);
    } catch (const PathFailure& failure) {
        REQUIRE(PathCount == before && path == input);
        REQUIRE(std::string_view(failure.what()).size() < 160);
        return;
    }
    REQUIRE(path.empty() && PathElements.size() == numbers.size() + 1);
    REQUIRE(PathCount == static_cast<std::int16_t>(numbers.size()));
    for (std::size_t place = 1; place < PathElements.size(); ++place) {
        REQUIRE(PathElements[place].Length == numbers[place - 1]);
        REQUIRE(PathElements[place].Position == static_cast<std::int16_t>(place));
    }
}
