#include "platform/RegistryStore.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace plenair {
namespace {

class RegistryStore : public testing::Test {
  protected:
    void SetUp() override { SetRegistryFile(StoreFile()); }
    void TearDown() override { SetRegistryFile({}); }

    std::string StoreFile() const { return m_folder.File("deep/er/registry"); }

    TemporaryFolder m_folder;
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
    RegistryKey key = 7;
    EXPECT_EQ(Open("Software\\ZVK", key), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(key, 0U);
    EXPECT_FALSE(std::filesystem::exists(StoreFile()));
    ASSERT_EQ(Create("Software\\ZVK", key), ERROR_SUCCESS);

    const std::pair<const char*, RegistryStatus> rows[] = {
        {"", ERROR_SUCCESS},
        {"Software", ERROR_SUCCESS},
        {"SOFTWARE\\zvk", ERROR_SUCCESS},
        {"\\Software\\\\ZVK\\", ERROR_SUCCESS},
        {"ZVK", ERROR_FILE_NOT_FOUND},
        {"Software\\ZVK\\More", ERROR_FILE_NOT_FOUND},
        {"Soft", ERROR_FILE_NOT_FOUND},
    };
    for (const auto& [subKey, status] : rows) {
        EXPECT_EQ(Open(subKey, key), status) << subKey;
        EXPECT_EQ(key != 0, status == ERROR_SUCCESS) << subKey;
    }
    RegistryKey software = 0;
    ASSERT_EQ(Open("Software", software), ERROR_SUCCESS);
    EXPECT_EQ(Open("ZVK", key, software), ERROR_SUCCESS);
    EXPECT_EQ(Create("Other", key, software), ERROR_SUCCESS);
    EXPECT_EQ(Open("software\\other", key), ERROR_SUCCESS);
}

TEST_F(RegistryStore, AnyBytesSurviveInNamesAndValues) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) {
        all.push_back(static_cast<char>(byte));
    }
    std::string keyName = all;
    keyName.erase(keyName.find('\\'), 1);
    RegistryKey key = 0;
    ASSERT_EQ(Create(keyName, key), ERROR_SUCCESS);
    for (const std::string& name :
         {std::string(), all, std::string("\"\r\n"), std::string(" a ,"), std::string("end")}) {
        ASSERT_EQ(Set(key, name, all + name), ERROR_SUCCESS);
    }
    ASSERT_EQ(Set(key, "nothing", ""), ERROR_SUCCESS);

    ASSERT_EQ(Open(keyName, key), ERROR_SUCCESS);
    EXPECT_EQ(Get(key, ""), all);
    EXPECT_EQ(Get(key, all), all + all);
    EXPECT_EQ(Get(key, "\"\r\n"), all + "\"\r\n");
    EXPECT_EQ(Get(key, " a ,"), all + " a ,");
    EXPECT_EQ(Get(key, "END"), all + "end");
    EXPECT_EQ(Get(key, "nothing"), "");
    EXPECT_EQ(Get(key, "a"), std::nullopt);
}

TEST_F(RegistryStore, NamesKeepTheirFirstSpelling) {
    RegistryKey key = 0;
    ASSERT_EQ(Create("Software\\ZVK", key), ERROR_SUCCESS);
    ASSERT_EQ(Set(key, "Reminder", "112026"), ERROR_SUCCESS);
    ASSERT_EQ(Create("SOFTWARE\\zvk", key), ERROR_SUCCESS);
    ASSERT_EQ(Set(key, "REMINDER", "122026"), ERROR_SUCCESS);
    EXPECT_EQ(ReadFile(StoreFile()), "\"key\",\"\"\r\n"
                                     "\"key\",\"Software\"\r\n"
                                     "\"key\",\"Software\\ZVK\"\r\n"
                                     "\"value\",\"Reminder\",1,313232303236\r\n"
                                     "\"end\"\r\n");
}

TEST_F(RegistryStore, QueriesTellTypeAndSize) {
    RegistryKey key = 0;
    ASSERT_EQ(Create("Key", key), ERROR_SUCCESS);
    ASSERT_EQ(Set(key, "number", std::string("\1\2\3\4"), REG_DWORD), ERROR_SUCCESS);
    const struct {
        std::uint32_t room;
        RegistryStatus status;
        std::string buffer;
    } rows[] = {
        {0, ERROR_MORE_DATA, "??????"},
        {3, ERROR_MORE_DATA, "\1\2\3???"},
        {4, ERROR_SUCCESS, "\1\2\3\4??"},
        {6, ERROR_SUCCESS, "\1\2\3\4??"},
    };
    for (const auto& row : rows) {
        std::string buffer = "??????";
        std::uint32_t type = 0;
        std::uint32_t size = row.room;
        EXPECT_EQ(
            RegQueryValueExA(key, "number", type, reinterpret_cast<unsigned char*>(buffer.data()), size),
            row.status)
            << row.room;
        EXPECT_EQ(type, REG_DWORD);
        EXPECT_EQ(size, 4U);
        EXPECT_EQ(buffer, row.buffer) << row.room;
    }
}

TEST_F(RegistryStore, ClosedAndUnknownHandlesAreRefused) {
    RegistryKey key = 0;
    ASSERT_EQ(Create("Key", key), ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(HKEY_CURRENT_USER), ERROR_SUCCESS);
    for (const RegistryKey handle : {key, RegistryKey{0}, RegistryKey{0x80000002}}) {
        RegistryKey result = 7;
        std::uint32_t type = 0;
        std::uint32_t size = 0;
        EXPECT_EQ(Open("Key", result, handle), ERROR_INVALID_HANDLE);
        EXPECT_EQ(Create("Key", result, handle), ERROR_INVALID_HANDLE);
        EXPECT_EQ(result, 0U);
        EXPECT_EQ(Set(handle, "name", "x"), ERROR_INVALID_HANDLE);
        EXPECT_EQ(RegQueryValueExA(handle, "name", type, nullptr, size), ERROR_INVALID_HANDLE);
        EXPECT_EQ(RegCloseKey(handle), ERROR_INVALID_HANDLE);
    }
}

TEST_F(RegistryStore, ADamagedFileIsAnEmptyStoreThatCanBeWritten) {
    RegistryKey key = 0;
    ASSERT_EQ(Create("Key", key), ERROR_SUCCESS);
    ASSERT_EQ(Set(key, "name", "data"), ERROR_SUCCESS);
    const std::string whole = ReadFile(StoreFile());
    const std::string start = "\"key\",\"Key\"\r\n\"value\",\"name\",";
    std::string tooLarge;
    while (tooLarge.size() <= 1'048'576) {
        tooLarge += start + "1,00\r\n";
    }
    tooLarge += whole;
    std::vector<std::string> contents{
        "",
        std::string(5'000'000, '\0'),
        tooLarge,
        whole + "more",
        start + "1,1\r\n\"end\"\r\n",
        start + "1,0x\r\n\"end\"\r\n",
        start + "1,+1\r\n\"end\"\r\n",
        start + "-1,00\r\n\"end\"\r\n",
        start + "4294967296,00\r\n\"end\"\r\n",
        start + "\r\n\"end\"\r\n",
        "\"else\"\r\n" + whole,
    };
    const std::size_t lastItem = whole.find("end") + 3;
    for (std::size_t length = 0; length < lastItem; length += 3) {
        contents.push_back(whole.substr(0, length));
    }
    for (const std::string& content : contents) {
        SCOPED_TRACE(content.substr(0, 100));
        WriteFile(StoreFile(), content);
        EXPECT_EQ(Get(key, "name"), std::nullopt);
        RegistryKey opened = 0;
        EXPECT_EQ(Open("Key", opened), ERROR_FILE_NOT_FOUND);
        EXPECT_EQ(Set(key, "name", "data"), ERROR_SUCCESS);
        EXPECT_EQ(Open("Key", opened), ERROR_SUCCESS);
        EXPECT_EQ(Get(opened, "name"), "data");
    }
}

TEST_F(RegistryStore, IsDeniedWhereTheFileCannotBe) {
    WriteFile(m_folder.File("file"), "");
    for (const std::string& path : {std::string(), m_folder.Path(), m_folder.File("file/registry")}) {
        SCOPED_TRACE(path);
        RegistryKey key = 7;
        std::uint32_t type = 0;
        std::uint32_t size = 0;
        SetRegistryFile(path);
        EXPECT_EQ(Create("Key", key), ERROR_ACCESS_DENIED);
        EXPECT_EQ(key, 0U);
        EXPECT_EQ(Set(HKEY_CURRENT_USER, "name", "x"), ERROR_ACCESS_DENIED);
        EXPECT_NE(Open("Key", key), ERROR_SUCCESS);
        EXPECT_NE(RegQueryValueExA(HKEY_CURRENT_USER, "name", type, nullptr, size), ERROR_SUCCESS);
    }
}

TEST_F(RegistryStore, WhatCouldNotBeReadAgainIsDenied) {
    RegistryKey key = 0;
    ASSERT_EQ(Create("Key", key), ERROR_SUCCESS);
    EXPECT_EQ(Set(key, "large", std::string(32'768, '\xFF')), ERROR_SUCCESS);
    EXPECT_EQ(Set(key, "larger", std::string(32'769, '\xFF')), ERROR_ACCESS_DENIED);
    EXPECT_EQ(Set(key, std::string(4'096, '"'), "x"), ERROR_SUCCESS);
    EXPECT_EQ(Set(key, std::string(4'097, '"'), "x"), ERROR_ACCESS_DENIED);
    RegistryKey deep = 7;
    EXPECT_EQ(Create(std::string(4'097, 'k'), deep), ERROR_ACCESS_DENIED);
    EXPECT_EQ(deep, 0U);

    RegistryStatus status = ERROR_SUCCESS;
    for (int count = 0; count < 100 && status == ERROR_SUCCESS; ++count) {
        status = Set(key, "value " + std::to_string(count), std::string(32'768, '\xFF'));
    }
    EXPECT_EQ(status, ERROR_ACCESS_DENIED);
    EXPECT_EQ(Get(key, "large"), std::string(32'768, '\xFF'));
}

} // namespace
} // namespace plenair
