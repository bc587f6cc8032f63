#pragma once

namespace plenair {

// Opens the about box, modally or beside the other windows, and comes back when it is closed, or when its
// show is over. One that is open already comes to the front instead.
void ShowAbout();
void ShowAboutPlainly();

// Ends the box, should it be open.
void UnloadAbout();

} // namespace plenair
