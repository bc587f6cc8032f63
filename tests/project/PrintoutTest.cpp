#include "project/Printout.h"
#include "project/FakeWindows.h"
#include "project/model/DuctPath.h"

namespace {

// Notes what is printed on it, in order; fails at the page of that number.
class NotedPrinter : public Printer {
  public:
    Extent Size() const override { return m_isPortrait ? Extent{12000, 16000} : Extent{16000, 12000}; }
    void SetLineWidth(int width) override { Note() << "width " << width; }
    void SetLineStyle(LineStyle) override {}
    void Line(Point start, Point end, ColourNumber colour) override {
        Note() << "line " << start.X << ',' << start.Y << ' ' << end.X << ',' << end.Y << ' ' << colour;
    }
    void Box(Point corner, Point opposite, ColourNumber) override {
        Note() << "box " << corner.X << ',' << corner.Y << ' ' << opposite.X << ',' << opposite.Y;
    }
    void SetPosition(Point place) override { Note() << "at " << place.X << ',' << place.Y; }
    void SetColourMode(ColourMode mode) override { Note() << "colour mode " << static_cast<int>(mode); }
    void SetOrientation(PageOrientation orientation) override {
        m_isPortrait = orientation == PageOrientation::Portrait;
        Note() << (m_isPortrait ? "portrait" : "landscape");
    }
    void SetFont(const std::string& name, double points, bool bold) override {
        Note() << name << ' ' << points << (bold ? " bold" : "");
    }
    void Print(const std::string& text) override { Note() << "\"" << text << "\""; }
    void NewPage() override {
        Note() << "page";
        if (++m_pages == FailsAtPage) {
            throw PrinterFailure("no paper");
        }
    }
    void EndDoc() override { Note() << "end"; }
    void KillDoc() override { Note() << "kill"; }

    Lines Log() {
        Lines lines;
        std::string line;
        for (std::istringstream all(m_log.str()); std::getline(all, line);) {
            lines.push_back(line);
        }
        m_log.str("");
        return lines;
    }
    auto Times(const std::string& line) {
        const Lines all = Log();
        return std::count(all.begin(), all.end(), line);
    }
    int FailsAtPage = 0;

  private:
    std::ostringstream& Note() {
        m_log << (m_log.str().empty() ? "" : "\n");
        return m_log;
    }

    std::ostringstream m_log;
    bool m_isPortrait = true;
    int m_pages = 0;
};

class PrintoutTest : public ProjectTest {
  protected:
    void Print(MessageAnswer withData, int copies) {
        desktop.ExpectMessage(withData);
        desktop.ExpectPrinter(copies);
        PrintShown(windows, printer);
    }

    NotedPrinter printer;
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
    Print(MessageAnswer::Yes, 1);
    EXPECT_EQ(printer.Log(), (Lines{"colour mode 2",
                                    "landscape",
                                    "Arial 9",
                                    "width 3",
                                    "box 3950,-50 4050,50",
                                    "box 7950,5950 8050,6050",
                                    "line 4000,0 8000,6000 65535",
                                    "at 6000,3000",
                                    "\"C1\"",
                                    "page",
                                    "portrait",
                                    "Arial 12 bold",
                                    "\"---\"",
                                    "\"Duct Number C1\"",
                                    "\"---\"",
                                    "Arial 9",
                                    "\"\"",
                                    "\"Duct Type: Flexible\"",
                                    "\"Flow Rate (L/s): \t0\"",
                                    "\"Width (mm): \t\t0.3\"",
                                    "\"Height (mm): \t0\"",
                                    "\"Length (mm): \t1E+15\"",
                                    "\"Velocity (m/s): \t2.5\"",
                                    "\"Pressure Loss (Pa/m): 0\"",
                                    "\"Equivalent Circular Diameter (mm): \t0\"",
                                    "\"Fitting Coefficient at Start: \t0.1\"",
                                    "\"\"",
                                    "end"}));
    EXPECT_EQ(desktop.LastDialog().Flags, 12);
    EXPECT_TRUE(desktop.LastDialog().PrinterDefault);
}

TEST_F(PrintoutTest, PagesCopiesAndEndings) {
    desktop.ExpectMessage(MessageAnswer::Ok); // and nothing else is asked
    PrintShown(windows, printer);
    EXPECT_TRUE(printer.Log().empty());
    EXPECT_TRUE(desktop.LastText().starts_with("There is nothing to print"));
    const struct {
        int ducts;
        MessageAnswer withData;
        int copies;
        int pages; // turned
    } rows[] = {{3, MessageAnswer::Yes, 1, 1},
                {4, MessageAnswer::Yes, 1, 2},
                {5, MessageAnswer::Yes, 2, 4},
                {5, MessageAnswer::No, 3, 0}};
    for (const auto& row : rows) {
        while (DuctCount < row.ducts) {
            Add(kRigidColour);
        }
        Print(row.withData, row.copies);
        const Lines log = printer.Log();
        EXPECT_EQ(std::count(log.begin(), log.end(), "page"), row.pages);
        EXPECT_EQ(std::count(log.begin(), log.end(), "end"), row.copies);
        EXPECT_EQ(std::count(log.begin(), log.end(), "landscape"), row.copies);
    }
    desktop.ExpectMessage(MessageAnswer::Yes);
    desktop.ExpectCancel();
    PrintShown(windows, printer);
    EXPECT_TRUE(printer.Log().empty());
    printer.FailsAtPage = 8; // the second of the first copy
    Print(MessageAnswer::Yes, 3);
    const Lines log = printer.Log();
    EXPECT_EQ(log.back(), "kill");
    EXPECT_EQ(std::count(log.begin(), log.end(), "end"), 0);
}

TEST_F(PrintoutTest, LongOnesShowHowFarTheyAreAndCanBeCancelled) {
    int asked = 0;
    int cancelAt = 0;
    ProgressRequest shown;
    Desktop().StartProgress = [&](const ProgressRequest& request) {
        shown = request;
        return [&](int done) {
            EXPECT_EQ(done, ++asked);
            return done != cancelAt;
        };
    };
    DuctCount = 400;
    FitDucts();
    Print(MessageAnswer::Yes, 1); // 100 pages
    EXPECT_EQ(asked, 0);
    Print(MessageAnswer::Yes, 2);
    EXPECT_EQ(asked, 1600);
    EXPECT_EQ(shown.Steps, 1600);
    for (const int step : {100, 700, 1400}) { // in the network, in the data, in the second copy
        printer.Log();
        asked = 0;
        cancelAt = step;
        Print(MessageAnswer::Yes, 2);
        const Lines log = printer.Log();
        EXPECT_EQ(asked, step);
        EXPECT_EQ(log.back(), "kill");
        EXPECT_EQ(std::count(log.begin(), log.end(), "end"), step / 800);
    }
}

} // namespace
