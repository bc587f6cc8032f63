#include "platform/files/ItemReader.h"
#include "platform/files/WholeFiles.h"
#include "support/Test.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

class TextFiles : public ProgramTest {};

TEST_F(TextFiles, EndlessItemsAndWhatIsNoFileAreNotRead) {
    ASSERT_EQ(mkfifo(File("pipe").c_str(), 0600), 0);
    std::vector<std::pair<std::string, const char*>> rows = {{File("missing"), "No such file or directory"},
                                                             {environment.Folder().Path(), "Is a directory"},
                                                             {File("pipe"), "Not a regular file"},
                                                             {File("empty"), "Damaged"}};
    WriteFile(File("empty"), "");
    for (const std::string start : {"", "\"", " "}) {
        rows.emplace_back(File("endless" + start), "Damaged");
        WriteFile(rows.back().first,
                  start == " " ? std::string(131073, ' ') : start + std::string(131073, '\0'));
    }
    for (const auto& [path, reason] : rows) {
        for (const auto& read : {&ItemReader::ReadText, &ItemReader::ReadNumberText}) {
            try {
                ItemReader reader(path);
                ADD_FAILURE() << (reader.*read)().size();
            } catch (const FileFailure& failure) {
                const bool isContent = std::string(reason) == "Damaged";
                EXPECT_EQ(failure.what(), (isContent ? "" : path + ": ") + reason);
            }
        }
    }
    for (const std::size_t length : {131072U, 8191U}) { // the longest; CR LF over two pieces that are read
        WriteFile(File("items"), std::string(length, 'x') + "\r\n" + std::string(131072, ' ') + "b");
        ItemReader reader(File("items"));
        EXPECT_EQ(reader.ReadText().size(), length);
        EXPECT_EQ(reader.ReadText(), "b");
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
    EXPECT_EQ(environment.Folder().Names(), kept);
    close(writer);
}

} // namespace
