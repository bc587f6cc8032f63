#pragma once

#include "core/Settings.h"
#include "platform/NumberText.h"
#include "project/DuctSheet.h"
#include "project/ProjectGrid.h"
#include "project/ProjectWindows.h"
#include "project/ScriptedDesktop.h"
#include "support/Scripted.h"

#include <gtest/gtest.h>

#include <array>
#include <sstream>

namespace plenair {

class FakeSolver : public SolverWindow {
  public:
    explicit FakeSolver(std::vector<std::string>& log) : m_log(log) { dialog.CancelError = true; }

    void LayOut() override { picGrid.SetSize(width, height); }
    GridPicture& PicGrid() override { return picGrid; }
    ColourNumber BackColour() const override { return 15790320; }
    bool LabelsTicked() const override { return labels; }
    bool SheetTicked() const override { return sheetTicked; }
    void SetPressureVisible(bool visible) override {
        pressureVisible = visible;
        m_log.emplace_back(visible ? "pressure button" : "no pressure button");
    }
    CommonDialog& Dialog() override { return dialog; }

    double width = 15160;  // a pitch of 379
    double height = 10470; // a pitch of 349
    GridPicture picGrid;
    bool labels = true;
    bool sheetTicked = false;
    bool pressureVisible = false;
    CommonDialog dialog;

  private:
    std::vector<std::string>& m_log;
};

class FakeSheet : public SheetWindow {
  public:
    explicit FakeSheet(std::vector<std::string>& log) : m_log(log) {}
    void Connect(const ProjectWindows& windows) { m_windows = &windows; }

    bool IsVisible() const override { return visible; }
    void Show() override { SetVisible(true); }
    void Hide() override { SetVisible(false); }
    void Repaint() override { m_log.push_back("repaint " + std::to_string(value) + ": " + AllTexts()); }

    int ScrollValue() const override { return value; }
    void SetScrollValue(int newValue) override {
        newValue = std::min(newValue, maximum);
        if (newValue != value) {
            value = newValue;
            ChangeDuctNo(*m_windows);
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

    std::string BoxText(int box) const override { return texts.at(static_cast<std::size_t>(box)); }
    void SetBoxText(int box, const std::string& text) override {
        texts.at(static_cast<std::size_t>(box)) = text;
    }
    bool IsBoxLocked(int box) const override { return locked.at(static_cast<std::size_t>(box)); }
    void SetBoxLook(int box, bool isLocked, bool isWhite) override {
        locked.at(static_cast<std::size_t>(box)) = isLocked;
        white.at(static_cast<std::size_t>(box)) = isWhite;
    }
    bool FollowOnTicked() const override { return followOn; }

    // The texts of all boxes, divided by blanks.
    std::string AllTexts() const {
        std::string all = texts[1];
        for (std::size_t box = 2; box < texts.size(); ++box) {
            all += " " + texts[box];
        }
        return all;
    }

    // A letter per box: open and locked on white as o and L, open and locked without white as ! and l.
    std::string Looks() const {
        std::string looks;
        for (std::size_t box = 1; box < locked.size(); ++box) {
            looks += white[box] ? (locked[box] ? 'L' : 'o') : (locked[box] ? 'l' : '!');
        }
        return looks;
    }

    bool visible = false;
    int value = 1;
    int maximum = 1;
    std::string caption = "1";
    ColourNumber colour = 32768;
    std::array<std::string, SheetBoxes + 1> texts;
    std::array<bool, SheetBoxes + 1> locked{};
    std::array<bool, SheetBoxes + 1> white{};
    bool followOn = true;

  private:
    void SetVisible(bool show) {
        visible = show;
        m_log.emplace_back(show ? "show sheet" : "hide sheet");
    }

    std::vector<std::string>& m_log;
    const ProjectWindows* m_windows = nullptr;
};

// A solver that has just been opened, with an empty project.
class ProjectTest : public ::testing::Test {
  protected:
    ProjectTest() {
        sheet.Connect(windows);
        StartProject();
        DrawColour = RigidColour;
        ResetProjectGrid(windows);
    }

    void Click(double x, double y, MouseButton button = MouseButton::Left) {
        ClickGrid(windows, button, static_cast<float>(x), static_cast<float>(y));
    }

    // Adds an element to the project, straight into the records.
    static DuctRecord& Add(float colour) {
        ++DuctCount;
        FitDucts();
        Ducts.back().Colour = colour;
        return Ducts.back();
    }

    static void AddSized(float colour, double flow, double height, double velocity, double loss) {
        DuctRecord& duct = Add(colour);
        duct.Flow = flow;
        duct.Height = height;
        duct.Velocity = velocity;
        duct.LossPerMetre = loss;
    }

    std::string File(const std::string& name) const { return environment.Folder().File(name); }

    ProgramEnvironment environment;
    ScriptedDesktop desktop;
    FakeSolver solver{desktop.Log};
    FakeSheet sheet{desktop.Log};
    ProjectWindows windows{solver, sheet};
};

// An item as in "2 line 255: 0,0 379,349" or "text R1: 200,100", a dashed line with "2-".
inline std::string Described(const DrawnItem& item) {
    std::ostringstream text;
    text.precision(15);
    if (item.kind == DrawnItem::Kind::Text) {
        text << "text " << item.text << ": " << item.x1 << ',' << item.y1;
        return text.str();
    }
    text << item.lineWidth << (item.style == LineStyle::Dashed ? "-" : "")
         << (item.kind == DrawnItem::Kind::Line ? " line " : " box ") << item.colour << ": " << item.x1 << ','
         << item.y1 << ' ' << item.x2 << ',' << item.y2;
    return text.str();
}

inline std::vector<std::string> Described(const RecordedSurface& surface, std::size_t from = 0) {
    std::vector<std::string> all;
    for (std::size_t item = from; item < surface.Items().size(); ++item) {
        all.push_back(Described(surface.Items()[item]));
    }
    return all;
}

using Lines = std::vector<std::string>;

// The grid lines come first in a picture of the network.
constexpr std::size_t GridLines = 39 + 29;

} // namespace plenair
