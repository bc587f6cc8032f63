#pragma once

#include <cstdint>
#include <string>

// The per-user registry: keys below a root, each with named values of a type. Where the system has none of
// its own, one per-user text file holds them; a missing or damaged file is an empty store, one that can't be
// read is an error. The five operations and their status codes are those that the program is written against.
// A backslash parts the names of a sub-key, and the case of ASCII letters makes no difference in names. An
// opened key gives the values that it had at its opening, up to the first that is set by it.
namespace plenair {

using RegistryKey = std::uint32_t; // a root or the handle of an open key; 0 is no key
using RegistryStatus = std::int32_t;

constexpr RegistryKey HKEY_CURRENT_USER = 0x80000001;
constexpr std::uint32_t REG_SZ = 1;
constexpr std::uint32_t REG_DWORD = 4;
constexpr std::uint32_t REG_OPTION_NON_VOLATILE = 0;
constexpr std::uint32_t KEY_ALL_ACCESS = 63;

constexpr RegistryStatus ERROR_SUCCESS = 0;
constexpr RegistryStatus ERROR_FILE_NOT_FOUND = 2; // no such key or value
constexpr RegistryStatus ERROR_ACCESS_DENIED = 5;  // the store can't be read or written
constexpr RegistryStatus ERROR_INVALID_HANDLE = 6;
constexpr RegistryStatus ERROR_MORE_DATA = 234; // the buffer is too small; the size needed is reported

// Opens an existing key below `root`. On failure `result` is 0.
RegistryStatus RegOpenKeyExA(RegistryKey root, const std::string& subKey, std::uint32_t reserved,
                             std::uint32_t access, RegistryKey& result);

// Opens a key, making it and the keys above it where they are missing. On failure `result` is 0.
RegistryStatus RegCreateKeyExA(RegistryKey root, const std::string& subKey, std::uint32_t reserved,
                               std::uint32_t options, std::uint32_t access, RegistryKey& result);

// Reads a value of an open key. With `data` null only `type` and `size` (in bytes) are set. Otherwise up to
// `size` bytes are copied to `data`, and `size` becomes the number of bytes of the value.
RegistryStatus RegQueryValueExA(RegistryKey key, const std::string& valueName, std::uint32_t& type,
                                unsigned char* data, std::uint32_t& size);

// Sets a value of an open key; it is on the disk when the call returns with ERROR_SUCCESS. A value of more
// than 32,768 bytes, or a name of more than 4,096, is denied.
RegistryStatus RegSetValueExA(RegistryKey key, const std::string& valueName, std::uint32_t type,
                              const unsigned char* data, std::uint32_t size);

RegistryStatus RegCloseKey(RegistryKey key);

// The file behind the store. Set once at the start; its folder is made at the first write. Without one (the
// path empty), everything is denied.
void SetRegistryFile(std::string path);

} // namespace plenair
