#pragma once

#include "platform/files/FileProgress.h"

#include <functional>
#include <string>

namespace plenair {

struct ProgressRequest {
    std::string Text; // what is being done
    std::string Title;
    int Steps = 0;
};

// Tells how many steps are done. False once the user wants the work to stop.
using ProgressStep = std::function<bool(int done)>;

// Work that may take long, shown while it lasts: where it takes more than half a second a dialog appears that
// tells how far it is and has a button to cancel it. Until its end no window of the program takes input.
class Progress {
  public:
    explicit Progress(const ProgressRequest& request);

    // Call at every step; it costs next to nothing. False once the user wants the work to stop.
    bool GoOn(int done) { return !m_step || m_step(done); }

  private:
    ProgressStep m_step; // the dialog lives as long as this
};

// Work whose steps nobody knows, such as a calculation: where it takes more than a quarter of a second the
// pointer becomes the hourglass, and Escape ends it. What else the user does reaches the windows after its
// end.
class Waiting {
  public:
    Waiting();

    // Call now and then; it costs next to nothing. False once the user wants the work to stop.
    bool GoOn() { return !m_goOn || m_goOn(); }

  private:
    std::function<bool()> m_goOn; // the pointer is the hourglass as long as this lives
};

// Progress for a file. What this gives throws DialogCancelled once the user wants the work to stop; the work
// ends with it.
FileProgress ShowFileProgress(const std::string& text, const std::string& title);

} // namespace plenair
