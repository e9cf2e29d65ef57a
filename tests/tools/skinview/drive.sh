#!/usr/bin/env bash
# skinview used with pointer and keys on a screen of its own. The texts of its window and the pixels on the screen tell what
# happened; the pictures are for whoever wants to look. Prints "N passed, N failed" at the end.
set -uo pipefail

# shellcheck source=tests/scripts/check.sh
source "$ROOT/tests/scripts/check.sh"
# shellcheck source=tests/scripts/screen.sh
source "$ROOT/tests/scripts/screen.sh"
# shellcheck source=tests/tools/skinview/driving.sh
source "$ROOT/tests/tools/skinview/driving.sh"

Light='#E0007A'

explain() { cat texts; }

# after WHAT PATTERN COMMAND...: in the end the window shows a line like that.
after() {
    "${@:3}"
    check "$1" wait_until shows "$2"
}

# --- the pixels of the controls

# pixels_like COLOUR PICTURE [GEOMETRY] — how many are that colour, about.
pixels_like() {
    convert "$2" ${3:+-crop "$3" +repage} -fill black -fuzz 22% +opaque "$1" -fill white -opaque "$1" \
        -format '%[fx:round(mean*w*h)]' info:
}
lit_pixels() { picture now && pixels_like "$Light" now.png "${Preview[$1]}"; }
is_lit() { (($(lit_pixels "$1") > 0)); }
is_dark() { (($(lit_pixels "$1") == 0)); }
# Pixels of a rectangle of the skin's bitmap that are not transparent.
opaque_pixels() { convert skin/skin.bmp -crop "$1" +repage -fill white +opaque '#FF00FF' -fill black -opaque '#FF00FF' -format '%[fx:round(mean*w*h)]' info:; }

control_of() { picture now && convert now.png -crop "${Preview[$1]}" +repage "$2.png"; }
same() { [[ $(compare -metric AE "$1.png" "$2.png" null: 2>&1) == 0 ]]; }
now_same() { control_of top now-top && same now-top "$1"; }
now_differs() { ! now_same "$1"; }

# --- the files

nothing_is_left() { [[ -z $(find "$BUILD/tools/skinview" -maxdepth 1 -name 'skin-*') ]]; }

restore() { cp original/* skin/; }
line_is() { grep -qxF "$1" skin/SKIN.INI; }

open_screen 1400x1000
mkdir skin original
cp "$ROOT"/skins/light/*.* original/
# Comments, an odd order, both kinds of line ends and a byte of no Latin letter: none of it is skinview's business.
{
    printf '// \xb4\xcb mine\r\n'
    sed -e 's/^10: .*/10: 66, 73 ,0,31   \/\/ right end\t/' "$ROOT/skins/light/SKIN.INI"
    printf 'after the end\n'
} >original/SKIN.INI
restore

opening() {
    mkdir "$BUILD/tools/skinview/skin-4294967294" # of a process that is no more
    skinview "$(here skin/SKIN.INI)" &
    check "it opens" wait_until is_there 'SKIN.INI - skinview'
    focus 'SKIN.INI - skinview'
    check "all rectangles are listed" wait_until shows '^- 22.FRightLine'
    check "with their numbers" shows $'^- 10\tRightPic2\t66\t73\t0\t31\t8 x 32$'
    check "there is nothing wrong" wait_until shows 'Faults: none'
    check "the control is there on four sides" wait_until read_places
    point_elsewhere
    sleep 1
    control_of top before
    picture 1-opened
}

lights() {
    local side
    for side in "${Sides[@]}"; do check "no piece is lit at first ($side)" is_dark "$side"; done
    point_at 530 160
    check "a rectangle under the pointer is named" wait_until shows '^Static .* 7 LeftPic2: a bar.s leading end, active'
    for side in "${Sides[@]}"; do check "its piece lights up in the control ($side)" wait_until is_lit "$side"; done
    check "every pixel of it, and nothing else" test "$(lit_pixels top)" = "$(opaque_pixels 8x32+50+0)"
    picture 2-lit
    point_elsewhere
    check "without the pointer the light goes out" wait_until is_dark top
    check "and all is as before" now_same before
    point_at 285 160
    check "the hover look can be lit as well" wait_until is_lit top
    point_elsewhere
    wait_until is_dark top
}

dragging() {
    local side
    drag 739 160 759 160
    check "dragging an edge changes its number" wait_until shows $'^> 10\tRightPic2\t66\t75\t0\t31\t10 x 32$'
    check "the title says so" shows '^title \*SKIN.INI - skinview'
    point_elsewhere
    check "and so does the control" wait_until now_differs before
    picture 3-dragged
    after "undo takes back all of the drag" $'^> 10\tRightPic2\t66\t73' press ctrl+z
    check "the title, too" wait_until shows '^title SKIN.INI'
    check "and the control" wait_until now_same before
    after "redo does it again" $'^> 10\tRightPic2\t66\t75' press ctrl+y
    check "nothing was saved yet" cmp -s skin/SKIN.INI original/SKIN.INI
}

saving() {
    after "saving takes the mark away" '^title SKIN.INI' press ctrl+s
    sed 's/^10: 66, 73 ,/10: 66, 75 ,/' original/SKIN.INI >expected
    check "only that number is another one on disk" cmp skin/SKIN.INI expected
    press ctrl+z
    wait_until shows '^title \*'
    press ctrl+s
    check "saved again after an undo the file is as it was, to the byte" wait_until cmp -s skin/SKIN.INI original/SKIN.INI
    wait_until shows '^title SKIN'
}

keys() {
    point_elsewhere
    press Escape
    after "Tab leads through the rectangles" $'^> 0\tTabRect' press Tab
    after "to the next" $'^> 1\tBRect' press Tab
    after "and on" $'^> 3\tFillPic1' press Tab Tab
    after "and back" $'^> 2\tFillPic0' press shift+Tab
    check "the chosen piece is lit" wait_until is_lit top
    after "an arrow key moves it by a pixel" $'^> 2\tFillPic0\t13\t13\t0\t31' press Right
    after "with Shift its right edge" $'^> 2\tFillPic0\t13\t14\t0\t31' press shift+Right
    after "with Ctrl its upper edge" $'^> 2\tFillPic0\t13\t14\t1\t31' press ctrl+Down
    after "each is a step of its own" $'^> 2\tFillPic0\t13\t14\t0\t31' press ctrl+z
    after "and so they go" $'^> 2\tFillPic0\t12\t12\t0\t31' press ctrl+z ctrl+z
    after "Ctrl+Plus enlarges" "enlarged $((Zoom + 1)) times" press ctrl+equal
    after "Ctrl+0 shows all again" "enlarged $Zoom times" press ctrl+0
    press Escape
}

disk() {
    sed 's/^2: .*/2: 12,12,1,31 \/\/from outside/' original/SKIN.INI >skin/SKIN.INI
    check "a definition that changes on disk is loaded" wait_until shows $'2\tFillPic0\t12\t12\t1\t31'
    check "it is no change of the user's" shows '^title SKIN.INI'
    restore
    wait_until shows $'2\tFillPic0\t12\t12\t0\t31'
    check "and so the control is as before" wait_until now_same before
    convert original/skin.bmp -negate BMP3:skin/skin.bmp
    check "a bitmap that changes on disk is shown" wait_until now_differs before
    restore
    check "and back" wait_until now_same before
}

faults() {
    sed 's/^2: .*/2: 12,x,0,31/' original/SKIN.INI >skin/SKIN.INI
    check "a broken definition shows its fault" wait_until shows $'^- error\tline [0-9]+, column 7\t.*x.*'
    check "the last good picture stays" now_same before
    check "and is said to be that" shows 'Faults: 1 - the controls show the last skin without errors'
    picture 4-broken
    printf 'BM nothing' >skin/skin.bmp
    rm skin/SKIN.INI
    sleep 2
    check "without its files the program is alive" shows 'skinview'
    restore
    check "when they come back all is well" wait_until shows 'Faults: none'
    check "and looks so" wait_until now_same before
}

leaving() {
    drag 739 160 759 160
    wait_until shows '^title \*'
    sed 's/^2: .*/2: 12,12,1,31/' original/SKIN.INI >skin/SKIN.INI
    check "changes on both sides make it ask" wait_until is_there '^skinview$'
    focus '^skinview$'
    press Escape n
    wait_until is_gone '^skinview$'
    check "the user's own stay" shows $'10\tRightPic2\t66\t75'
    focus 'SKIN.INI - skinview'
    press ctrl+s
    check "saving them over the other's asks as well" wait_until is_there '^skinview$'
    focus '^skinview$'
    press n
    wait_until is_gone '^skinview$'
    check "and keeps those if told so" grep -q '^2: 12,12,1,31' skin/SKIN.INI
    focus 'SKIN.INI - skinview'
    xdotool key --delay 60 alt+f x
    check "closing asks, too" wait_until is_there '^skinview$'
    focus '^skinview$'
    press Escape
    wait_until is_gone '^skinview$'
    check "and can be called off" shows '^title \*SKIN.INI'
    focus 'SKIN.INI - skinview'
    press alt+f x
    wait_until is_there '^skinview$'
    focus '^skinview$'
    press n
    check "without saving it closes" wait_until is_gone skinview
    check "and leaves the file alone" grep -q '^2: 12,12,1,31' skin/SKIN.INI
    check "nothing is left beside the program" wait_until nothing_is_left
}

beginning() {
    mkdir new
    skinview --new "$(here new/SKIN.INI)" &
    check "a new skin opens" wait_until is_there 'SKIN.INI - skinview'
    focus 'SKIN.INI - skinview'
    check "without faults" wait_until shows 'Faults: none'
    check "with its files" test -s new/SKIN.INI -a -s new/skin.bmp -a -s new/menu.png -a -s new/SETTINGS.TXT
    check "shown on four sides" wait_until read_places
    point_elsewhere
    sleep 1
    picture 5-new
    press alt+F4
    wait_until is_gone skinview
    skinview --new "$(here new/SKIN.INI)" &
    check "a second one in the same place is refused" wait_until is_there '^skinview$'
    look
    check "because files are there" grep -q 'is there already' texts
    focus '^skinview$'
    press Return
    wait_until is_gone '^skinview$'
    press alt+F4
    check "it ends, too" wait_until nothing_is_left
}

opening
lights
dragging
saving
keys
disk
faults
leaving
beginning
sum_up
