#!/usr/bin/env bash
# What the command line of skinpreview does, one check a line. Prints "N passed, N failed" at the end.
set -uo pipefail

# shellcheck source=tests/scripts/check.sh
source "$ROOT/tests/scripts/check.sh"

Output=
Errors=
Status=0
Skin=$ROOT/skins/light/SKIN.INI

preview() {
    rm -f sheet.png
    Output=$(wine "$BUILD/tools/skinpreview/skinpreview.exe" "$@" 2>errors.txt | tr -d '\r')
    Status=${PIPESTATUS[0]}
    Errors=$(tr -d '\r' <errors.txt)
}

explain() { printf '  exit %s\n  output: %s\n  errors: %s\n' "$Status" "$Output" "$Errors"; }

wrote() { [[ $Status == 0 && -z $Output$Errors && $(identify -format '%m %wx%h %k' "$1") =~ ^PNG\ [0-9]{4}x[0-9]{3,4}\ [0-9]{3,}$ ]]; }
failed() { [[ $Status == 1 && -z $Output && $Errors == "skinpreview: "*"$1"* && ! -e sheet.png ]]; }
refused() { [[ $Status == 2 && -z $Output && $Errors == "usage: skinpreview "* && ! -e sheet.png ]]; }
helped() { [[ $Status == 0 && $Output == "usage: skinpreview "* && -z $Errors ]]; }

# changed FOLDER SED-COMMAND
changed() {
    cp -r "$ROOT/skins/light" "$1"
    sed -i "$2" "$1/SKIN.INI"
}

pictures() {
    preview sheet.png "$Skin"
    check "a shipped skin" wrote sheet.png
    cp -r "$ROOT/resources/skin" 'two words ü'
    preview 'two words ü.png' 'two words ü/skin.ini'
    check "a skin without settings, in a folder with a blank and a letter beyond ASCII" wrote 'two words ü.png'
}

failures() {
    changed faulty 's/^5: .*/5: 1,2,3/'
    preview sheet.png faulty/SKIN.INI
    check "a definition that the control refuses" failed "is too short"
    changed unnamed '/^File:/d'
    preview sheet.png unnamed/SKIN.INI
    check "a definition without a bitmap" failed "no bitmap"
    changed unpainted 's/^File:.*/File: SETTINGS.TXT/'
    preview sheet.png unpainted/SKIN.INI
    check "a bitmap that is no picture" failed "is no picture"
    preview sheet.png missing/SKIN.INI
    check "a missing definition" failed "cannot read"
    preview nowhere/sheet.png "$Skin"
    check "a place that cannot be written" failed "cannot write"
}

refusals() {
    preview --help
    check "help" helped
    preview
    check "no argument" refused
    preview sheet.png
    check "no skin" refused
    preview sheet.bmp "$Skin"
    check "a name that is none of a PNG file" refused
    preview sheet.png "$Skin" "$Skin"
    check "too much" refused
    preview --bogus "$Skin"
    check "an unknown option" refused
}

pictures
failures
refusals
sum_up
