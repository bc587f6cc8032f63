#include "core/modRegistry.h"

#include "support/Scripted.h"

#include <gtest/gtest.h>

namespace plenair {
namespace {

class modRegistry : public testing::Test {
  protected:
    modRegistry() {
        RegCreateKeyExA(HKEY_CURRENT_USER, "Software\\Test", 0, 0, KEY_ALL_ACCESS, m_key);
        EXPECT_NE(m_key, 0U);
    }
    ~modRegistry() override { RegCloseKey(m_key); }

    void Store(const std::string& name, std::uint32_t type, const std::string& bytes) {
        ASSERT_EQ(RegSetValueExA(m_key, name, type, reinterpret_cast<const unsigned char*>(bytes.data()),
                                 static_cast<std::uint32_t>(bytes.size())),
                  ERROR_SUCCESS);
    }

    RegistryValue Read(const std::string& name) {
        return RegReadValue(HKEY_CURRENT_USER, "Software\\Test", name);
    }

    ProgramEnvironment m_environment;
    RegistryKey m_key = 0;
};

const RegistryValue Untouched = std::int32_t{-7};

TEST_F(modRegistry, ReadsByType) {
    const struct {
        const char* name;
        std::uint32_t type;
        std::string bytes;
        RegistryStatus status;
        RegistryValue value;
    } rows[] = {
        {"text", REG_SZ, "112026", 0, "112026"},
        {"text with its terminator", REG_SZ, std::string("112026\0", 7), 0, std::string("112026\0", 7)},
        {"empty text", REG_SZ, "", 0, ""},
        {"number", REG_DWORD, std::string("\x01\x02\0\x80", 4), 0, std::int32_t(0x80000201)},
        {"bytes", 3, "112026", -1, Untouched},
        {"list of texts", 7, "112026", -1, Untouched},
        {"number too long for 32 bits", REG_DWORD, "12345678", ERROR_MORE_DATA, Untouched},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Store("Value", row.type, row.bytes);
        RegistryValue value = Untouched;
        EXPECT_EQ(RegQueryValue(m_key, "Value", value), row.status);
        EXPECT_EQ(value, row.value);
        EXPECT_EQ(Read("Value"), row.value == Untouched ? RegistryValue() : row.value);
    }
}

TEST_F(modRegistry, WhatIsMissingIsEmpty) {
    EXPECT_EQ(Read("Missing"), RegistryValue());
    EXPECT_EQ(RegReadValue(HKEY_CURRENT_USER, "Software\\Missing", "Value"), RegistryValue());
    RegistryValue value = Untouched;
    EXPECT_EQ(RegQueryValue(m_key, "Missing", value), 0);
    EXPECT_EQ(RegQueryValue(0, "Value", value), 0);
    EXPECT_EQ(value, Untouched);
}

TEST_F(modRegistry, WritesByType) {
    const auto write = [](const RegistryValue& value, std::uint32_t type) {
        RegWriteValue(HKEY_CURRENT_USER, "Software\\Test", "Value", value, type);
    };
    write("112026", REG_SZ);
    EXPECT_EQ(Read("Value"), RegistryValue("112026")) << "six bytes, no terminator";
    write(std::int32_t{-5}, REG_DWORD);
    EXPECT_EQ(Read("Value"), RegistryValue(std::int32_t{-5}));
    write("text", 3);
    write("text", REG_DWORD);
    write(std::int32_t{1}, REG_SZ);
    EXPECT_EQ(Read("Value"), RegistryValue(std::int32_t{-5})) << "types that are not served";
    EXPECT_EQ(RegSetValue(m_key, "Value", 3, "text"), 0);
    EXPECT_EQ(RegSetValue(0, "Value", REG_SZ, "text"), ERROR_INVALID_HANDLE);
}

TEST_F(modRegistry, AKeyComesOnlyFromRegCreateKey) {
    const auto write = [] { RegWriteValue(HKEY_CURRENT_USER, "Software\\New", "Value", "x", REG_SZ); };
    const auto read = [] { return RegReadValue(HKEY_CURRENT_USER, "Software\\New", "Value"); };
    write();
    EXPECT_EQ(read(), RegistryValue());
    RegCreateKey(HKEY_CURRENT_USER, "Software\\New");
    write();
    RegCreateKey(HKEY_CURRENT_USER, "Software\\New"); // does no harm
    EXPECT_EQ(read(), RegistryValue("x"));
    SetRegistryFile("");
    RegCreateKey(HKEY_CURRENT_USER, "Software\\Other"); // fails silently
}

TEST_F(modRegistry, MonthsHaveSixCharacters) {
    m_environment.SetToday(2027, 1, 31);
    EXPECT_EQ(ReminderMonth(), "012027");
    m_environment.SetToday(2026, 12, 1);
    EXPECT_EQ(ReminderMonth(), "122026");
}

} // namespace
} // namespace plenair
