#include "platform/desktop/CommonDialog.h"
#include "platform/files/Folders.h"
#include "support/ScriptedDesktop.h"

#include <gtest/gtest.h>

namespace plenair {

TEST(CommonDialogTest, AcceptedFile) {
    const TemporaryFolder folder;
    ScriptedDesktop desktop;
    CommonDialog dialog;
    dialog.DefaultExt = "gsp";
    const std::string bare = folder.File("Lüftung");
    desktop.ExpectFile(bare);
    dialog.ShowSave();
    EXPECT_EQ(dialog.FileName, bare + ".gsp");
    EXPECT_EQ(dialog.FileTitle, "Lüftung.gsp");
    EXPECT_EQ(InCurrentFolder("x.Gus"), folder.File("x.Gus"));
    const std::pair<const char*, const char*> names[] = {
        {"Level 1.5", "Level 1.5.gsp"}, {"plant.d", "plant.d"},  {"plant.7z", "plant.7z.gsp"},
        {"plant.über", "plant.über"},   {"plant.", "plant.gsp"}, {".gsp", ".gsp.gsp"}};
    for (const auto& [typed, saved] : names) {
        dialog.FileName = typed;
        EXPECT_EQ(WithDefaultExt(dialog), saved);
    }
    WriteFile(bare, ""); // then it is meant
    for (const std::string& path : {bare, folder.File("missing/plant.d")}) {
        desktop.ExpectFile(path);
        dialog.ShowOpen();
        EXPECT_EQ(dialog.FileName, path);
    }
    EXPECT_EQ(CurrentFolder(), folder.Path());
    EnterFolder(TemporaryFolder().Path()); // which is gone
    EXPECT_EQ(CurrentFolder(), "");
    EXPECT_EQ(InCurrentFolder("plant.Gus"), "plant.Gus");
}

} // namespace plenair
