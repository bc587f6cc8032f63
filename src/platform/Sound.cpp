#include "platform/Sound.h"

#include <utility>

namespace plenair {

namespace {

std::function<void(const std::string&)>& Provider() {
    static std::function<void(const std::string&)> provider;
    return provider;
}

} // namespace

void PlaySoundFile(const std::string& path) {
    if (Provider()) {
        Provider()(path);
    }
}

void SetSoundProvider(std::function<void(const std::string&)> provider) {
    Provider() = std::move(provider);
}

} // namespace plenair
