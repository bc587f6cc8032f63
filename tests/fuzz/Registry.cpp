#include "fuzz/Fuzz.h"
#include "platform/files/RegistryStore.h"
#include "support/TemporaryFolder.h"

#include <map>

// The registry store on any file, and any row of calls compared with a map.
namespace {

std::string Get(RegistryKey key, const std::string& name) {
    std::uint32_t type = 0;
    std::uint32_t size = 0;
    if (RegQueryValueExA(key, name, type, nullptr, size) != ERROR_SUCCESS) {
        return "no value";
    }
    std::string data(size, '\0');
    REQUIRE(RegQueryValueExA(key, name, type, reinterpret_cast<unsigned char*>(data.data()), size) ==
            ERROR_SUCCESS);
    return std::to_string(type) + data;
}

std::string TakeName(std::string_view& input) {
    const std::string name(input.substr(0, Choose(input, 6)));
    input.remove_prefix(std::min(name.size(), input.size()));
    return name;
}

} // namespace

FUZZER(registry) {
    static const TemporaryFolder s_folder;
    static const std::string s_file = s_folder.File("registry");
    SetRegistryFile(s_file);
    const bool isFile = Choose(input, 2) == 1;
    WriteFile(s_file, isFile ? std::string(input) : "");
    RegistryKey key = 0;
    REQUIRE(RegCreateKeyExA(HKEY_CURRENT_USER, "Key", 0, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS, key) ==
            ERROR_SUCCESS);
    std::map<std::string, std::string> values;
    const std::string before = Get(key, "before");
    for (int calls = 0; calls < 4 && (calls == 0 || !input.empty()); ++calls) {
        const auto type = static_cast<std::uint32_t>(Choose(input, 6));
        std::string name = TakeName(input);
        const std::string data = TakeName(input);
        REQUIRE(RegSetValueExA(key, name, type, reinterpret_cast<const unsigned char*>(data.data()),
                               static_cast<std::uint32_t>(data.size())) == ERROR_SUCCESS);
        for (char& byte : name) { // names know no case
            byte = byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte | 32) : byte;
        }
        values[name] = std::to_string(type) + data;
    }
    for (const auto& [name, value] : values) {
        REQUIRE(Get(key, name) == value);
    }
    REQUIRE(values.contains("before") || Get(key, "before") == before);
    REQUIRE(ReadFile(s_file).ends_with("\"end\"\r\n"));
    RegCloseKey(key);
}
