#pragma once

#include "platform/files/RegistryStore.h"

#include <cstdint>
#include <string>
#include <variant>

// The program's access to the per-user registry. Nothing here reports to the user.
namespace plenair {

// Empty, text, or a 32-bit integer.
using RegistryValue = std::variant<std::monostate, std::string, std::int32_t>;

// The sub-key and the value in which the month of the last reminder stands, as six characters "mmyyyy".
inline const std::string kReminderSubKey = "Software\\ZVK";
inline const std::string kReminderValueName = "Reminder";

// The value, or empty where the key or the value is missing.
RegistryValue RegReadValue(RegistryKey root, const std::string& subKey, const std::string& valueName);

// Reads one value of an open key. Gives 0 for success and for a missing value, which leaves `value`
// untouched; -1, untouched as well, for a type that is neither text nor a 32-bit integer; else the system's
// code. Text comes with all the bytes stored, a terminator included.
RegistryStatus RegQueryValue(RegistryKey key, const std::string& valueName, RegistryValue& value);

// Makes the key, and does nothing where that fails.
void RegCreateKey(RegistryKey root, const std::string& subKey);

// Writes one value below an existing key. Text is stored without a terminator.
void RegWriteValue(RegistryKey root, const std::string& subKey, const std::string& valueName,
                   const RegistryValue& value, std::uint32_t type);

// Writes one value of an open key. Gives the system's code, or 0 without doing anything for a type that is
// neither REG_SZ nor REG_DWORD, or for a value that is not of that type.
RegistryStatus RegSetValue(RegistryKey key, const std::string& valueName, std::uint32_t type,
                           const RegistryValue& value);

// Today's month as the registry holds it: two digits of the month, four of the year.
std::string ReminderMonth();

// Notes this month as that of the last reminder, so that it brings no other.
void NoteReminder();

} // namespace plenair
