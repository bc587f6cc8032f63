#include "platform/files/RegistryStore.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>

namespace plenair {
namespace {

class RegistryStore : public testing::Test {
  protected:
    RegistryStore() { SetRegistryFile(StoreFile()); }
    ~RegistryStore() override { SetRegistryFile({}); }

    std::string StoreFile() const { return m_folder.File("deep/er/registry"); }

    TemporaryFolder m_folder;
    RegistryKey m_key = 7;
};

RegistryStatus Create(const std::string& subKey, RegistryKey& key, RegistryKey root = HKEY_CURRENT_USER) {
    return RegCreateKeyExA(root, subKey, 0, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS, key);
}

RegistryStatus Open(const std::string& subKey, RegistryKey& key, RegistryKey root = HKEY_CURRENT_USER) {
    return RegOpenKeyExA(root, subKey, 0, KEY_ALL_ACCESS, key);
}

RegistryStatus Set(RegistryKey key, const std::string& name, const std::string& data,
                   std::uint32_t type = REG_SZ) {
    return RegSetValueExA(key, name, type, reinterpret_cast<const unsigned char*>(data.data()),
                          static_cast<std::uint32_t>(data.size()));
}

std::optional<std::string> Get(RegistryKey key, const std::string& name) {
    std::uint32_t type = 0;
    std::uint32_t size = 0;
    if (RegQueryValueExA(key, name, type, nullptr, size) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    std::string data(size, '?');
    EXPECT_EQ(RegQueryValueExA(key, name, type, reinterpret_cast<unsigned char*>(data.data()), size),
              ERROR_SUCCESS);
    return data;
}

TEST_F(RegistryStore, KeysComeWithThoseAboveThem) {
    ASSERT_EQ(Create("Software\\ZVK", m_key), ERROR_SUCCESS);
    EXPECT_EQ(std::filesystem::status(m_folder.File("deep")).permissions(),
              std::filesystem::perms::owner_all);
    ASSERT_EQ(Set(m_key, "Reminder", "112026"), ERROR_SUCCESS);
    ASSERT_EQ(Create("SOFTWARE\\zvk", m_key), ERROR_SUCCESS);
    ASSERT_EQ(Set(m_key, "REMINDER", "122026"), ERROR_SUCCESS);
    EXPECT_EQ(ReadFile(StoreFile()), "\"key\",\"\"\r\n\"key\",\"Software\"\r\n\"key\",\"Software\\ZVK\"\r\n"
                                     "\"value\",\"Reminder\",1,313232303236\r\n\"end\"\r\n");
    for (const char* there : {"", "Software", "SOFTWARE\\zvk", "\\Software\\\\ZVK\\"}) {
        EXPECT_EQ(Open(there, m_key), ERROR_SUCCESS) << there;
    }
    for (const char* missing : {"ZVK", "Software\\ZVK\\More", "Soft"}) {
        EXPECT_EQ(Open(missing, m_key), ERROR_FILE_NOT_FOUND) << missing;
        EXPECT_EQ(m_key, 0U);
    }
    ASSERT_EQ(Open("Software", m_key), ERROR_SUCCESS);
    EXPECT_EQ(Open("ZVK", m_key, m_key), ERROR_SUCCESS);
    EXPECT_EQ(Get(m_key, "Reminder"), "122026");
    EXPECT_EQ(Set(m_key, "Reminder", "012027"), ERROR_SUCCESS);
    EXPECT_EQ(Get(m_key, "Reminder"), "012027");
    EXPECT_EQ(Set(HKEY_CURRENT_USER, "of the root", "x"), ERROR_SUCCESS);
}

TEST_F(RegistryStore, ADamagedFileIsAnEmptyStoreThatCanBeWritten) {
    ASSERT_EQ(Create("Key", m_key), ERROR_SUCCESS);
    ASSERT_EQ(Set(m_key, "name", "data"), ERROR_SUCCESS);
    const std::string whole = ReadFile(StoreFile());
    const std::string start = "\"key\",\"Key\"\r\n\"value\",\"name\",";
    std::vector<std::string> contents{std::string(5'000'000, '\0'), whole + "more", "\"else\"\r\n" + whole};
    for (const char* value : {"1,1", "1,0x", "1,+1", "-1,00", "4294967296,00", ""}) {
        contents.push_back(start + value + "\r\n\"end\"\r\n");
    }
    const std::size_t lastItem = whole.find("end") + 3;
    for (std::size_t length = 0; length < lastItem; length += 3) {
        contents.push_back(whole.substr(0, length));
    }
    for (const std::string& content : contents) {
        SCOPED_TRACE(content.substr(0, 100));
        WriteFile(StoreFile(), content);
        EXPECT_EQ(Get(m_key, "name"), std::nullopt);
        EXPECT_EQ(Set(m_key, "name", "data"), ERROR_SUCCESS);
        EXPECT_EQ(Get(m_key, "name"), "data");
    }
}

} // namespace
} // namespace plenair
