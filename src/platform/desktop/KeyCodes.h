#pragma once

// Codes of keys and characters, as the handlers of text boxes get them.
namespace plenair {

constexpr int KeyBackspace = 8;
constexpr int KeyTab = 9;
constexpr int KeyEnter = 13;
constexpr int KeyEscape = 27;
constexpr int KeyEnd = 35;
constexpr int KeyHome = 36;
constexpr int KeyLeft = 37;
constexpr int KeyUpArrow = 38;
constexpr int KeyRight = 39;
constexpr int KeyDownArrow = 40;
constexpr int KeyDelete = 46;

} // namespace plenair
