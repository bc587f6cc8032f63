#include "platform/qt/DesktopPrinter.h"

#include "platform/drawing/DrawingSurface.h"
#include "platform/drawing/RecordedSurface.h"
#include "platform/drawing/Strokes.h"
#include "platform/files/FileFailure.h"
#include "platform/plane/Point.h"
#include "platform/qt/PainterInk.h"
#include "platform/qt/PdfFile.h"
#include "platform/qt/PrintDialog.h"
#include "platform/qt/QtText.h"
#include "platform/qt/Twips.h"

#include <QDialog>
#include <QFile>
#include <QFileInfo>
#include <QFont>
#include <QFontMetricsF>
#include <QMarginsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QPointF>
#include <QPrinter>
#include <QSizeF>
#include <QString>
#include <QStringList>

#include <cmath>
#include <compare>
#include <memory>
#include <utility>

namespace plenair {

namespace {

constexpr double kTwipsPerPoint = 20.0;
constexpr double kLineWidthUnit = kTwipsPerPoint / 3;
constexpr double kDash = 12 * kLineWidthUnit;
constexpr double kGap = 8 * kLineWidthUnit;
constexpr double kTabStop = 720;
// Where a page of text begins, even where the printer could reach closer to the edge.
constexpr double kTextMargin = 360;

// The printer as the print dialog left it, and the file that it prints to, if any.
struct ChosenPrinter {
    QPrinter Printer{QPrinter::HighResolution};
    QString File;
    int Documents = 0; // printed to that file so far
};

ChosenPrinter& Chosen() {
    static ChosenPrinter s_chosen;
    return s_chosen;
}

// The name for the next document: the file itself, then numbers that are free.
QString NextFile(const ChosenPrinter& chosen) {
    if (chosen.Documents == 0) {
        return chosen.File;
    }
    const QFileInfo first(chosen.File);
    for (int number = chosen.Documents + 1;; ++number) {
        const QString name = QString("%1/%2-%3.%4")
                                 .arg(first.absolutePath(), first.completeBaseName(), QString::number(number),
                                      first.suffix().isEmpty() ? QString("pdf") : first.suffix());
        if (!QFile::exists(name)) {
            return name;
        }
    }
}

// A document in the making, on the chosen printer or in a PDF file, and its painter, whose units are the
// device's pixels.
class Document {
  public:
    // Throws PrinterFailure.
    explicit Document(PageOrientation orientation);
    ~Document();
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    // Both throw PrinterFailure.
    void TurnPage(PageOrientation orientation);
    void HandOver();

    QPainter& Page() { return m_painter; }
    double PixelsPerTwip() const { return m_device->logicalDpiX() / kTwipsPerInch; }
    bool HasFailed() const;

  private:
    void SetOrientation(PageOrientation orientation);

    std::unique_ptr<PdfFile> m_file; // none on a real printer
    std::unique_ptr<QPdfWriter> m_writer;
    QPagedPaintDevice* m_device;
    QPainter m_painter;
};

Document::Document(PageOrientation orientation) : m_device(&Chosen().Printer) {
    QPrinter& printer = Chosen().Printer;
    if (!Chosen().File.isEmpty()) {
        try {
            m_file = std::make_unique<PdfFile>(FromQt(NextFile(Chosen())));
        } catch (const FileFailure& failure) {
            throw PrinterFailure(failure.what());
        }
        m_writer = std::make_unique<QPdfWriter>(m_file.get());
        m_writer->setResolution(printer.resolution());
        m_writer->setPageSize(printer.pageLayout().pageSize());
        m_writer->setPageMargins(QMarginsF());
        m_writer->setTitle("Plenair");
        m_writer->setCreator("Plenair");
        m_device = m_writer.get();
    } else {
        printer.setFullPage(true);
        printer.setDocName("Plenair");
        printer.setCreator("Plenair");
        printer.setCopyCount(1); // each copy is a document of its own
    }
    SetOrientation(orientation);
    if (!m_painter.begin(m_device)) {
        throw PrinterFailure("the printer does not answer");
    }
}

Document::~Document() {
    if (m_painter.isActive()) {
        if (m_file == nullptr) {
            Chosen().Printer.abort();
        }
        m_painter.end();
    }
}

void Document::SetOrientation(PageOrientation orientation) {
    m_device->setPageOrientation(orientation == PageOrientation::Landscape ? QPageLayout::Landscape
                                                                           : QPageLayout::Portrait);
}

bool Document::HasFailed() const {
    return m_file != nullptr ? m_file->HasFailed() : Chosen().Printer.printerState() == QPrinter::Error;
}

void Document::TurnPage(PageOrientation orientation) {
    SetOrientation(orientation);
    if (HasFailed() || !m_device->newPage()) {
        throw PrinterFailure("no new page");
    }
}

void Document::HandOver() {
    if (!m_painter.end() || HasFailed()) {
        throw PrinterFailure("the document can't be printed");
    }
    if (m_file != nullptr) {
        m_writer.reset();
        try {
            m_file->TakeName();
        } catch (const FileFailure& failure) {
            throw PrinterFailure(failure.what());
        }
        ++Chosen().Documents;
    }
}

class DesktopPrinter : public Printer {
  public:
    Extent Size() const override {
        const QSizeF portrait =
            Chosen().Printer.pageLayout().pageSize().size(QPageSize::Point) * kTwipsPerPoint;
        const QSizeF size = m_orientation == PageOrientation::Landscape ? portrait.transposed() : portrait;
        return {size.width(), size.height()};
    }

    void SetLineWidth(int width) override { m_lineWidth = width; }
    void SetLineStyle(LineStyle style) override { m_lineStyle = style; }

    void Line(Point start, Point end, ColourNumber colour) override {
        Stroke(DrawnItem::Shape::Line, start, end, colour);
    }

    void Box(Point corner, Point opposite, ColourNumber colour) override {
        Stroke(DrawnItem::Shape::Box, corner, opposite, colour);
    }

    void SetPosition(Point place) override { m_position = place; }
    void Print(const std::string& text) override;

    void SetColourMode(ColourMode) override { Chosen().Printer.setColorMode(QPrinter::Color); }

    void SetOrientation(PageOrientation orientation) override { m_orientation = orientation; }

    void SetFont(const std::string& name, double points, bool bold) override {
        m_font = {name, points, bold};
    }

    void NewPage() override {
        ++m_pagesToTurn;
        m_position = {kTextMargin, kTextMargin};
    }

    void EndDoc() override {
        m_pagesToTurn = 0;
        if (const std::unique_ptr<Document> document = std::move(m_document)) {
            document->HandOver();
        }
    }

    void KillDoc() override {
        m_pagesToTurn = 0;
        m_document.reset();
    }

  private:
    struct PrinterFont {
        std::string Name;
        double Points = 9;
        bool IsBold = false;
        auto operator<=>(const PrinterFont&) const = default;
    };

    Document& OpenPage();
    void Stroke(DrawnItem::Shape kind, Point start, Point end, ColourNumber colour);

    std::unique_ptr<Document> m_document;
    PrinterFont m_font;
    Point m_position{kTextMargin, kTextMargin};
    PageOrientation m_orientation = PageOrientation::Portrait;
    int m_lineWidth = 1;
    LineStyle m_lineStyle = LineStyle::Solid;
    int m_pagesToTurn = 0;
};

// The document with the page to draw on: begins it, or turns the pages that NewPage has asked for, at the
// first thing drawn, so that an empty last page never comes out.
Document& DesktopPrinter::OpenPage() {
    if (m_document == nullptr) {
        m_document = std::make_unique<Document>(m_orientation);
    }
    for (; m_pagesToTurn > 0; --m_pagesToTurn) {
        m_document->TurnPage(m_orientation);
    }
    return *m_document;
}

void DesktopPrinter::Stroke(DrawnItem::Shape kind, Point start, Point end, ColourNumber colour) {
    Document& document = OpenPage();
    const double pixels = document.PixelsPerTwip();
    const Extent surface{std::ceil(Size().Width * pixels), std::ceil(Size().Height * pixels)};
    PainterInk ink(document.Page(), surface);
    PaintStroke({kind, m_lineStyle, m_lineWidth, colour, start, end, {}},
                {pixels, pixels, kLineWidthUnit * pixels, kDash * pixels, kGap * pixels, surface}, ink);
}

void DesktopPrinter::Print(const std::string& text) {
    Document& document = OpenPage();
    const double pixels = document.PixelsPerTwip();
    QFont font;
    // The families after the first have the same metrics.
    font.setFamilies({ToQt(m_font.Name), "Liberation Sans", "Nimbus Sans", "DejaVu Sans"});
    font.setPixelSize(static_cast<int>(std::lround(m_font.Points * kTwipsPerPoint * pixels)));
    font.setBold(m_font.IsBold);
    document.Page().setPen(Qt::black);
    document.Page().setFont(font);
    const QFontMetricsF metrics(font);
    double x = m_position.X * pixels;
    const double y = m_position.Y * pixels + metrics.ascent();
    bool isFirst = true;
    for (const QString& piece : ToQt(text).split('\t')) {
        if (!isFirst) {
            x = (std::floor(x / (kTabStop * pixels)) + 1) * kTabStop * pixels;
        }
        document.Page().drawText(QPointF(x, y), piece);
        x += metrics.horizontalAdvance(piece);
        isFirst = false;
    }
    m_position = {kTextMargin, m_position.Y + metrics.lineSpacing() / pixels};
}

} // namespace

std::unique_ptr<Printer> MakeDesktopPrinter() {
    return std::make_unique<DesktopPrinter>();
}

void PrintToFile(const std::string& path) {
    Chosen().File = ToQt(path);
    Chosen().Documents = 0;
}

bool ShowPrintDialog(CommonDialog& dialog) {
    ChosenPrinter& chosen = Chosen();
    chosen.Printer.setOutputFileName(chosen.File);
    chosen.Printer.setCopyCount(1); // what was wanted last time would easily be overlooked
    PrintDialog box(&chosen.Printer, dialog.Flags);
    if (box.exec() != QDialog::Accepted) {
        return false;
    }
    dialog.Copies = chosen.Printer.copyCount();
    PrintToFile(FromQt(chosen.Printer.outputFileName()));
    return true;
}

} // namespace plenair
