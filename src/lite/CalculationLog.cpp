#include "lite/CalculationLog.h"

#include "core/Settings.h"
#include "flow/Arithmetic.h"
#include "flow/BoxNumbers.h"
#include "flow/CalcFailure.h"
#include "platform/desktop/Clock.h"
#include "platform/desktop/CommonDialog.h"
#include "platform/desktop/Desktop.h"
#include "platform/desktop/Editor.h"
#include "platform/desktop/MessageBox.h"
#include "platform/desktop/Progress.h"
#include "platform/files/FileFailure.h"
#include "platform/files/Folders.h"
#include "platform/files/WholeFiles.h"
#include "platform/text/DateText.h"
#include "platform/text/NumberText.h"
#include "platform/text/Utf8.h"

#include <cstddef>
#include <limits>
#include <string>

namespace plenair {

std::vector<LogRecord> LogRows;
std::int16_t LogCount = 0;

namespace {

float RatioOf(float width, float height) {
    const float wide = ToSingle(Divide(width, height));
    const float tall = ToSingle(Divide(height, width));
    return SingleOf(Format(tall >= wide ? tall : wide, "0.0"));
}

// Throws CalcFailure where the row holds something else than numbers.
LogRecord ReadRow(const LiteWindow& window, int row) {
    LogRecord record;
    record.Flow = SingleOf(window.InputA());
    record.Width = SingleOf(window.MinorCell(row, kWidthColumn));
    record.Height = SingleOf(window.MinorCell(row, kHeightColumn));
    record.Ratio = RatioOf(record.Width, record.Height);
    record.Vel = SingleOf(window.MinorCell(row, kVelocityColumn));
    record.PaPerM = SingleOf(window.MinorCell(row, kLossColumn));
    record.Basis = Settings.CalcBasis;
    return record;
}

// Numbers are in the machine's locale: the log is for people and their spreadsheets, and nothing reads it
// back.
std::string LogText() {
    std::string text = "Plenair Minor Calculation Log\r\n";
    text += MediumDate(Now()) + "\r\n";
    text += MediumTime(Now()) + "\r\n";
    text += "Flow\tWidth\tHeight\tRatio\tVel\tPa/m\tCalculation Basis\r\n";
    for (std::int16_t i = 0; i < LogCount; ++i) {
        const LogRecord& record = LogRows[static_cast<std::size_t>(i)];
        for (const float number :
             {record.Flow, record.Width, record.Height, record.Ratio, record.Vel, record.PaPerM}) {
            text += ShortestText(number) + "\t";
        }
        text += std::to_string(record.Basis) + "\r\n";
    }
    return text;
}

CommonDialog& PreparedDialog(LiteWindow& window) {
    CommonDialog& dialog = window.Dialog();
    dialog.DefaultExt = "pnl";
    dialog.InitDir = Settings.DefPath;
    dialog.FileName.clear();
    dialog.Filter = "Plenair Logs (*.pnl)|*.pnl|All Files (*.*)|*.*";
    return dialog;
}

} // namespace

void ResetLog(LiteWindow& window) {
    LogCount = 0;
    window.EnableRecordLog(false);
}

void RecordRow(LiteWindow& window, int row) {
    if (window.CurrentCell().empty() || window.InputB().empty() || window.InputA().empty()) {
        return;
    }
    if (LogCount == std::numeric_limits<std::int16_t>::max()) {
        Beep();
        return;
    }
    try {
        const LogRecord record = ReadRow(window, row);
        LogRows.resize(static_cast<std::size_t>(LogCount));
        LogRows.push_back(record);
    } catch (const CalcFailure&) {
        // The current cell stays too: moved to a cell of this row that is empty, it would block every button.
        return;
    }
    ++LogCount;
    window.EnableRecordLog(true);
    window.SetCurrentCell(row, kLossColumn);
    window.FocusInputA();
}

void RecordLog(LiteWindow& window) {
    CommonDialog& dialog = PreparedDialog(window);
    dialog.Flags = kOverwritePrompt;
    dialog.ShowSave();
    if (dialog.FileName.empty()) {
        return;
    }
    try {
        RewriteFile(dialog.FileName, LogText(),
                    ShowFileProgress("Saving " + Shortened(dialog.FileTitle), "Record Log"));
    } catch (const DialogCancelled&) {
        return;
    } catch (const FileFailure&) {
        // The menu entry, still enabled, shows that nothing was saved.
        return;
    }
    Settings.DefPath = CurrentFolder();
    ResetLog(window);
    ShowMessage({"Plenair Minor Calculation Log Saved.\nThe Log has been reset", "Record Log",
                 MessageButtons::Ok, MessageIcon::Exclamation});
}

void OpenLog(LiteWindow& window) {
    CommonDialog& dialog = PreparedDialog(window);
    dialog.ShowOpen();
    if (!dialog.FileName.empty() && OpenInEditor(dialog.FileName)) {
        Settings.DefPath = CurrentFolder();
    }
}

} // namespace plenair
