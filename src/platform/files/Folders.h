#pragma once

#include <optional>
#include <string>
#include <string_view>

// Folders, as UTF-8 text without a trailing separator.
namespace plenair {

// The current folder of the process. Empty if it is gone.
std::string CurrentFolder();

// Does nothing if the folder can't be entered.
void EnterFolder(const std::string& folder);

// Path of the file `name` in the current folder; `name` alone if that folder is gone.
std::string InCurrentFolder(const std::string& name);

// Makes the folder, and those above it that are missing, for its user alone. Throws FileFailure, which names
// the one that can't be made.
void MakePrivateFolder(const std::string& folder);

// Name, without folder, of the first file in `folder` that ends in `extension` (".cfg"), in the order in
// which the system lists the folder. Folders of such a name don't count. Nothing if there is none, or no such
// folder. Throws FileFailure if the folder can't be searched.
std::optional<std::string> FirstFileWithExtension(const std::string& folder, std::string_view extension);

} // namespace plenair
