#include "core/windows/frmInputs.h"

#include "core/SettingsFile.h"
#include "platform/desktop/MessageBox.h"
#include "platform/files/FileFailure.h"
#include "platform/qt/FocusEvents.h"
#include "platform/qt/FormFont.h"
#include "platform/qt/QtText.h"
#include "platform/qt/Twips.h"
#include "platform/text/NumberText.h"
#include "platform/text/Utf8.h"

#include <QFont>
#include <QPainter>
#include <QPalette>
#include <QRect>
#include <QString>
#include <QWindow>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <utility>

namespace plenair {

namespace {

constexpr double kWidth = 5730;
constexpr double kHeight = 4110;
const std::string kTitle = "Options";

// A row with a box that holds a number. The one without a field holds the size step, a whole number.
struct NumberRow {
    const char* Box;
    const char* Label;
    const char* Caption;
    double Top;
    double LabelWidth;
    double LabelHeight;
    double SettingsRecord::*Field;
    bool SelectsOnFocus;
};

const std::array<NumberRow, 7> kNumberRows = {{
    {"txtMaxLPM", "lblMaxLPM", "Default Pressure Drop (Pa/m)", 1680, 2850, 255, &SettingsRecord::MaxLPM,
     false},
    {"txtMaxVelocity", "lblMaxVelocity", "Default Velocity (m/s)", 1995, 2880, 255,
     &SettingsRecord::MaxVelocity, false},
    {"txtAnalysis", "lblAnalysis", "Default Analysis Width (mm)", 2310, 2880, 255, &SettingsRecord::Analysis,
     false},
    {"txtRoundOff", "lblSizeRoundoff", "Size Selection Roundoff (mm)", 2730, 2850, 225, nullptr, true},
    {"txtFluidTemp", "lblFluidTemp", "Fluid Temperature (deg C)", 3150, 2850, 255, &SettingsRecord::FluidTemp,
     true},
    {"txtSurfaceRoughness1", "lblRoughness1", "Rigid Duct Surface Roughness (m)", 3465, 2880, 255,
     &SettingsRecord::SurfaceRoughness1, true},
    {"txtSurfaceRoughness2", "lblRoughness2", "Flexible Duct Surface Roughness (m)", 3780, 2880, 255,
     &SettingsRecord::SurfaceRoughness2, true},
}};

// The size step that a number gives, halves to the even neighbour; nothing beyond 16 bits.
std::optional<std::int16_t> SizeStepOf(double number) {
    const double whole = std::nearbyint(number);
    if (whole < std::numeric_limits<std::int16_t>::min() ||
        whole > std::numeric_limits<std::int16_t>::max()) {
        return std::nullopt;
    }
    return static_cast<std::int16_t>(whole);
}

} // namespace

frmInputs::frmInputs() : Form("frmInputs", QString(), Qt::Dialog | Qt::FramelessWindowHint) {
    setAccessibleName(ToQt(kTitle));
    KeepOffTaskBar();
    winId(); // makes the native window: there is no caption to be seen, but the desktop is told a name
    windowHandle()->setTitle(ToQt(kTitle));
    SetClientSize(kWidth, kHeight);
    CreateControls();
    Form_Load();
}

void frmInputs::CreateControls() {
    lblConfigFile = new Label("lblConfigFile", QString(), Client());
    QFont large = FormFont(12);
    large.setBold(true);
    lblConfigFile->setFont(large);
    Place(lblConfigFile, 210, 105, 5370, 330);

    auto* lblDefPath = new Label("lblDefPath", "Default File Path:", Client());
    Place(lblDefPath, 210, 525, 1380, 225);
    txtDefPath = new TextBox("txtDefPath", Client());
    txtDefPath->setAccessibleName("Default File Path");
    Place(txtDefPath, 1785, 525, 2790, 285);

    auto* lblCalcBasis = new Label("lblCalcBasis", "Default Lite Calculation Basis", Client());
    Place(lblCalcBasis, 210, 945, 2850, 255);
    const QString captions[] = {"Pa/m", "m/s", "Capped", "Analysis"};
    for (int i = 0; i < 4; ++i) {
        auto* option = new Option(ArrayName("optCalcBasis", i), captions[i], Client());
        option->setFocusPolicy(Qt::StrongFocus);
        option->Click = [this, i] { optCalcBasis_Click(i); };
        Place(option, i % 2 == 0 ? 3360 : 4410, i < 2 ? 945 : 1260, i < 2 ? 750 : 960, 225);
        optCalcBasis[static_cast<std::size_t>(i)] = option;
    }

    for (std::size_t i = 0; i < kNumberRows.size(); ++i) {
        const NumberRow& row = kNumberRows[i];
        Place(new Label(row.Label, row.Caption, Client()), 210, row.Top, row.LabelWidth, row.LabelHeight);
        auto* box = new TextBox(row.Box, Client());
        box->setAccessibleName(row.Caption);
        if (row.SelectsOnFocus) {
            box->GotFocus = [box] { box->SelectAll(); };
        }
        Place(box, 3360, row.Top, 1215, 285);
        txtNumbers[i] = box;
    }

    auto* cmdCancel = new Button("cmdCancel", "&Cancel", Client());
    cmdCancel->SetFocusable();
    cmdCancel->Click = [this] { cmdCancel_Click(); };
    Place(cmdCancel, 4725, 3255, 975, 375);
    auto* cmdOK = new Button("cmdOK", "&OK", Client());
    cmdOK->SetFocusable();
    cmdOK->Click = [this] { cmdOK_Click(); };
    Place(cmdOK, 4725, 3675, 975, 375);

    // Tab goes in the order in which the controls were made, but the buttons come before the last box.
    const std::size_t last = txtNumbers.size() - 1;
    setTabOrder(txtNumbers[last - 1], cmdOK);
    setTabOrder(cmdOK, cmdCancel);
    setTabOrder(cmdCancel, txtNumbers[last]);
    txtDefPath->setFocus();
}

void frmInputs::Form_Load() {
    MoveTo(4000, 3000);
    LoadSettings();
    lblConfigFile->setText(ToQt(Settings.ConfigFile));
    txtDefPath->SetText(Settings.DefPath);
    if (const auto basis = static_cast<std::size_t>(Settings.CalcBasis); basis < optCalcBasis.size()) {
        optCalcBasis[basis]->SetOn();
    }
    for (std::size_t i = 0; i < kNumberRows.size(); ++i) {
        const auto field = kNumberRows[i].Field;
        txtNumbers[i]->SetText(ShortestText(field != nullptr ? Settings.*field : Settings.RoundOff));
    }
}

void frmInputs::optCalcBasis_Click(int index) {
    Settings.CalcBasis = static_cast<std::int16_t>(index);
}

bool frmInputs::ReadBoxes(SettingsRecord& entered) {
    entered.DefPath = txtDefPath->Text();
    for (std::size_t i = 0; i < kNumberRows.size(); ++i) {
        const auto value = NumberFromText(txtNumbers[i]->Text());
        if (!value) {
            Refuse(i, WhyNoNumber(txtNumbers[i]->Text()));
            return false;
        }
        if (const auto field = kNumberRows[i].Field) {
            entered.*field = *value;
        } else if (const auto sizeStep = SizeStepOf(*value)) {
            entered.RoundOff = *sizeStep;
        } else {
            Refuse(i, "is no size step: these go from -32768 to 32767.");
            return false;
        }
    }
    return true;
}

void frmInputs::Refuse(std::size_t number, const std::string& reason) {
    TextBox* const box = txtNumbers[number];
    ShowMessage(
        {std::string(kNumberRows[number].Caption) + ":\n\n\"" + Shortened(box->Text()) + "\" " + reason,
         kTitle, MessageButtons::Ok, MessageIcon::Exclamation});
    GiveFocus(box);
    box->SelectAll();
}

void frmInputs::cmdOK_Click() {
    SettingsRecord entered = Settings;
    if (!ReadBoxes(entered)) {
        return;
    }
    const SettingsRecord before = std::exchange(Settings, entered);
    try {
        SaveSettings();
    } catch (const FileFailure& failure) {
        // As after a box that is refused, nothing is stored.
        Settings = before;
        ShowMessage({"The settings can't be saved.\n\n" + std::string(failure.what()), kTitle,
                     MessageButtons::Ok, MessageIcon::Exclamation});
        return;
    }
    Unload();
    if (Stored) {
        Stored();
    }
}

void frmInputs::cmdCancel_Click() {
    Unload();
}

void frmInputs::paintEvent(QPaintEvent* event) {
    Form::paintEvent(event);
    // Without a title bar there is no frame of the desktop's either, and the dialog would run into what is
    // below it.
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Dark));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

} // namespace plenair
