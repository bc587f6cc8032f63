#pragma once

#include <functional>
#include <string>

namespace plenair {

// Plays the sound file at `path` (RIFF WAVE, whatever its extension) and returns at once. Never reports
// anything: a missing file or a busy or missing device is silence. Without a provider nothing plays.
void PlaySoundFile(const std::string& path);
void SetSoundProvider(std::function<void(const std::string&)> provider);

} // namespace plenair
