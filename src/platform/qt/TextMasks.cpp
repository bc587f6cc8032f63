#include "platform/qt/TextMasks.h"

#include "platform/qt/QtText.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace plenair {

namespace {

constexpr ColourNumber kWhite = 0xFFFFFF;

int Rounded(double value) {
    return static_cast<int>(std::floor(value + 0.5));
}

// The part of an image that is not empty, as a mask around the image's `origin`.
CoverageMask MaskOf(const QImage& image, QPoint origin) {
    QRect inked;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            inked |= image.pixelColor(x, y).alpha() != 0 ? QRect(x, y, 1, 1) : QRect();
        }
    }
    CoverageMask mask{inked.left() - origin.x(), inked.top() - origin.y(), inked.width(), inked.height(), {}};
    for (int y = inked.top(); y <= inked.bottom(); ++y) {
        for (int x = inked.left(); x <= inked.right(); ++x) {
            mask.Coverage.push_back(static_cast<std::uint8_t>(image.pixelColor(x, y).alpha()));
        }
    }
    return mask;
}

} // namespace

TextMasks& TextMasks::Of(const QFont& font, double pixelRatio) {
    static std::map<std::pair<QString, double>, TextMasks> s_masks;
    return s_masks.try_emplace({font.key(), pixelRatio}, font, pixelRatio).first->second;
}

void TextMasks::Print(PixelInk& ink, const std::string& text, double x, double y) {
    const std::u32string letters = ToQt(text).toStdU32String();
    const int top = Rounded(y);
    double left = x;
    for (const char32_t code : letters) {
        const Letter& letter = LetterOf(code);
        ink.Stamp(letter.Rim, Rounded(left), top, kWhite);
        left += letter.Advance;
    }
    left = x;
    for (const char32_t code : letters) {
        const Letter& letter = LetterOf(code);
        ink.Stamp(letter.Body, Rounded(left), top, kBlackColour);
        left += letter.Advance;
    }
}

const TextMasks::Letter& TextMasks::LetterOf(char32_t code) {
    const auto known = m_letters.find(code);
    return known != m_letters.end() ? known->second : m_letters.emplace(code, Drawn(code)).first->second;
}

TextMasks::Letter TextMasks::Drawn(char32_t code) const {
    const QFontMetricsF metrics(m_font);
    const QString text = QString::fromUcs4(&code, 1);
    const double advance = metrics.horizontalAdvance(text);
    // Room for what a letter has outside of its own box, and for the rim.
    const int room = Rounded(metrics.height() * m_ratio);
    QImage image(Rounded(advance * m_ratio) + 2 * room, 3 * room, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(m_ratio);
    const auto draw = [&](std::initializer_list<QPoint> shifts) {
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setFont(m_font);
        for (const QPoint shift : shifts) {
            const QPointF origin = QPointF(room + shift.x(), room + shift.y()) / m_ratio;
            painter.drawText(origin + QPointF(0, metrics.ascent()), text);
        }
        painter.end();
        return MaskOf(image, {room, room});
    };
    const int rim = std::max(1, Rounded(m_ratio));
    return {draw({{0, 0}}), draw({{-rim, 0}, {rim, 0}, {0, -rim}, {0, rim}}), advance * m_ratio};
}

} // namespace plenair
