# The Project Solver: from an empty grid to a solved network, its pressures and its paper.
# shellcheck shell=bash disable=SC2154

. "$tour_folder/solver-steps.sh"

# PaperPicture [--document] FILE NAME "what it shows": the pages of a PDF side by side, up to three.
PaperPicture() {
    local document=false
    if [[ $1 == --document ]]; then
        document=true
        shift
    fi
    pdftoppm -r 40 -png -l 3 "$1" "$work/page"
    picture_in_chapter=$((picture_in_chapter + 1))
    picture_count=$((picture_count + 1))
    last_picture=$(printf '%s/%s-%02d-%s.png' "$pictures" "$chapter_name" "$picture_in_chapter" "$2")
    convert "$work"/page*.png -bordercolor gray -border 1 -gravity northwest -background "$desk_colour" \
        -splice 6x6 +append -define png:exclude-chunks=date,time "$last_picture"
    rm -f "$work"/page*.png
    printf '  %s  %s\n' "$last_picture" "$3"
    if $document && $for_documents; then
        cp "$last_picture" "$documents/$2.png"
    fi
}

# PrintTo PDF: by the print dialog, which offers a file where there is no printer.
PrintTo() {
    WaitFor Print
    Key alt+f ctrl+a # the name of the output file
    Type "$1"
    Key Return
}

StartReady
cp docs/sample/plant-room.gsp "$work/home/"
OpenSolver
ParkMouse
Picture empty-grid "the Project Solver fills the screen: buttons above, an empty grid below"

GridPoint 6 8
GridPoint 16 8
GridPoint 16 16
Press $solver_flexible 600
GridPoint 22 20
Press $solver_connection 600
GridPoint 22 24
GridPoint 22 24 3
ParkMouse
Picture chain "a chain of clicks: two rigid ducts in red, a flexible one in blue, a connection in yellow"
ExpectColour ff0000
ExpectColour ffff00

Press 525 400
WaitFor "Load Project"
Picture load-question "opening another project asks first"
Key alt+y
ChooseFile Open "$work/home/plant-room.gsp"
TurnTo Plenair
Press $solver_rigid 600
ParkMouse
Picture --document network "the sample project: a plant room, a main, three outlets"
ExpectColour 0000ff

Press 5775 400
WaitFor "Duct Parameters"
Key alt+f # Follow On off, so that walking through the ducts changes nothing
SheetDuct 2
ParkMouse
Picture sheet "the sheet on a connection: what it has no use for is locked, and it is green on the grid"
ExpectColour 00ff00

Press 6405 795
WaitFor Solve
Picture solve-question "the goose begins by saving the project"
Key Return
ChooseFile "Save As" "$work/home/solved.gsp"
WaitFor Save
Picture saved "saved"
Key Return
TurnTo Plenair
WaitForMessage
Picture complete "every duct has its size"
Key Return
[[ -s $work/home/solved.gsp && -s $work/home/solved.Gus ]] || Fail "The run left no project file or no report."
SheetDuct 5
ParkMouse
Picture --document solved "solved: the sheet reads as a clean table, and the button of the pressures is there"
if $for_documents; then
    convert "$last_picture" -crop "560x34+$((frame_margin + 1))+$((frame_margin + 20))" +repage \
        -define png:exclude-chunks=date,time "$documents/toolbar.png"
fi

Press 5775 400
Press 7245 795
WaitFor "Pressure Drop"
Type 1,2,3,4,5,13,14
Picture path "the index run, as a list of duct numbers"
Key Return
WaitFor "Total Pressure Drop"
Picture --only --document total "its total pressure"
Key alt+y
TurnTo Plenair
ParkMouse
Picture --document plot "accumulated pressure against accumulated length"
ExpectColour ffff00

Press 1365 400
WaitFor Print
Picture print-dialog "the plot goes to paper, or into a PDF where there is no printer"
PrintTo "$work/home/plot.pdf"
WaitUntil test -s "$work/home/plot.pdf" || Fail "The plot was not printed."
PaperPicture "$work/home/plot.pdf" printed-plot "the plot on its page"

Press 5355 400 # labels off and on again: the network is back
Press 5355 400
Press 1365 400
WaitFor "Print Project"
Key alt+y
PrintTo "$work/home/network.pdf"
WaitUntil test -s "$work/home/network.pdf" || Fail "The network was not printed."
PaperPicture --document "$work/home/network.pdf" printed "the network on a landscape page, its data on the pages after it"

Press $((${screen%x*} * 15 - 1100)) 1000
WaitFor "Plenair Lite"
Picture back "Close: back in Plenair Lite, as it was left"
EndProgram

StartReady QT_SCALE_FACTOR=2
Key alt+f
Key p
WaitFor Plenair
Picture twice-as-large "the solver at a scale factor of 2"
