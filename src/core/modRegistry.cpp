#include "core/modRegistry.h"

#include "platform/desktop/Clock.h"
#include "platform/text/LocalTime.h"

#include <cstring>

namespace plenair {

RegistryValue RegReadValue(RegistryKey root, const std::string& subKey, const std::string& valueName) {
    // A key that can't be opened leaves a zero handle; the query on it fails and the value stays empty.
    RegistryKey key = 0;
    RegOpenKeyExA(root, subKey, 0, KEY_ALL_ACCESS, key);
    RegistryValue value;
    RegQueryValue(key, valueName, value);
    RegCloseKey(key);
    return value;
}

RegistryStatus RegQueryValue(RegistryKey key, const std::string& valueName, RegistryValue& value) {
    std::uint32_t type = 0;
    std::uint32_t size = 0;
    if (RegQueryValueExA(key, valueName, type, nullptr, size) != ERROR_SUCCESS) {
        return 0;
    }
    if (type == REG_SZ) {
        std::string text(size, '\0');
        const RegistryStatus status =
            RegQueryValueExA(key, valueName, type, reinterpret_cast<unsigned char*>(text.data()), size);
        value = status == ERROR_SUCCESS ? text.substr(0, size) : std::string();
        return status;
    }
    if (type == REG_DWORD) {
        std::int32_t number = 0;
        size = sizeof number;
        const RegistryStatus status =
            RegQueryValueExA(key, valueName, type, reinterpret_cast<unsigned char*>(&number), size);
        if (status == ERROR_SUCCESS) {
            value = number;
        }
        return status;
    }
    return -1;
}

void RegCreateKey(RegistryKey root, const std::string& subKey) {
    RegistryKey key = 0;
    RegCreateKeyExA(root, subKey, 0, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS, key);
    RegCloseKey(key);
}

void RegWriteValue(RegistryKey root, const std::string& subKey, const std::string& valueName,
                   const RegistryValue& value, std::uint32_t type) {
    RegistryKey key = 0;
    RegOpenKeyExA(root, subKey, 0, KEY_ALL_ACCESS, key);
    RegSetValue(key, valueName, type, value);
    RegCloseKey(key);
}

RegistryStatus RegSetValue(RegistryKey key, const std::string& valueName, std::uint32_t type,
                           const RegistryValue& value) {
    if (const auto* text = std::get_if<std::string>(&value); text != nullptr && type == REG_SZ) {
        return RegSetValueExA(key, valueName, type, reinterpret_cast<const unsigned char*>(text->data()),
                              static_cast<std::uint32_t>(text->size()));
    }
    if (const auto* number = std::get_if<std::int32_t>(&value); number != nullptr && type == REG_DWORD) {
        unsigned char bytes[sizeof *number];
        std::memcpy(bytes, number, sizeof bytes);
        return RegSetValueExA(key, valueName, type, bytes, sizeof bytes);
    }
    return 0;
}

std::string ReminderMonth() {
    const LocalTime today = Now();
    const std::string month = std::to_string(100 + today.Month).substr(1);
    const std::string year = std::to_string(10000 + today.Year).substr(1);
    return month + year;
}

void NoteReminder() {
    RegCreateKey(HKEY_CURRENT_USER, kReminderSubKey);
    RegWriteValue(HKEY_CURRENT_USER, kReminderSubKey, kReminderValueName, ReminderMonth(), REG_SZ);
}

} // namespace plenair
