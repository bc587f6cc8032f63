#include "lite/CalculateMinorStuff.h"

#include "core/Settings.h"
#include "support/LiteArrays.h"
#include "support/ScriptedDesktop.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace plenair {
namespace {

// Remembers the working value with which each row was found, and can give another text at a later row.
class WatchedArrays : public LiteArrays {
  public:
    std::string BasisText(int index) const override {
        return index == spoiltBox && ++m_reads > goodReads ? std::string() : LiteArrays::BasisText(index);
    }
    void SetMinorCell(int row, int column, const std::string& text) override {
        LiteArrays::SetMinorCell(row, column, text);
        if (column == 0) {
            working.push_back(Settings.CalcBasis == 0 ? Settings.MaxLPM : Settings.MaxVelocity);
        }
    }
    std::vector<std::string> Rows() const { return {Row(0), Row(1), Row(2), Row(3), Row(4)}; }

    int spoiltBox = -1;
    int goodReads = 0;
    std::vector<double> working;

  private:
    mutable int m_reads = 0;
};

class CalculationBases : public testing::Test {
  protected:
    CalculationBases() { m_environment.NoteReminder(); }

    // With a new view, whose boxes hold the defaults but for the ones given.
    void Calculate(std::int16_t basis, double a, double b, double value = 1.0,
                   const std::map<int, std::string>& boxes = {}) {
        m_view = WatchedArrays();
        for (const auto& [index, text] : boxes) {
            m_view.boxes[index] = text;
        }
        Settings.CalcBasis = basis;
        CalculateBasis(m_view, a, b, value, basis);
    }

    ProgramEnvironment m_environment;
    ScriptedDesktop desktop;
    WatchedArrays m_view;
};

using Texts = std::vector<std::string>;

// The first five are worked examples; the others come from a calculation by other means.
TEST_F(CalculationBases, SizeFiveDucts) {
    const std::string usual = "450 250 4.74 0.72, 400 275 4.80 0.74, 375 300 4.68 0.69, 350 325 4.61 0.67, "
                              "325 350 4.61 0.67, 375 4.53 0.69";
    const struct {
        const char* name;
        std::int16_t basis;
        double flow, height;
        std::map<int, std::string> boxes;
        std::string table; // five rows, then the round duct
        std::vector<double> working;
    } tables[] = {
        {"loss", 0, 500, 300, {{0, "0.8"}}, usual, {0.82, 0.81, 0.83, 0.83, 0.83}},
        {"velocity", 1, 500, 300, {{1, "5"}}, usual, {4.99, 4.99, 4.99, 4.99, 4.99}},
        {"capped by velocity", 2, 500, 300, {{2, "0.8"}, {9, "5"}}, usual, {4.99, 4.99, 4.99, 4.99, 4.99}},
        // clang-format off
        {"capped by loss", 2, 500, 300, {{2, "1"}, {9, "8"}},
         "400 250 5.31 0.94, 375 275 5.11 0.86, 350 300 5.00 0.82, 325 325 4.97 0.80, 300 350 5.00 0.82, 375 4.53 0.82",
         {5.45, 5.51, 5.45, 5.45, 5.54}},
        {"flat", 0, 500, 60, {{0, "0.8"}},
         "62825 10 3.64 0.37, 8150 35 4.15 0.51, 3425 60 4.38 0.58, 1975 85 4.52 0.63, 1325 110 4.63 0.67, 400 3.98 0.58",
         {0.96, 0.89, 0.86, 0.84, 0.83}},
        {"caps far apart", 2, 2000, 400, {{2, "0.5"}, {9, "12"}},
         "1150 350 5.58 0.46, 1050 375 5.61 0.47, 975 400 5.59 0.46, 900 425 5.64 0.47, 850 450 5.60 0.46, 675 5.59 0.46",
         {5.82, 5.81, 5.81, 5.80, 5.81}},
        {"small", 0, 80, 180, {{0, "1.15"}},
         "200 130 3.26 0.88, 175 155 3.10 0.77, 150 180 3.11 0.78, 125 205 3.32 0.92, 125 230 2.97 0.70, 200 2.55 0.78",
         {1.23, 1.16, 1.26, 1.21, 1.30}},
        // clang-format on
    };
    for (const auto& table : tables) {
        SCOPED_TRACE(table.name);
        Calculate(table.basis, table.flow, table.height, 1, table.boxes);
        std::string shown;
        ASSERT_EQ(m_view.working.size(), 5U);
        for (std::size_t row = 0; row < 5; ++row) {
            shown += m_view.Rows()[row] + ", ";
            EXPECT_NEAR(m_view.working[row], table.working[row], 1e-6) << "row " << row;
        }
        EXPECT_EQ(shown + m_view.RoundDuct(), table.table);
    }
}

TEST_F(CalculationBases, AnalyseOneDuct) {
    Calculate(3, 375, 300, 500);
    EXPECT_EQ(m_view.Rows(), (Texts{"", "", "375 300 4.68 0.69", "", ""}));
    EXPECT_EQ(m_view.RoundDuct(), "375 4.53 0.69");
    Calculate(4, 375, 300, 5);
    EXPECT_EQ(m_view.Rows(), (Texts{"", "", "375 300 5.00 0.78", "( 535 L/s )", ""}));
    EXPECT_EQ(m_view.RoundDuct(), "375 4.84 0.78");
    Calculate(3, 375, 50, 50); // the height of no sizing basis
    EXPECT_EQ(m_view.Rows(), (Texts{"", "", "375 50 3.34 1.25", "", ""}));
    EXPECT_EQ(m_view.lamps, (decltype(m_view.lamps){std::nullopt, std::nullopt, Lamp::Orange}));
}

TEST_F(CalculationBases, AnUnknownBasisSaysSo) {
    desktop.ExpectMessage(MessageAnswer::Ok);
    Calculate(5, 500, 300);
    EXPECT_EQ(desktop.LastText(), "Error in Calculation.  Calculation basis not yet available.");
    EXPECT_EQ(m_view.Rows(), Texts(5));
}

TEST_F(CalculationBases, BadInputsLeaveTheTableEmpty) {
    const struct {
        const char* name;
        std::vector<std::int16_t> bases;
        double a, b, value;
        std::map<int, std::string> boxes = {};
        std::int16_t roundOff = 25;
    } rows[] = {
        {"flow 0", {0, 1, 2}, 0, 300, 1},
        {"height of two steps", {0, 1, 2}, 500, 50, 1},
        {"negative height", {0, 1, 2}, 500, -300, 1},
        {"target 0", {0, 1, 2}, 500, 300, 1, {{0, "0"}, {1, "0"}, {2, "0"}, {9, "0"}}},
        {"velocity of one step", {1, 2}, 500, 300, 1, {{1, "0.01"}, {9, "0.01"}}},
        {"target empty", {0, 1, 2}, 500, 300, 1, {{0, ""}, {1, ""}, {2, ""}}},
        {"second cap empty", {2}, 500, 300, 1, {{9, ""}}},
        {"target no number", {0, 1, 2}, 500, 300, 1, {{0, "five"}, {1, "0x10"}, {9, "inf"}}},
        {"target that the rounded width keeps far away", {0}, 500, 300, 1, {{0, "100000"}}},
        {"caps that it keeps far away", {2}, 500, 300, 1, {{2, "0.5"}, {9, "6000"}}},
        {"width beyond all bounds", {0, 1, 2}, 1e12, 300, 1},
        {"step 0", {0, 1, 2, 3, 4}, 375, 300, 5, {}, 0},
        {"doubled step too large", {0, 1, 2}, 500, 1e6, 1, {}, 16384},
        {"width 0", {3, 4}, 0, 300, 5},
        {"height 0", {3, 4}, 375, 0, 5},
        {"value 0", {3, 4}, 375, 300, 0},
        {"too large for 32 bits", {3, 4}, 1e40, 300, 5},
        {"flow too large", {3, 4}, 375, 300, 1e300},
    };
    for (const auto& row : rows) {
        for (const std::int16_t basis : row.bases) {
            SCOPED_TRACE(testing::Message() << row.name << ", basis " << basis);
            Settings = SettingsRecord();
            Settings.RoundOff = row.roundOff;
            Calculate(basis, row.a, row.b, row.value, row.boxes);
            EXPECT_EQ(m_view.Rows(), Texts(5));
        }
    }
}

TEST_F(CalculationBases, AFailureLeavesTheRowsBeforeIt) {
    const std::pair<std::int16_t, int> bases[] = {{0, 0}, {1, 1}, {2, 9}};
    for (const auto& [basis, box] : bases) {
        Calculate(basis, 500, 300);
        const Texts whole = m_view.Rows();
        for (int failing = 0; failing < 5; ++failing) {
            SCOPED_TRACE(testing::Message() << "basis " << basis << ", row " << failing);
            m_view = WatchedArrays();
            m_view.cells.fill({"old", "", "", ""});
            m_view.spoiltBox = box;
            m_view.goodReads = failing; // one read a row
            CalculateBasis(m_view, 500, 300, 1, basis);
            Texts expected(5, "old");
            std::copy_n(whole.begin(), failing, expected.begin());
            EXPECT_EQ(m_view.Rows(), expected);
            EXPECT_EQ(m_view.RoundDuct(), failing > 2 ? "375 4.53 0.69" : "");
        }
    }
}

// A search far from practice takes long. What ends it is the user here.
TEST_F(CalculationBases, TheUserCanEndACalculation) {
    int asked = 0;
    Desktop().StartWaiting = [&] { return [&] { return ++asked % 20 != 0; }; };
    Settings.SurfaceRoughness1 = 100;
    Calculate(2, 5E6, 350, 1, {{2, "0.8"}, {9, "4999"}});
    EXPECT_EQ(asked, 20);
    EXPECT_LT(Settings.MaxVelocity, 4999);
    EXPECT_EQ(m_view.Rows(), Texts(5));
}

} // namespace
} // namespace plenair
