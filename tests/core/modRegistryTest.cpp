#include "core/modRegistry.h"
#include "support/Test.h"

namespace {

class Registry : public ProgramTest {
  protected:
    Registry() { SetRegistryFile(m_file); }

    static RegistryValue Read(const char* subKey, const char* name) {
        return RegReadValue(HKEY_CURRENT_USER, subKey, name);
    }
    static void Write(const char* subKey, const char* name, const RegistryValue& value,
                      std::uint32_t type = REG_SZ) {
        RegWriteValue(HKEY_CURRENT_USER, subKey, name, value, type);
    }
    static RegistryStatus Open(const char* subKey, RegistryKey& key) {
        return RegOpenKeyExA(HKEY_CURRENT_USER, subKey, 0, KEY_ALL_ACCESS, key);
    }

    const std::string m_file = File("deep/er/registry");
    RegistryKey m_key = 7;
};

TEST_F(Registry, ServesTextAndNumbersAlone) {
    const std::tuple<RegistryValue, std::uint32_t, RegistryValue> rows[] = {
        {"text", REG_SZ, "text"},
        {-7, REG_DWORD, -7},
        {"text", REG_DWORD, -7}, // not of that type
        {8, REG_SZ, -7},
        {8, 3, -7}};
    RegCreateKey(HKEY_CURRENT_USER, "Key");
    for (const auto& [value, type, read] : rows) {
        Write("Key", "value", value, type);
        EXPECT_EQ(Read("Key", "value"), read);
    }
    RegistryValue untouched = 5;
    Open("Key", m_key);
    RegSetValueExA(m_key, "value", 3, reinterpret_cast<const unsigned char*>("bits"), 4);
    EXPECT_EQ(RegQueryValue(m_key, "value", untouched), -1);
    EXPECT_EQ(RegQueryValue(m_key, "missing", untouched), 0);
    EXPECT_EQ(untouched, RegistryValue(5));
    RegSetValueExA(m_key, "value", REG_DWORD, reinterpret_cast<const unsigned char*>("too long"), 8);
    EXPECT_EQ(RegQueryValue(m_key, "value", untouched), ERROR_MORE_DATA);
    EXPECT_EQ(RegCloseKey(m_key), ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(m_key), ERROR_INVALID_HANDLE);
    EXPECT_EQ(RegCloseKey(HKEY_CURRENT_USER), ERROR_SUCCESS);
}

TEST_F(Registry, KeysComeWithThoseAboveThem) {
    RegCreateKey(HKEY_CURRENT_USER, "Software\\ZVK");
    EXPECT_EQ(fs::status(File("deep")).permissions(), fs::perms::owner_all);
    Write("Software\\ZVK", "Reminder", "112026");
    RegCreateKey(HKEY_CURRENT_USER, "SOFTWARE\\zvk");
    Write("SOFTWARE\\zvk", "REMINDER", "122026");
    EXPECT_EQ(ReadFile(m_file), "\"key\",\"\"\r\n\"key\",\"Software\"\r\n\"key\",\"Software\\ZVK\"\r\n"
                                "\"value\",\"Reminder\",1,313232303236\r\n\"end\"\r\n");
    for (const char* there : {"", "SOFTWARE\\zvk", "\\Software\\\\ZVK\\", "Software"}) {
        EXPECT_EQ(Open(there, m_key), ERROR_SUCCESS) << there;
    }
    EXPECT_EQ(RegReadValue(m_key, "ZVK", "reminder"), RegistryValue("122026"));
    for (const char* missing : {"ZVK", "Software\\ZVK\\More", "Soft"}) {
        EXPECT_EQ(Open(missing, m_key), ERROR_FILE_NOT_FOUND) << missing;
        EXPECT_EQ(m_key, 0U);
    }
}

TEST_F(Registry, ADamagedFileIsAnEmptyStoreThatCanBeWritten) {
    RegCreateKey(HKEY_CURRENT_USER, "Key");
    Write("Key", "name", "data");
    const std::string whole = ReadFile(m_file);
    std::vector<std::string> contents{std::string(5'000'000, '\0'), whole + "more", "\"else\"\r\n" + whole};
    for (const std::string value : {"1,1", "1,0x", "1,+1", "-1,00", "4294967296,00", ""}) {
        contents.push_back("\"key\",\"Key\"\r\n\"value\",\"name\"," + value + "\r\n\"end\"\r\n");
    }
    contents.push_back("\"key\",\"Key\"\r\n\"other\",\"name\",1,00\r\n\"end\"\r\n");
    for (std::size_t length = 0; length < whole.find("end") + 3; length += 3) {
        contents.push_back(whole.substr(0, length));
    }
    for (const std::string& content : contents) {
        WriteFile(m_file, content);
        EXPECT_EQ(Read("Key", "name"), RegistryValue()) << content.substr(0, 100);
        RegCreateKey(HKEY_CURRENT_USER, "Key");
        Write("Key", "name", "data");
        EXPECT_EQ(ReadFile(m_file), whole);
    }
}

} // namespace
