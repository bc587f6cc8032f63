#include "project/windows/frmMajorParam.h"

#include "platform/desktop/KeyCodes.h"
#include "platform/qt/FocusEvents.h"
#include "platform/qt/FormFont.h"
#include "platform/qt/Labels.h"
#include "platform/qt/Panels.h"
#include "platform/qt/QtText.h"
#include "platform/qt/SurfacePainter.h"
#include "platform/qt/Twips.h"
#include "platform/qt/WindowPos.h"
#include "project/DuctColour.h"
#include "project/DuctSheet.h"
#include "project/windows/SolverKeys.h"
#include "project/windows/frmMajorCalc.h"

#include <QColor>
#include <QFont>
#include <QPalette>
#include <QPoint>
#include <QRect>
#include <QScreen>
#include <QString>
#include <QWidget>
#include <QWindow>

#include <algorithm>
#include <cctype>
#include <functional>
#include <utility>

namespace plenair {

namespace {

constexpr double kWidth = 2880;
constexpr double kHeight = 3165;
constexpr int kFrame = 17;         // ms, of a usual screen
constexpr double kBelowGrid = 400; // from the top of the grid, with room for a title bar above that

// Blue, as far as it can be read on that background.
QColor BlueOn(const QColor& background) {
    return background.lightness() < 128 ? QColor(140, 170, 255) : QColor(0, 0, 255);
}

// At the top right corner of the grid, as far as it can be seen. The room above is for a title bar of the
// solver; where that is higher, the grid is the measure.
Spot OnGrid(QPoint solver, const QRect& grid, const QRect& visible) {
    const int top = solver.y() + ToPixelsY(kGridTop + kBelowGrid);
    return {{std::min(solver.x() + grid.width(), visible.right() + 1),
             std::max({top, grid.top(), visible.top()})},
            Spot::Part::TopRight};
}

void SetColour(QWidget* widget, QPalette::ColorRole role, const QColor& colour) {
    QPalette palette = widget->palette();
    palette.setColor(role, colour);
    widget->setPalette(palette);
}

} // namespace

frmMajorParam::frmMajorParam()
    : Form("frmMajorParam", "Duct Parameters",
           Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowStaysOnTopHint) {
    CreateControls();
    SetClientSize(kWidth, kHeight);
    KeepOffTaskBar();
}

void frmMajorParam::CreateControls() {
    const QColor background = palette().color(QPalette::Window);
    const auto heading = [&](const QString& name, const QString& caption, double left, double top,
                             double width) {
        auto* label = new Label(name, caption, Client());
        SetColour(label, QPalette::WindowText, BlueOn(background));
        Place(label, left, top, width, 225);
        return label;
    };
    lblDuct = heading("lblDuct", "Duct:", 105, 75, 435);
    lblDuctNo = new RimmedLabel("lblDuctNo", "1", Client());
    lblDuctNo->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    QFont large = FormFont(13.5);
    large.setBold(true);
    lblDuctNo->setFont(large);
    SetDuctNoColour(kNoDuctColour);
    Place(lblDuctNo, 105, 0, 960, 330);
    heading("lblParameter", "Parameter", 105, 375, 855);
    heading("lblValue", "Value", 1995, 375, 585);

    for (const SheetRow& row : kSheetRows) {
        const int index = static_cast<int>(row.Box);
        const double top = 600 + 285 * (index - 1);
        const QString caption = ToQt(std::string(row.Caption));
        auto* label = new BorderedLabel(ArrayName("lblParam", index), caption, Client());
        label->setBackgroundRole(QPalette::Base);
        label->setForegroundRole(QPalette::Text);
        label->SetOpaque(true);
        Place(label, 45, top, 2000, 285);
        auto* box = new TextBox(ArrayName("txtParam", index), Client());
        box->setAlignment(Qt::AlignRight);
        box->setAccessibleName(caption.trimmed());
        Place(box, 2050, top, 800, 285);
        txtParam[PositionOf(row.Box)] = box;
        SetBoxLook(row.Box, !row.DuctTakesInput && !row.ConnectionTakesInput, true);
    }
    chkFollowOn = new CheckBox("chkFollowOn", "&Follow On", Client());
    chkFollowOn->setChecked(true);
    Place(chkFollowOn, 50, 2880, 1170, 330);
    scrDuctNo = new ScrollBar("scrDuctNo", Client());
    scrDuctNo->setAccessibleName("Duct number");
    scrDuctNo->setRange(1, 1);
    Place(scrDuctNo, 1155, 0, 1695, 330);
}

void frmMajorParam::Form_Load(SolverWindow& solver, const QWidget& grid) {
    m_windows = std::make_unique<ProjectWindows>(ProjectWindows{solver, *this});
    AddSolverKeys(*this, *m_windows, "sheet");
    GotFocus = [this] { Form_GotFocus(); };
    scrDuctNo->Change = [this] { scrDuctNo_Change(); };
    for (const SheetRow& row : kSheetRows) {
        const SheetBox box = row.Box;
        TextBox* text = TxtParam(box);
        text->GotFocus = [this, box] { txtParam_GotFocus(box); };
        text->LostFocus = [this, box] { txtParam_LostFocus(box); };
        text->KeyDown = [this, box](int keyCode) { txtParam_KeyDown(box, keyCode); };
        text->KeyPress = [this, box](int character) { txtParam_KeyPress(box, character); };
    }
    m_grid = &grid;
    const double left = grid.width() * TwipsPerPixelX() - Width();
    const double top = kGridTop + kBelowGrid;
    // Placed, but not yet to be seen: the solver shows the sheet on demand.
    SetWindowPos(*this, HWND_TOPMOST, WholePixels(left, TwipsPerPixelX()), WholePixels(top, TwipsPerPixelY()),
                 WholePixels(Width(), TwipsPerPixelX()), WholePixels(Height(), TwipsPerPixelY()),
                 SWP_NOACTIVATE);
    windowHandle()->setTransientParent(grid.window()->windowHandle());
    ShowDuctSheet(*m_windows, SheetDuct(*m_windows));
}

void frmMajorParam::PlaceOnGrid() {
    // Where the grid really is, and how much of it can be seen, shows only when the solver is on the screen:
    // panels cover or push it, and its title bar may be higher than the room left for it.
    const auto* solver = qobject_cast<const Form*>(m_grid->window());
    const QRect grid(solver->geometry().topLeft() + m_grid->mapTo(solver, QPoint()), m_grid->size());
    PutOn(OnGrid(solver->Corner(), grid, FreeArea(*solver->screen())));
}

void frmMajorParam::Show() {
    if (!std::exchange(m_wasShown, true)) {
        PlaceOnGrid();
    }
    show();
    activateWindow();
}

void frmMajorParam::Repaint() {
    RepaintAtMostEvery(kFrame);
}

std::string frmMajorParam::DuctNoCaption() const {
    return FromQt(lblDuctNo->text());
}

void frmMajorParam::SetDuctNoCaption(const std::string& caption) {
    // From duct 100 on there is room for the number only.
    lblDuct->setVisible(std::count_if(caption.begin(), caption.end(), ::isdigit) < 3);
    lblDuctNo->setText(ToQt(caption));
}

void frmMajorParam::SetDuctNoColour(ColourNumber colour) {
    SetColour(lblDuctNo, QPalette::WindowText, ToColour(colour));
}

void frmMajorParam::SetBoxLook(SheetBox box, bool locked, bool white) {
    const QColor background = white ? QColor(Qt::white) : palette().color(QPalette::Window);
    TextBox* text = TxtParam(box);
    text->setReadOnly(locked);
    const QColor ink = BlueOn(background);
    // A new palette costs more than all the rest of showing a duct.
    if (text->palette().color(QPalette::Base) != background || text->palette().color(QPalette::Text) != ink) {
        SetColour(text, QPalette::Base, background);
        SetColour(text, QPalette::Text, ink);
    }
}

void frmMajorParam::Form_GotFocus() {
    ShowDuctSheet(*m_windows, SheetDuct(*m_windows));
}

void frmMajorParam::scrDuctNo_Change() {
    ChangeDuctNo(*m_windows);
}

void frmMajorParam::txtParam_GotFocus(SheetBox index) {
    TxtParam(index)->SelectAll();
}

void frmMajorParam::txtParam_LostFocus(SheetBox index) {
    StoreBox(*m_windows, index);
}

void frmMajorParam::txtParam_KeyDown(SheetBox index, int keyCode) {
    if (keyCode == kKeyDownArrow) {
        FocusBox(BoxBelow(index));
    } else if (keyCode == kKeyUpArrow) {
        FocusBox(BoxAbove(index));
    }
}

void frmMajorParam::txtParam_KeyPress(SheetBox index, int character) {
    if (character == kKeyEnter) {
        StoreBox(*m_windows, index);
        FocusBox(BoxBelow(index));
    } else if (character == kKeyEscape) {
        ShowDuctSheet(*m_windows, SheetDuct(*m_windows));
    }
}

void frmMajorParam::FocusBox(std::optional<SheetBox> box) {
    if (box) {
        GiveFocus(TxtParam(*box));
    }
}

} // namespace plenair
