#include "platform/qt/DesktopPrinter.h"

#include "platform/drawing/DrawingSurface.h"
#include "platform/plane/Point.h"
#include "platform/qt/FocusEvents.h"
#include "platform/qt/QtText.h"
#include "platform/qt/SurfacePainter.h"
#include "platform/qt/Twips.h"

#include <QAbstractPrintDialog>
#include <QByteArray>
#include <QDialog>
#include <QFile>
#include <QFileInfo>
#include <QFont>
#include <QFontMetricsF>
#include <QIODevice>
#include <QList>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPen>
#include <QPointF>
#include <QPrintDialog>
#include <QPrinter>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <system_error>

namespace plenair {

namespace {

constexpr double kTwipsPerPoint = 20.0;
constexpr double kLineWidthUnit = kTwipsPerPoint / 3;
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

// Whether a PDF file has its end. Its writer doesn't notice a full disk.
bool IsComplete(const QString& name) {
    QFile file(name);
    constexpr qint64 kTail = 16;
    return file.open(QIODevice::ReadOnly) && file.seek(std::max<qint64>(file.size() - kTail, 0)) &&
           file.readAll().contains("%%EOF");
}

class DesktopPrinter : public Printer {
  public:
    ~DesktopPrinter() override { Abandon(); }

    Extent Size() const override {
        const QSizeF portrait =
            Chosen().Printer.pageLayout().pageSize().size(QPageSize::Point) * kTwipsPerPoint;
        const QSizeF size = m_orientation == PageOrientation::Landscape ? portrait.transposed() : portrait;
        return {size.width(), size.height()};
    }

    void SetLineWidth(int width) override { m_lineWidth = width; }
    void SetLineStyle(LineStyle style) override { m_lineStyle = style; }

    void Line(Point start, Point end, ColourNumber colour) override {
        Page().setPen(PenOf(colour));
        Page().drawLine(QPointF(start.X, start.Y), QPointF(end.X, end.Y));
    }

    void Box(Point corner, Point opposite, ColourNumber colour) override {
        Page().setPen(PenOf(colour));
        Page().setBrush(Qt::NoBrush);
        Page().drawRect(QRectF(QPointF(corner.X, corner.Y), QPointF(opposite.X, opposite.Y)).normalized());
    }

    void SetPosition(Point place) override { m_position = QPointF(place.X, place.Y); }

    void Print(const std::string& text) override {
        QPainter& page = Page();
        page.setPen(Qt::black);
        page.setFont(m_font);
        const QFontMetricsF metrics(m_font);
        double x = m_position.x();
        bool first = true;
        for (const QString& piece : ToQt(text).split('\t')) {
            if (!first) {
                x = (std::floor(x / kTabStop) + 1) * kTabStop;
            }
            page.drawText(QPointF(x, m_position.y() + metrics.ascent()), piece);
            x += metrics.horizontalAdvance(piece);
            first = false;
        }
        m_position = QPointF(kTextMargin, m_position.y() + metrics.lineSpacing());
    }

    void SetColourMode(ColourMode mode) override {
        Chosen().Printer.setColorMode(mode == ColourMode::Colour ? QPrinter::Color : QPrinter::GrayScale);
    }

    void SetOrientation(PageOrientation orientation) override { m_orientation = orientation; }

    void SetFont(const std::string& name, double points, bool bold) override {
        // In twips, the painter's own unit; the families after the first have the same metrics.
        m_font.setFamilies({ToQt(name), "Liberation Sans", "Nimbus Sans", "DejaVu Sans"});
        m_font.setPixelSize(static_cast<int>(std::lround(points * kTwipsPerPoint)));
        m_font.setBold(bold);
    }

    void NewPage() override {
        ++m_pagesToTurn;
        m_position = QPointF(kTextMargin, kTextMargin);
    }

    void EndDoc() override {
        m_pagesToTurn = 0;
        if (!m_painter.isActive()) {
            return;
        }
        const bool ended = m_painter.end();
        if (!ended || Chosen().Printer.printerState() == QPrinter::Error ||
            (!m_file.isEmpty() && !IsComplete(UnfinishedFile()))) {
            Discard();
            throw PrinterFailure("the document can't be printed");
        }
        if (!m_file.isEmpty()) {
            std::error_code failed;
            std::filesystem::rename(FromQt(UnfinishedFile()), FromQt(m_file), failed);
            if (failed) {
                Discard();
                throw PrinterFailure("the file can't be written: " + FromQt(m_file));
            }
            ++Chosen().Documents;
        }
    }

    void KillDoc() override { Abandon(); }

  private:
    QPen PenOf(ColourNumber colour) const {
        QPen pen(ToColour(colour), m_lineWidth * kLineWidthUnit,
                 m_lineStyle == LineStyle::Solid ? Qt::SolidLine : Qt::CustomDashLine, Qt::RoundCap,
                 Qt::MiterJoin);
        if (m_lineStyle == LineStyle::Dashed) {
            pen.setCapStyle(Qt::FlatCap);
            const double unit = 1.0 / m_lineWidth;
            pen.setDashPattern({12 * unit, 8 * unit});
        }
        return pen;
    }

    QString UnfinishedFile() const { return m_file + ".part"; }

    // The page to draw on: begins the document, or turns the pages that NewPage has asked for, at the first
    // thing drawn, so that an empty last page never comes out.
    QPainter& Page() {
        QPrinter& printer = Chosen().Printer;
        if (m_painter.isActive() && m_pagesToTurn == 0) {
            return m_painter;
        }
        printer.setPageOrientation(m_orientation == PageOrientation::Landscape ? QPageLayout::Landscape
                                                                               : QPageLayout::Portrait);
        if (!m_painter.isActive()) {
            BeginDocument();
        }
        for (; m_pagesToTurn > 0; --m_pagesToTurn) {
            if (!printer.newPage()) {
                throw PrinterFailure("no new page");
            }
        }
        return m_painter;
    }

    void BeginDocument() {
        QPrinter& printer = Chosen().Printer;
        printer.setFullPage(true);
        printer.setDocName("Plenair");
        printer.setCreator("Plenair");
        printer.setCopyCount(1); // each copy is a document of its own
        m_file.clear();
        if (!Chosen().File.isEmpty()) {
            m_file = NextFile(Chosen());
            printer.setOutputFormat(QPrinter::PdfFormat);
            printer.setOutputFileName(UnfinishedFile());
        }
        if (!m_painter.begin(&printer)) {
            throw PrinterFailure("the printer does not answer");
        }
        const double scale = printer.resolution() / kTwipsPerInch;
        m_painter.scale(scale, scale);
    }

    void Abandon() {
        m_pagesToTurn = 0;
        if (m_painter.isActive()) {
            Chosen().Printer.abort();
            m_painter.end();
            Discard();
        }
    }

    void Discard() {
        if (!m_file.isEmpty()) {
            QFile::remove(UnfinishedFile());
        }
    }

    QPainter m_painter;
    QString m_file; // of the present document; empty on a real printer
    QFont m_font;
    QPointF m_position{kTextMargin, kTextMargin};
    PageOrientation m_orientation = PageOrientation::Portrait;
    int m_lineWidth = 1;
    LineStyle m_lineStyle = LineStyle::Solid;
    int m_pagesToTurn = 0;
};

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
    QPrintDialog box(&chosen.Printer, WindowInUse());
    box.setOption(QAbstractPrintDialog::PrintSelection, (dialog.Flags & kPrinterNoSelection) == 0);
    box.setOption(QAbstractPrintDialog::PrintPageRange, (dialog.Flags & kPrinterNoPageNumbers) == 0);
    // A dialog of Qt's own offers ranges whatever its options say.
    auto* const ranges = box.findChild<QWidget*>("gbPrintRange");
    if (ranges != nullptr && !box.testOption(QAbstractPrintDialog::PrintPageRange)) {
        ranges->setEnabled(false);
    }
    if (box.exec() != QDialog::Accepted) {
        return false;
    }
    dialog.Copies = chosen.Printer.copyCount();
    PrintToFile(FromQt(chosen.Printer.outputFileName()));
    return true;
}

} // namespace plenair
