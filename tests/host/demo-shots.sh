#!/usr/bin/env bash
# The demo form takes its pictures: each arrangement is there, shows something, and shows its own side.
# Prints "N passed, N failed" at the end.
set -uo pipefail

# shellcheck source=tests/scripts/check.sh
source "$ROOT/tests/scripts/check.sh"

demo() { wine "$BUILD/demos/form/demo.exe" "$@" >output.txt 2>&1; }

# Strips of the form just inside the four edges of the control, where the bars of that side are.
declare -A Strip=([top]=560x22+60+12 [bottom]=560x22+60+586 [left]=22x440+12+60 [right]=22x440+726+60)

shows_something() { [[ $(identify -format '%k' "$1" 2>/dev/null || echo 0) -ge 8 ]]; }
differ() { [[ -s $1 && -s $2 && $(compare -metric AE "$1" "$2" null: 2>&1) -gt 100 ]]; }
same() { [[ -s $1 && -s $2 && $(compare -metric AE "$1" "$2" null: 2>&1) == 0 ]]; }

# The same control, whatever the options beside it show.
same_control() {
    convert "$1" -crop 736x596+12+12 +repage a.png
    convert "$2" -crop 736x596+12+12 +repage b.png
    same a.png b.png
}

# The first bars of a row that stands at its start, and as far behind that as the custom one.
declare -A Row=([top]=400x22+18+12 [bottom]=400x22+18+586 [left]=22x400+12+18 [right]=22x400+726+18)
declare -A LaterRow=([top]=400x22+78+12 [bottom]=400x22+78+586 [left]=22x400+12+78 [right]=22x400+726+78)

same_row() {
    convert "$3" -crop "$1" +repage a.png
    convert "$4" -crop "$2" +repage b.png
    shows_something a.png && same a.png b.png
}

# How many pixels of the strip differ from its own most frequent colour: captions and edges, or nothing.
detail_of() {
    local all most
    all=$(convert "$1" -crop "${Strip[$2]}" +repage -format '%[fx:w*h]' info:)
    most=$(convert "$1" -crop "${Strip[$2]}" +repage -format '%c' histogram:info: | sort -rn | head -1 | cut -d: -f1)
    echo $((all - most))
}

bars_stand_on() {
    local other most=0
    for other in top bottom left right; do
        [[ $other == "$2" ]] || (($(detail_of "$1" "$other") <= most)) || most=$(detail_of "$1" "$other")
    done
    (($(detail_of "$1" "$2") > most))
}

mkdir shots
demo --shot shots
check "the demo ends well" test $? = 0
for side in top bottom left right; do
    for placement in start end middle custom; do
        for border in shared edged; do
            picture=shots/$side-$placement-$border.png
            check "$picture shows something" shows_something "$picture"
        done
        check "the border modes of $side-$placement differ" differ "shots/$side-$placement-shared.png" "$picture"
    done
    check "the bars of $side-start stand there" bars_stand_on "shots/$side-start-shared.png" "$side"
    for placement in end middle; do
        check "$side-$placement differs from the start" differ "shots/$side-start-shared.png" \
            "shots/$side-$placement-shared.png"
    done
    check "$side-custom stands 60 pixels behind the start" same_row "${Row[$side]}" "${LaterRow[$side]}" \
        "shots/$side-start-edged.png" "shots/$side-custom-edged.png"
    check "$side shows icons and close buttons" differ "shots/$side-start-shared.png" "shots/looks-$side.png"
    check "$side shows many tabs" differ "shots/looks-$side.png" "shots/many-$side.png"
done
check "the sides differ" differ shots/top-start-shared.png shots/bottom-start-shared.png

for skin in "$ROOT"/skins/*/; do
    picture=shots/skin-$(basename "$skin").png
    check "$picture shows something" shows_something "$picture"
    check "$picture is not the built-in skin" differ shots/looks-top.png "$picture"
done
check "every skin is among the choices, and no other" test "$(ls shots/skin-*.png | wc -l)" = "$(ls -d "$ROOT"/skins/*/ | wc -l)"
check "the page is dark with the dark skin" test "$(convert shots/skin-dark.png -format '%[fx:p{300,300}.r<0.2]' info:)" = 1
check "and so is the form around it, with white labels" test \
    "$(convert shots/skin-dark.png -crop 80x24+760+8 +repage -format '%[fx:minima<0.2&&maxima>0.9]' info:)" = 1
check "the built-in skin comes back as it was" same_control shots/looks-top.png shots/back.png

check "the user's ways to a disabled tab end where they began" same_control shots/disabled-before.png \
    shots/disabled-after.png
check "and displace no page" same_control shots/disabled-beyond-before.png shots/disabled-beyond-after.png
check "which differs from the one before" differ shots/disabled-before.png shots/disabled-beyond-before.png

demo --shot
check "a folder must be named" test $? = 2
demo --picture shots
check "an unknown option is refused" test $? = 2
sum_up
