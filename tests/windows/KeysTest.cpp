#include "platform/desktop/Clipboard.h"
#include "windows/WindowTest.h"

namespace {

class Keys : public WindowTest {
  protected:
    void SetUp() override { Start(); }
};

TEST_F(Keys, FiveDuctsAndTheirLamps) {
    Play("300 Tab | focus: txtInputA\n" // the focus starts in the height
         "500 Return | table: " +
         FilledTable +
         "; round: 375 4.53 0.69; selected: txtInputA 500\n"
         "Down | text txtInputB: 325; row 2: 350 325 4.61 0.67; selected: txtInputB 325\n"
         "Up | text txtInputB: 300; table: " +
         FilledTable +
         "\ntxtInputB=100 txtInputA=300 Enter | table: 2775 50 3.87 0.59, 1475 75 3.99 0.64, "
         "950 100 4.10 0.68, 700 125 4.11 0.69, 550 150 4.13 0.69");
    std::string lamps;
    for (int i = 0; i < 5; ++i) {
        const auto& lamp = Find<Label>("lblRatio(" + std::to_string(i) + ")");
        lamps += lamp.IsOpaque() ? lamp.BackColour().name().toStdString() : "off";
    }
    EXPECT_EQ(lamps, "#ff0000#ff0000#ff0000#ffae00#00ff00");
}

TEST_F(Keys, CharactersClearTheResults) {
    for (const char* box : {"txtInputA", "txtInputB"}) {
        for (const std::string key : {"7", "x", "Space", "Backspace", "Escape", "Ctrl+C"}) {
            FillTable();
            Play((Focused() == box ? "" : "@" + std::string(box) + " ") + key + " | table: blank");
        }
        for (const char* key : {"Delete", "Left", "Right", "Home", "End", "PgUp", "F5", "Tab"}) {
            FillTable();
            Play("@" + std::string(box) + " " + key + " | table: " + FilledTable);
        }
    }
    FillTable();
    Box("txtInputA").insert("700");
    EXPECT_EQ(Table(), FilledTable) << "a change by the mouse";
}

TEST_F(Keys, EnteringABoxSelectsItsText) {
    FillTable();
    Play("@txtInputB | selected: txtInputB 300\n"
         "End @txtInputB | selected: txtInputB \n" // it was there already
         "Tab | selected: txtInputA 500\n"
         "Alt+H | selected: txtInputB 300; table: " +
         FilledTable + "\n@cmdMoreInfo @txtCalcBasis(0) | selected: txtCalcBasis(0) 0.8; table: blank");
}

TEST_F(Keys, EnterCalculatesFromEveryBox) {
    Unfold();
    for (const char* box : {"txtInputA", "txtInputB"}) {
        Play("txtInputA=500 txtInputB=300 @" + std::string(box) +
             " Return | selected: txtInputA 500; table: " + FilledTable);
    }
    for (const char* basis : {"1", "0", "2", "9", "3", "4"}) {
        const std::string option = *basis == '9' ? "2" : basis;
        Play("@optCalcBasis(" + option + ") @txtCalcBasis(" + basis +
             ") | table: blank\nReturn | selected: " + "txtInputA 500; row 2: " +
             (*basis == '3'   ? "500 300 3.54 0.35"
              : *basis == '4' ? "500 300 5.00 0.66; row 3: ( 705 L/s )"
                              : "375 300 4.68 0.69"));
    }
    m_environment.SetToday(2026, 12, 1); // nor does the reminder come where a text is no number
    Click("optCalcBasis(0)");
    for (const std::string box : {"txtInputA", "txtInputB", "txtCalcBasis(0)"}) {
        Play("txtCalcBasis(0)=0.8 txtInputB=300 txtInputA=500 " + box +
             "=x Return | table: blank; focus: txtInputA");
    }
    EXPECT_EQ(Settings.MaxLPM, 0.8) << "what is no number leaves it";
}

TEST_F(Keys, CopyOfTheResults) {
    std::string copied;
    Desktop().Copy = [&](const ClipboardContent& content) { copied = TabSeparated(content.Table); };
    Start();
    FillTable();
    Play("Ctrl+Shift+C | table: " + FilledTable); // no character for the box
    EXPECT_EQ(copied, "Shape\tWidth (mm)\tHeight (mm)\tDiameter (mm)\tVelocity (m/s)\tLoss (Pa/m)\n"
                      "Rectangular\t450\t250\t\t4.74\t0.72\nRectangular\t400\t275\t\t4.80\t0.74\n"
                      "Rectangular\t375\t300\t\t4.68\t0.69\nRectangular\t350\t325\t\t4.61\t0.67\n"
                      "Rectangular\t325\t350\t\t4.61\t0.67\nRound\t\t\t375\t4.53\t0.69\n");
    copied.clear();
    Play("1 Ctrl+Shift+C"); // there is nothing to copy
    EXPECT_EQ(copied, "");
}

} // namespace
