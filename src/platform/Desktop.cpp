#include "platform/Desktop.h"

#include <utility>

namespace plenair {

namespace {

struct DesktopProviders {
    std::function<void()> beep;
    std::function<void(MousePointer)> pointer;
};

DesktopProviders& Providers() {
    static DesktopProviders providers;
    return providers;
}

} // namespace

void Beep() {
    if (Providers().beep) {
        Providers().beep();
    }
}

void SetMousePointer(MousePointer pointer) {
    if (Providers().pointer) {
        Providers().pointer(pointer);
    }
}

void SetBeepProvider(std::function<void()> provider) {
    Providers().beep = std::move(provider);
}

void SetMousePointerProvider(std::function<void(MousePointer)> provider) {
    Providers().pointer = std::move(provider);
}

} // namespace plenair
