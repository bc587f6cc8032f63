#pragma once

#include <string>

// The current folder of the process, as UTF-8 text without a trailing separator.
namespace plenair {

// Empty if it is gone.
std::string CurrentFolder();

// Does nothing if the folder can't be entered.
void EnterFolder(const std::string& folder);

// Path of the file `name` in the current folder; `name` alone if that folder is gone.
std::string InCurrentFolder(const std::string& name);

} // namespace plenair
