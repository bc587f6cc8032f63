#pragma once

#include "lite/LiteWindow.h"

#include <cstdint>
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

// Makes the log empty, without a word about records that were not saved.
void ResetLog(LiteWindow& window);

// Records row `row` of the table and moves the current cell to its last column. Does nothing while the
// current cell or an input is empty, nor with a row that isn't four numbers, both sizes other than 0. A full
// log beeps.
void RecordRow(LiteWindow& window, int row);

// Asks for a file, writes the log to it and empties the log. A cancel or a file that can't be written leaves
// everything as it was, silently.
void RecordLog(LiteWindow& window);

// Asks for a file and shows it in the text editor. Silent like RecordLog.
void OpenLog(LiteWindow& window);

} // namespace plenair
