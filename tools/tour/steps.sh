# The steps of which the chapters of the tour are made. Sourced by the tour, never run.
# shellcheck shell=bash disable=SC2154  # the tour sets work, screen, pictures, documents, program_built and for_documents

readonly patience=20 # seconds that a window, a colour or an end may take
readonly frame_margin=3 # pixels of desk shown around the windows
readonly desk_colour='#8a9aa8'

display=
xvfb_pid=
openbox_pid=
program_pid=
window=       # the one that clicks and measures are about
menu_height=0 # in pixels, of that window
picture_count=0

Fail() {
    printf 'The tour stopped: %s\n' "$1" >&2
    if [[ -n $program_pid ]] && ProgramIsGone; then
        local status=0
        wait "$program_pid" || status=$?
        echo "The program had ended, with status $status." >&2
    fi
    if [[ -s ${work:-}/program.log ]]; then
        echo "The program said:" >&2
        tail -n 20 "$work/program.log" >&2
    fi
    if [[ -n $display ]]; then
        Shot "$pictures/stopped-here.png" && echo "The screen at that moment: $pictures/stopped-here.png" >&2
    fi
    exit 1
}

CleanUp() {
    trap - ERR
    set +e
    local pid
    for pid in $program_pid $openbox_pid $xvfb_pid; do
        kill "$pid" 2>/dev/null && wait "$pid" 2>/dev/null
    done
    rm -rf "$work"
}

# WaitUntil COMMAND...: looks ten times a second; fails when patience is over or the program is gone.
WaitUntil() {
    local tries
    for ((tries = 0; tries < patience * 10; ++tries)); do
        "$@" && return 0
        [[ -z $program_pid ]] || kill -0 "$program_pid" 2>/dev/null || return 1
        sleep 0.1
    done
    return 1
}

# ---- the display

WindowManagerIsThere() {
    xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'
}

# Launch LOG COMMAND...: in the background, in an environment of its own, so that nothing of the user's shows or
# changes. Sets launched to its process.
Launch() {
    local log=$1
    shift
    env -i PATH="$PATH" HOME="$work/home" XDG_CONFIG_HOME="$work/home/.config" XDG_RUNTIME_DIR="$work/runtime" \
        LC_ALL=C.UTF-8 DBUS_SESSION_BUS_ADDRESS=disabled: DISPLAY="$display" "$@" >"$log" 2>&1 &
    launched=$!
}

BringUpDisplay() {
    mkdir -m 700 "$work/runtime"
    mkdir -p "$work/home"
    # Xvfb picks a free number itself and tells it once it answers.
    mkfifo "$work/number"
    Xvfb -displayfd 3 -screen 0 "${screen}x24" -dpi 96 -nolisten tcp 3>"$work/number" >"$work/xvfb.log" 2>&1 &
    xvfb_pid=$!
    local number
    read -r -t "$patience" number <"$work/number" || Fail "Xvfb did not start: $(tail -n 1 "$work/xvfb.log")"
    display=:$number
    export DISPLAY=$display
    Launch "$work/openbox.log" openbox --sm-disable
    openbox_pid=$launched
    display -size "$screen" -window root "xc:$desk_colour" || true # paints, and calls it a failure
    WaitUntil WindowManagerIsThere || Fail "openbox did not start: $(tail -n 1 "$work/openbox.log")"
}

# ---- the program

# A program's folder as installed, and a user who never started it.
FreshFolder() {
    rm -rf "${work:?}/plenair" "${work:?}/home"
    mkdir -p "$work/home"
    cp -r "$program_built" "$work/plenair"
    rm -f "$work"/plenair/*.cfg
}

BeginChapter() {
    chapter_name=$1
    picture_in_chapter=0
    rm -f "$pictures/$chapter_name"-*.png
    printf '\n%s\n' "$chapter_name"
    FreshFolder
}

# StartProgram [VARIABLE=VALUE...]: in the folder as it is.
StartProgram() {
    Launch "$work/program.log" QT_QPA_PLATFORM=xcb "$@" "$work/plenair/plenair"
    program_pid=$launched
}

# As StartProgram, on a desktop with a dark theme.
StartDark() {
    mkdir -p "$work/home/.config"
    cat >"$work/home/.config/kdeglobals" <<'END'
[Colors:Window]
BackgroundNormal=42,46,50
ForegroundNormal=252,252,252
[Colors:View]
BackgroundNormal=27,30,32
BackgroundAlternate=35,38,41
ForegroundNormal=252,252,252
[Colors:Button]
BackgroundNormal=49,54,59
ForegroundNormal=252,252,252
[Colors:Selection]
BackgroundNormal=61,174,233
ForegroundNormal=252,252,252
[Colors:Tooltip]
BackgroundNormal=49,54,59
ForegroundNormal=252,252,252
END
    StartProgram XDG_CURRENT_DESKTOP=KDE KDE_FULL_SESSION=true KDE_SESSION_VERSION=5 "$@"
}

# The Lite window after a first start, its message answered.
StartReady() {
    FreshFolder
    StartProgram "$@"
    WaitFor "Defaults Set"
    Key Return
    WaitFor "Plenair Lite"
}

ProgramIsGone() {
    ! kill -0 "$program_pid" 2>/dev/null
}

# After an end that the user asked for: it must come, and be a clean one.
ExpectEnd() {
    local status=0 tries
    for ((tries = 0; tries < patience * 10; ++tries)); do
        ProgramIsGone && break
        sleep 0.1
    done
    ProgramIsGone || Fail "The program did not end."
    wait "$program_pid" || status=$?
    program_pid=
    ((status == 0)) || Fail "The program ended with status $status."
}

EndProgram() {
    kill "$program_pid"
    wait "$program_pid" 2>/dev/null || true
    program_pid=
}

# ---- windows

# The visible windows of the program with that title.
WindowsNamed() {
    xdotool search --all --onlyvisible --pid "$program_pid" --name "^$1\$" 2>/dev/null
}

FindWindow() {
    local found
    found=$(WindowsNamed "$1") && [[ -n $found ]] && window=$(tail -n 1 <<<"$found")
}

IsActive() {
    [[ $(xdotool getactivewindow 2>/dev/null) == "$window" ]]
}

# TurnTo TITLE: the next steps are about that window, as one without a menu bar. Waits for it; a click gives it the
# keys, if it hasn't them.
TurnTo() {
    menu_height=0
    WaitUntil FindWindow "$1" || Fail "The window \"$1\" did not come."
}

# WaitFor TITLE: as TurnTo, and until the window has the keys.
WaitFor() {
    TurnTo "$1"
    WaitUntil IsActive || Fail "The window \"$1\" did not get the keys."
}

# Prints left, top, width and height of a window without its frame. Not by xdotool, which counts the frame twice.
PlaceOf() {
    xwininfo -id "$1" 2>/dev/null |
        awk '/Absolute upper-left [XY]|^ *(Width|Height):/ { printf "%s ", $NF } END { print "" }'
}

# ---- keys and mouse

# Key NAME...: each is pressed and released, as in Tab, Return, alt+m.
Key() {
    xdotool key --clearmodifiers --delay 40 "$@"
}

Type() {
    xdotool type --delay 30 -- "$1"
}

# Click X Y [BUTTON]: in pixels from the top left corner of the window, menu bar included.
Click() {
    xdotool mousemove --sync --window "$window" "$1" "$2" click "${3:-1}"
}

# ClickTwips LEFT TOP WIDTH HEIGHT [BUTTON]: the middle of a control, given as in the layout. At a scale factor of 1.
ClickTwips() {
    Click $((($1 + $3 / 2) / 15)) $((menu_height + ($2 + $4 / 2) / 15)) "${5:-1}"
}

# What of the window stands above its client area, which is that many twips high.
MeasureMenu() {
    local x y width height
    read -r x y width height < <(PlaceOf "$window")
    menu_height=$((height - $1 / 15))
}

# Out of the way, so that no picture shows a button lit by it.
ParkMouse() {
    xdotool mousemove 5 $((${screen#*x} - 5))
}

# ---- pictures

# Shot FILE [X Y WIDTH HEIGHT]: the same pixels give the same file.
Shot() {
    local crop=()
    if (($# > 1)); then
        crop=(-crop "$4x$5+$2+$3" +repage)
    fi
    import -window root "${crop[@]}" -define png:exclude-chunks=date,time "$1"
}

# Sets box to the smallest rectangle around these windows, frames included.
MeasureWindows() {
    local id x y width height frame left right top bottom l=99999 t=99999 r=0 b=0
    for id; do
        read -r x y width height < <(PlaceOf "$id")
        [[ -n $height ]] || continue
        frame=$(xprop -id "$id" _NET_FRAME_EXTENTS 2>/dev/null | sed -n 's/.* = //p')
        IFS=', ' read -r left right top bottom <<<"${frame:-0, 0, 0, 0}"
        l=$((x - left < l ? x - left : l))
        t=$((y - top < t ? y - top : t))
        r=$((x + width + right > r ? x + width + right : r))
        b=$((y + height + bottom > b ? y + height + bottom : b))
    done
    ((r > 0)) || Fail "No window of the program is visible."
    box=("$l" "$t" $((r - l)) $((b - t)))
}

# Two shots a moment apart are the same: the program has drawn all that it was about to draw.
HasSettled() {
    Shot "$work/before.png"
    sleep 0.15
    Shot "$work/after.png"
    cmp -s "$work/before.png" "$work/after.png"
}

# Picture [--screen | --only] [--document] NAME "what it shows": of the program's windows, of the whole screen, or of
# only the window that the steps are about. One for the documents goes to $documents/NAME.png too, when that was
# asked for.
Picture() {
    local whole=false document=false only=false file box=()
    while [[ $1 == --* ]]; do
        case $1 in
        --screen) whole=true ;;
        --only) only=true ;;
        --document) document=true ;;
        esac
        shift
    done
    sleep 0.2
    WaitUntil HasSettled || Fail "The windows did not come to rest for \"$2\"."
    picture_in_chapter=$((picture_in_chapter + 1))
    picture_count=$((picture_count + 1))
    file=$(printf '%s/%s-%02d-%s.png' "$pictures" "$chapter_name" "$picture_in_chapter" "$1")
    if $only; then
        MeasureWindows "$window"
    elif ! $whole; then
        # shellcheck disable=SC2046  # numbers
        MeasureWindows $(xdotool search --onlyvisible --pid "$program_pid" 2>/dev/null)
    fi
    Shot "$file" "${box[@]}"
    if ! $whole; then
        mogrify -bordercolor "$desk_colour" -border "$frame_margin" -define png:exclude-chunks=date,time "$file"
    fi
    last_picture=$file
    printf '  %s  %s\n' "$file" "$2"
    if $document && $for_documents; then
        mkdir -p "$documents"
        cp "$file" "$documents/$1.png"
    fi
}

# How many pixels of the last picture have that colour, given as six hexadecimal digits.
PixelsOf() {
    stream -map rgb -storage-type char "$last_picture" - | od -An -v -tx1 -w3 | tr -d ' ' | grep -cx "$1" || true
}

# The last picture must show that colour, or must not.
ExpectColour() {
    (($(PixelsOf "$1") > 0)) || Fail "$last_picture lacks the colour $1."
}

ExpectNoColour() {
    (($(PixelsOf "$1") == 0)) || Fail "$last_picture shows the colour $1."
}
