#pragma once

// What a screen reader finds: windows with their roles, the tables cell by cell, the items of a picture as a
// list.
namespace plenair {

// Call once, after the application object is made.
void InstallAccessibility();

} // namespace plenair
