#include "platform/qt/Clipboard.h"

#include "platform/qt/FormFont.h"
#include "platform/qt/SurfacePainter.h"
#include "platform/qt/Twips.h"

#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QImage>
#include <QMimeData>
#include <QPainter>
#include <QPointer>
#include <QSvgGenerator>

#include <optional>

namespace plenair {

namespace {

const QString kSvg = "image/svg+xml";
const QString kPng = "image/png";

// What was copied, for as long as it is the clipboard's.
class Copied : public QMimeData {
    Q_OBJECT

  public:
    explicit Copied(const ClipboardContent& content) {
        setText(ToQt(content.Text));
        if (!content.Html.empty()) {
            setHtml(ToQt(content.Html));
        }
        if (content.Picture != nullptr) {
            m_picture = *content.Picture;
            m_picture->WhenChanged({});
        }
        // Another program may ask when the one that painted is at its end, and can paint no more.
        connect(qApp, &QCoreApplication::aboutToQuit, this, [this] {
            if (QApplication::clipboard()->mimeData() == this) {
                MakePicture(kSvg);
                MakePicture(kPng);
            }
        });
    }

    QStringList formats() const override {
        QStringList all = QMimeData::formats();
        if (m_picture) {
            all << kSvg << kPng;
        }
        return all;
    }

    bool hasFormat(const QString& format) const override { return formats().contains(format); }

  protected:
    QVariant retrieveData(const QString& format, QMetaType type) const override {
        const bool isPicture = m_picture && (format == kSvg || format == kPng);
        return isPicture ? MakePicture(format) : QMimeData::retrieveData(format, type);
    }

  private:
    QByteArray MakePicture(const QString& format) const;
    void PaintSvg(QIODevice& device) const;
    void PaintPng(QIODevice& device) const;
    void Paint(QPainter& painter, double pixelRatio) const;

    QSize Size() const { return {ToPixelsX(m_picture->Size().Width), ToPixelsY(m_picture->Size().Height)}; }

    std::optional<RecordedSurface> m_picture;
    mutable QMap<QString, QByteArray> m_made;
};

QByteArray Copied::MakePicture(const QString& format) const {
    if (m_picture && !m_made.contains(format)) {
        QBuffer buffer(&m_made[format]);
        buffer.open(QIODevice::WriteOnly);
        format == kSvg ? PaintSvg(buffer) : PaintPng(buffer);
    }
    return m_made[format];
}

void Copied::Paint(QPainter& painter, double pixelRatio) const {
    painter.fillRect(QRect(QPoint(0, 0), Size()), Qt::white);
    SurfacePainter surface(painter, pixelRatio, FormFont());
    for (const DrawnItem& item : m_picture->Items()) {
        surface.Paint(item);
    }
}

void Copied::PaintSvg(QIODevice& device) const {
    QSvgGenerator generator;
    generator.setOutputDevice(&device);
    generator.setSize(Size());
    generator.setViewBox(QRect(QPoint(0, 0), Size()));
    QPainter painter(&generator);
    Paint(painter, 1);
}

void Copied::PaintPng(QIODevice& device) const {
    const double ratio = qApp->devicePixelRatio();
    QImage image(Size() * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    QPainter painter(&image);
    Paint(painter, ratio);
    painter.end();
    image.save(&device, "PNG");
}

} // namespace

void CopyToDesktopClipboard(const ClipboardContent& content) {
    QApplication::clipboard()->setMimeData(new Copied(content));
}

} // namespace plenair

#include "Clipboard.moc"
