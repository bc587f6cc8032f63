#include "platform/InputBox.h"

#include <utility>

namespace plenair {

namespace {

InputBoxProvider& Provider() {
    static InputBoxProvider provider;
    return provider;
}

} // namespace

std::string AskForText(const InputRequest& request) {
    // A copy, since the provider may put another in its place while its box is open.
    const InputBoxProvider provider = Provider();
    return provider ? provider(request) : std::string();
}

void SetInputBoxProvider(InputBoxProvider provider) {
    Provider() = std::move(provider);
}

} // namespace plenair
