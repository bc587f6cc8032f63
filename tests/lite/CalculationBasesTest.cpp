#include "lite/CalculateMinorStuff.h"

#include "core/Settings.h"
#include "platform/NumberText.h"
#include "support/LiteArrays.h"
#include "support/Scripted.h"

#include <gtest/gtest.h>

#include <random>
#include <tuple>

namespace plenair {
namespace {

// Remembers the working value with which each row was found, and can give another text at a later row.
class WatchedArrays : public LiteArrays {
  public:
    std::string BasisText(int index) const override {
        ++m_reads;
        return index == spoiltBox && m_reads > goodReads ? spoiltText : LiteArrays::BasisText(index);
    }
    void SetMinorCell(int row, int column, const std::string& text) override {
        LiteArrays::SetMinorCell(row, column, text);
        if (column == 0) {
            workingLoss.push_back(Settings.MaxLPM);
            workingVelocity.push_back(Settings.MaxVelocity);
        }
    }

    int spoiltBox = -1;
    int goodReads = 0;
    std::string spoiltText;
    std::vector<double> workingLoss;
    std::vector<double> workingVelocity;

  private:
    mutable int m_reads = 0;
};

class CalculationBases : public testing::Test {
  protected:
    CalculationBases() { m_environment.NoteReminder(); }

    void Calculate(std::int16_t basis, double a, double b, double value = 1.0) {
        CalculateBasis(m_view, a, b, value, basis);
    }

    std::vector<std::string> Rows() const {
        std::vector<std::string> rows;
        for (int row = 0; row < 5; ++row) {
            rows.push_back(m_view.Row(row));
        }
        return rows;
    }

    std::string Table() const {
        std::string table;
        for (const std::string& row : Rows()) {
            table += row + ", ";
        }
        return table + m_view.RoundDuct();
    }

    ProgramEnvironment m_environment;
    ScriptedMessages m_messages;
    WatchedArrays m_view;
};

using Texts = std::vector<std::string>;

struct TableCase {
    const char* name;
    std::int16_t basis;
    double flow;
    double height;
    std::map<int, std::string> boxes;
    std::string table; // five rows, then the round duct
    std::vector<double> working;
};

// The first five are worked examples; the others come from a calculation by other means.
TEST_F(CalculationBases, SizeFiveDucts) {
    const std::string usual = "450 250 4.74 0.72, 400 275 4.80 0.74, 375 300 4.68 0.69, 350 325 4.61 0.67, "
                              "325 350 4.61 0.67, 375 4.53 0.69";
    const TableCase tables[] = {
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
        {"height between steps", 1, 1234.5, 310, {{1, "6.3"}},
         "900 260 5.95 0.72, 800 285 5.98 0.73, 725 310 5.97 0.73, 650 335 6.08 0.76, 600 360 6.08 0.76, 525 5.70 0.73",
         {6.29, 6.29, 6.29, 6.29, 6.29}},
        {"caps far apart", 2, 2000, 400, {{2, "0.5"}, {9, "12"}},
         "1150 350 5.58 0.46, 1050 375 5.61 0.47, 975 400 5.59 0.46, 900 425 5.64 0.47, 850 450 5.60 0.46, 675 5.59 0.46",
         {5.82, 5.81, 5.81, 5.80, 5.81}},
        {"small", 0, 80, 180, {{0, "1.15"}},
         "200 130 3.26 0.88, 175 155 3.10 0.77, 150 180 3.11 0.78, 125 205 3.32 0.92, 125 230 2.97 0.70, 200 2.55 0.78",
         {1.23, 1.16, 1.26, 1.21, 1.30}},
        // clang-format on
    };
    for (const TableCase& table : tables) {
        SCOPED_TRACE(table.name);
        m_view = WatchedArrays();
        for (const auto& [index, text] : table.boxes) {
            m_view.boxes[index] = text;
        }
        Calculate(table.basis, table.flow, table.height);
        EXPECT_EQ(Table(), table.table);
        const auto& working = table.basis == 0 ? m_view.workingLoss : m_view.workingVelocity;
        ASSERT_EQ(working.size(), 5U);
        for (std::size_t row = 0; row < 5; ++row) {
            EXPECT_NEAR(working[row], table.working[row], 1e-6) << "row " << row;
        }
    }
}

TEST_F(CalculationBases, TextsFollowTheLocale) {
    SetNumberLocale({.decimalMark = ",", .groupMark = "."});
    m_view.boxes[2] = "0,5";
    m_view.boxes[9] = "12,00";
    Calculate(2, 2000, 400);
    EXPECT_EQ(m_view.Row(2), "975 400 5,59 0,46");
    EXPECT_EQ(m_view.RoundDuct(), "675 5,59 0,46");
    m_view.boxes[9] = "12.00";
    m_view.cells = {};
    Calculate(2, 2000, 400);
    EXPECT_EQ(m_view.Row(0), "") << "a point is no decimal mark here";
}

TEST_F(CalculationBases, EachWritesOnlyItsWorkingValue) {
    for (std::int16_t basis = 0; basis < 5; ++basis) {
        SCOPED_TRACE(basis);
        Settings.MaxLPM = -1;
        Settings.MaxVelocity = -1;
        Calculate(basis, 375, 300, 500);
        EXPECT_EQ(Settings.MaxLPM != -1, basis == 0);
        EXPECT_EQ(Settings.MaxVelocity != -1, basis == 1 || basis == 2);
    }
}

TEST_F(CalculationBases, AnalyseOneDuct) {
    const struct {
        const char* name;
        std::int16_t basis;
        double width, height, value;
        const char* row;
        const char* flow; // below it
        const char* roundDuct;
    } rows[] = {
        {"by flow", 3, 375, 300, 500, "375 300 4.68 0.69", "", "375 4.53 0.69"},
        {"by velocity", 4, 375, 300, 5, "375 300 5.00 0.78", "( 535 L/s )", "375 4.84 0.78"},
        {"height of no sizing basis", 3, 375, 50, 50, "375 50 3.34 1.25", "", "150 2.83 1.25"},
        {"broken size", 3, 1000.4, 300, 500, "1000 300 1.87 0.07", "", "600 1.77 0.07"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        m_view = WatchedArrays();
        Calculate(row.basis, row.width, row.height, row.value);
        EXPECT_EQ(Rows(), (Texts{"", "", row.row, row.flow, ""}));
        EXPECT_EQ(m_view.RoundDuct(), row.roundDuct);
        for (const std::size_t blank : {0U, 1U, 3U, 4U}) {
            EXPECT_FALSE(m_view.lamps[blank]);
        }
        EXPECT_EQ(m_view.lamps[2], row.height == 50 ? Lamp::Orange : Lamp::Green);
    }
    EXPECT_EQ(Settings.MaxVelocity, 5);
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
        {"negative flow", {1, 2}, -500, 300, 1},
        {"height of two steps", {0, 1, 2}, 500, 50, 1},
        {"height below two steps", {0, 1, 2}, 500, 49, 1},
        {"negative height", {0, 1, 2}, 500, -300, 1},
        {"target 0", {0, 1, 2}, 500, 300, 1, {{0, "0"}, {1, "0"}, {2, "0"}, {9, "0"}}},
        {"negative target", {0, 1, 2}, 500, 300, 1, {{0, "-1"}, {1, "-1"}, {2, "-1"}, {9, "-1"}}},
        {"loss cap never met", {2}, 500, 300, 1, {{2, "0"}}},
        {"loss cap negative", {2}, 500, 300, 1, {{2, "-0.5"}}},
        {"velocity of one step", {1, 2}, 500, 300, 1, {{1, "0.01"}, {9, "0.01"}}},
        {"velocity below one step", {1, 2}, 500, 300, 1, {{1, "0.005"}, {9, "0.005"}}},
        {"target empty", {0, 1, 2}, 500, 300, 1, {{0, ""}, {1, ""}, {2, ""}}},
        {"second cap empty", {2}, 500, 300, 1, {{9, ""}}},
        {"target no number", {0, 1, 2}, 500, 300, 1, {{0, "five"}, {1, "0x10"}, {9, "inf"}}},
        {"target too large for 32 bits", {0, 1, 2}, 500, 300, 1, {{0, "1E39"}, {1, "1E39"}, {9, "1E39"}}},
        {"width beyond all bounds", {0, 1, 2}, 1e12, 300, 1},
        {"step 0", {0, 1, 2, 3, 4}, 375, 300, 5, {}, 0},
        {"doubled step too large", {0, 1, 2}, 500, 1e6, 1, {}, 16384},
        {"width 0", {3, 4}, 0, 300, 5},
        {"height 0", {3, 4}, 375, 0, 5},
        {"both 0", {3, 4}, 0, 0, 5},
        {"negative width", {3, 4}, -100, 300, 5},
        {"value 0", {3, 4}, 375, 300, 0},
        {"too large for 32 bits", {3, 4}, 1e40, 300, 5},
        {"flow too large", {3, 4}, 375, 300, 1e300},
    };
    for (const auto& row : rows) {
        for (const std::int16_t basis : row.bases) {
            SCOPED_TRACE(testing::Message() << row.name << ", basis " << basis);
            Settings = SettingsRecord();
            Settings.RoundOff = row.roundOff;
            m_view = WatchedArrays();
            for (const auto& [index, text] : row.boxes) {
                m_view.boxes[index] = text;
            }
            Calculate(basis, row.a, row.b, row.value);
            EXPECT_EQ(Rows(), Texts(5));
            EXPECT_EQ(m_view.RoundDuct(), "");
        }
    }
}

TEST_F(CalculationBases, ASearchWithoutAnEndFails) {
    // Targets that the rounded width of one step keeps far away.
    m_view.boxes[0] = "100000";
    Calculate(0, 500, 300);
    EXPECT_EQ(Rows(), Texts(5));
    EXPECT_NEAR(Settings.MaxLPM, 105000, 1);
    m_view.boxes[2] = "0.5";
    m_view.boxes[9] = "6000";
    Calculate(2, 500, 300);
    EXPECT_EQ(Rows(), Texts(5));
    EXPECT_NEAR(Settings.MaxVelocity, 1000, 1);
}

TEST_F(CalculationBases, AFailureLeavesTheRowsBeforeIt) {
    const std::tuple<std::int16_t, int, int> bases[] = {{0, 0, 1}, {1, 1, 1}, {2, 9, 2}}; // reads per row
    for (const auto& [basis, box, reads] : bases) {
        m_view = WatchedArrays();
        Calculate(basis, 500, 300);
        const Texts whole = Rows();
        for (int failing = 0; failing < 5; ++failing) {
            SCOPED_TRACE(testing::Message() << "basis " << basis << ", row " << failing);
            m_view = WatchedArrays();
            m_view.cells.fill({"old", "", "", ""});
            m_view.spoiltBox = box;
            m_view.goodReads = failing * reads;
            Calculate(basis, 500, 300);
            for (int row = 0; row < 5; ++row) {
                EXPECT_EQ(m_view.Row(row), row < failing ? whole[static_cast<std::size_t>(row)] : "old");
                EXPECT_EQ(m_view.lamps[static_cast<std::size_t>(row)].has_value(), row < failing);
            }
            EXPECT_EQ(m_view.RoundDuct(), failing > 2 ? "375 4.53 0.69" : "");
        }
    }
}

TEST_F(CalculationBases, TheWorkingValueStaysWhereItFailed) {
    m_view.boxes[1] = "0.005";
    Calculate(1, 500, 300);
    EXPECT_NEAR(Settings.MaxVelocity, -0.005, 1e-9);
    m_view.boxes[0] = "";
    Settings.MaxLPM = 0.8;
    Calculate(0, 500, 300);
    EXPECT_EQ(Settings.MaxLPM, 0.8);
}

TEST_F(CalculationBases, CapsAreNotExceeded) {
    std::mt19937 random(3);
    const auto between = [&](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    };
    for (int i = 0; i < 300; ++i) {
        const double flow = between(50, 5000);
        const double height = between(100, 1000);
        m_view = WatchedArrays();
        m_view.boxes[2] = Format(between(0.3, 3), "0.00");
        m_view.boxes[9] = Format(between(2, 12), "0.00");
        SCOPED_TRACE(testing::Message()
                     << flow << ", " << height << ", " << m_view.boxes[2] << ", " << m_view.boxes[9]);
        Calculate(2, flow, height);
        for (int row = 0; row < 5; ++row) {
            ASSERT_NE(m_view.Row(row), "");
            EXPECT_LE(*NumberFromText(m_view.MinorCell(row, 2)), *NumberFromText(m_view.boxes[9]));
            EXPECT_LE(*NumberFromText(m_view.MinorCell(row, 3)), *NumberFromText(m_view.boxes[2]));
        }
    }
}

TEST_F(CalculationBases, AnUnknownBasisSaysSo) {
    for (const std::int16_t basis : std::initializer_list<std::int16_t>{-1, 5}) {
        m_messages.Expect(MessageAnswer::Ok);
        Calculate(basis, 500, 300);
        const MessageRequest& asked = m_messages.Asked().back();
        EXPECT_EQ(asked.text, "Error in Calculation.  Calculation basis not yet available.");
        EXPECT_EQ(asked.title, "Plenair");
        EXPECT_EQ(asked.buttons, MessageButtons::Ok);
        EXPECT_EQ(asked.icon, MessageIcon::None);
        EXPECT_EQ(Rows(), Texts(5));
    }
}

TEST_F(CalculationBases, TheReminderComesBeforeTheResult) {
    m_environment.SetToday(2026, 12, 1);
    std::string shownWhenAsked = "not asked";
    SetMessageBoxProvider([&](const MessageRequest&) {
        shownWhenAsked = m_view.Row(0);
        return MessageAnswer::Yes;
    });
    Calculate(0, 500, 300);
    EXPECT_EQ(shownWhenAsked, "");
    EXPECT_EQ(m_view.Row(0), "450 250 4.74 0.72");
    shownWhenAsked = "not asked";
    Calculate(3, 375, 300, 500);
    EXPECT_EQ(shownWhenAsked, "not asked");
}

} // namespace
} // namespace plenair
