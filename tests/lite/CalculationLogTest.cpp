#include "lite/CalculationLog.h"

#include "core/Settings.h"
#include "platform/DateText.h"
#include "platform/Editor.h"
#include "platform/NumberText.h"
#include "project/ScriptedDesktop.h"
#include "support/Scripted.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>

namespace plenair {
namespace {

// The Lite window as the log sees it: at first without results, the current cell at the top left.
class LogArrays : public LogWindow {
  public:
    std::string InputA() const override { return inputA; }
    std::string InputB() const override { return inputB; }
    void FocusInputA() override { ++focused; }
    std::string MinorCell(int atRow, int atColumn) const override {
        return cells.at(static_cast<std::size_t>(atRow)).at(static_cast<std::size_t>(atColumn));
    }
    std::string CurrentCell() const override { return MinorCell(row, column); }
    void SetCurrentCell(int newRow, int newColumn) override {
        row = newRow;
        column = newColumn;
    }
    void EnableRecordLog(bool enabled) override { canRecord = enabled; }
    CommonDialog& DlgMinor() override { return dialog; }

    void SetRow(int at, const std::array<std::string, 4>& texts) {
        cells.at(static_cast<std::size_t>(at)) = texts;
    }

    std::string inputA = "500";
    std::string inputB = "300";
    std::array<std::array<std::string, 4>, 5> cells;
    int row = 0;
    int column = 0;
    int focused = 0;
    bool canRecord = true;
    CommonDialog dialog;
};

class CalculationLog : public testing::Test {
  protected:
    CalculationLog() {
        ResetLog(m_window);
        m_window.SetRow(0, {"450", "250", "4.74", "0.72"});
        m_window.SetRow(2, {"400", "300", "4.50", "0.69"});
        SetEditorProvider([this](const std::string& path) {
            m_edited.push_back(path);
            return m_editorStarts;
        });
    }
    ~CalculationLog() override {
        SetEditorProvider({});
        SetDateLocale({});
        LogRows.clear();
        LogCount = 0;
    }

    std::string Save() {
        const std::string path = m_environment.Folder().File("log.pnl");
        m_desktop.ExpectFile(path);
        m_desktop.ExpectMessage(MessageAnswer::Ok);
        RecordLog(m_window);
        return ReadFile(path);
    }

    ProgramEnvironment m_environment;
    ScriptedDesktop m_desktop;
    LogArrays m_window;
    std::vector<std::string> m_edited;
    bool m_editorStarts = true;
};

TEST_F(CalculationLog, FileInTwoLocales) {
    SetClock([] { return LocalTime{2026, 11, 8, 17, 7, 59, 0}; });
    RecordRow(m_window, 0);
    m_window.inputA = "1234567.8";
    m_window.SetRow(2, {"1000", "300", "12.50", "0.00"});
    Settings.CalcBasis = 3;
    RecordRow(m_window, 2);
    RecordRow(m_window, 2);
    const std::string headings = "Flow\tWidth\tHeight\tRatio\tVel\tPa/m\tCalculation Basis\r\n";
    EXPECT_EQ(Save(), "Plenair Minor Calculation Log\r\n08-Nov-26\r\n05:07 PM\r\n" + headings +
                          "500\t450\t250\t1.8\t4.74\t0.72\t0\r\n"
                          "1234568\t1000\t300\t3.3\t12.5\t0\t3\r\n"
                          "1234568\t1000\t300\t3.3\t12.5\t0\t3\r\n");

    NumberLocale numbers;
    numbers.decimalMark = ",";
    numbers.groupMark = ".";
    SetNumberLocale(numbers);
    DateLocale dates;
    dates.order = DateOrder::YearMonthDay;
    dates.shortMonths[10] = "nov.";
    SetDateLocale(dates);
    m_window.inputA = "0,05";
    m_window.SetRow(0, {"450", "250", "4,74", "0,72"});
    Settings.CalcBasis = 0;
    RecordRow(m_window, 0);
    EXPECT_EQ(Save(), "Plenair Minor Calculation Log\r\n26-nov.-08\r\n05:07 PM\r\n" + headings +
                          "0,05\t450\t250\t1,8\t4,74\t0,72\t0\r\n");
}

TEST_F(CalculationLog, ClicksThatRecordAndThatDoNot) {
    m_window.SetRow(1, {"", "", "", ""});
    m_window.SetRow(3, {"", "( 512", "L/s )", ""});
    m_window.SetRow(4, {"0", "300", "4.50", "0.69"});
    const struct {
        const char* name;
        std::string inputA;
        std::string inputB;
        int currentRow;
        int currentColumn;
        int clicked;
        bool records;
    } rows[] = {
        {"after a calculation", "500", "300", 0, 0, 2, true},
        {"after a recording", "500", "300", 2, 3, 0, true},
        {"the same row again", "500", "300", 2, 3, 2, true},
        {"no flow", "", "300", 0, 0, 2, false},
        {"no height", "500", "", 0, 0, 2, false},
        {"an input that is no number", "5oo", "300", 0, 0, 2, false},
        {"a height that is no number", "500", "3oo", 0, 0, 2, true},
        {"the current cell is blank, the row is not", "500", "300", 1, 0, 2, false},
        {"the row is blank, the current cell is not", "500", "300", 2, 3, 1, false},
        {"the row holds the flow of an analysis", "500", "300", 2, 3, 3, false},
        {"a width of 0", "500", "300", 2, 3, 4, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        ResetLog(m_window);
        m_window.focused = 0;
        m_window.inputA = row.inputA;
        m_window.inputB = row.inputB;
        m_window.SetCurrentCell(row.currentRow, row.currentColumn);
        RecordRow(m_window, row.clicked);
        EXPECT_EQ(LogCount, row.records ? 1 : 0);
        EXPECT_EQ(m_window.canRecord, row.records);
        EXPECT_EQ(m_window.focused, row.records ? 1 : 0);
        EXPECT_EQ(m_window.row, row.records ? row.clicked : row.currentRow);
        EXPECT_EQ(m_window.column, row.records ? 3 : row.currentColumn);
    }
    EXPECT_TRUE(m_desktop.Log.empty()) << "nothing is said";
}

TEST_F(CalculationLog, RatioIsThatOfTheLongerSideToOneDecimal) {
    const struct {
        const char* width;
        const char* height;
        float ratio;
    } rows[] = {
        {"400", "300", 1.3F}, {"300", "400", 1.3F},     {"600", "300", 2},     {"300", "300", 1},
        {"500", "400", 1.3F}, {"62825", "10", 6282.5F}, {"1000", "300", 3.3F},
    };
    for (const auto& row : rows) {
        m_window.SetRow(0, {row.width, row.height, "1.00", "1.00"});
        RecordRow(m_window, 0);
        EXPECT_EQ(LogRows.back().Ratio, row.ratio) << row.width << " by " << row.height;
    }
}

TEST_F(CalculationLog, FullLogBeepsAndStaysUsable) {
    RecordRow(m_window, 0);
    LogCount = 32766;
    LogRows.resize(32766, LogRows[0]);
    RecordRow(m_window, 2);
    EXPECT_EQ(LogCount, 32767);
    RecordRow(m_window, 0);
    EXPECT_EQ(LogCount, 32767);
    EXPECT_EQ(m_desktop.Log, std::vector<std::string>{"beep"});
    const std::string text = Save();
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 4 + 32767);
    EXPECT_TRUE(text.ends_with("500\t400\t300\t1.3\t4.5\t0.69\t0\r\n"));
}

TEST_F(CalculationLog, SavingResetsTheLog) {
    Settings.DefPath = "/where it was";
    RecordRow(m_window, 0);
    const std::string text = Save();
    const CommonDialog& shown = m_desktop.LastDialog();
    EXPECT_EQ(shown.Flags, OverwritePrompt);
    EXPECT_EQ(shown.DefaultExt, "pnl");
    EXPECT_EQ(shown.InitDir, "/where it was");
    EXPECT_EQ(shown.FileName, "");
    EXPECT_EQ(shown.Filter, "Plenair Logs (*.pnl)|*.pnl|All Files (*.*)|*.*");
    EXPECT_EQ(Settings.DefPath, m_environment.Folder().Path());
    EXPECT_EQ(LogCount, 0);
    EXPECT_FALSE(m_window.canRecord);
    const MessageRequest& said = m_desktop.Messages().back();
    EXPECT_EQ(said.text, "Plenair Minor Calculation Log Saved.\nThe Log has been reset");
    EXPECT_EQ(said.title, "Record Log");
    EXPECT_EQ(said.icon, MessageIcon::Exclamation);

    RecordRow(m_window, 0);
    EXPECT_EQ(LogCount, 1);
    EXPECT_EQ(Save(), text) << "a file is replaced, nothing is appended, no old record comes back";
}

TEST_F(CalculationLog, WhatCannotBeSavedStays) {
    RecordRow(m_window, 0);
    const std::string before = Settings.DefPath;
    std::filesystem::create_directory(m_environment.Folder().File("folder.pnl"));
    m_desktop.ExpectCancel();
    m_desktop.ExpectFile(m_environment.Folder().File("missing/log.pnl"));
    m_desktop.ExpectFile(m_environment.Folder().File("folder.pnl"));
    for (int way = 0; way < 3; ++way) {
        RecordLog(m_window);
        EXPECT_EQ(LogCount, 1);
        EXPECT_TRUE(m_window.canRecord);
        EXPECT_EQ(Settings.DefPath, before);
    }
    EXPECT_TRUE(m_desktop.Messages().empty());
}

TEST_F(CalculationLog, OpeningShowsTheFileInTheEditor) {
    Settings.DefPath = "/where it was";
    const TemporaryFolder other;
    m_desktop.ExpectCancel();
    OpenLog(m_window);
    m_editorStarts = false;
    m_desktop.ExpectFile(other.File("no editor.pnl"));
    OpenLog(m_window);
    EXPECT_EQ(Settings.DefPath, "/where it was");
    m_editorStarts = true;
    m_desktop.ExpectFile(other.File("my log.pnl"));
    OpenLog(m_window);
    EXPECT_EQ(Settings.DefPath, other.Path());
    EXPECT_EQ(m_edited, (std::vector<std::string>{other.File("no editor.pnl"), other.File("my log.pnl")}));
}

} // namespace
} // namespace plenair
