#pragma once

// The settings file: nine items, each on a line of its own, in the program's folder.
namespace plenair {

// Fills Settings from the first *.cfg file of the program's folder. If that folder has none, the first one
// beside the executable is taken and copied into it, without a message.
//
// If neither has one, or the file isn't readable up to the ninth item, Settings takes the defaults. They are
// saved as User.cfg, and a message says so; where a folder could not be searched, a message that names it
// comes before. If the defaults can't be saved, a message names the file and the reason instead, and they
// hold for this run.
//
// Where a file was taken from beside the executable, or the defaults were saved, this month's reminder counts
// as done.
void LoadSettings();

// Writes the nine items of Settings to Settings.ConfigFile in the program's folder, replacing the file as a
// whole. Throws FileFailure if that fails; the older file is then as it was. Only if that folder takes no
// files at all, this throws nothing: a message says so the first time, and LoadSettings gives these settings
// for the rest of the run.
void SaveSettings();

} // namespace plenair
