#pragma once

#include <string>

namespace plenair {

struct InputRequest {
    std::string Prompt;
    std::string Title;
};

// Asks for one line of text in an empty box. Empty on Cancel.
std::string AskForText(const InputRequest& request);

} // namespace plenair
