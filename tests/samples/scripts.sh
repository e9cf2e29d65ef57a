#!/usr/bin/env bash
# Runs the script samples without registration, as their README tells. Last line: "N passed, N failed".
set -uo pipefail

# shellcheck source=tests/scripts/check.sh
source "$ROOT/tests/scripts/check.sh"

# The system's program of the control's bitness, as a copy: where it stands, a 32-bit start redirects its path.
case $BUILD in
*win32) System=$WINEPREFIX/drive_c/windows/syswow64 ;;
*) System=$WINEPREFIX/drive_c/windows/system32 ;;
esac

explain() { cat said; }

# say SCRIPT WORD... — what the script answers goes to said.
say() { wine script.exe //nologo "$@" 2>&1 | tr -d '\r' >said; }
answers() { say "${@:2}" && grep -qxF -- "$1" said; }

lay_out() {
    mkdir -p Skins
    cp -r "$ROOT/skins/light" Skins
    cp "$System/cscript.exe" script.exe
    cp "$ROOT/samples/plain-window/plain-window.manifest" script.exe.manifest
    cp "$BUILD/src/ole/VantikFrameTab.ocx" "$BUILD/src/ole/VantikFrameTab.manifest" .
}

drive() {
    local script=$1
    cp "$ROOT/samples/$2" "$script"
    rm -f last-tab.txt
    check "$script opens the first page" answers '> Person (USER)' "$script"
    check "$script has forty pages, with the skin's bars" grep -qxF '40 pages, bars of 132 pixels' said
    check "$script shows the locked page" grep -qxF 'x Locked (LOCK)' said
    check "$script goes to a page" answers '> Sheet 30 (TABLE)' "$script" go 'Sheet 30'
    check "$script remembers it" answers '> Sheet 30 (TABLE)' "$script"
    check "$script refuses the locked page" answers 'That page is locked' "$script" go Locked
    check "$script stays where it was" grep -qxF '> Sheet 30 (TABLE)' said
    check "$script asks before it closes" answers 'Close Notes? Then say: close "Notes" yes' "$script" close Notes
    check "$script closes nothing yet" grep -qxF '  Notes (EDIT)' said
    check "$script closes a page" answers '39 pages, bars of 132 pixels' "$script" close Notes yes
    check "$script stays on its page" grep -qxF '> Sheet 30 (TABLE)' said
    check "$script keeps the locked page" answers 'That page stays' "$script" close Locked yes
    check "$script says what it does not know" answers 'There is no page Nowhere' "$script" go Nowhere
}

lay_out
drive tabs.vbs vbscript/tabs.vbs
drive tabs.js jscript/tabs.js
sum_up
