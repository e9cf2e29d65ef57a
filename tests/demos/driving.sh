# shellcheck shell=bash disable=SC2154
# Drives the form designer with pointer and keys: where its control and its children stand, and what is painted there.

# shellcheck source=tests/scripts/windows.sh
source "$(dirname "${BASH_SOURCE[0]}")/../scripts/windows.sh"

design() { wine "$BUILD/demos/form/demo.exe" --design "$@" >>design.log 2>&1; }

# --- what a window shows

Seen=' - design'

# place_of TEXT — left, top, width and height on the screen of the child or the tool with that text.
place_of() { sed -nE "s/^[A-Za-z]+ (1[0-9]{3}|40[0-9]) (-?[0-9]+),(-?[0-9]+) ([0-9]+)x([0-9]+) $1\$/\2 \3 \4 \5/p" texts; }

# Sets Left, Top, Right and Bottom of the control.
find_control() {
    look && read -r Left Top Right Bottom < <(sed -nE 's/^VantikFrameTab 0 ([0-9]+),([0-9]+) ([0-9]+)x([0-9]+) .*/\1 \2 \3 \4/p' texts)
    [[ -n ${Bottom:-} ]] && Right=$((Left + Right)) Bottom=$((Top + Bottom))
}

# stands TEXT X Y WIDTH HEIGHT — the client area of a child, its edges left out, relative to the control.
stands() {
    local x y width height edge=0
    look
    read -r x y width height < <(place_of "$1") || return 1
    ! grep -Eq "^Edit 1[0-9]{3} .* $1\$" texts || edge=2
    [[ $((x - Left - edge)),$((y - Top - edge)),$((width + 2 * edge)),$((height + 2 * edge)) == "$2,$3,$4,$5" ]]
}
is_on_page() {
    local x
    look
    read -r x _ < <(place_of "$1") && ((x >= Left && x < Right))
}
is_off_page() {
    local x
    look
    read -r x _ < <(place_of "$1") && ((x >= Right || x < Left))
}

# --- pointer, relative to the control

point_at() { xdotool mousemove $((Left + $1)) $((Top + $2)); }
click() { point_at "$1" "$2" && xdotool click 1; }
drag() {
    local i
    point_at "$1" "$2"
    xdotool mousedown 1
    for i in 1 2 3; do point_at $(($1 + ($3 - $1) * i / 3)) $(($2 + ($4 - $2) * i / 3)); done
    xdotool mouseup 1
}
BarWidth=132
press_bar() { click $((6 + BarWidth * $1 + BarWidth / 2)) 16; }
take_tool() {
    local x y
    look
    read -r x y _ < <(place_of "$1") && xdotool mousemove $((x + 20)) $((y + 10)) click 1
}

# --- pixels of the page, relative to the control; what has one colour is empty

colours_at() { convert "$1.png" -crop "$2x$3+$((Left + $4))+$((Top + $5))" +repage -format %k info:; }
is_empty() { picture now && (($(colours_at now "$@") == 1)); }
is_drawn() { picture now && (($(colours_at now "$@") > 1)); }
