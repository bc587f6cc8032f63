# Undo, the project after a crash, and the tables on the clipboard.
# shellcheck shell=bash disable=SC2154

. "$tour_folder/solver-steps.sh"

# PastedHas TYPE TEXT: the clipboard has that text in that form, as another program gets it.
PastedHas() {
    xclip -selection clipboard -out -target "$1" 2>/dev/null | grep -qaF "$2"
}

ExpectPasted() {
    WaitUntil PastedHas "$1" "$2" || Fail "The clipboard has no \"$2\" as $1."
}

SpreadsheetIsActive() {
    [[ $(xdotool getactivewindow getwindowname 2>/dev/null) == *Gnumeric ]]
}

# PasteIntoSpreadsheet NAME "what it shows": a new one, beside the program.
PasteIntoSpreadsheet() {
    Launch "$work/spreadsheet.log" gnumeric --no-splash
    WaitUntil SpreadsheetIsActive || Fail "The spreadsheet did not come."
    Key ctrl+v
    ParkMouse
    Picture --screen --document "$1" "$2"
    kill "$launched"
    wait "$launched" 2>/dev/null || true
}

RecoveryFileIsThere() {
    compgen -G "$work/home/.local/state/plenair/*.recovery" >/dev/null
}

StartReady
cp docs/sample/plant-room.gsp "$work/home/"
OpenSolver
Press 525 400
ChooseFile Open "$work/home/plant-room.gsp"
TurnTo Plenair
Press 5775 400
WaitFor "Duct Parameters"
ClickTwips 2050 600 800 285 # Flow of R1, with Follow On ticked
SheetDuct 9
ParkMouse
Picture overwritten "a look through the ducts with the cursor in Flow of R1: all have its flow now"
Key ctrl+z
ParkMouse
Picture --document undone "Ctrl+Z: each has its own flow again, and the sheet stands on the first of them"

WaitUntil RecoveryFileIsThere || Fail "The project was not kept."
sleep 1.2 # it is kept once a second
kill -KILL "$program_pid"
{ wait "$program_pid"; } 2>/dev/null || true
StartProgram
WaitFor "Plenair Lite"
Key alt+f
Key p
WaitFor "Project Solver"
Picture --only --document restore-question "after a crash: the solver has kept the project"
Key alt+y
WaitFor Plenair
ParkMouse
Picture restored "and Yes brings it back"
ExpectColour 0000ff

Key ctrl+c
ExpectPasted text/html Flexible
ExpectPasted image/svg+xml "<svg"
ExpectPasted image/png PNG
PasteIntoSpreadsheet pasted "Ctrl+C on the grid, Ctrl+V in a spreadsheet: the ducts, cell by cell"
EndProgram

StartReady
Type 300
Key Tab
Type 500
Key Return ctrl+shift+c
ExpectPasted UTF8_STRING Round
PasteIntoSpreadsheet pasted-lite "Ctrl+Shift+C in Plenair Lite: the table with the round duct"
