#include "platform/CommonDialog.h"
#include "platform/CurrentFolder.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace plenair {

namespace {

class CommonDialogTest : public ::testing::Test {
  protected:
    CommonDialogTest() : m_start(CurrentFolder()) {
        SetCommonDialogProvider([this](DialogKind, CommonDialog& shown) {
            shown.FileName = answer;
            return !answer.empty();
        });
        dialog.DefaultExt = "gsp";
    }
    ~CommonDialogTest() override {
        SetCommonDialogProvider({});
        EnterFolder(m_start);
    }

    TemporaryFolder folder;
    CommonDialog dialog;
    std::string answer;

  private:
    std::string m_start;
};

} // namespace

TEST_F(CommonDialogTest, AcceptedFileMovesTheCurrentFolder) {
    answer = folder.File("Lüftung 1.gsp");
    dialog.ShowSave();
    EXPECT_EQ(dialog.FileName, answer);
    EXPECT_EQ(dialog.FileTitle, "Lüftung 1.gsp");
    EXPECT_EQ(CurrentFolder(), folder.Path());
    EXPECT_EQ(InCurrentFolder("x.Gus"), folder.File("x.Gus"));
    answer = folder.File("missing/plant.gsp");
    dialog.ShowOpen();
    EXPECT_EQ(CurrentFolder(), folder.Path());
}

TEST_F(CommonDialogTest, DefaultExtension) {
    answer = folder.File("plant");
    dialog.ShowSave();
    EXPECT_EQ(dialog.FileTitle, "plant.gsp");
    dialog.ShowOpen();
    EXPECT_EQ(dialog.FileName, folder.File("plant.gsp"));
    WriteFile(answer, "");
    dialog.ShowOpen(); // the file that is there is meant
    EXPECT_EQ(dialog.FileName, folder.File("plant"));
    answer = folder.File("plant.d");
    dialog.ShowSave();
    EXPECT_EQ(dialog.FileTitle, "plant.d");
}

TEST_F(CommonDialogTest, Cancel) {
    dialog.FileName = "offered";
    dialog.FileTitle = "before";
    dialog.ShowSave();
    EXPECT_EQ(dialog.FileName, "");
    EXPECT_EQ(dialog.FileTitle, "before");
    dialog.CancelError = true;
    EXPECT_THROW(dialog.ShowOpen(), DialogCancelled);
    EXPECT_THROW(dialog.ShowPrinter(), DialogCancelled);
    SetCommonDialogProvider({});
    EXPECT_THROW(dialog.ShowSave(), DialogCancelled);
}

TEST(CurrentFolder, CanBeGone) {
    const std::string start = CurrentFolder();
    {
        const TemporaryFolder folder;
        EnterFolder(folder.Path());
    }
    EXPECT_EQ(CurrentFolder(), "");
    EXPECT_EQ(InCurrentFolder("plant.Gus"), "plant.Gus");
    EnterFolder(start);
}

} // namespace plenair
