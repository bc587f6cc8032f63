#pragma once

#include <functional>
#include <string>

namespace plenair {

struct InputRequest {
    std::string prompt;
    std::string title;
};

using InputBoxProvider = std::function<std::string(const InputRequest&)>;

// Asks for one line of text in an empty box. Empty on Cancel, and without a provider.
std::string AskForText(const InputRequest& request);
void SetInputBoxProvider(InputBoxProvider provider);

} // namespace plenair
