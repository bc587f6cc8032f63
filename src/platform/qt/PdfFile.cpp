#include "platform/qt/PdfFile.h"

#include "platform/files/FileFailure.h"

namespace plenair {

namespace {

constexpr std::size_t kPiece = 256 * 1024;

} // namespace

PdfFile::PdfFile(const std::string& path) : m_file(path) {
    open(QIODevice::WriteOnly);
}

void PdfFile::TakeName() {
    if (m_hasFailed) {
        throw FileFailure("the document could not be written");
    }
    m_file.Write(m_pending);
    m_file.TakeName();
}

qint64 PdfFile::readData(char*, qint64) {
    return -1;
}

qint64 PdfFile::writeData(const char* data, qint64 size) {
    if (m_hasFailed) {
        return -1;
    }
    m_pending.append(data, static_cast<std::size_t>(size));
    if (m_pending.size() >= kPiece) {
        try {
            m_file.Write(m_pending);
        } catch (const FileFailure&) {
            m_hasFailed = true;
            return -1;
        }
        m_pending.clear();
    }
    return size;
}

} // namespace plenair
