#pragma once

// The settings file: nine items, each on a line of its own, in the program's folder.
namespace plenair {

// Fills Settings from the first *.cfg file of the program's folder. Where there is none yet, but one beside
// an executable that stands elsewhere, that one is taken and copied without a word. Where neither is there,
// or it can't be read to the ninth item, Settings takes the defaults, they are saved as User.cfg, this
// month's reminder counts as done, and a message says so, after one that names a folder that can't be
// searched. Where they can't be saved either, a message names the file and the reason, and the defaults hold
// for this run.
void LoadSettings();

// Writes the nine items of Settings to Settings.ConfigFile in the program's folder, replacing the file as a
// whole. Throws FileFailure; then the older file is as it was. Where that folder takes no files at all, a
// first time tells so in a message, and from then on LoadSettings gives these settings for the rest of the
// run.
void SaveSettings();

} // namespace plenair
