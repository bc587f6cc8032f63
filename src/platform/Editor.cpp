#include "platform/Editor.h"

#include <utility>

namespace plenair {

namespace {

std::function<bool(const std::string&)>& Provider() {
    static std::function<bool(const std::string&)> provider;
    return provider;
}

} // namespace

bool OpenInEditor(const std::string& path) {
    return Provider() && Provider()(path);
}

void SetEditorProvider(std::function<bool(const std::string&)> provider) {
    Provider() = std::move(provider);
}

} // namespace plenair
