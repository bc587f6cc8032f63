# The log, the options, the reminder and the about box.
# shellcheck shell=bash disable=SC2154

# The active window is another than the one of the last steps: a dialog without a title came, or went.
AnotherIsActive() {
    local active
    active=$(xdotool getactivewindow 2>/dev/null) && [[ -n $active && $active != "$window" ]]
}

WaitForAnother() {
    WaitUntil AnotherIsActive || Fail "The dialog did not come."
    window=$(xdotool getactivewindow)
}

StartReady
Key alt+h
Type 300
Key Tab
Type 500
Key Return
Key alt+1
Key alt+3
Key alt+f
ParkMouse
Picture record-log "rows 1 and 3 are recorded: Record Log can be chosen"
Key r
WaitFor "Save As"
Type "$work/home/ducts.pnl"
Key Return
WaitFor "Record Log"
Picture log-saved "the log is saved and starts anew"
[[ $(wc -l <"$work/home/ducts.pnl") == 6 ]] || Fail "The log has not six lines."
Key Return
WaitFor "Plenair Lite"

sed -i '1s|.*|"/ducts"\r|' "$work/plenair/User.cfg" # the same in every picture
Key alt+e
Key o
WaitForAnother
ParkMouse
Picture --only --document options "the options show what the settings file holds; OK writes it"
Key alt+c
WaitFor "Plenair Lite"

# Another month: a run that has seen this one done doesn't look again.
EndProgram
rm "$work/home/.config/plenair/registry"
StartProgram
WaitFor "Plenair Lite"
Type 300
Key Tab
Type 500
Key Return
WaitFor "Plenair's harmless self advertising"
Picture reminder "once a month, before a calculation: a question"
Key alt+n
WaitFor Plenair
Picture liar "the answer to a No"
Key Return
TurnTo "About Plenair"
WaitFor "Plenair Lite"
ParkMouse
Picture --screen about "then the about box has had its show, and the calculation is done"
EndProgram
