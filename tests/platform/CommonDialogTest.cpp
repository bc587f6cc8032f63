#include "platform/desktop/CommonDialog.h"
#include "platform/desktop/Desktop.h"
#include "platform/files/Folders.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace plenair {

class CommonDialogTest : public ::testing::Test {
  protected:
    CommonDialogTest() {
        Desktop().ShowDialog = [this](DialogKind, CommonDialog& shown) {
            shown.FileName = answer;
            return !answer.empty();
        };
        dialog.DefaultExt = "gsp";
    }
    ~CommonDialogTest() override {
        Desktop().ShowDialog = {};
        EnterFolder(start);
    }

    const std::string start = CurrentFolder();
    TemporaryFolder folder;
    CommonDialog dialog;
    std::string answer;
};

TEST_F(CommonDialogTest, AcceptedFile) {
    answer = folder.File("Lüftung");
    dialog.ShowSave();
    EXPECT_EQ(dialog.FileName, answer + ".gsp");
    EXPECT_EQ(dialog.FileTitle, "Lüftung.gsp");
    EXPECT_EQ(InCurrentFolder("x.Gus"), folder.File("x.Gus"));
    const std::pair<const char*, const char*> names[] = {
        {"Level 1.5", "Level 1.5.gsp"}, {"plant.d", "plant.d"},  {"plant.7z", "plant.7z.gsp"},
        {"plant.über", "plant.über"},   {"plant.", "plant.gsp"}, {".gsp", ".gsp.gsp"}};
    for (const auto& [typed, saved] : names) {
        dialog.FileName = typed;
        EXPECT_EQ(WithDefaultExt(dialog), saved);
    }
    WriteFile(answer, "");
    dialog.ShowOpen(); // the file that is there is meant
    EXPECT_EQ(dialog.FileName, answer);
    answer = folder.File("missing/plant.d");
    dialog.ShowOpen();
    EXPECT_EQ(dialog.FileName, answer);
    EXPECT_EQ(CurrentFolder(), folder.Path());
    EnterFolder(TemporaryFolder().Path()); // which is gone
    EXPECT_EQ(CurrentFolder(), "");
    EXPECT_EQ(InCurrentFolder("plant.Gus"), "plant.Gus");
}

} // namespace plenair
