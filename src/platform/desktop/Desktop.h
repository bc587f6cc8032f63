#pragma once

#include "platform/desktop/Clipboard.h"
#include "platform/desktop/CommonDialog.h"
#include "platform/desktop/InputBox.h"
#include "platform/desktop/MessageBox.h"
#include "platform/desktop/Progress.h"
#include "platform/text/LocalTime.h"

#include <functional>
#include <string>

namespace plenair {

enum class MousePointer { Default = 0, Hourglass = 11 };

// All that the program asks of the desktop, in one record. ConnectDesktop fills it at the start, and a test
// puts its own functions there. An empty function is answered as a user would who cancels everything: see
// each header.
struct DesktopServices {
    std::function<MessageAnswer(const MessageRequest&)> AskByMessageBox;
    std::function<std::string(const InputRequest&)> AskByInputBox;
    // Gives whether the dialog was accepted, with FileName or Copies filled in. A save dialog adds DefaultExt
    // by itself before it asks about overwriting.
    std::function<bool(DialogKind, CommonDialog&)> ShowDialog;
    // Begins long work; the work ends with the function that this gives.
    std::function<ProgressStep(const ProgressRequest&)> StartProgress;
    std::function<std::function<bool()>()> StartWaiting;
    std::function<void(const std::string& path, unsigned flags)> PlaySound;
    std::function<bool(const std::string& path)> StartEditor;
    // The manual is the file at `path`; false if no browser could be started.
    std::function<bool(const std::string& path, const std::string& anchor)> OpenManual;
    std::function<void(const ClipboardContent&)> Copy;
    std::function<void()> Beep;
    std::function<void(MousePointer)> ShowPointer;
    std::function<void(int milliseconds, std::function<void()> action)> RunLater;
    std::function<LocalTime()> Clock; // the system's clock where it is empty
};

// The services in force.
DesktopServices& Desktop();

// Brings back at its end the services that were in force at its start.
class ScopedDesktop {
  public:
    ScopedDesktop() : m_before(Desktop()) {}
    ~ScopedDesktop() { Desktop() = m_before; }
    ScopedDesktop(const ScopedDesktop&) = delete;
    ScopedDesktop& operator=(const ScopedDesktop&) = delete;

  private:
    DesktopServices m_before;
};

// The desktop's warning sound.
void Beep();

// Runs `action` once, after that time, when the program is waiting for its user, be it in a dialog. Never,
// where there is no desktop.
void RunLater(int milliseconds, std::function<void()> action);

// Over all windows of the program.
void SetMousePointer(MousePointer pointer);

// The hourglass, until the end of a scope.
class Hourglass {
  public:
    Hourglass() { SetMousePointer(MousePointer::Hourglass); }
    ~Hourglass() { SetMousePointer(MousePointer::Default); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;
};

} // namespace plenair
