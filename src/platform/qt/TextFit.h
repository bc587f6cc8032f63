#pragma once

#include <QFont>
#include <QString>

// A number of which a part is seen reads like another number. These keep it whole, or show that it isn't.
namespace plenair {

// `font`, made smaller until `text` is at most `width` logical pixels wide, but not below two thirds of its
// size.
QFont FontThatFits(const QFont& font, const QString& text, double width);

// `text`, or where it is too wide in that font, its start with an ellipsis.
QString TextThatFits(const QFont& font, const QString& text, double width);

} // namespace plenair
