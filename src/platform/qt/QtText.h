#pragma once

#include <QString>

#include <string>

// The program's text is UTF-8; Qt has a type of its own.
namespace plenair {

inline QString ToQt(const std::string& text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string FromQt(const QString& text) {
    return text.toStdString();
}

} // namespace plenair
