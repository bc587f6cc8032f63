#include "platform/TextFiles.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <vector>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace plenair {
namespace {

namespace fs = std::filesystem;

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

TEST_F(TextFiles, ReadsTextItems) {
    using Texts = std::vector<std::string>;
    const struct {
        const char* name;
        std::string content;
        Texts texts;
        Quotes quotes = Quotes::Closes;
    } rows[] = {
        {"empty file", "", {}},
        {"no line end at the end", "a\r\nb", {"a", "b"}},
        {"all line ends", "a\r\nb\rc\nd\n\re", {"a", "b", "c", "d", "", "e"}},
        {"commas", "a,b,,c", {"a", "b", "", "c"}},
        {"a comma and a line end", "a,\r\nb", {"a", "", "b"}},
        {"blanks around", "  a b \t, \tc  ", {"a b", "c"}},
        {"only blanks", "  ", {""}},
        {"empty line", "a\r\n\r\nb", {"a", "", "b"}},
        {"quoted", "\"a, b\r\nc\"\r\n\"\"\r\nd", {"a, b\r\nc", "", "d"}},
        {"blanks in and around quotes", " \" a \" \r\nb", {" a ", "b"}},
        {"text behind a quote", "\"a\"b,c", {"a", "b", "c"}},
        {"quote in the middle", "a\"b,c\"", {"a\"b", "c\""}},
        {"quote never closed", "\"a\r\nb,", {"a\r\nb,"}},
        {"nothing but a quote", "\"", {""}},
        {"two quotes end the item", "\"a\"\"b\"", {"a", "b"}},
        {"doubled", "\"a\"\"b\"\"\",c", {"a\"b\"", "c"}, Quotes::Doubled},
        {"doubled, never closed", "\"a\"\"", {"a\""}, Quotes::Doubled},
        {"any byte", std::string("a\0\xA4\x1A,\xFF", 6), {std::string("a\0\xA4\x1A", 4), "\xFF"}},
        {"longest item", std::string(65536, 'x') + ",b", {std::string(65536, 'x'), "b"}},
        {"CR LF over two pieces", std::string(8191, 'x') + "\r\nb", {std::string(8191, 'x'), "b"}},
    };
    for (const auto& row : rows) {
        WriteFile(File("items"), row.content);
        EXPECT_EQ(TextsOf(File("items"), row.quotes), row.texts) << row.name;
    }
}

TEST_F(TextFiles, ReadsNumberItems) {
    WriteFile(File("items"), " 1,2 \r\n3 4 , -5E+01\n\nx\r\n\"a\"\r\n6");
    ItemReader reader(File("items"));
    for (const char* text : {"1", "2", "3", "4", "-5E+01", "", "x"}) {
        EXPECT_EQ(reader.ReadNumberText(), text);
    }
    EXPECT_EQ(reader.ReadText(), "a");
    EXPECT_EQ(reader.ReadNumberText(), "6");
    EXPECT_TRUE(reader.AtEnd());
    EXPECT_THROW(reader.ReadNumberText(), FileFailure);
    EXPECT_THROW(reader.ReadText(), FileFailure);
}

TEST_F(TextFiles, EndlessItemsFail) {
    for (const char* start : {"", "\"", " "}) {
        WriteFile(File("items"), start + std::string(65537, *start == ' ' ? ' ' : '\0'));
        EXPECT_EQ(ReasonOf([&] { ItemReader(File("items")).ReadText(); }), File("items") + ": Item too long");
        EXPECT_EQ(ReasonOf([&] { ItemReader(File("items")).ReadNumberText(); }),
                  File("items") + ": Item too long");
    }
}

TEST_F(TextFiles, OnlyRegularFilesAreRead) {
    ASSERT_EQ(mkfifo(File("pipe").c_str(), 0600), 0);
    const struct {
        std::string path;
        std::string reason;
    } rows[] = {
        {File("missing"), "No such file or directory"},
        {m_folder.Path(), "Is a directory"},
        {File("pipe"), "Not a regular file"},
        {"/dev/zero", "Not a regular file"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ReasonOf([&] { ItemReader reader(row.path); }), row.path + ": " + row.reason);
    }
}

TEST_F(TextFiles, QuotedTextComesBack) {
    for (const std::string text : {"", "\"", "\"\"", "a\"b", ",\r\n", " a ", "\\"}) {
        WriteFile(File("items"), Quoted(text) + "," + Quoted(text) + "\r\n");
        EXPECT_EQ(TextsOf(File("items"), Quotes::Doubled), std::vector<std::string>(2, text)) << text;
    }
}

TEST_F(TextFiles, WritesNewAndReplacesOlderFiles) {
    const mode_t oldMask = umask(027);
    WriteWholeFile(File("new"), "one");
    umask(oldMask);
    EXPECT_EQ(fs::status(File("new")).permissions(), fs::perms(0640));

    const std::string large(3'000'000, 'x');
    fs::permissions(File("new"), fs::perms(0604));
    WriteWholeFile(File("new"), large);
    EXPECT_EQ(ReadFile(File("new")), large);
    EXPECT_EQ(fs::status(File("new")).permissions(), fs::perms(0604));

    WriteWholeFile(File("new"), "");
    EXPECT_EQ(ReadFile(File("new")), "");
    EXPECT_EQ(Names(), std::set<std::string>{"new"});
}

TEST_F(TextFiles, LinksStayLinks) {
    fs::create_directory(File("sub"));
    fs::create_symlink("sub/target", File("inner"));
    fs::create_symlink(File("inner"), File("outer"));
    for (const char* content : {"the link leads nowhere yet", "the target is there"}) {
        WriteWholeFile(File("outer"), content);
        EXPECT_EQ(ReadFile(File("sub/target")), content);
        EXPECT_TRUE(fs::is_symlink(File("outer")) && fs::is_symlink(File("inner"))) << content;
    }
    fs::create_symlink("circle", File("circle"));
    EXPECT_THROW(WriteWholeFile(File("circle"), "x"), FileFailure);
}

TEST_F(TextFiles, FailedWritesLeaveEverythingAsItWas) {
    WriteFile(File("kept"), "old");
    fs::create_directory(File("folder"));
    ASSERT_EQ(mkfifo(File("pipe").c_str(), 0600), 0);
    const std::set<std::string> before = Names();

    const struct {
        std::string path;
        std::string reason;
    } rows[] = {
        {File("folder"), "Is a directory"},
        {File("folder") + "/", "Is a directory"},
        {File("pipe"), "Not a regular file"},
        {"/dev/null", "Not a regular file"},
        {File("missing/file"), "No such file or directory"},
        {File("kept/file"), "Not a directory"},
        {"", "No such file or directory"},
        {File(std::string(300, 'x')), "File name too long"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ReasonOf([&] { WriteWholeFile(row.path, "new"); }), row.path + ": " + row.reason);
        EXPECT_EQ(Names(), before) << row.path;
    }
}

TEST_F(TextFiles, ADiskThatFillsUpKeepsTheOlderFile) {
    WriteFile(File("kept"), "old");
    // A limit on the size of a file stands in for a full disk: the first pieces are taken, then one is not.
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit tight{100'000, limit.rlim_max};
    const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &tight);
    const std::string reason = ReasonOf([&] { WriteWholeFile(File("kept"), std::string(1'000'000, 'x')); });
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, oldHandler);

    EXPECT_EQ(reason, File("kept") + ": File too large");
    EXPECT_EQ(ReadFile(File("kept")), "old");
    EXPECT_EQ(Names(), std::set<std::string>{"kept"});
}

// An administrator may write everything, so these tests give that up for a while.
class CommonUser {
  public:
    CommonUser() { m_changed = geteuid() == 0 && seteuid(65534) == 0; }
    ~CommonUser() {
        if (m_changed && seteuid(0) != 0) {
            std::abort();
        }
    }

  private:
    bool m_changed = false;
};

TEST_F(TextFiles, ProtectedFilesAndFoldersAreNotWritten) {
    WriteFile(File("protected"), "old");
    fs::permissions(File("protected"), fs::perms(0444));
    fs::permissions(m_folder.Path(), fs::perms(0777));
    {
        const CommonUser user;
        if (faccessat(AT_FDCWD, m_folder.Path().c_str(), W_OK, AT_EACCESS) != 0) {
            GTEST_SKIP() << "the folder for temporary files is closed to common users";
        }
        const std::string denied = ": Permission denied";
        EXPECT_EQ(ReasonOf([&] { WriteWholeFile(File("protected"), "new"); }), File("protected") + denied);
        WriteWholeFile(File("other"), "free");
        fs::permissions(File("other"), fs::perms(0000));
        EXPECT_EQ(ReasonOf([&] { ItemReader reader(File("other")); }), File("other") + denied);
    }
    fs::permissions(m_folder.Path(), fs::perms(0555));
    {
        const CommonUser user;
        EXPECT_THROW(WriteWholeFile(File("another"), "new"), FileFailure);
    }
    fs::permissions(m_folder.Path(), fs::perms(0700));
    EXPECT_EQ(ReadFile(File("protected")), "old");
    EXPECT_EQ(Names(), (std::set<std::string>{"other", "protected"}));
}

TEST_F(TextFiles, FindsTheFirstFileOfAnExtension) {
    EXPECT_EQ(FirstFileWithExtension(m_folder.Path(), ".cfg"), std::nullopt);
    fs::create_directory(File("folder.cfg"));
    fs::create_symlink(File("missing"), File("nowhere.cfg"));
    WriteFile(File("User.cfg.bak"), "");
    EXPECT_EQ(FirstFileWithExtension(m_folder.Path(), ".cfg"), std::nullopt);
    fs::create_symlink(File("User.cfg.bak"), File("link.cfg"));
    EXPECT_EQ(FirstFileWithExtension(m_folder.Path(), ".cfg"), "link.cfg");
    EXPECT_EQ(ReasonOf([&] { FirstFileWithExtension(File("missing"), ".cfg"); }),
              File("missing") + ": No such file or directory");
}

TEST_F(TextFiles, TheFirstFileIsTheOneThatTheSystemListsFirst) {
    for (const char* name : {"z.cfg", "a.cfg", "m.cfg", "User.cfg"}) {
        WriteFile(File(name), "");
    }
    const std::string first = fs::directory_iterator(m_folder.Path())->path().filename().string();
    EXPECT_EQ(FirstFileWithExtension(m_folder.Path(), ".cfg"), first);
}

} // namespace
} // namespace plenair
