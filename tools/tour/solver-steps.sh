# The steps of the chapters that work the Project Solver. Sourced by them.
# shellcheck shell=bash disable=SC2034,SC2154

# GridPoint COLUMN ROW [BUTTON]: clicks where two grid lines cross. The grid has 40 cells across and 30 down.
GridPoint() {
    local width=$(((${screen%x*} * 15 - 200) / 40)) height=$(((${screen#*x} * 15 - 1050) / 30))
    Click $(((50 + $1 * width) / 15)) $(((500 + $2 * height) / 15)) "${3:-1}"
}

# One of the buttons above the grid, by its left edge and width in twips.
Press() {
    TurnTo Plenair
    ClickTwips "$1" 50 "$2" 400
}

solver_rigid=2625 solver_flexible=3255 solver_connection=3885

SolverIsNotActive() {
    [[ $(xdotool getactivewindow 2>/dev/null) != "$solver_window" ]]
}

# A message with the same title as the solver.
WaitForMessage() {
    WaitUntil SolverIsNotActive || Fail "The message did not come."
}

# ChooseFile DIALOG PATH
ChooseFile() {
    WaitFor "$1"
    Type "$2"
    Key Return
}

# SheetDuct NUMBER: the arrow of the sheet's scroll bar, from duct 1 on.
SheetDuct() {
    local step
    TurnTo "Duct Parameters"
    for ((step = 1; step < $1; ++step)); do
        ClickTwips 2700 0 100 330
    done
}

# Opens the solver from the Lite window. Sets solver_window.
OpenSolver() {
    Key alt+f
    Key p
    WaitFor Plenair
    solver_window=$window
}
