#pragma once

#include "platform/desktop/CommonDialog.h"

#include <cstdint>
#include <string>
#include <vector>

// The calculation log: rows of the result table collected in memory and written to a text file. A log file is
// only ever written; nothing reads one back.
namespace plenair {

// One recorded row, as the table shows it.
struct LogRecord {
    float Flow = 0;   // the number of txtInputA: L/s, or in the analyses the width in mm
    float Width = 0;  // mm
    float Height = 0; // mm
    float Ratio = 0;  // the longer side to the shorter, to one decimal
    float Vel = 0;    // m/s
    float PaPerM = 0; // Pa/m
    std::int16_t Basis = 0;
};

// Records from index LogCount on are left over from a log already saved.
extern std::vector<LogRecord> LogRows;
extern std::int16_t LogCount;

// What the log needs of the Lite window.
class LogWindow {
  public:
    virtual ~LogWindow() = default;

    virtual std::string InputA() const = 0;
    virtual std::string InputB() const = 0;
    virtual void FocusInputA() = 0; // selects its text

    // A cell of grdMinorCalc, and its current cell, which stays where it is put.
    virtual std::string MinorCell(int row, int column) const = 0;
    virtual std::string CurrentCell() const = 0;
    virtual void SetCurrentCell(int row, int column) = 0;

    virtual void EnableRecordLog(bool enabled) = 0; // mnuFileLog
    virtual CommonDialog& DlgMinor() = 0;
};

// Makes the log empty, without a word about records that were not saved.
void ResetLog(LogWindow& window);

// Records row `row` of the table and moves the current cell to its last column. Does nothing while the
// current cell or an input is empty, nor with a row that isn't four numbers, both sizes other than 0. A full
// log beeps.
void RecordRow(LogWindow& window, int row);

// Asks for a file, writes the log to it and empties the log. A cancel or a file that can't be written leaves
// everything as it was, silently.
void RecordLog(LogWindow& window);

// Asks for a file and shows it in the text editor. Silent like RecordLog.
void OpenLog(LogWindow& window);

} // namespace plenair
