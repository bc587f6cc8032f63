#pragma once

#include "platform/drawing/DrawingSurface.h"

#include <stdexcept>
#include <string>

namespace plenair {

enum class ColourMode { Colour = 2 };
enum class PageOrientation { Portrait = 1, Landscape = 2 };

// A page or a document that can't be printed.
struct PrinterFailure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The printer that the print dialog chose. A document begins by itself with the first thing drawn and ends
// with EndDoc; the next one is a print job, or a file, of its own. Its Size is that of the paper in
// its present orientation. Every operation but KillDoc may throw PrinterFailure.
class Printer : public DrawingSurface {
  public:
    virtual void SetColourMode(ColourMode mode) = 0;

    // Holds for the present page if nothing stands on it yet, and for those after it.
    virtual void SetOrientation(PageOrientation orientation) = 0;

    // A face that is missing is replaced by one of the same metrics.
    virtual void SetFont(const std::string& name, double points, bool bold) = 0;

    // After a line the position moves to the next one, at the left edge. A tab moves on to the next multiple
    // of half an inch.
    void Print(const std::string& text) override = 0;

    // Begins a page, with the position at its top left corner or, where the printer can't reach that, at the
    // nearest place it can. A last page with nothing on it doesn't come out.
    virtual void NewPage() = 0;

    // Hands the document over. One with nothing on it makes no job.
    virtual void EndDoc() = 0;

    // Throws away the document begun, if there is one, and leaves nothing of it behind.
    virtual void KillDoc() = 0;
};

} // namespace plenair
