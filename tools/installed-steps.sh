# What a new user does with an installed program: sizes a duct, stores an option, opens the sample, prints it to a PDF.
# Sourced by check-install and check-package, never run.
# shellcheck shell=bash disable=SC2154  # those set work, pictures, screen and what is listed here:
#   run_as=(COMMAND...)  before the program's command line; it makes the program another user's
#   user_home            that user's home folder, as this script sees it; ${user_home_inside:-$user_home} as the program does
#   installed_program    the path of the program, as the program's user sees it
#   sample               the path of the sample project, likewise

# shellcheck source=tools/tour/steps.sh
. tools/tour/steps.sh

# No sound player or editor of the machine is in its reach.
StartInstalled() {
    "${run_as[@]}" env -i PATH=/nonexistent HOME="${user_home_inside:-$user_home}" LC_ALL=C.UTF-8 DISPLAY="$display" \
        QT_QPA_PLATFORM=xcb DBUS_SESSION_BUS_ADDRESS=disabled: "$installed_program" >"$work/program.log" 2>&1 &
    program_pid=$!
}

# AnswerFile DIALOG NAME: in the user's home folder.
AnswerFile() {
    WaitFor "$1"
    Type "${user_home_inside:-$user_home}/$2"
    Key Return
}

Expect() {
    WaitUntil grep -qs "$1" "$2" || Fail "$2 has no line with $1."
}

# The upper buttons of the solver, by their left edge in twips.
PressButton() {
    TurnTo Plenair
    ClickTwips "$1" 50 400 400
}

WorkAsNewUser() {
    local settings=$user_home/.local/share/plenair/User.cfg
    StartInstalled
    WaitFor "Defaults Set"
    Key Return
    WaitFor "Plenair Lite"
    Type 300
    Key Tab
    Type 500
    Key Return alt+3 alt+f r
    AnswerFile "Save As" ducts
    WaitFor "Record Log"
    Key Return
    Expect $'500\t375\t300' "$user_home/ducts.pnl"
    echo "a duct is sized and its log saved"

    WaitFor "Plenair Lite"
    Key alt+e o
    WaitUntil AnotherIsActive || Fail "The options did not come."
    window=$(xdotool getactivewindow)
    Key Tab Tab ctrl+a
    Type 1.25
    Key alt+o
    WaitFor "Plenair Lite"
    Expect '^1.25' "$settings"
    echo "an option is stored in $settings"

    Key alt+f p
    WaitFor Plenair
    PressButton 525
    WaitFor Open
    Type "$sample"
    Key Return
    WaitFor Plenair
    PressButton 1365
    WaitFor "Print Project"
    Key alt+y
    WaitFor Print
    Key alt+f ctrl+a
    Type "${user_home_inside:-$user_home}/plant.pdf"
    Key Return
    Expect '%%EOF' "$user_home/plant.pdf"
    echo "the sample is opened and printed to a PDF"
    EndProgram
}

AnotherIsActive() {
    local active
    active=$(xdotool getactivewindow 2>/dev/null) && [[ -n $active && $active != "$window" ]]
}
