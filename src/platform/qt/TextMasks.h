#pragma once

#include "platform/drawing/PixelInk.h"

#include <QFont>

#include <map>
#include <string>

namespace plenair {

// The letters of a font as masks, so that thousands of short texts on a picture cost no more than their
// pixels. A text has a thin light rim, so that it can be read on a line.
class TextMasks {
  public:
    // `pixelRatio`: device pixels to a unit of the font.
    TextMasks(const QFont& font, double pixelRatio) : m_font(font), m_ratio(pixelRatio) {}

    // Those of a font that has been asked for before are kept.
    static TextMasks& Of(const QFont& font, double pixelRatio);

    // Prints UTF-8 text, its top left corner at a place in pixels, in black.
    void Print(PixelInk& ink, const std::string& text, double x, double y);

  private:
    struct Letter {
        CoverageMask Body;
        CoverageMask Rim;
        double Advance = 0;
    };

    const Letter& LetterOf(char32_t code);
    Letter Drawn(char32_t code) const;

    QFont m_font;
    double m_ratio;
    std::map<char32_t, Letter> m_letters;
};

} // namespace plenair
