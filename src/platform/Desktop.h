#pragma once

#include <functional>

namespace plenair {

enum class MousePointer { Default = 0, Hourglass = 11 };

// The desktop's warning sound.
void Beep();

// Over all windows of the program.
void SetMousePointer(MousePointer pointer);

// Without a provider nothing sounds and the pointer stays.
void SetBeepProvider(std::function<void()> provider);
void SetMousePointerProvider(std::function<void(MousePointer)> provider);

} // namespace plenair
