#pragma once

#include "platform/files/ReplacementFile.h"

#include <QIODevice>

#include <string>

namespace plenair {

// A PDF file in the making, as its writer sees it. It takes its name only when it is complete; until then,
// and after any failure, a file of that name is as it was.
class PdfFile : public QIODevice {
    Q_OBJECT

  public:
    // Throws FileFailure.
    explicit PdfFile(const std::string& path);

    // Whether something could not be written, which the writer itself doesn't ask.
    bool HasFailed() const { return m_hasFailed; }

    // Throws FileFailure, also for what could not be written before.
    void TakeName();

  protected:
    qint64 readData(char* data, qint64 size) override;
    qint64 writeData(const char* data, qint64 size) override;

  private:
    ReplacementFile m_file;
    std::string m_pending; // not written yet
    bool m_hasFailed = false;
};

} // namespace plenair
