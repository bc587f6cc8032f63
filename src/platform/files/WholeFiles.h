#pragma once

#include "platform/files/FileFailure.h"
#include "platform/files/FileProgress.h"

#include <string>
#include <string_view>

namespace plenair {

// Replaces the file `path` by `content`, as a whole or not at all: writes beside it, checks every step up to
// the disk, and only then takes the name. The permissions of an older file stay, a link goes on pointing to
// its file. A file that the user may not write is not replaced, nor is anything but a regular file. Throws
// FileFailure; then, as after anything that `progress` throws, an older file is as it was and nothing else is
// left behind.
void WriteWholeFile(const std::string& path, std::string_view content, const FileProgress& progress = {});

// Writes `content` into the file itself, in place of all that it held. What was written before a failure
// stays. Throws FileFailure.
void RewriteFile(const std::string& path, std::string_view content, const FileProgress& progress = {});

} // namespace plenair
