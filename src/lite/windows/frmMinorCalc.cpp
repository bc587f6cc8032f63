#include "lite/windows/frmMinorCalc.h"

#include "core/Settings.h"
#include "extras/Misc.h"
#include "lite/Bases.h"
#include "lite/CalculationLog.h"
#include "lite/CopyResults.h"
#include "lite/KeyStrokes.h"
#include "lite/ResultGrids.h"
#include "platform/desktop/KeyCodes.h"
#include "platform/desktop/MessageBox.h"
#include "platform/qt/Pictures.h"
#include "platform/qt/QtText.h"
#include "platform/qt/Twips.h"
#include "platform/qt/WindowPos.h"
#include "platform/text/NumberText.h"

#include <QColor>
#include <QKeySequence>
#include <QMenuBar>
#include <QWidget>

#include <cmath>
#include <cstdint>
#include <iterator>
#include <optional>
#include <utility>

namespace plenair {

namespace {

constexpr double kWidth = 3625;
constexpr double kTop = 300;
constexpr double kHeightFolded = 3270; // just below cmdMoreInfo, where lblCalcBasis begins
constexpr double kHeightUnfolded = 5370;

QColor ColourOf(Lamp lamp) {
    switch (lamp) {
    case Lamp::Green:
        return {0, 255, 0};
    case Lamp::Yellow:
        return {255, 255, 0};
    case Lamp::Orange:
        return {255, 174, 0};
    case Lamp::Red:
        break;
    }
    return {255, 0, 0};
}

} // namespace

frmMinorCalc::frmMinorCalc()
    : Form("frmMinorCalc", "Plenair Lite",
           Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
               Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint) {
    PlayCall();
    CreateInputs();
    CreateResults();
    CreateBases();
    CreateMenus();
    SetTabStops();
    AddKeys({QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C)}, [this] { CopyResults(*this); });
    connect(this, &Form::CloseRequested, this, &frmMinorCalc::mnuFileExit_Click);
    Form_Load();
}

void frmMinorCalc::CreateInputs() {
    lblInputB = new Label("lblInputB", "Input B", Client());
    Place(lblInputB, 120, 120, 1935, 255);
    txtInputB = new TextBox("txtInputB", Client());
    Place(txtInputB, 2160, 120, 1095, 285);
    lblInputA = new Label("lblInputA", "Input A", Client());
    Place(lblInputA, 120, 480, 1935, 255);
    txtInputA = new TextBox("txtInputA", Client());
    Place(txtInputA, 2160, 480, 1095, 285);
    auto* line1 = new Line("Line1", Client());
    Place(line1, 0, 840, 3515, 15);

    lblInputB->setBuddy(txtInputB);
    lblInputA->setBuddy(txtInputA);
    txtInputA->GotFocus = [this] { txtInputA->SelectAll(); };
    txtInputB->GotFocus = [this] { txtInputB->SelectAll(); };
    txtInputA->KeyPress = [this](int character) { txtInputA_KeyPress(character); };
    txtInputB->KeyPress = [this](int character) { txtInputB_KeyPress(character); };
    txtInputA->KeyUp = [this](int key) {
        HandleKeyStroke(*this, static_cast<std::int16_t>(key), "txtInputA");
    };
    txtInputB->KeyUp = [this](int key) {
        HandleKeyStroke(*this, static_cast<std::int16_t>(key), "txtInputB");
    };
}

void frmMinorCalc::CreateResults() {
    const auto picture = [this](const QString& name, const QString& icon, const QString& says, double left,
                                double top) {
        auto* control = new Picture(name, icon, Client());
        control->setAccessibleName(says);
        Place(control, left, top, 255, 255);
    };
    picture("picWidth(0)", "lite/width", "Width in mm", 600, 1020);
    picture("picHeight", "lite/height", "Height in mm", 1320, 1020);
    picture("picVelocity", "lite/velocity", "Velocity in m/s", 2040, 1020);
    auto* lblPam = new Label("lblPam", "Pa/m", Client());
    Place(lblPam, 2640, 1005, 495, 255);
    picture("picWider", "lite/wider", "Wider ducts", 0, 1320);
    picture("picTaller", "lite/taller", "Taller ducts", 0, 2280);
    auto* picScale = new ScalePicture("picScale", Client());
    picScale->setAccessibleName("From wide to tall");
    Place(picScale, 240, 1320, 135, 1215);

    grdMinorCalc = new MSFlexGrid("grdMinorCalc", kResultRows, kResultColumns, Client());
    grdMinorCalc->setAccessibleName("Rectangular ducts");
    grdMinorCalc->SetRowHeight(243);
    Place(grdMinorCalc, 360, 1320, 2895, 1215);
    for (int i = 0; i < kResultRows; ++i) {
        auto*& lamp = lblRatio[static_cast<std::size_t>(i)];
        lamp = new Label(ArrayName("lblRatio", i), QString(), Client());
        Place(lamp, 3250, 1320 + 243 * i, 330, i == 0 ? 243 : 240);
        auto* cmdLog = new InsetButton(ArrayName("cmdLog", i), QString("&%1").arg(i + 1), Client());
        cmdLog->setAccessibleName(QString("Record row %1").arg(i + 1));
        cmdLog->Click = [this, i] { cmdLog_Click(i); };
        Place(cmdLog, 3300, 1320 + 243 * i, 230, 243);
    }
    picture("picRound", "lite/round", "Equivalent round duct", 0, 2640);
    grdOtherShapes = new MSFlexGrid("grdOtherShapes", kResultRows, kResultColumns, Client());
    grdOtherShapes->setAccessibleName("Equivalent round duct");
    grdOtherShapes->SetRowHeight(255);
    Place(grdOtherShapes, 240, 2640, 3015, 255);
    cmdMoreInfo = new Button("cmdMoreInfo", "&More", Client());
    cmdMoreInfo->Click = [this] { cmdMoreInfo_Click(); };
    Place(cmdMoreInfo, 2520, 3000, 735, 255);
}

void frmMinorCalc::CreateBases() {
    auto* lblCalcBasis = new Label("lblCalcBasis", "Calculation Basis", Client());
    Place(lblCalcBasis, 120, 3270, 1935, 255);
    const QString captions[] = {"Loss Per Metre (&Pa)", "&Velocity (m/s)", "&Capped (Pa/m, m/s)",
                                "&Analyse Duct (L/s)", "&Analyse Duct (m/s)"};
    const double tops[] = {3630, 3990, 4350, 4710, 5040};
    for (int i = 0; i < kBases; ++i) {
        auto* option = new Option(ArrayName("optCalcBasis", i), captions[i], Client());
        option->Click = [this, i] { optCalcBasis_Click(i); };
        Place(option, 120, tops[i], 1935, 255);
        optCalcBasis[static_cast<std::size_t>(i)] = option;
    }
    const auto box = [&](int index, const QString& says, double left, double top, double width) {
        auto* control = new TextBox(ArrayName("txtCalcBasis", index), Client());
        control->setAccessibleName(says);
        control->SetTabStop(false);
        control->Change = [this, index] { txtCalcBasis_Change(index); };
        control->GotFocus = [this, index] { txtCalcBasis_GotFocus(index); };
        control->KeyPress = [this](int character) { txtCalcBasis_KeyPress(character); };
        Place(control, left, top, width, 285);
        txtCalcBasis[index] = control;
    };
    box(0, "Loss per metre in Pa", 2040, tops[0], 1215);
    box(1, "Velocity in m/s", 2040, tops[1], 1215);
    box(2, "Greatest loss in Pa/m", 2040, tops[2], 600);
    box(kVelocityCapBox, "Greatest velocity in m/s", 2655, tops[2], 600);
    box(3, "Flow to analyse in L/s", 2040, tops[3], 1215);
    box(4, "Velocity to analyse in m/s", 2040, tops[4], 1215);
}

QAction* frmMinorCalc::AddEntry(QMenu* menu, const QString& name, const QString& caption,
                                void (frmMinorCalc::*handler)()) {
    QAction* entry = menu->addAction(caption);
    entry->setObjectName(name);
    connect(entry, &QAction::triggered, this, handler);
    return entry;
}

void frmMinorCalc::CreateMenus() {
    const auto menu = [this](const QString& name, const QString& caption) {
        QMenu* made = MenuBar()->addMenu(caption);
        made->setObjectName(name);
        return made;
    };
    QMenu* mnuFile = menu("mnuFile", "&File");
    AddEntry(mnuFile, "mnuFileMajor", "&Project Solver", &frmMinorCalc::mnuFileMajor_Click);
    mnuFile->addSeparator()->setObjectName("mnuFile1");
    mnuFileLog = AddEntry(mnuFile, "mnuFileLog", "&Record Log", &frmMinorCalc::mnuFileLog_Click);
    AddEntry(mnuFile, "mnuFileLogOpen", "&Open Log", &frmMinorCalc::mnuFileLogOpen_Click);
    mnuFile->addSeparator()->setObjectName("mnuFile2");
    AddEntry(mnuFile, "mnuFileExit", "E&xit", &frmMinorCalc::mnuFileExit_Click);
    QMenu* mnuEdit = menu("mnuEdit", "&Edit");
    AddEntry(mnuEdit, "mnuEditOptions", "&Options", &frmMinorCalc::mnuEditOptions_Click);
    QMenu* mnuView = menu("mnuView", "View");
    mnuViewOnTop = AddEntry(mnuView, "mnuViewOnTop", "Always On &Top", &frmMinorCalc::mnuViewOnTop_Click);
    mnuViewOnTop->setCheckable(true);
    if (!CanStayOnTop()) {
        mnuViewOnTop->setEnabled(false);
        mnuViewOnTop->setToolTip("A Wayland desktop lets no program hold its window above the others.");
        mnuView->setToolTipsVisible(true);
    }
    QMenu* mnuHelp = menu("mnuHelp", "Help");
    AddEntry(mnuHelp, "mnuHelpManual", "&Help!", &frmMinorCalc::mnuHelpManual_Click)->setShortcut(Qt::Key_F1);
    mnuHelp->addSeparator()->setObjectName("mnuHelp1");
    AddEntry(mnuHelp, "mnuHelpAbout", "&About Plenair", &frmMinorCalc::mnuHelpAbout_Click);
}

void frmMinorCalc::SetTabStops() {
    QWidget* const order[] = {
        txtInputB,       txtInputA,       TxtCalcBasis(1), TxtCalcBasis(2), TxtCalcBasis(kVelocityCapBox),
        TxtCalcBasis(3), TxtCalcBasis(4), TxtCalcBasis(0)};
    for (std::size_t i = 1; i < std::size(order); ++i) {
        setTabOrder(order[i - 1], order[i]);
    }
    txtInputB->setFocus();
}

void frmMinorCalc::Form_Load() {
    SetFolded(true);
    MoveRightEdgeTo(ScreenWidth(), kTop);
    SetCurrentCell(0, 0);
    for (MSFlexGrid* grid : {grdMinorCalc, grdOtherShapes}) {
        const bool round = grid == grdOtherShapes;
        const double width = round ? 3015 : 2895;
        const char* const headings[] = {round ? "Diameter in mm" : "Width in mm", round ? "" : "Height in mm",
                                        "Velocity in m/s", "Loss in Pa/m"};
        for (int column = 0; column < kResultColumns; ++column) {
            grid->SetColWidth(column, std::nearbyint(width / kResultColumns));
            grid->SetColAlignment(column, 4);
            grid->SetColHeading(column, headings[column]);
        }
    }
    lblInputB->setText("&Height (mm)");
    lblInputA->setText("Flow &Rate (L/s)");
    for (const BasisBox& box : kBasisBoxes) {
        TxtCalcBasis(box.Index)->SetText(ShortestText(Settings.*box.Default));
    }
    OptCalcBasis(Settings.CalcBasis)->SetOn();
    ResetGrid();
    ResetLog(*this);
}

void frmMinorCalc::ResetGrid() {
    grdMinorCalc->Clear();
    grdOtherShapes->Clear();
    for (std::size_t row = 0; row < lblRatio.size(); ++row) {
        lblRatio[row]->SetOpaque(false);
        lblRatio[row]->setAccessibleName(QString("row %1: no duct").arg(row + 1));
    }
}

void frmMinorCalc::TakeSettings() {
    OptCalcBasis(Settings.CalcBasis)->SetOn();
    for (const BasisBox& box : kBasisBoxes) {
        if (box.FollowsOptions) {
            TxtCalcBasis(box.Index)->SetText(ShortestText(Settings.*box.Default));
        }
    }
    FocusInputA();
}

void frmMinorCalc::SetFolded(bool folded) {
    m_folded = folded;
    SetClientSize(kWidth, folded ? kHeightFolded : kHeightUnfolded);
}

void frmMinorCalc::FocusInputA() {
    // Selects also where the focus already is.
    GiveFocus(txtInputA);
    txtInputA->SelectAll();
}

void frmMinorCalc::Calculate() {
    CalculateTexts(*this, txtInputA->Text(), txtInputB->Text(), BasisText(Settings.CalcBasis));
}

void frmMinorCalc::txtInputA_KeyPress(int character) {
    ResetGrid();
    if (character == kKeyEnter) {
        Calculate();
        txtInputA->SelectAll();
    }
}

void frmMinorCalc::txtInputB_KeyPress(int character) {
    ResetGrid();
    if (character == kKeyEnter) {
        Calculate();
        FocusInputA();
    }
}

void frmMinorCalc::txtCalcBasis_Change(int index) {
    ResetGrid();
    double* const stored = index == 0 ? &Settings.MaxLPM : (index == 1 ? &Settings.MaxVelocity : nullptr);
    if (stored != nullptr) {
        *stored = NumberFromText(BasisText(index)).value_or(*stored);
    }
}

void frmMinorCalc::txtCalcBasis_GotFocus(int index) {
    ResetGrid();
    TxtCalcBasis(index)->SelectAll();
}

void frmMinorCalc::txtCalcBasis_KeyPress(int character) {
    if (character == kKeyEnter) {
        Calculate();
        FocusInputA();
    }
}

void frmMinorCalc::optCalcBasis_Click(int index) {
    TxtCalcBasis(index)->setEnabled(true);
    for (int other = 0; other < kBases; ++other) {
        TxtCalcBasis(other)->setEnabled(other == index);
    }
    TxtCalcBasis(kVelocityCapBox)->setEnabled(TxtCalcBasis(2)->isEnabled());
    Settings.CalcBasis = static_cast<std::int16_t>(index);
    GiveFocus(TxtCalcBasis(index));
    lblInputA->setText(IsAnalysis(index) ? "&Width (mm)" : "Flow &Rate (L/s)");
}

void frmMinorCalc::cmdMoreInfo_Click() {
    SetFolded(!m_folded);
    FocusInputA();
    cmdMoreInfo->setText(m_folded ? "&More" : "&Less");
    for (const auto& [index, box] : txtCalcBasis) {
        box->SetTabStop(!m_folded);
    }
}

void frmMinorCalc::cmdLog_Click(int index) {
    RecordRow(*this, index);
}

void frmMinorCalc::mnuFileMajor_Click() {
    hide();
    OpenProjectSolver();
}

void frmMinorCalc::mnuFileLog_Click() {
    RecordLog(*this);
}

void frmMinorCalc::mnuFileLogOpen_Click() {
    OpenLog(*this);
}

void frmMinorCalc::mnuFileExit_Click() {
    EndProgram();
}

void frmMinorCalc::mnuEditOptions_Click() {
    ShowOptions();
}

void frmMinorCalc::mnuViewOnTop_Click() {
    // The choice has turned the check mark already.
    SetWindowPos(*this, mnuViewOnTop->isChecked() ? HWND_TOPMOST : HWND_NOTOPMOST,
                 WholePixels(Left(), TwipsPerPixelX()), WholePixels(Top(), TwipsPerPixelY()),
                 WholePixels(Width(), TwipsPerPixelX()), WholePixels(Height(), TwipsPerPixelY()),
                 SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

void frmMinorCalc::mnuHelpManual_Click() {
    ShowMessage({"For help with Plenair, you should consult the user manual, which is available free of "
                 "charge, and should accompany the installation package to be included in the program "
                 "directory.\n\nCall me (Corin) if you need another copy.  Contact details are under \"About "
                 "Plenair\" from the Help menu.",
                 "Plenair", MessageButtons::Ok, MessageIcon::Information});
}

void frmMinorCalc::mnuHelpAbout_Click() {
    ShowAbout();
}

void frmMinorCalc::SetInputB(const std::string& text) {
    txtInputB->SetText(text);
    txtInputB->SelectAll(); // also where the focus is there already
}

void frmMinorCalc::SetCurrentCell(int row, int column) {
    grdMinorCalc->SetRow(row);
    grdMinorCalc->SetCol(column);
}

std::string frmMinorCalc::BasisText(int index) const {
    return TxtCalcBasis(index)->Text();
}

std::string frmMinorCalc::MinorCell(int row, int column) const {
    return grdMinorCalc->TextMatrix(row, column);
}

void frmMinorCalc::SetMinorCell(int row, int column, const std::string& text) {
    grdMinorCalc->SetTextMatrix(row, column, text);
}

std::string frmMinorCalc::OtherCell(int column) const {
    return grdOtherShapes->TextMatrix(0, column);
}

void frmMinorCalc::SetOtherCell(int column, const std::string& text) {
    grdOtherShapes->SetTextMatrix(0, column, text);
}

void frmMinorCalc::LightLamp(int row, Lamp colour) {
    Label* const lamp = lblRatio[static_cast<std::size_t>(row)];
    lamp->SetBackColour(ColourOf(colour));
    lamp->SetOpaque(true);
    lamp->setAccessibleName(QString("row %1: %2").arg(row + 1).arg(ToQt(MeaningOf(colour))));
}

} // namespace plenair
