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
cp -r "$ROOT/skins/slanted" "$Skins/"
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
press alt+f
xdotool type --delay 40 'frame-skins\slanted'
settled 4-skin
press alt+a
check "a skin is set by its folder" \
    wait_until changed_to 'BarWidth=75 TabPos=3 TabBorder=True SkinPath=frame-skins.slanted SkinFile=skin.ini'
press alt+s alt+a
check "and with the properties that go with it" wait_until changed_to 'BarWidth=132 TabPos=3'
settled 5-settings

xdotool windowclose "$(window '^Form1$')" windowclose "$(window '^Properties$')"
check "the designer ends" wait_until is_gone '^Properties$'
check "the properties verb opens the system's frame" design '^Properties for' --system
settled 6-system
rm -rf "$Skins"
sum_up
