#!/usr/bin/env bash
# Runs the script samples, and what the samples in Basic do to the row, without registration. Last line: "N passed, N failed".
set -uo pipefail

# shellcheck source=tests/scripts/check.sh
source "$ROOT/tests/scripts/check.sh"
# shellcheck source=tests/scripts/screen.sh
source "$ROOT/tests/scripts/screen.sh"

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

# There is no host of such pages here: the script runs on a stand-in of the page. The control looks for the skin two steps
# above the program, as in the folder of the system.
drive_page() {
    local folder=$WINEPREFIX/drive_c/samples/page
    rm -rf "$folder" && mkdir -p "$folder"
    cp -r Skins script.exe script.exe.manifest VantikFrameTab.ocx VantikFrameTab.manifest "$folder"
    {
        sed -n '/^Option Explicit/,/^<\/script>/p' "$ROOT/samples/html-application/Tabs.hta" | grep -v '</script>'
        grep -v '^Option Explicit' "$ROOT/tests/samples/page.vbs"
        echo UsePage
    } >"$folder/page.vbs"
    cd "$folder" || return
    wine reg delete 'HKCU\Software\VantikFrameTab samples' /f >/dev/null 2>&1
    check "the page opens its first tab" answers 'opened: tab 0 of 40, Person, Person is open' page.vbs
    check "the page follows a press" grep -qxF 'pressed: tab 29 of 40, Sheet, Sheet 30 is open' said
    check "the page leaves the locked tab" grep -qxF 'locked: tab 29 of 40, Sheet, That page is locked' said
    check "the page asks before it closes a tab" grep -qxF 'Close "Sheet 30"?' said
    check "the page keeps the tab" grep -qxF 'kept: tab 29 of 40, Sheet, That page is locked' said
    check "the page closes the tab" grep -qxF 'closed: tab 29 of 39, Sheet, Sheet 31 is open' said
    check "the page lists its tabs" grep -qxF '39 in the menu: tab 29 of 39, Sheet menu, Sheet 31 is open' said
    check "the page goes to the chosen one" grep -qxF 'chosen: tab 1 of 39, Notes, Notes is open' said
    check "the page remembers it" answers 'opened: tab 1 of 40, Notes, Notes is open' page.vbs
}

has_run() { grep -qx 'done.*' said; }

# The form stays, so it is ended.
brings_into_view() {
    local form result
    "$ROOT/tests/samples/row_script.py" "$ROOT/samples/$1" >row.vbs
    wine "$BUILD/tests/docs/basic_form.exe" 400 200 row.vbs >said 2>&1 &
    form=$!
    wait_until has_run
    result=$?
    kill "$form" 2>/dev/null
    return "$result"
}

lay_out
check "the form in Basic brings its pages into view" brings_into_view basic-form/TabRow.bas
check "the form for Office brings its pages into view" brings_into_view office-form/TabForm.bas
drive tabs.vbs vbscript/tabs.vbs
drive tabs.js jscript/tabs.js
drive_page
sum_up
