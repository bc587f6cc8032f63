#pragma once

#include <algorithm>
#include <functional>
#include <sstream>
#include <string>

namespace plenair {

// What `textOf` gives of each item, unless that is empty, with `between` between them.
template <typename Items, typename TextOf = std::identity>
std::string Joined(const Items& items, const TextOf& textOf = {}, const char* between = " ") {
    std::string joined;
    for (const auto& item : items) {
        const std::string text = textOf(item);
        joined += (joined.empty() || text.empty() ? "" : between) + text;
    }
    return joined;
}

// Plays a script: each line is a row of steps with blanks between, and behind a bar questions with the
// answers that there must be then.
//
//     @txtInputB 300 Tab 500 Return | selected: txtInputA 500; text txtInputB: 300
inline void
PlayScript(const std::string& script, const std::function<void(const std::string& step)>& act,
           const std::function<void(const std::string& question, const std::string& answer)>& expect) {
    std::istringstream lines(script);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t bar = std::min(line.find('|'), line.size());
        std::istringstream steps(line.substr(0, bar));
        for (std::string step; steps >> step;) {
            act(step);
        }
        for (std::size_t at = bar + 2; at < line.size();) {
            const std::size_t end = std::min(line.find("; ", at), line.size());
            const std::size_t colon = line.find(": ", at);
            expect(line.substr(at, colon - at), line.substr(colon + 2, end - colon - 2));
            at = end + 2;
        }
    }
}

} // namespace plenair
