# shellcheck shell=bash disable=SC2154,SC2034
# Drives skinview with pointer and keys: what its window shows, where its bitmap lies on the screen. BUILD is the build tree.

# shellcheck source=tests/scripts/windows.sh
source "$(dirname "${BASH_SOURCE[0]}")/../../scripts/windows.sh"
Seen=skinview

# Positions of the previews among the texts of the window.
Sides=(top bottom left right)

skinview() { wine "$BUILD/tools/skinview/skinview.exe" "$@" >>skinview.log 2>&1; }

# --- what the window shows

# read_places — Pane (left, top), Zoom, and Preview[side] as a geometry; fails while some of it is not there yet.
declare -A Preview
read_places() {
    local side
    look
    IFS=' ,x' read -r _ _ PaneLeft PaneTop _ < <(grep '^SkinviewBitmap' texts)
    Zoom=$(sed -n 's/.*enlarged \([0-9]*\) times/\1/p' texts)
    local -a forms
    mapfile -t forms < <(sed -nE 's/^VantikHostForm [0-9]+ ([0-9]+),([0-9]+) ([0-9]+x[0-9]+) .*/\3+\1+\2/p' texts)
    [[ -n $PaneTop && -n $Zoom ]] && ((${#forms[@]} == ${#Sides[@]})) || return 1
    for side in "${!Sides[@]}"; do Preview[${Sides[side]}]=${forms[side]}; done
}

# --- the pointer on the enlarged bitmap, at pixels; tenths tell how far into one

screen_x() { echo $((PaneLeft + 24 + $1 * Zoom / 10)); }
screen_y() { echo $((PaneTop + 24 + $1 * Zoom / 10)); }
point_at() { xdotool mousemove "$(screen_x "$1")" "$(screen_y "$2")"; }
point_elsewhere() { xdotool mousemove $((PaneLeft + 3)) $((PaneTop - 12)); }

# drag X Y X2 Y2
drag() {
    local i
    point_at "$1" "$2"
    xdotool mousedown 1
    for i in 1 2 3 4; do
        point_at $(($1 + ($3 - $1) * i / 4)) $(($2 + ($4 - $2) * i / 4))
        sleep 0.1
    done
    xdotool mouseup 1
}
