#include "platform/files/Folders.h"
#include "platform/files/ItemReader.h"
#include "platform/files/RegistryStore.h"
#include "platform/files/WholeFiles.h"
#include "support/Test.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

class TextFiles : public testing::Test {
  protected:
    std::string File(const std::string& name) const { return m_folder.File(name); }

    std::set<std::string> Names() const {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(m_folder.Path())) {
            names.insert(entry.path().filename().string());
        }
        return names;
    }

    TemporaryFolder m_folder;
};

template <typename Action>
std::string ReasonOf(Action action) {
    try {
        action();
    } catch (const FileFailure& failure) {
        return failure.what();
    }
    return "no failure";
}

std::vector<std::string> TextsOf(const std::string& path, Quotes quotes) {
    std::vector<std::string> texts;
    for (ItemReader reader(path, quotes); !reader.AtEnd();) {
        texts.push_back(reader.ReadText());
    }
    return texts;
}

TEST_F(TextFiles, ReadsTextsAndNumbers) {
    const struct {
        std::string content;
        std::vector<std::string> texts;
        Quotes quotes = Quotes::Closes;
    } rows[] = {
        {"", {}},
        {"a\r\nb", {"a", "b"}},
        {"a\r\nb\rc\nd\n\re", {"a", "b", "c", "d", "", "e"}},
        {"a,\r\nb", {"a", "", "b"}},
        {"  a b \t, \tc  ", {"a b", "c"}},
        {"\"a, b\r\nc\"\r\n\"\"\r\nd", {"a, b\r\nc", "", "d"}},
        {" \" a \" \r\nb", {" a ", "b"}},
        {"\"a\"b,c", {"a", "b", "c"}},
        {"a\"b,c\"", {"a\"b", "c\""}},
        {"\"a\r\nb,", {"a\r\nb,"}},
        {"\"a\"\"b\"", {"a", "b"}},
        {"\"a\"\"b\"\"\",c", {"a\"b\"", "c"}, Quotes::Doubled},
        {"\"a\"\"", {"a\""}, Quotes::Doubled},
        {std::string("a\0\xA4\x1A,\xFF", 6), {std::string("a\0\xA4\x1A", 4), "\xFF"}},
        {std::string(131072, 'x') + ",b", {std::string(131072, 'x'), "b"}}, // the longest item
        {std::string(8191, 'x') + "\r\nb", {std::string(8191, 'x'), "b"}},  // CR LF over two pieces
    };
    for (const auto& row : rows) {
        WriteFile(File("items"), row.content);
        EXPECT_EQ(TextsOf(File("items"), row.quotes), row.texts) << row.content;
    }
    for (const std::string text : {"", "\"", "\"\"", "a\"b", ",\r\n", " a ", "\\"}) {
        WriteFile(File("items"), Quoted(text) + "," + Quoted(text) + "\r\n");
        EXPECT_EQ(TextsOf(File("items"), Quotes::Doubled), std::vector<std::string>(2, text)) << text;
    }
    WriteFile(File("items"), " 1,2 \r\n3 4 , -5E+01\n\nx\r\n\"a\"\r\n6");
    ItemReader reader(File("items"));
    for (const char* text : {"1", "2", "3", "4", "-5E+01", "", "x"}) {
        EXPECT_EQ(reader.ReadNumberText(), text);
    }
    EXPECT_EQ(reader.ReadText(), "a");
    EXPECT_EQ(reader.ReadNumberText(), "6");
    EXPECT_THROW(reader.ReadNumberText(), FileFailure);
    EXPECT_THROW(reader.ReadText(), FileFailure);
}

TEST_F(TextFiles, EndlessItemsAndWhatIsNoFileAreNotRead) {
    const std::string tooLong = File("items") + ": Item too long";
    for (const char* start : {"", "\"", " "}) {
        WriteFile(File("items"), start + std::string(131073, *start == ' ' ? ' ' : '\0'));
        EXPECT_EQ(ReasonOf([&] { ItemReader(File("items")).ReadText(); }), tooLong);
        EXPECT_EQ(ReasonOf([&] { ItemReader(File("items")).ReadNumberText(); }), tooLong);
    }
    ASSERT_EQ(mkfifo(File("pipe").c_str(), 0600), 0);
    const std::pair<std::string, const char*> rows[] = {{File("missing"), "No such file or directory"},
                                                        {m_folder.Path(), "Is a directory"},
                                                        {File("pipe"), "Not a regular file"}};
    for (const auto& row : rows) {
        EXPECT_EQ(ReasonOf([&] { ItemReader reader(row.first); }), row.first + ": " + row.second);
    }
}

TEST_F(TextFiles, WritesNewAndReplacesOlderFiles) {
    WriteWholeFile(File("new"), "one");
    fs::permissions(File("new"), fs::perms(0604));
    for (const std::string& content : {std::string(3'000'000, 'x'), std::string()}) {
        WriteWholeFile(File("new"), content);
        EXPECT_EQ(ReadFile(File("new")), content);
        EXPECT_EQ(fs::status(File("new")).permissions(), fs::perms(0604));
    }
    EXPECT_EQ(Names(), std::set<std::string>{"new"});
    for (const char* content : {"the link leads nowhere yet", "the target is there"}) {
        fs::create_symlink("target", File("link " + std::string(content)));
        WriteWholeFile(File("link " + std::string(content)), content);
        EXPECT_EQ(ReadFile(File("target")), content);
    }
}

TEST_F(TextFiles, WhatAKilledProgramLeftBehindIsRemoved) {
    const pid_t child = fork();
    if (child == 0) {
        _exit(0);
    }
    waitpid(child, nullptr, 0);
    const std::string gone = ".plenair-" + std::to_string(child);
    const std::string ours = ".plenair-" + std::to_string(getpid()) + "-0.tmp";
    const std::string parents = ".plenair-" + std::to_string(getppid()) + "-0.tmp";
    std::set<std::string> kept = {"kept",
                                  parents,
                                  ".plenair-1-0.tmp",
                                  ".plenair-0-0.tmp",
                                  gone + ".tmp",
                                  ".plenair--1-0.tmp",
                                  "x" + gone + "-0.tmp"};
    for (const std::string& name : kept) {
        WriteFile(File(name), "");
    }
    fs::create_symlink(File("kept"), File(gone + "-1.tmp"));
    fs::create_directory(File(gone + "-2.tmp"));
    // Of a process whose number means nothing here, as that of a container.
    const int writer = open(File(gone + "-3.tmp").c_str(), O_WRONLY | O_CREAT, 0600);
    ASSERT_EQ(flock(writer, LOCK_EX), 0);
    kept.insert({gone + "-1.tmp", gone + "-2.tmp", gone + "-3.tmp"});
    WriteFile(File(gone + "-0.tmp"), "");
    WriteFile(File(ours), "of one with the number of this one");
    WriteWholeFile(File("kept"), "new");
    EXPECT_EQ(Names(), kept);
    close(writer);
}

TEST_F(TextFiles, FindsTheFirstFileOfAnExtension) {
    fs::create_directory(File("folder.cfg"));
    WriteFile(File("User.cfg.bak"), "");
    EXPECT_EQ(FirstFileWithExtension(m_folder.Path(), ".cfg"), std::nullopt);
    fs::remove(File("folder.cfg"));
    fs::remove(File("User.cfg.bak"));
    for (const char* name : {"z.cfg", "a.cfg", "m.cfg", "User.cfg"}) {
        WriteFile(File(name), "");
    }
    const std::string first = fs::directory_iterator(m_folder.Path())->path().filename().string();
    EXPECT_EQ(FirstFileWithExtension(m_folder.Path(), ".cfg"), first) << "in the order of the system";
    EXPECT_EQ(FirstFileWithExtension(File("missing"), ".cfg"), std::nullopt);
    EXPECT_THROW(FirstFileWithExtension(File("a.cfg"), ".cfg"), FileFailure);
}

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
    EXPECT_EQ(fs::status(m_folder.File("deep")).permissions(), fs::perms::owner_all);
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
