#pragma once

#include "platform/Printer.h"
#include "platform/RecordedSurface.h"

#include <string>
#include <vector>

namespace plenair {

// A printer that keeps its pages. The paper is A4.
class RecordedPrinter : public Printer {
  public:
    struct Page {
        PageOrientation orientation = PageOrientation::Portrait;
        RecordedSurface surface;
        std::vector<std::string> text; // each line with its font, as in "Arial 9: text"
    };
    using Document = std::vector<Page>;

    double Width() const override { return m_orientation == PageOrientation::Landscape ? 16841 : 11906; }
    double Height() const override { return m_orientation == PageOrientation::Landscape ? 11906 : 16841; }

    void SetLineWidth(int width) override { Now().surface.SetLineWidth(m_lineWidth = width); }
    void SetLineStyle(LineStyle style) override { Now().surface.SetLineStyle(m_style = style); }
    void Line(double x1, double y1, double x2, double y2, ColourNumber colour) override {
        FailIfAsked();
        Now().surface.Line(x1, y1, x2, y2, colour);
    }
    void Box(double x1, double y1, double x2, double y2, ColourNumber colour) override {
        Now().surface.Box(x1, y1, x2, y2, colour);
    }
    void SetPosition(double x, double y) override { Now().surface.SetPosition(x, y); }
    void Print(const std::string& text) override {
        Now().surface.Print(text);
        Now().text.push_back(m_font + ": " + text);
    }

    void SetColourMode(ColourMode mode) override { Modes.push_back(mode); }
    void SetOrientation(PageOrientation orientation) override {
        m_orientation = orientation;
        Now().orientation = orientation;
    }
    void SetFont(const std::string& name, double points, bool bold) override {
        m_font = name + " " + std::to_string(static_cast<int>(points)) + (bold ? " bold" : "");
    }
    void NewPage() override {
        m_document.emplace_back().orientation = m_orientation;
        m_document.back().surface.SetLineWidth(m_lineWidth);
        m_document.back().surface.SetLineStyle(m_style);
    }
    void EndDoc() override {
        if (!m_document.empty() && m_document.back().surface.Items().empty()) {
            m_document.pop_back();
        }
        if (!m_document.empty()) {
            Documents.push_back(std::move(m_document));
        }
        m_document.clear();
    }
    void KillDoc() override {
        m_document.clear();
        ++Killed;
    }

    std::vector<Document> Documents;
    std::vector<ColourMode> Modes;
    int Killed = 0;
    int LinesUntilFailure = -1;

  private:
    Page& Now() {
        if (m_document.empty()) {
            NewPage();
        }
        return m_document.back();
    }

    void FailIfAsked() {
        if (LinesUntilFailure >= 0 && LinesUntilFailure-- == 0) {
            throw PrinterFailure("paper jam");
        }
    }

    Document m_document;
    PageOrientation m_orientation = PageOrientation::Portrait;
    int m_lineWidth = 1;
    LineStyle m_style = LineStyle::Solid;
    std::string m_font;
};

} // namespace plenair
