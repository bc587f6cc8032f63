#include "project/FakeWindows.h"

namespace {

// Scripts turn the sheet to a duct by "@2". By "Leave:2,4" the user has filled the boxes of duct 2 with 1 to
// 8, and leaves box 4.
class SheetTest : public ProjectTest {
  protected:
    void Do(const std::string& step) override {
        int duct = 0;
        int box = 0;
        if (std::sscanf(step.c_str(), "@%d", &duct) == 1) {
            sheet.colour = 1;
            sheet.SetScrollMaximum(duct);
            sheet.SetScrollValue(duct);
        } else if (std::sscanf(step.c_str(), "Leave:%d,%d", &duct, &box) == 2) {
            sheet.value = duct;
            ShowDuctSheet(windows, static_cast<std::int16_t>(duct));
            for (const SheetRow& row : kSheetRows) {
                sheet.texts[row.Box] = std::to_string(PositionOf(row.Box) + 1);
            }
            StoreBox(windows, static_cast<SheetBox>(box));
        } else if (step == "Tick" || step == "Untick") {
            sheet.followOn = step == "Tick";
        } else if (step == "Solved") {
            Solved = kFlagSet;
        } else {
            ProjectTest::Do(step);
        }
    }
    std::string Ask(const std::string& question) override {
        return question == "looks" ? sheet.caption + " " + std::to_string(sheet.colour) + " " + sheet.Looks()
                                   : ProjectTest::Ask(question);
    }
};

// A box is open on white, o, or locked, l, or locked on white, L.
TEST_F(SheetTest, EachTypeHasItsLocks) {
    Play(R"(+R +R #0,0 | state: 2, held
            @2 | looks: R2 255 olooooll; state: 2
            Start +R +F @2 | looks: F2 16711680 olooooll
            Start +R +C @2 | looks: C2 65535 llloollo
            Start +R +7 @2 | looks: 2 7 olooooll
            Start +R +3E38 @2 | looks: 2 1 olooooll
            Start +R +C Solved @2 | looks: C2 65535 LLLLLLLL)");
}

TEST_F(SheetTest, StoresUpToTheFirstTextThatIsNoNumber) {
    const char* const bad[] = {"", "x", "12,5x", "1E400"};
    for (std::size_t wrong = 0; wrong <= kSheetRows.size(); ++wrong) {
        Play("Start +R");
        std::string stored;
        for (const SheetRow& row : kSheetRows) {
            const std::size_t at = PositionOf(row.Box);
            sheet.texts[row.Box] = at == wrong ? bad[at % 4] : std::to_string(at + 1) + ".50";
            stored += at < wrong ? " " + std::to_string(at + 1) + ".5" : "";
        }
        ReadDuctSheet(windows, 1);
        Play("| ducts: R" + stored);
        ShowDuctSheet(windows, 1);
        EXPECT_TRUE((" " + sheet.AllTexts()).starts_with(stored));
    }
    ClearProject();
    ReadDuctSheet(windows, 1); // a project without a duct
    EXPECT_EQ(Ducts[0].Flow, 0);
}

TEST_F(SheetTest, ABoxThatIsLeftIsStoredAndFollowsOnWhereItMay) {
    Play(R"(Tick
            Start +R +C +R Leave:1,1 | ducts: R 1 2 3 4 5 6 7 8, C, R 1
            Start +R +C +R Leave:1,2 | ducts: R 1 2 3 4 5 6 7 8, C, R
            Start +R +C +R Leave:1,4 | ducts: R 1 2 3 4 5 6 7 8, C 0 0 0 4, R 0 0 0 4
            Start +R +C +R Solved Leave:1,1 | ducts: R 1 2 3 4 5 6 7 8, C, R
            Untick
            Start +R +C +R Leave:1,1 | ducts: R 1 2 3 4 5 6 7 8, C, R
            Start +R:0,0,0,0,0,0,0,8 +C)");
    for (const int from : {0, 9, 2, 1}) {
        Play("| ducts: R 0 0 0 0 0 0 0 8, C");
        FollowOn(static_cast<std::int16_t>(from), SheetBox::ConnCoefficient);
    }
    Play("| ducts: R 0 0 0 0 0 0 0 8, C 0 0 0 0 0 0 0 8");
}

} // namespace
