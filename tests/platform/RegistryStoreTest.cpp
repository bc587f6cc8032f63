#include "platform/RegistryStore.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

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
}

TEST_F(RegistryStore, AnyBytesSurviveInNamesAndValues) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) {
        all.push_back(static_cast<char>(byte));
    }
    const std::string keyName = "\"" + all.substr(0, '\\') + all.substr('\\' + 1);
    ASSERT_EQ(Create(keyName, m_key), ERROR_SUCCESS);
    const std::string names[] = {"", all, "\"\r\n", " a ,", "end"};
    for (const std::string& name : names) {
        ASSERT_EQ(Set(m_key, name, name), ERROR_SUCCESS);
    }
    ASSERT_EQ(Open(keyName, m_key), ERROR_SUCCESS);
    for (const std::string& name : names) {
        EXPECT_EQ(Get(m_key, name), name);
    }
    EXPECT_EQ(Get(m_key, "a"), std::nullopt);
}

TEST_F(RegistryStore, QueriesTellTypeAndSize) {
    ASSERT_EQ(Create("Key", m_key), ERROR_SUCCESS);
    ASSERT_EQ(Set(m_key, "number", std::string("\1\2\3\4"), REG_DWORD), ERROR_SUCCESS);
    const std::pair<std::uint32_t, std::string> rows[] = {
        {0, "??????"}, {3, "\1\2\3???"}, {4, "\1\2\3\4??"}, {6, "\1\2\3\4??"}};
    for (const auto& [room, expected] : rows) {
        std::string buffer = "??????";
        std::uint32_t type = 0;
        std::uint32_t size = room;
        EXPECT_EQ(
            RegQueryValueExA(m_key, "number", type, reinterpret_cast<unsigned char*>(buffer.data()), size),
            room < 4 ? ERROR_MORE_DATA : ERROR_SUCCESS);
        EXPECT_EQ(type, REG_DWORD);
        EXPECT_EQ(size, 4U);
        EXPECT_EQ(buffer, expected);
    }
}

TEST_F(RegistryStore, ClosedAndUnknownHandlesAreRefused) {
    ASSERT_EQ(Create("Key", m_key), ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(m_key), ERROR_SUCCESS);
    for (const RegistryKey handle : {m_key, RegistryKey{0}, RegistryKey{0x80000002}}) {
        RegistryKey result = 7;
        std::uint32_t size = 0;
        std::uint32_t type = 0;
        EXPECT_EQ(Open("Key", result, handle), ERROR_INVALID_HANDLE);
        EXPECT_EQ(Create("Key", result, handle), ERROR_INVALID_HANDLE);
        EXPECT_EQ(result, 0U);
        EXPECT_EQ(Set(handle, "name", "x"), ERROR_INVALID_HANDLE);
        EXPECT_EQ(RegQueryValueExA(handle, "name", type, nullptr, size), ERROR_INVALID_HANDLE);
        EXPECT_EQ(RegCloseKey(handle), ERROR_INVALID_HANDLE);
    }
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

TEST_F(RegistryStore, IsDeniedWhereTheFileCannotBe) {
    WriteFile(m_folder.File("file"), "");
    for (const std::string& path : {std::string(), m_folder.Path(), m_folder.File("file/registry")}) {
        SetRegistryFile(path);
        EXPECT_EQ(Create("Key", m_key), ERROR_ACCESS_DENIED);
        EXPECT_EQ(m_key, 0U);
        EXPECT_EQ(Set(HKEY_CURRENT_USER, "name", "x"), ERROR_ACCESS_DENIED);
        EXPECT_NE(Open("Key", m_key), ERROR_SUCCESS);
        EXPECT_EQ(Get(HKEY_CURRENT_USER, "name"), std::nullopt);
    }
}

TEST_F(RegistryStore, WhatCouldNotBeReadAgainIsDenied) {
    const std::string large(32'768, '\xFF');
    ASSERT_EQ(Create("Key", m_key), ERROR_SUCCESS);
    EXPECT_EQ(Set(m_key, "large", large), ERROR_SUCCESS);
    EXPECT_EQ(Set(m_key, "larger", large + "x"), ERROR_ACCESS_DENIED);
    EXPECT_EQ(Set(m_key, std::string(4'096, '"'), "x"), ERROR_SUCCESS);
    EXPECT_EQ(Set(m_key, std::string(4'097, '"'), "x"), ERROR_ACCESS_DENIED);
    for (int count = 0; count < 20; ++count) {
        Set(m_key, "value " + std::to_string(count), large);
    }
    EXPECT_EQ(Set(m_key, "one more", large), ERROR_ACCESS_DENIED);
    EXPECT_EQ(Get(m_key, "large"), large);
}

} // namespace
} // namespace plenair
