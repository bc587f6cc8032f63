#pragma once

#include "project/CalculateMajorStuff.h"
#include "project/DuctSheet.h"
#include "project/PressureCalcs.h"
#include "project/Printout.h"
#include "project/ProjectFiles.h"
#include "project/ProjectGrid.h"
#include "project/ProjectWindows.h"
#include "project/UndoRedo.h"
#include "project/model/ProjectModel.h"
#include "support/Test.h"

#include <span>

namespace plenair {

class FakeSolver : public SolverWindow {
  public:
    FakeSolver() { dialog.CancelError = true; }

    void Repaint() override { ++repaints; }
    void LayOut() override { picGrid.SetSize({width, height}); }
    GridPicture& PicGrid() override { return picGrid; }
    ColourNumber BackColour() const override { return 15790320; }
    void ShowCross(Point place) override { cross = place; }
    bool LabelsTicked() const override { return labels; }
    bool SheetTicked() const override { return sheetTicked; }
    bool IsPressureVisible() const override { return pressureVisible; }
    void SetPressureVisible(bool visible) override { pressureVisible = visible; }
    CommonDialog& Dialog() override { return dialog; }

    double width = 15160;  // a pitch of 379
    double height = 10470; // a pitch of 349
    GridPicture picGrid;
    int repaints = 0;
    bool labels = true;
    bool sheetTicked = true;
    bool pressureVisible = false;
    Point cross;
    CommonDialog dialog;
};

class FakeSheet : public SheetWindow {
  public:
    bool IsVisible() const override { return visible; }
    void Show() override { visible = true; }
    void Hide() override { visible = false; }
    void Repaint() override { log->push_back("repaint " + std::to_string(value) + ": " + AllTexts()); }
    int ScrollValue() const override { return value; }
    void SetScrollValue(int newValue) override {
        newValue = std::min(newValue, maximum);
        if (newValue != value) {
            value = newValue;
            ChangeDuctNo(*windows);
        }
    }
    int ScrollMaximum() const override { return maximum; }
    void SetScrollMaximum(int newMaximum) override {
        maximum = newMaximum;
        SetScrollValue(value);
    }

    std::string DuctNoCaption() const override { return caption; }
    void SetDuctNoCaption(const std::string& text) override { caption = text; }
    void SetDuctNoColour(ColourNumber number) override { colour = number; }
    std::string BoxText(SheetBox box) const override { return texts.contains(box) ? texts.at(box) : ""; }
    void SetBoxText(SheetBox box, const std::string& text) override { texts[box] = text; }
    bool IsBoxEdited(SheetBox) const override { return false; }
    bool IsBoxLocked(SheetBox box) const override { return looks.contains(box) && looks.at(box) != 'o'; }
    void SetBoxLook(SheetBox box, bool locked, bool white) override {
        looks[box] = white ? (locked ? 'L' : 'o') : (locked ? 'l' : '!');
    }
    bool FollowOnTicked() const override { return followOn; }

    // A letter for each box: open on white o, locked on white L, without white l.
    std::string Looks() const {
        return Joined(
            looks, [](const auto& box) { return std::string(1, box.second); }, "");
    }

    // The texts of all boxes, divided by blanks.
    std::string AllTexts() const {
        return Joined(texts, [](const auto& box) { return box.second; });
    }

    bool visible = false;
    int value = 1;
    int maximum = 1;
    std::string caption = "1";
    ColourNumber colour = 0;
    std::map<SheetBox, std::string> texts;
    std::map<SheetBox, char> looks;
    bool followOn = false;
    std::vector<std::string>* log = nullptr;
    const ProjectWindows* windows = nullptr;
};

// Notes what is printed on it, in order; fails at the page of that number.
class NotedPrinter : public Printer {
  public:
    Extent Size() const override { return m_isPortrait ? Extent{12000, 16000} : Extent{16000, 12000}; }
    void SetLineWidth(int width) override { Note("width ") << width; }
    void SetLineStyle(LineStyle style) override { Note("style ") << static_cast<int>(style); }
    void Line(Point start, Point end, ColourNumber colour) override {
        Note("line ") << start.X << ',' << start.Y << ' ' << end.X << ',' << end.Y << ' ' << colour;
    }
    void Box(Point corner, Point opposite, ColourNumber colour) override {
        Note("box ") << corner.X << ',' << corner.Y << ' ' << opposite.X << ',' << opposite.Y << ' '
                     << colour;
    }
    void SetPosition(Point place) override { Note("at ") << place.X << ',' << place.Y; }
    void SetColourMode(ColourMode mode) override { Note("colour mode ") << static_cast<int>(mode); }
    void SetOrientation(PageOrientation orientation) override {
        m_isPortrait = orientation == PageOrientation::Portrait;
        Note(m_isPortrait ? "portrait" : "landscape");
    }
    void SetFont(const std::string& name, double points, bool bold) override {
        Note(name) << ' ' << points << (bold ? " bold" : "");
    }
    void Print(const std::string& text) override { Note("'" + text); }
    void NewPage() override {
        Note("page");
        if (++m_pages == FailsAtPage) {
            throw PrinterFailure("no paper");
        }
    }
    void EndDoc() override { Note("end"); }
    void KillDoc() override { Note("kill"); }

    // All since the last call.
    std::string Log() {
        const std::string log = m_log.str();
        m_log.str("");
        return log;
    }
    int FailsAtPage = 0;

  private:
    std::ostringstream& Note(const std::string& what) {
        m_log << '|' << what;
        return m_log;
    }

    std::ostringstream m_log; // each entry with a bar before it
    bool m_isPortrait = true;
    int m_pages = 0;
};

// The items of a picture, as in "2 line 255: 0,0 379,349" or "text R1: 200,100", a dashed line with "2-".
inline std::vector<std::string> Described(const std::vector<DrawnItem>& items, std::size_t from = 0) {
    std::vector<std::string> all;
    for (std::size_t index = from; index < items.size(); ++index) {
        const DrawnItem& item = items[index];
        std::ostringstream text; // of six digits, as the sums are a bit off
        if (item.Kind == DrawnItem::Shape::Text) {
            text << "text " << item.Text << ": " << item.Start.X << ',' << item.Start.Y;
        } else {
            text << item.LineWidth << (item.Style == LineStyle::Dashed ? "-" : "")
                 << (item.Kind == DrawnItem::Shape::Line ? " line " : " box ") << item.Colour << ": "
                 << item.Start.X << ',' << item.Start.Y << ' ' << item.End.X << ',' << item.End.Y;
        }
        all.push_back(text.str());
    }
    return all;
}

using Lines = std::vector<std::string>;

// The grid lines come first in a picture of the network.
constexpr std::size_t GridLines = 39 + 29;

// A solver that has just been opened, with an empty project. Its scripts have the words of the window tests:
//
//     ?Ok ?=plant.gsp     answers that are to come (ScriptedDesktop::Expect)
//     #3,4                a click on that crossing of the grid
//     +R:500,0,300        a rigid duct, straight into the records, with values in the order of the sheet's
//                         boxes; also F, C or the number of a colour
//     Save                a command
class ProjectTest : public ProgramTest {
  protected:
    ProjectTest() {
        sheet.log = &desktop.Log;
        sheet.windows = &windows;
        StartProject();
        DrawColour = kRigidColour;
        ResetProjectGrid(windows);
    }

    void Do(const std::string& step) override {
        static const std::map<std::string, std::function<void(const ProjectWindows&)>> s_commands = {
            {"Save", SaveProject},     {"Load", LoadProject},    {"Clear", ClearGrid},
            {"Solve", SolveProject},   {"Path", AskForPath},     {"Undo", Undo},
            {"Redraw", RedrawProject}, {"Less", RemoveLastDuct}, {"SolveDucts", SolveDucts},
            {"Sheet", ShowOrHideSheet}};
        int column = 0;
        int row = 0;
        if (std::sscanf(step.c_str(), "#%d,%d", &column, &row) == 2) {
            Click(P * column + 3, Q * row + 4);
        } else if (step[0] == '+') {
            std::istringstream values(step.substr(1));
            std::string value;
            std::getline(values, value, ':');
            DuctRecord& duct = Add(value == "R"   ? kRigidColour
                                   : value == "F" ? kFlexibleColour
                                   : value == "C" ? kConnectionColour
                                                  : std::stof(value));
            for (int box = 1; std::getline(values, value, ','); ++box) {
                EXPECT_TRUE(StoreText(duct, static_cast<SheetBox>(box), value)) << value;
            }
        } else if (step == "Start") {
            StartProject();
            sheet.value = 1;
        } else if (step == "Print") {
            PrintShown(windows, printer);
        } else if (s_commands.contains(step)) {
            s_commands.at(step)(windows);
        } else {
            ProgramTest::Do(step);
        }
    }
    std::string Ask(const std::string& question) override {
        return question == "sheet"   ? sheet.AllTexts()
               : question == "ducts" ? Values()
               : question == "state" ? State()
                                     : ProgramTest::Ask(question);
    }
    // As in "2 of plant.gsp, solved, plot, sheet, held".
    std::string State() const {
        return std::to_string(DuctCount) + (ProjectName.empty() ? "" : " of " + ProjectName) +
               (Solved == kFlagSet ? ", solved" : "") + (PlotShowing == kFlagSet ? ", plot" : "") +
               (sheet.visible ? ", sheet" : "") + (DrawPending == kFlagSet ? ", held" : "");
    }
    // Of all ducts, in the order of the sheet's boxes, without the zeros at the end: "R 100 0 200, C, F 5".
    static std::string Values() {
        const auto valuesOf = [](const DuctRecord& duct) {
            std::string values = TypeLetter(duct.Colour);
            for (const SheetRow& row : kSheetRows) {
                values += " " + TextOf(duct, row.Box);
            }
            while (values.ends_with(" 0")) {
                values.resize(values.size() - 2);
            }
            return values;
        };
        return Joined(std::span(Ducts).subspan(1), valuesOf, ", ");
    }

    void Click(double x, double y) {
        ClickGrid(windows, MouseButton::Left, static_cast<float>(x), static_cast<float>(y));
    }

    // Adds an element to the project, straight into the records.
    static DuctRecord& Add(DuctRecord record) {
        ++DuctCount;
        FitDucts();
        return Ducts.back() = record;
    }
    static DuctRecord& Add(float colour) { return Add(DuctRecord{.Colour = colour}); }
    static void AddDucts(int count) {
        DuctCount = static_cast<std::int16_t>(count);
        FitDucts();
    }

    // What has been drawn on the grid, behind its lines or more.
    Lines Drawn(std::size_t behind = GridLines) const { return Described(solver.picGrid.Items(), behind); }

    static constexpr double P = 379; // pitch across
    static constexpr double Q = 349; // pitch down

    FakeSolver solver;
    FakeSheet sheet;
    ProjectWindows windows{solver, sheet};
    NotedPrinter printer;
};

} // namespace plenair
