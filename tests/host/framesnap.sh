#!/usr/bin/env bash
# What the command line of framesnap does, one check a line. Prints "N passed, N failed" at the end.
set -uo pipefail

# shellcheck source=tests/scripts/check.sh
source "$ROOT/tests/scripts/check.sh"

Output=
Errors=
Status=0

snap() {
    Output=$(wine "$BUILD/tools/framesnap/framesnap.exe" "$@" 2>errors.txt | tr -d '\r')
    Status=${PIPESTATUS[0]}
    Errors=$(tr -d '\r' <errors.txt)
}

explain() { printf '  exit %s\n  output: %s\n  errors: %s\n' "$Status" "$Output" "$Errors"; }

refused() { [[ $Status == 2 && -z $Output && $Errors == "framesnap: $1"* && ! -e never.png ]]; }
failed() { [[ $Status == 1 && $Errors == "framesnap: "*"$1"* ]]; }
prints() { [[ $Status == 0 && $Output == "$1" ]]; }
lines() { printf '%s\n' "$@"; }

size_of() { identify -format '%wx%h' "$1" 2>/dev/null; }
colours_of() { identify -format '%k' "$1" 2>/dev/null; }
is_picture() { [[ -s $1 && $(size_of "$1") == "$2" && $(colours_of "$1") -ge 3 ]]; }
differ() { [[ -s $1 && -s $2 && $(compare -metric AE "$1" "$2" null: 2>&1) != 0 ]]; }
same() { [[ -s $1 && -s $2 && $(compare -metric AE "$1" "$2" null: 2>&1) == 0 ]]; }

Tabs=(--size 400x200 --set BarWidth=60 --set TabCount=4 --set ActiveTab=0 --set DelButton=False)

refusals() {
    snap --frame 3 --out never.png
    check "an unknown option is refused" refused "unknown option '--frame'"
    snap --set TabCount=2 --set Colour=3 --out never.png
    check "an unknown property is refused before anything happens" refused "the control has no property 'Colour'"
    snap --do "Explode 1" --out never.png
    check "an unknown method is refused" refused "the control has no member 'Explode'"
    snap --do "RemoveTab 1 2" --out never.png
    check "too many arguments are refused" refused "'RemoveTab' takes 1 argument, not 2"
    snap --do "BarWidth 3" --out never.png
    check "a property takes no arguments" refused "'BarWidth' takes no arguments, not 1"
    snap --do SetBarCaption --out never.png
    check "too few arguments are refused" refused "'SetBarCaption' takes 1 to 3 arguments, not 0"
    snap --do "RemoveTab first" --out never.png
    check "text for a number is refused" refused \
        "--do RemoveTab: 'first' is no value for it; expected a whole number, -32768 to 32767"
    snap --set BarWidth=40000 --out never.png
    check "a number that does not fit is refused" refused "--set BarWidth: '40000' is no value for it; expected a whole"
    snap --set DelButton=maybe --out never.png
    check "what is no flag is refused" refused "--set DelButton: 'maybe' is no value for it; expected True or False"
    snap --set CaptionColor0=#12 --out never.png
    check "half a colour is refused" refused "--set CaptionColor0: '#12' is no value for it; expected a whole number, a colour"
    snap --set "Font=DejaVu Sans,10,fat" --out never.png
    check "an unknown style of a font is refused" refused "--set Font: 'DejaVu Sans,10,fat' is no value for it; expected NAME"
    snap --set Picture=nowhere.bmp --out never.png
    check "a picture that is not there is refused" refused "--set Picture: 'nowhere.bmp' is no value for it; expected a picture"
    snap --set RemoveTab=1 --out never.png
    check "a method is not set" refused "'RemoveTab' cannot be set"
    snap --set TabPos=WindowMiddle --out never.png
    check "an unknown constant is refused" refused "--set TabPos: 'WindowMiddle' is no value for it"
    snap --set TabCount --out never.png
    check "a setting without a value is refused" refused "--set TabCount: expected Name=Value"
    snap --size 300 --out never.png
    check "half a size is refused" refused "--size 300: expected WIDTHxHEIGHT in pixels"
    snap --pointer 3 --out never.png
    check "half a point is refused" refused "--pointer 3: expected X,Y in pixels"
    snap --key 300 --out never.png
    check "a key that is none is refused" refused "--key 300: expected the number of a key"
    snap --wheel up --out never.png
    check "a wheel that turns by no number is refused" refused "--wheel up: expected a number of notches"
    snap --do "SetBarCaption 0 'Home" --out never.png
    check "an open quotation mark is refused" refused "--do SetBarCaption 0 'Home: a quotation mark is not closed"
    snap @nowhere.txt
    check "a file of arguments that is not there is refused" refused "cannot read nowhere.txt"
    snap --out
    check "an option without its value is refused" refused "--out needs a value"
    snap --save --out never.png
    check "an option is no other option's value" refused "--save needs a value"
    snap --settings nowhere.txt --out never.png
    check "settings that are not there are refused" refused "--settings: cannot read nowhere.txt"
    printf 'BarWidth = 60\nTabBorder\n' >half.txt
    snap --settings half.txt --out never.png
    check "settings with half a line are refused" refused "--settings: half.txt, line 2: expected Property = Value"
    printf 'BarWidth = wide\n' >wide.txt
    snap --settings wide.txt --out never.png
    check "settings with a value that is none are refused" refused "--set BarWidth: 'wide' is no value for it"
    snap --set TabCount=2 --out picture.jpg
    check "a picture of another kind is refused" refused "--out picture.jpg: expected a file name that ends with .png"
    snap --do '' --out never.png
    check "doing nothing is refused" refused '--do "": expected a member and its arguments'
    snap --set TabCount=2 never.png
    check "a file without its option is refused" refused "unknown option 'never.png'"
    snap
    check "an empty command line is refused" refused "there is nothing to do"
}

failures() {
    snap --control nowhere.ocx --do TabCount
    check "a control that is not there fails" failed "cannot load"
    snap --load nowhere.txt --do TabCount
    check "a property file that is not there fails" failed "cannot read"
    printf 'TabCount = many\n' >bad.txt
    snap --load bad.txt --do TabCount
    check "a property file that is none fails with its line" failed "bad.txt, line 1: 'many' is no value"
    snap --set TabCount=2 --out nowhere/a.png
    check "a picture that cannot be written fails" failed "cannot write nowhere/a.png"
}

members() {
    snap --do TabCount --set TabCount=2 --do tabcount
    check "steps are carried out in their order" prints "$(lines 'TabCount = 0' 'TabCount = 2')"
    snap "${Tabs[@]}" --do "InsertTab 0 'Home page'" --do "GetTabCaption 1" --do TabCount
    check "a method is called with quoted arguments" prints "$(lines 'GetTabCaption = "Home page"' 'TabCount = 5')"
    snap --set TabPos=WindowLeft --do TabPos --set "CaptionColor0=#FF8000" --do CaptionColor0
    check "constants and colours have names" prints "$(lines 'TabPos = 0' 'CaptionColor0 = 33023')"
    printf '%s\n' --set DefaultCaption=页 --set TabCount=2 --do 'GetTabCaption 1' >steps.txt
    snap @steps.txt --do TabCount
    check "arguments come from a file, too" prints "$(lines 'GetTabCaption = "页1"' 'TabCount = 2')"
    snap --set TabCount=2 --do "GetTabEnable 0" --do "SetBarEnable 0 False" --do "GetTabEnable 0"
    check "flags are words" prints "$(lines 'GetTabEnable = True' 'GetTabEnable = False')"
    printf '// a skin\r\n\r\nBarWidth = 132\r\nTabToTab = -17\r\nCaptionColor0 = #FF8000\r\n' >settings.txt
    snap --set BarWidth=60 --settings settings.txt --do BarWidth --do TabToTab --do CaptionColor0
    check "settings come from a file" prints "$(lines 'BarWidth = 132' 'TabToTab = -17' 'CaptionColor0 = 33023')"
    snap --settings settings.txt --set BarWidth=60 --do BarWidth
    check "and are steps like others" prints 'BarWidth = 60'
    snap --set SkinFile=nowhere.ini --do SkinFile
    check "a message box is printed and closed" test "$Status" = 0 -a "${Output#message: }" != "$Output" \
        -a "${Output##*$'\n'}" = 'SkinFile = "skin.ini"'
    snap --do About --do TabCount
    check "a modal window is printed and closed" test "$Status" = 0 -a "${Output#window: }" != "$Output" \
        -a "${Output##*$'\n'}" = 'TabCount = 0'
}

events() {
    snap "${Tabs[@]}" --pointer 90,10 --pointer 92,10 --pointer 150,10
    check "the pointer hovers" prints "$(lines 'TabMove(Index=1)' 'TabMove(Index=2)')"
    snap "${Tabs[@]}" --press 90,10 --do ActiveTab
    check "a press switches" prints "$(lines 'TabMove(Index=1)' 'TabDown(Index=1, Button=1)' 'ActiveTab = 1')"
    snap "${Tabs[@]}" --key 39 --key 37 --key 65
    check "arrow keys switch, others do nothing" \
        prints "$(lines 'TabDown(Index=1, Button=0)' 'TabDown(Index=0, Button=0)')"
    snap "${Tabs[@]}" --save wheel.txt --load wheel.txt --wheel 1 --wheel 1 --wheel -1
    check "the wheel switches" \
        prints "$(lines 'TabDown(Index=1, Button=0)' 'TabDown(Index=2, Button=0)' 'TabDown(Index=1, Button=0)')"
    snap --design --load wheel.txt --wheel 1
    check "the wheel does nothing while the form is designed" prints ''
}

pictures() {
    snap "${Tabs[@]}" --out first.png --set ActiveTab=2 --out second.png --set ActiveTab=0 --out third.png
    check "a picture has the control's size and something on it" is_picture first.png 400x200
    check "a picture shows its moment" differ first.png second.png
    check "the same state gives the same picture" same first.png third.png
    local side round tour=()
    for round in 1 2 3; do
        for side in WindowLeft WindowBottom WindowRight Windowtop; do
            tour+=(--set "TabPos=$side" --out "$side-$round.png")
        done
    done
    snap "${Tabs[@]}" "${tour[@]}"
    for side in WindowLeft WindowBottom WindowRight Windowtop; do
        check "$side looks the same each time" same "$side-1.png" "$side-3.png"
    done
    snap "${Tabs[@]}" --size 300x120 --out small.png
    check "a later size counts from there on" is_picture small.png 300x120
    snap --design "${Tabs[@]}" --out design.png
    check "a designed form marks the tab under design" differ first.png design.png
    convert first.png -draw 'rectangle 6,0 65,21' first-rest.png
    convert design.png -draw 'rectangle 6,0 65,21' design-rest.png
    check "and shows the same outside that bar" same first-rest.png design-rest.png
    snap "${Tabs[@]}" --set "Font=DejaVu Sans,14,bold" --out font.png
    check "a font can be set" differ first.png font.png
    convert -size 40x30 gradient:red-blue photo.bmp
    snap "${Tabs[@]}" --set Picture=photo.bmp --set TabPos=Windowtop --out photo.png
    check "a picture can be set" differ first.png photo.png
}

persistence() {
    snap "${Tabs[@]}" --set "DefaultCaption=页" --set "Font=DejaVu Sans,10,italic" --save one.txt
    check "the properties are saved as text" grep -q '^DefaultCaption = "页"$' one.txt
    check "what equals its default is not" test "$(grep -c SkinFile one.txt)" = 0
    snap --load one.txt --save two.txt --do "GetTabCaption 3"
    check "saved properties come back" prints 'GetTabCaption = "页3"'
    check "and are saved as they were" cmp -s one.txt two.txt
}

snap --help
check "there is help" test "$Status" = 0 -a "${Output#usage: framesnap}" != "$Output"
Help=$Output
snap -h
check "by its short name, too" prints "$Help"
refusals
failures
members
events
pictures
persistence
sum_up
