#pragma once

// Codes of keys and characters, as the handlers of text boxes get them.
namespace plenair {

constexpr int kKeyBackspace = 8;
constexpr int kKeyTab = 9;
constexpr int kKeyEnter = 13;
constexpr int kKeyEscape = 27;
constexpr int kKeySpace = 32;
constexpr int kKeyPageUp = 33;
constexpr int kKeyPageDown = 34;
constexpr int kKeyEnd = 35;
constexpr int kKeyHome = 36;
constexpr int kKeyLeft = 37;
constexpr int kKeyUpArrow = 38;
constexpr int kKeyRight = 39;
constexpr int kKeyDownArrow = 40;
constexpr int kKeyDelete = 46;

} // namespace plenair
