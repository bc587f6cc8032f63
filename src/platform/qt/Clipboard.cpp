#include "platform/qt/Clipboard.h"

#include "platform/drawing/LayeredPicture.h"
#include "platform/drawing/Strokes.h"
#include "platform/qt/FormFont.h"
#include "platform/qt/PainterInk.h"
#include "platform/qt/QtText.h"
#include "platform/qt/SurfacePainter.h"
#include "platform/qt/Twips.h"
#include "platform/text/SpreadsheetDocument.h"
#include "platform/text/TableText.h"

#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QImage>
#include <QMimeData>
#include <QPainter>
#include <QSvgGenerator>

#include <cmath>
#include <vector>

namespace plenair {

namespace {

const QString kSvg = "image/svg+xml";
const QString kPng = "image/png";

// Office programs take a bitmap before any text or HTML, and a spreadsheet in the form in which they copy
// their own before that. So a paste gives cells, and the picture is the user's second choice.
const QString kSpreadsheet =
    "application/x-openoffice-embed-source-xml;windows_formatname=\"Star Embed Source (XML)\"";

// The format that tells what the spreadsheet is: its name says it all. Width and height, by which a text
// document shows it, are in hundredths of a millimetre, of cells as wide and high as they are by default.
QString SpreadsheetKind(const TableRows& table) {
    return QString(
               "application/x-openoffice-objectdescriptor-xml;windows_formatname=\"Star Object Descriptor "
               "(XML)\";classname=\"47BBB4CB-CE4C-4E80-a591-42d9ae74950f\";typename=\"calc8\";"
               "viewaspect=\"1\";width=\"%1\";height=\"%2\";posx=\"0\";posy=\"0\"")
        .arg(2258 * table.front().size())
        .arg(452 * table.size());
}

// Larger pictures are not made in advance at the end of the program, which would take long.
constexpr std::size_t kMostItemsAtEnd = 10'000;

// What was copied, for as long as it is the clipboard's. All but plain text is made when another program
// asks.
class Copied : public QMimeData {
    Q_OBJECT

  public:
    explicit Copied(const ClipboardContent& content);

    QStringList formats() const override { return m_formats; }
    bool hasFormat(const QString& format) const override { return m_formats.contains(format); }

  protected:
    QVariant retrieveData(const QString& format, QMetaType type) const override;

  private:
    void EndWithProgram();
    QByteArray Make(const QString& format) const;
    void PaintSvg(QIODevice& device) const;
    void PaintPng(QIODevice& device) const;

    bool HasPicture() const { return m_size.Width > 0.0; }
    QSize Size() const { return {ToPixelsX(m_size.Width), ToPixelsY(m_size.Height)}; }

    QStringList m_formats;
    TableRows m_table;
    std::vector<DrawnItem> m_picture;
    Extent m_size; // of the picture, if there is one
    mutable QMap<QString, QByteArray> m_made;
};

Copied::Copied(const ClipboardContent& content) : m_table(content.Table) {
    setText(ToQt(TabSeparated(m_table)));
    m_formats = QMimeData::formats() + QStringList{"text/html", kSpreadsheet, SpreadsheetKind(m_table)};
    if (content.Picture != nullptr) {
        m_picture = content.Picture->Items();
        m_size = content.Picture->Size();
        m_formats << kSvg << kPng;
    }
    connect(qApp, &QCoreApplication::aboutToQuit, this, &Copied::EndWithProgram);
}

// A program that keeps what is on the clipboard asks for it at the very end, when nothing can be painted any
// more.
void Copied::EndWithProgram() {
    if (QApplication::clipboard()->mimeData() != this) {
        return;
    }
    for (const QString& format : {kSvg, kPng}) {
        if (m_picture.size() > kMostItemsAtEnd) {
            m_formats.removeAll(format);
        } else {
            Make(format);
        }
    }
}

QVariant Copied::retrieveData(const QString& format, QMetaType type) const {
    const bool isPlain = QMimeData::formats().contains(format);
    return isPlain || !m_formats.contains(format) ? QMimeData::retrieveData(format, type) : Make(format);
}

QByteArray Copied::Make(const QString& format) const {
    QByteArray& made = m_made[format];
    if (!made.isEmpty()) {
        return made;
    }
    QBuffer buffer(&made);
    buffer.open(QIODevice::WriteOnly);
    if (HasPicture() && format == kSvg) {
        PaintSvg(buffer);
    } else if (HasPicture() && format == kPng) {
        PaintPng(buffer);
    } else if (format == kSpreadsheet) {
        buffer.write(QByteArray::fromStdString(SpreadsheetDocument(m_table)));
    } else if (format == "text/html") {
        buffer.write(QByteArray::fromStdString(HtmlTable(m_table)));
    } else {
        buffer.write("calc8"); // empty data would count as none
    }
    return made;
}

// A text with a rim, so that it can be read on a line.
void PrintText(QPainter& painter, const QString& text, QPointF place) {
    place.ry() += QFontMetricsF(painter.font()).ascent();
    painter.setPen(Qt::white);
    for (const QPointF rim : {QPointF(-1, 0), QPointF(1, 0), QPointF(0, -1), QPointF(0, 1)}) {
        painter.drawText(place + rim, text);
    }
    painter.setPen(Qt::black);
    painter.drawText(place, text);
}

void Copied::PaintSvg(QIODevice& device) const {
    QSvgGenerator generator;
    generator.setOutputDevice(&device);
    generator.setResolution(
        static_cast<int>(std::lround(kTwipsPerInch / TwipsPerPixelX()))); // sizes the letters
    generator.setSize(Size());
    generator.setViewBox(QRect(QPoint(0, 0), Size()));
    QPainter painter(&generator);
    painter.fillRect(QRect(QPoint(0, 0), Size()), Qt::white);
    painter.setFont(FormFont());
    const PixelScale scale = ScreenScale(1, Size());
    PainterInk ink(painter, scale.Surface);
    for (const DrawnItem& item : m_picture) {
        if (item.Kind == DrawnItem::Shape::Text) {
            PrintText(painter, ToQt(item.Text),
                      {item.Start.X * scale.PixelsPerTwipX, item.Start.Y * scale.PixelsPerTwipY});
        } else {
            PaintStroke(item, scale, ink);
        }
    }
}

void Copied::PaintPng(QIODevice& device) const {
    const double ratio = qApp->devicePixelRatio();
    QImage image(Size() * ratio, QImage::Format_RGB32);
    image.fill(Qt::white);
    SurfacePainter painter(image, ratio, FormFont());
    for (const DrawnItem& item : m_picture) {
        painter.Paint(item);
    }
    image.save(&device, "PNG");
}

} // namespace

void CopyToDesktopClipboard(const ClipboardContent& content) {
    QApplication::clipboard()->setMimeData(new Copied(content));
}

} // namespace plenair

#include "Clipboard.moc"
