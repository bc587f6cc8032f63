# Plenair Lite: from the first start to filled tables in each basis.
# shellcheck shell=bash disable=SC2154

readonly green=00ff00 yellow=ffff00 orange=ffae00 red=ff0000
readonly folded=3300 # height of the client area in twips

# The height in the first box, the flow or the width in the second, then Enter. Alt+H selects the height.
Size() {
    Key alt+h
    Type "$1"
    Key Tab
    Type "$2"
    Key Return
}

# ChooseBasis ACCESS-KEY TARGET: the option takes the keys to its box, its text selected.
ChooseBasis() {
    Key "$1"
    Type "$2"
}

StartProgram
WaitFor "Defaults Set"
Picture --document first-start "the first start finds no settings file, makes one and says so"
[[ -s $work/plenair/User.cfg ]] || Fail "The first start wrote no settings file."
Key Return
WaitFor "Plenair Lite"
ParkMouse
Picture --screen on-the-screen "Plenair Lite opens at the top right of the screen, small enough to stay beside other work"
Picture blank "nothing typed yet: the height has the keys"
ExpectNoColour $green

Type 300
Key Tab
Type 500
Picture typed "300 mm high, Tab, 500 L/s"
Key Return
Picture --document five-ducts "Enter: five ducts around the height of 300 mm, each with its velocity and loss, and the round one below"
ExpectColour $green
Key Down
Picture one-step-taller "Down: the next taller duct is now the middle row"
Key Up
Picture one-step-back "Up: and back again"

Key alt+m
Picture --document unfolded "Alt+M: the calculation bases unfold, loss per metre is in force"
ExpectNoColour $red
Size 300 500
Picture loss-per-metre "loss per metre: 0.8 Pa/m"
ExpectColour $green
ChooseBasis alt+v 4
Picture velocity-chosen "Alt+V: velocity, the target typed over the selected text; the results are blank"
ExpectNoColour $green
Key Return
Size 300 500
Picture velocity "velocity: 4 m/s"
ExpectColour $green
Key alt+c
Type 1
Key Tab
Type 6
Size 300 500
Picture capped "Alt+C: capped at 1 Pa/m and 6 m/s"
ExpectColour $green
ChooseBasis alt+a 500
Size 300 375
Picture analyse-by-flow "Alt+A: a duct of 375 by 300 mm analysed at 500 L/s"
ExpectColour $green
ChooseBasis alt+a 5
Size 300 375
Picture --document analysis "Alt+A again: the same duct at 5 m/s, its flow between the brackets"
ExpectColour $green

Key alt+p
Size 200 800
Picture --document lamps "200 mm is flat for 800 L/s: from the taller ducts to the wider ones the lamps turn from green through yellow and orange to red"
for colour in $green $yellow $orange $red; do
    ExpectColour "$colour"
done
Size 60 500
Picture red-lamps "60 mm is far too flat: red lamps"
ExpectColour $red
ExpectNoColour $green
Size 3OO 500
Picture no-number "a text that is no number: no message, no results, the text selected"
ExpectNoColour $red

Key alt+l
Size 300 500
Picture folded "Alt+L: folded again"
Click 14 10
Picture file-menu "the File menu, opened with the mouse"
Key Escape
ParkMouse
Key F1
WaitFor "Plenair"
Picture help "F1: where help is to be found"
Key Return
WaitFor "Plenair Lite"
MeasureMenu $folded
ClickTwips 2520 3000 735 255
Picture more-clicked "the button More, clicked, does what Alt+M does"
Key alt+f x
ExpectEnd

# ShowFilled COMMAND... NAME "what it shows": a further start, which shows no message, to a filled table and its end.
ShowFilled() {
    "${@:1:$#-2}"
    WaitFor "Plenair Lite"
    Key alt+m
    Size 200 800
    Picture "${@: -2}"
    ExpectColour $green
    Key alt+f x
    ExpectEnd
}

ShowFilled StartProgram QT_SCALE_FACTOR=1.5 half-as-large-again "at a scale factor of 1.5"
ShowFilled StartProgram QT_SCALE_FACTOR=2 twice-as-large "at a scale factor of 2"
ShowFilled StartDark dark "on a desktop with a dark theme"
