#!/usr/bin/env bash
# The property pages in the frame of a designer and in the system's, used with real keys and a real pointer on a screen of its
# own; the control is not registered. What changes is printed by the form that is designed; the pictures are for whoever
# wants to look. Prints "N passed, N failed" at the end.
set -uo pipefail

# shellcheck source=tests/scripts/check.sh
source "$ROOT/tests/scripts/check.sh"
# shellcheck source=tests/scripts/screen.sh
source "$ROOT/tests/scripts/screen.sh"

Skins=$BUILD/tests/ole/frame-skins
explain() { cat changes designer.log; }
window() { xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -1; }
is_open() { [[ -n $(window "$1") ]]; }
is_gone() { [[ -z $(window "$1") ]]; }
changed_to() { tail -n 1 changes | grep -q -- "$1"; }

# What stands in the frame, and in its lists.
look() { wine "$BUILD/tests/tools/skinview/window_texts.exe" Properties 2>/dev/null | tr -d '\r' >texts; }
shows() { look && grep -Eq -- "$1" texts; }
has_no_skin_of_ours() { ! grep -q frame-skins changes; }
chosen() { shows "^> $1\$"; }

# point_at_line TEXT: the pointer, on a line of the list of skins that stands among its first three.
point_at_line() {
    local left top width height line
    look
    IFS=' ,x' read -r _ _ left top width height _ < <(grep '^ListBox 333 ' texts)
    line=$(sed -n '/^ListBox 333 /,/^[A-Z]/s/^[->] //p' texts | grep -nxF -- "$1" | cut -d : -f 1)
    [[ -n $line ]] && xdotool mousemove $((left + width / 4)) $((top + height / 6 + (line - 1) * height / 3))
}

# design TITLE ARGUMENT...: until the frame of that title has the keyboard.
design() {
    wine "$BUILD/tests/ole/designer.exe" "${@:2}" >changes 2>designer.log &
    wait_until is_open "$1" && xdotool windowfocus --sync "$(window "$1")"
}

# settled NAME: a picture once nothing changes any more.
settled() {
    sleep 1
    picture "$1"
}

rm -rf "$Skins"
mkdir -p "$Skins"
cp -r "$ROOT/skins/slanted" "$ROOT/skins/light" "$Skins/"
mkdir "$Skins/broken"
printf 'Start\r\n[Tab]\r\n0: 1,2,three,4\r\n' >"$Skins/broken/SKIN.INI"
open_screen 1024x768

check "a designer shows the pages in a frame of its own" design '^Properties$'
xdotool mousemove --window "$(window '^Properties$')" 312 44 click --repeat 2 --delay 60 1 type --delay 40 75
settled 1-typed
check "nothing is applied before that is asked for" test ! -s changes
press alt+a
check "Apply gives the control what was typed" wait_until changed_to 'BarWidth=75 TabPos=2 TabBorder=False'
press alt+s Down alt+e alt+a
check "and what was chosen and pressed" wait_until changed_to 'BarWidth=75 TabPos=3 TabBorder=True'
settled 2-applied
press alt+w
xdotool type --delay 40 wide
press alt+a
settled 3-refused
check "text that is no number changes nothing" changed_to 'BarWidth=75 TabPos=3 TabBorder=True'

xdotool mousemove --window "$(window '^Properties$')" 127 13 click 1
check "the skins beside the program are listed" wait_until shows '^- frame-skins.slanted$'
press alt+k f
check "a skin is chosen from the list by its letter" wait_until chosen 'frame-skins.broken'
check "its faults are told, with line and column" wait_until shows 'Line 3, column 8: error: '
settled 4-broken
press alt+a
settled 5-refused
check "a skin with such a fault is not applied" has_no_skin_of_ours
press alt+k Down Down
check "arrows choose, too" wait_until chosen 'frame-skins.slanted'
check "a skin without faults shows none" wait_until shows '^Edit 334 .* None\.$'
settled 6-chosen
press alt+a
check "a chosen skin is set by its folder and definition" \
    wait_until changed_to 'BarWidth=75 TabPos=3 TabBorder=True SkinPath=frame-skins.slanted SkinFile=skin.ini'
press alt+s alt+a
check "and with the properties that go with it" wait_until changed_to 'BarWidth=132 TabPos=3'
press alt+k Home
point_at_line 'frame-skins\light' && xdotool click 1
check "the pointer chooses" wait_until chosen 'frame-skins.light'
settled 7-pointed
press alt+a
check "what it chose is set" wait_until changed_to 'BarWidth=132 .* SkinPath=frame-skins.light'
press alt+f
xdotool type --delay 40 'frame-skins\slanted'
press alt+a
check "a folder that is typed is set likewise" wait_until changed_to 'SkinPath=frame-skins.slanted'
check "and marked in the list" wait_until chosen 'frame-skins.slanted'
settled 8-typed

xdotool windowclose "$(window '^Form1$')" windowclose "$(window '^Properties$')"
check "the designer ends" wait_until is_gone '^Properties$'
check "the properties verb opens the system's frame" design '^Properties for' --system
settled 9-system
rm -rf "$Skins"
sum_up
