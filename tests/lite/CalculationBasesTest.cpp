#include "flow/CalcFailure.h"
#include "lite/CalculateMinorStuff.h"
#include "lite/CopyResults.h"
#include "lite/KeyStrokes.h"
#include "lite/ResultGrids.h"
#include "platform/desktop/KeyCodes.h"
#include "support/LiteArrays.h"

namespace {

// Remembers the working value with which each row was found, and can give another text at a later row.
class WatchedArrays : public LiteArrays {
  public:
    std::string BasisText(int index) const override {
        return ++m_reads > goodReads ? std::string() : LiteArrays::BasisText(index);
    }
    void SetMinorCell(int row, int column, const std::string& text) override {
        LiteArrays::SetMinorCell(row, column, text);
        if (column == 0) {
            working.push_back(Settings.CalcBasis == 0 ? Settings.MaxLPM : Settings.MaxVelocity);
        }
    }

    int goodReads = 100; // one or two a row
    std::vector<double> working;

  private:
    mutable int m_reads = 0;
};

class CalculationBases : public ProgramTest {
  protected:
    CalculationBases() { environment.NoteReminder(); }

    // With a new view, whose boxes hold the defaults but for the ones given. Gives its table.
    std::string Calculate(int basis, double a, double b, double value = 1.0,
                          const std::map<int, std::string>& boxes = {}) {
        m_view = WatchedArrays();
        for (const auto& [index, text] : boxes) {
            m_view.boxes[index] = text;
        }
        Settings.CalcBasis = static_cast<std::int16_t>(basis);
        CalculateBasis(m_view, a, b, value, Settings.CalcBasis);
        return m_view.Table();
    }

    WatchedArrays m_view;
};

const std::string kUsual = "450 250 4.74 0.72, 400 275 4.80 0.74, 375 300 4.68 0.69, 350 325 4.61 0.67, "
                           "325 350 4.61 0.67, 375 4.53 0.69";
const std::string kBlank = ", , , , , ";

// The first five are worked examples; the others come from a calculation by other means.
TEST_F(CalculationBases, SizeFiveDucts) {
    const struct {
        const char* name;
        std::int16_t basis;
        double flow, height;
        std::map<int, std::string> boxes;
        std::string table; // five rows, then the round duct
        std::vector<double> working;
    } tables[] = {
        {"loss", 0, 500, 300, {{0, "0.8"}}, kUsual, {0.82, 0.81, 0.83, 0.83, 0.83}},
        {"velocity", 1, 500, 300, {{1, "5"}}, kUsual, {4.99, 4.99, 4.99, 4.99, 4.99}},
        {"capped by velocity", 2, 500, 300, {{2, "0.8"}, {9, "5"}}, kUsual, {4.99, 4.99, 4.99, 4.99, 4.99}},
        // clang-format off
        {"capped by loss", 2, 500, 300, {{2, "1"}, {9, "8"}},
         "400 250 5.31 0.94, 375 275 5.11 0.86, 350 300 5.00 0.82, 325 325 4.97 0.80, 300 350 5.00 0.82, 375 4.53 0.82",
         {5.45, 5.51, 5.45, 5.45, 5.54}},
        {"flat", 0, 500, 60, {{0, "0.8"}},
         "62825 10 3.64 0.37, 8150 35 4.15 0.51, 3425 60 4.38 0.58, 1975 85 4.52 0.63, 1325 110 4.63 0.67, 400 3.98 0.58",
         {0.96, 0.89, 0.86, 0.84, 0.83}},
        // clang-format on
    };
    for (const auto& table : tables) {
        SCOPED_TRACE(table.name);
        EXPECT_EQ(Calculate(table.basis, table.flow, table.height, 1, table.boxes), table.table);
        for (std::size_t row = 0; row < 5; ++row) {
            EXPECT_NEAR(m_view.working.at(row), table.working[row], 1e-6) << "row " << row;
        }
    }
}

TEST_F(CalculationBases, AnalyseOneDuct) {
    EXPECT_EQ(Calculate(3, 375, 300, 500), ", , 375 300 4.68 0.69, , , 375 4.53 0.69");
    EXPECT_EQ(Calculate(4, 375, 300, 5), ", , 375 300 5.00 0.78, ( 535 L/s ), , 375 4.84 0.78");
    EXPECT_EQ(ResultTable(m_view).at(2), (std::vector<std::string>{"", "", "( 535", "", "L/s )", ""}));
    EXPECT_EQ(Calculate(3, 375, 50, 50), ", , 375 50 3.34 1.25, , , 150 2.83 1.25")
        << "a height of no sizing";
    EXPECT_EQ(m_view.lamps, (decltype(m_view.lamps){std::nullopt, std::nullopt, Lamp::Orange}));
}

TEST_F(CalculationBases, BadInputsLeaveTheTableEmpty) {
    const struct {
        const char* name;
        std::vector<int> bases;
        double a, b, value;
        std::map<int, std::string> boxes = {};
        std::int16_t roundOff = 25;
    } rows[] = {
        {"target empty", {0, 1, 2}, 500, 300, 1, {{0, ""}, {1, ""}, {2, ""}}},
        {"second cap empty", {2}, 500, 300, 1, {{9, ""}}},
        {"step 0", {0, 1, 2, 3, 4}, 375, 300, 5, {}, 0},
        {"doubled step too large", {0, 1, 2}, 500, 1e6, 1, {}, 16384},
        {"too large for 32 bits", {3, 4}, 1e40, 300, 5},
    };
    for (const auto& row : rows) {
        for (const int basis : row.bases) {
            Settings = SettingsRecord();
            Settings.RoundOff = row.roundOff;
            EXPECT_EQ(Calculate(basis, row.a, row.b, row.value, row.boxes), kBlank) << row.name << basis;
        }
    }
}

TEST_F(CalculationBases, AFailureLeavesTheRowsBeforeIt) {
    m_view.cells.fill({"old", "", "", ""});
    m_view.goodReads = 3;
    CalculateBasis(m_view, 500, 300, 1, 0);
    EXPECT_EQ(m_view.Table(),
              "450 250 4.74 0.72, 400 275 4.80 0.74, 375 300 4.68 0.69, old, old, 375 4.53 0.69");
}

// A search far from practice takes long. What ends it is the user here.
TEST_F(CalculationBases, TheUserCanEndACalculation) {
    int asked = 0;
    Desktop().StartWaiting = [&] { return [&] { return ++asked % 20 != 0; }; };
    Settings.SurfaceRoughness1 = 100;
    EXPECT_EQ(Calculate(2, 5E6, 350, 1, {{2, "0.8"}, {9, "4999"}}), kBlank);
    EXPECT_EQ(asked, 20);
    EXPECT_LT(Settings.MaxVelocity, 4999);
}

TEST_F(CalculationBases, UpAndDownStepTheHeight) {
    const int up = kKeyUpArrow;
    const int down = kKeyDownArrow;
    const std::tuple<int, int, std::string, const char*, const char*, std::string> rows[] = {
        // basis, key, control, flow, height: the height then, the middle row, and where the focus has gone
        {0, down, "txtInputB", "500", "300", "325, 350 325 4.61 0.67, "},
        {0, up, "txtInputB", "500", "300", "275, 400 275 4.80 0.74, "},
        {2, up, "txtInputA", "500", "300", "275, 400 275 4.80 0.74, txtInputB"},
        {0, up, "txtInputA", "", "", ", , txtInputB"}, // no results
        {1, down, "txtInputB", "", "300", "325, 375 300 4.68 0.69, "},
        {0, down, "txtInputB", "abc", "300", "325, 375 300 4.68 0.69, "},
        {0, up, "txtInputB", "500", "60", "35, 3425 60 4.38 0.58, "}, // no rows left
        {3, down, "txtInputA", "500", "300", "300, 500 300 3.54 0.35, "},
        {4, up, "txtInputA", "500", "300", "300, 500 300 5.00 0.66, "},
        {0, kKeyRight, "txtInputA", "500", "300", "300, 375 300 4.68 0.69, "}};
    for (const auto& [basis, key, control, flow, height, then] : rows) {
        m_view = WatchedArrays();
        Settings.CalcBasis = static_cast<std::int16_t>(basis);
        CalculateTexts(m_view, "500", height, basis == 3 ? "500" : "5");
        m_view.inputA = flow;
        m_view.inputB = height;
        HandleKeyStroke(m_view, static_cast<std::int16_t>(key), control);
        EXPECT_EQ(m_view.inputB + ", " + m_view.Row(2) + ", " + m_view.focused, then);
    }
}

TEST_F(CalculationBases, LampsGoByTheRatio) {
    const std::pair<float, Lamp> rows[] = {{100, Lamp::Green},     {400, Lamp::Green},    {401, Lamp::Yellow},
                                           {500, Lamp::Yellow},    {501, Lamp::Orange},   {800, Lamp::Orange},
                                           {801, Lamp::Red},       {400.4F, Lamp::Green}, // as shown
                                           {400.5F, Lamp::Yellow}, {804, Lamp::Red}};
    for (const auto& [width, lamp] : rows) {
        FillGrids(m_view, {width, 100, 5, 1, 0.3, 0.5}, 1);
        FillGrids(m_view, {100, width, 5, 1, 0.3, 0.5}, 4);
        EXPECT_TRUE(m_view.lamps[1] == lamp && m_view.lamps[4] == lamp) << width;
    }
    EXPECT_EQ(MeaningOf(Lamp::Green) + "; " + MeaningOf(Lamp::Yellow) + "; " + MeaningOf(Lamp::Orange) +
                  "; " + MeaningOf(Lamp::Red),
              "compact, up to 4; slightly slender, 4 to 5; slender, 5 to 8; very slender, above 8");
    FillGrids(m_view, {800, 99.5F, 5, 1, 0.3, 0.5}, 0);
    EXPECT_EQ(m_view.lamps[0], Lamp::Orange);
    EXPECT_THROW(FillGrids(m_view, {300, 0.4F, 5, 1, 0.3, 0.5}, 2), CalcFailure);
    EXPECT_EQ(m_view.Row(2), "300 0 5.00 1.00") << "it fails after the cells";
    EXPECT_FALSE(m_view.lamps[2]);
}

} // namespace
