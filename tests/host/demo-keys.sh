#!/usr/bin/env bash
# The demo form used with the keyboard alone, on a screen of its own: reach a tab, switch, fill a page's fields, leave, scroll,
# close, open the menu. What screen readers find tells how far it got; the pictures are for whoever wants to look.
# Prints "N passed, N failed" at the end.
set -uo pipefail

# shellcheck source=tests/scripts/check.sh
source "$ROOT/tests/scripts/check.sh"
# shellcheck source=tests/scripts/screen.sh
source "$ROOT/tests/scripts/screen.sh"

form() { xdotool search --onlyvisible --name '^VantikFrameTab$' 2>/dev/null | tail -1; }
is_open() { [[ -n $(form) ]]; }
open_demo() {
    wine "$BUILD/demos/form/demo.exe" >demo.log 2>&1 &
    wait_until is_open && xdotool windowfocus --sync "$(form)"
}

explain() { cat tree; }
look() { wine "$BUILD/tools/acctree/acctree.exe" VantikFrameTab >tree 2>&1; }
shows() { look && grep -Eq -- "$1" tree; }
lacks() { look && ! grep -Eq -- "$1" tree; }

# after WHAT PATTERN KEY...: in the end the tree has a line like that.
after() {
    local what=$1 pattern=$2
    shift 2
    press "$@"
    check "$what" wait_until shows "$pattern"
}
field_of() { convert "$1.png" -crop 262x24+158+98 +repage "$1-field.png"; }
differ() { [[ $(compare -metric AE "$1" "$2" null: 2>&1) -gt "$3" ]]; }

# The name of the page that shows, and where the focus is.
focused() { printf 'page tab "%s" .*\[selected, focused' "$1"; }

open_screen 1024x768
check "the form opens" open_demo
check "the keyboard is on the first tab" wait_until shows "$(focused Person)"
picture 1-opened
after "an arrow key switches" "$(focused Look)" Right
picture 2-switched
after "and another one switches back" "$(focused Person)" Left

press Tab
xdotool type --delay 40 'Grace Hopper'
press Tab
xdotool type --delay 40 'grace@example.org'
check "Tab leads onto the page" wait_until lacks 'page tab .*focused'
picture 3-filled
field_of 1-opened
field_of 3-filled
check "and the fields take what is typed" differ 1-opened-field.png 3-filled-field.png 50

after "Ctrl+Tab leaves the page for the next tab, and the keyboard with it" "$(focused Look)" ctrl+Tab
after "and back again with the shift key" "$(focused Person)" ctrl+shift+Tab
after "Shift+Tab leaves the control for the form's buttons" 'page tab "Person" \(1 of 40\)' shift+Tab space
check "where the keyboard is now" lacks 'page tab .*focused'
picture 4-left
after "close buttons are switched on there" 'push button "Close Person"' shift+Tab shift+Tab shift+Tab shift+Tab \
    shift+Tab space
after "Tab comes round to the row" "$(focused Person)" Tab Tab Tab Tab Tab Tab
after "Ctrl+Page Down scrolls the row" 'page tab "Person" .*off-screen' ctrl+Next
picture 5-scrolled
after "Ctrl+Page Up scrolls it back" "$(focused Person)" ctrl+Prior
check "the first tab shows" lacks 'page tab "Person" .*off-screen'
after "Ctrl+F4 closes the tab" '\(1 of 39\)' ctrl+F4
check "which is gone" lacks '"Person"'
picture 6-closed
press Menu
sleep 1
picture 7-menu
check "the context menu key opens the menu" differ 6-closed.png 7-menu.png 2000
after "from which a tab is chosen" "$(focused Server)" Down Down Return
picture 8-chosen
after "and the keyboard stays on the row" "$(focused Look)" Left
sum_up
