#pragma once

#include <QFont>

// The letters of the windows. Their layout was drawn for a small face; a user who needs larger ones gets the
// whole layout larger.
namespace plenair {

// How much larger than drawn, at least 1, for a desktop font of so many points on a screen of so many twips.
// Desktops come with 9 to 11 points, which the layout answers as it was drawn. Beyond that its letters get
// the user's size, as far as the windows then still fit the screen.
double FormScaleFor(double points, double screenWidth, double screenHeight);

// Takes the scale from the desktop's font and screen, for menus, message boxes and tool tips too; once at the
// start, before the first window is made.
void TakeDesktopFont();

// The windows' font, by the size in points with which the layout was drawn. Family and style are the
// desktop's as long as texts take no more room by them.
QFont FormFont(double points = 8.25);

} // namespace plenair
