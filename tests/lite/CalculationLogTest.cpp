#include "lite/CalculationLog.h"
#include "platform/text/DateText.h"
#include "support/LiteArrays.h"

namespace {

class Log : public ProgramTest {
  protected:
    Log() {
        window.cells = {{{"450", "250", "4.74", "0.72"},
                         {},
                         {"375", "300", "4.68", "0.69"},
                         {"", "( 512", "L/s )", ""},
                         {"0", "300", "4.50", "0.69"}}};
        window.inputA = "500";
        window.inputB = "300";
        ResetLog(window);
    }
    ~Log() override { SetDateLocale({}); }

    std::string Save() {
        Play("?=log.pnl ?Ok");
        RecordLog(window);
        EXPECT_TRUE(LogCount == 0 && !window.canRecordLog);
        return ReadFile(File("log.pnl"));
    }

    LiteArrays window;
};

TEST_F(Log, ClicksThatRecordAndThatDoNot) {
    const struct {
        const char *name, *inputA, *inputB;
        int currentRow, currentColumn, clicked;
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
        ResetLog(window);
        window.inputA = row.inputA;
        window.inputB = row.inputB;
        window.focused.clear();
        window.SetCurrentCell(row.currentRow, row.currentColumn);
        RecordRow(window, row.clicked);
        EXPECT_EQ(LogCount, row.records ? 1 : 0) << row.name;
        EXPECT_EQ(window.canRecordLog, row.records);
        EXPECT_EQ(window.focused, row.records ? "txtInputA" : "");
        EXPECT_EQ(window.currentRow, row.records ? row.clicked : row.currentRow);
        EXPECT_EQ(window.currentColumn, row.records ? 3 : row.currentColumn);
    }
}

TEST_F(Log, FileInALocale) {
    Desktop().Clock = [] { return LocalTime{2026, 11, 8, 17, 7, 59, 0}; };
    SetNumberLocale({.DecimalMark = ",", .GroupMark = "."});
    DateLocale dates{.Order = DateOrder::YearMonthDay};
    dates.ShortMonths[10] = "nov.";
    SetDateLocale(dates);
    window.inputA = "0,05";
    window.cells[0] = {"450", "250", "4,74", "0,72"};
    RecordRow(window, 0);
    window.inputA = "1234567,8";
    window.cells[2] = {"300", "1000", "12,50", "0,00"};
    Settings.CalcBasis = 3;
    RecordRow(window, 2);
    RecordRow(window, 2);
    EXPECT_EQ(Save(), "Plenair Minor Calculation Log\r\n26-nov.-08\r\n05:07 PM\r\n"
                      "Flow\tWidth\tHeight\tRatio\tVel\tPa/m\tCalculation Basis\r\n"
                      "0,05\t450\t250\t1,8\t4,74\t0,72\t0\r\n"
                      "1234568\t300\t1000\t3,3\t12,5\t0\t3\r\n"
                      "1234568\t300\t1000\t3,3\t12,5\t0\t3\r\n");
}

TEST_F(Log, FullLogBeepsAndStaysUsable) {
    RecordRow(window, 0);
    LogCount = 32766;
    LogRows.resize(32766, LogRows[0]);
    RecordRow(window, 2);
    RecordRow(window, 0);
    EXPECT_EQ(LogCount, 32767);
    const std::string text = Save();
    EXPECT_TRUE(desktop.LogInOneLine().starts_with("beep, dialog, progress: Record Log, Saving log.pnl, "));
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 4 + 32767);
    EXPECT_TRUE(text.ends_with("500\t375\t300\t1.3\t4.68\t0.69\t0\r\n"));
}

TEST_F(Log, WhatCannotBeSavedOrOpenedChangesNothing) {
    RecordRow(window, 2);
    Settings.DefPath = "/where it was";
    Play("?-");
    RecordLog(window);
    EXPECT_TRUE(LogCount == 1 && window.canRecordLog);
    Desktop().StartEditor = [](const std::string&) { return false; };
    Play("?- ?=log.pnl");
    OpenLog(window);
    OpenLog(window);
    EXPECT_EQ(Settings.DefPath, "/where it was") << "no file, no editor";
}

} // namespace
