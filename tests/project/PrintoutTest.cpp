#include "platform/desktop/Clipboard.h"
#include "platform/text/SpreadsheetDocument.h"
#include "project/CopyProject.h"
#include "project/FakeWindows.h"

namespace {

class PrintoutTest : public ProjectTest {
  protected:
    // How often each of these was noted since the last question: turned pages, ends and landscapes.
    std::string Ask(const std::string& question) override {
        if (question != "printed") {
            return ProjectTest::Ask(question);
        }
        log = printer.Log();
        std::string counts;
        for (const std::string entry : {"|page", "|end", "|landscape"}) {
            int count = 0;
            for (std::size_t at = 0; (at = log.find(entry, at)) != log.npos; ++at) {
                ++count;
            }
            counts += std::to_string(count) + entry;
        }
        return counts;
    }

    std::string log;
};

TEST_F(PrintoutTest, NetworkAndDataInThisOrder) {
    Add({.Colour = kConnectionColour,
         .StartX = 0.25,
         .EndX = 0.5,
         .EndY = 0.5,
         .ConnCoefficient = 0.1F,
         .Length = 1E15,
         .Width = 0.1 + 0.2,
         .Velocity = 2.5});
    Play("?Yes ?*1 Print");
    EXPECT_EQ(
        printer.Log(),
        "|colour mode 2|landscape|Arial 9|style 0|width 3|box 3950,-50 4050,50 0|box 7950,5950 8050,6050 0"
        "|line 4000,0 8000,6000 65535|at 6000,3000|'C1|page|portrait|Arial 12 bold|'---"
        "|'Duct Number C1|'---|Arial 9|'|'Duct Type: Flexible|'Flow Rate (L/s): \t0|'Width (mm): \t\t0.3"
        "|'Height (mm): \t0|'Length (mm): \t1E+15|'Velocity (m/s): \t2.5|'Pressure Loss (Pa/m): 0"
        "|'Equivalent Circular Diameter (mm): \t0|'Fitting Coefficient at Start: \t0.1|'|end");
}

TEST_F(PrintoutTest, PagesCopiesAndEndings) {
    Play("?Ok Print | printed: 0|page0|end0|landscape"); // no ducts, and so nothing else is asked
    AddDucts(3);
    Play("#1,1 ?Yes ?*1 Print | state: 3; printed: 1|page1|end1|landscape");
    AddDucts(4);
    Play("?Yes ?*1 Print | printed: 2|page1|end1|landscape");
    AddDucts(5);
    Play(R"(?Yes ?*2 Print | printed: 4|page2|end2|landscape
            ?No ?*3 Print | printed: 0|page3|end3|landscape
            ?Yes ?- Print | printed: 0|page0|end0|landscape)");
    printer.FailsAtPage = 9; // the second of the first copy
    Play("?Yes ?*3 Print | printed: 2|page0|end1|landscape");
    EXPECT_TRUE(log.ends_with("|kill"));
}

TEST_F(PrintoutTest, LongOnesShowHowFarTheyAreAndCanBeCancelled) {
    int asked = 0;
    int cancelAt = 0;
    Desktop().StartProgress = [&](const ProgressRequest& request) {
        EXPECT_EQ(request.Title + request.Text + std::to_string(request.Steps),
                  "Print ProjectPrinting...1600");
        return [&](int done) {
            EXPECT_EQ(done, ++asked);
            return done != cancelAt;
        };
    };
    AddDucts(400);
    Play("?Yes ?*1 Print"); // 100 pages are not long
    EXPECT_EQ(asked, 0);
    printer.Log();
    // All; in the network, in the data, in the second copy.
    const std::pair<int, const char*> rows[] = {{1600, "202|page2|end2|landscape"},
                                                {100, "0|page0|end1|landscape"},
                                                {700, "76|page0|end1|landscape"},
                                                {1400, "152|page1|end2|landscape"}};
    for (const auto& [step, printed] : rows) {
        asked = 0;
        cancelAt = step == 1600 ? 0 : step;
        Play("?Yes ?*2 Print | printed: " + std::string(printed));
        EXPECT_EQ(asked, step);
        EXPECT_EQ(log.ends_with("|kill"), step < 1600);
    }
}

// As the user reads numbers.
TEST_F(PrintoutTest, CopyOfDuctsOrPath) {
    ClipboardContent copied;
    Desktop().Copy = [&](const ClipboardContent& content) { copied = content; };
    CopyShown(windows);
    EXPECT_TRUE(copied.Table.empty()) << "nothing is copied over what the clipboard had";
    Play("+R:1250.5,350,0,5000,0,0.83 +C:0,0,0,0,5,0,0,0.5 +7:0,0,1E20");
    SetNumberLocale({",", "."});
    CopyShown(windows);
    EXPECT_EQ(TabSeparated(copied.Table),
              "Duct\tKind\tFlow (L/s)\tWidth (mm)\tHeight (mm)\tLength (mm)\tVelocity (m/s)\t"
              "Pa/m Loss (Pa)\tEquiv. Round Duct (mm)\tConnection Coefficient\n"
              "R1\tRigid\t1250,5\t350\t0\t5000\t0\t0,83\t0\t0\n"
              "C2\tConnection\t0\t0\t0\t0\t5\t0\t0\t0,5\n"
              "3\t\t0\t0\t1E+20\t0\t0\t0\t0\t0\n");
    EXPECT_EQ(copied.Picture, &solver.picGrid);
    EXPECT_EQ(
        HtmlTable({{"a<b>&"}, {"1250,5", "C2"}}),
        "<html><head><meta http-equiv=\"content-type\" content=\"text/html; charset=utf-8\"></head><body>"
        "<table border=\"1\" cellspacing=\"0\">\n<tr><th>a&lt;b&gt;&amp;</th></tr>\n"
        "<tr><td align=\"right\">1250,5</td><td>C2</td></tr>\n</table></body></html>\n");
    const std::string spreadsheet = SpreadsheetDocument({{"a<b>&"}, {"1250,5", "C2"}});
    EXPECT_NE(spreadsheet.find("office:value=\"1250.5\"><text:p>1250,5</text:p>"), spreadsheet.npos);
    std::uint32_t sum = 0; // of the very bytes that Gnumeric was seen to open
    for (const char byte : spreadsheet) {
        sum = sum * 16777619 + static_cast<unsigned char>(byte);
    }
    EXPECT_EQ(sum, 707156387U) << "see whether office programs still open it";
    Play("?<1,0,2 ?Yes Path ?<2 ?No Path"); // the plot on the grid is still that of the first path
    CopyShown(windows);
    EXPECT_EQ(TabSeparated(copied.Table),
              "Position\tLabel\tLength (mm)\tPressure Drop (Pa)\tRunning Length (mm)\tRunning "
              "Pressure (Pa)\n1\tR1\t5000\t4,15\t5000\t4,15\n2\t\t0\t0\t5000\t4,15\n"
              "3\tC3\t0\t7,411875\t5000\t11,561875\n");
}

} // namespace
