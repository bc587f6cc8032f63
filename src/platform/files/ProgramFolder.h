#pragma once

#include <string>

// Where the program's own files are: those that it writes, and those that were delivered with it.
namespace plenair {

// Settles the folders for this run; call once at the start. Where the user may write into `executables`, the
// folder of the executable, everything is there. Otherwise, as for a program that an administrator installed,
// the program's folder is `users`, which need not be there yet, and the user's own work is expected in
// `documents`.
void ChooseProgramFolder(const std::string& executables, const std::string& users,
                         const std::string& documents);

// One folder for everything.
void SetProgramFolder(const std::string& folder);

// The folder of the settings file.
const std::string& ProgramFolder();

// The folder of the executable, with what was delivered beside it.
const std::string& DeliveryFolder();

// Where a new user's file dialogs open.
const std::string& FirstFolderForFiles();

// Path of a file or folder that was delivered with the program: in the program's folder if one of that name
// is there, else beside the executable.
std::string DeliveredPath(const std::string& name);

// Makes the program's folder if it isn't there, for its user alone. Throws FileFailure, which names it.
void MakeProgramFolder();

// The folder for what must outlive a crash; empty if nothing is to be kept. It need not be there yet.
void SetStateFolder(const std::string& folder);
const std::string& StateFolder();

// Whether the user may write into the program's folder, once it is made.
bool ProgramFolderTakesFiles();

} // namespace plenair
