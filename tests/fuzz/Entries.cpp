#include "fuzz/Fuzz.h"
#include "platform/desktop/DesktopEntry.h"

#include <set>

// Desktop entries, and the lists of applications.
FUZZER(entries) {
    const std::string path = "/logs/my $log; \"1\" %f\n.pnl";
    if (const auto command = CommandOn(input, path)) {
        REQUIRE(!command->Arguments.empty() && !command->Arguments.front().empty());
        REQUIRE(command->Arguments.front().find(path) == path.npos);
        bool isThere = false;
        for (const std::string& argument : command->Arguments) {
            isThere = isThere || argument.find(path) != argument.npos;
        }
        REQUIRE(isThere);
    }
    const std::size_t middle = input.size() / 2;
    std::set<std::string> names;
    for (const std::string& name : ApplicationsFor(
             "text/plain", {std::string(input.substr(0, middle)), std::string(input.substr(middle))})) {
        REQUIRE(!name.empty() && name.find_first_of(";\n") == name.npos && names.insert(name).second);
    }
}
