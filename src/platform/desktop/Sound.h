#pragma once

#include <string>

namespace plenair {

constexpr unsigned SND_ASYNC = 1;       // return at once while the sound plays
constexpr unsigned SND_NOWAIT = 0x2000; // play nothing where the device is busy

// Plays the sound file `name` (RIFF WAVE, whatever its extension). Never reports anything: a busy or missing
// device is silence. Sounds are always played asynchronously here, and a busy device is never waited for.
void PlaySoundA(const std::string& name, unsigned flags);

} // namespace plenair
