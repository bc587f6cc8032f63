#pragma once

#include "core/Settings.h"
#include "platform/qt/Controls.h"
#include "platform/qt/Form.h"
#include "platform/qt/TextBox.h"

#include <QPaintEvent>

#include <array>
#include <cstddef>
#include <functional>
#include <string>

namespace plenair {

// The options. Shows what the settings file holds, and its OK writes that file. There is no title bar: the
// way out are its two buttons.
class frmInputs : public Form {
    Q_OBJECT

  public:
    // Loads the settings file, so that changes made in memory since are forgotten.
    frmInputs();

    void Unload() { hide(); }

    // Runs when OK has stored everything and the dialog is off the screen; the start routine sets it.
    std::function<void()> Stored;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void CreateControls();
    void Form_Load();

    // False, after a message, if a box holds no number that can be taken.
    bool ReadBoxes(SettingsRecord& entered);
    void Refuse(std::size_t number, const std::string& reason);

    void optCalcBasis_Click(int index);
    void cmdOK_Click();
    void cmdCancel_Click();

    Label* lblConfigFile = nullptr;
    TextBox* txtDefPath = nullptr;
    std::array<Option*, 4> optCalcBasis = {};
    std::array<TextBox*, 7> txtNumbers = {}; // from txtMaxLPM down
};

} // namespace plenair
