#!/usr/bin/env bash
# The listings of docs/getting-started.md, each compiled and run as it stands there, on a form like those of the page:
# what the control then shows is the page's picture, pixel by pixel. Last line: "N passed, N failed".
#
# Visual C++ is not here: Clang knows its properties and compiles the listing as it is, with a file in place of what
# #import makes. VBScript is as much as there is of Basic here. Free Pascal makes 64-bit programs only.
set -uo pipefail

# shellcheck source=docs/pictures.sh
source "$ROOT/docs/pictures.sh"
# shellcheck source=tests/scripts/check.sh
source "$ROOT/tests/scripts/check.sh"
# shellcheck source=tests/scripts/screen.sh
source "$ROOT/tests/scripts/screen.sh"
# shellcheck source=tests/samples/pascal-compiler.sh
source "$ROOT/tests/samples/pascal-compiler.sh"

Prefix=listings-$(basename "$BUILD")
Forms=$ROOT/tests/docs/forms
case $BUILD in
*win32) Target=i686 ;;
*) Target=x86_64 ;;
esac

explain() { tail -n 20 said; }

# The letters of the pictures are smooth.
set_up_wine() {
    need_smooth_prefix "$Prefix" display
    wine_environment "$Prefix"
}

# A program's folder as the page tells to make it, but for the registration.
lay_out() {
    mkdir Skins
    cp -r "$ROOT/skins/light" "$ROOT/skins/dark" Skins
    cp "$BUILD/src/ole/VantikFrameTab.ocx" "$BUILD/src/ole/VantikFrameTab.manifest" "$BUILD/tests/docs/basic_form.exe" .
    cp "$WINEPREFIX/drive_c/windows/$(system_folder)/cscript.exe" script.exe
    for program in atl_form plain_form pascal_form script; do
        cp "$ROOT/samples/plain-window/plain-window.manifest" "$program.exe.manifest"
    done
}

system_folder() { [[ $Target == i686 ]] && echo syswow64 || echo system32; }

# The folders of the cross compiler's headers but for its own, as options.
headers() {
    "$Target-w64-mingw32-g++" -E -v -x c++ /dev/null 2>&1 | sed -n '/^#include </,/^End/p' | grep '^ ' |
        grep -vE '/gcc/[^/]+/[^/]+/include(-fixed)?$' | sed 's/^ /-isystem/'
}

# compile_cpp FORM SAMPLE HOST — the form, with the file of the sample that is the host for the control.
compile_cpp() {
    local -a found
    mapfile -t found < <(headers)
    for source in "$Forms/$1.cpp" "$ROOT/samples/$2/$3.cpp"; do
        clang++ "--target=$Target-w64-windows-gnu" -std=c++20 -fms-extensions -Wno-deprecated -Wno-extra-tokens -DUNICODE \
            -nostdinc++ "${found[@]}" -Iimport "-I$BUILD/idl/include" "-I$ROOT/samples/$2" -c "$source" >said 2>&1 || return
    done
    "$Target-w64-mingw32-g++" -static "$1.o" "$3.o" "$BUILD/idl/libinterfaces.a" -lole32 -loleaut32 -luuid -lcomctl32 \
        -o "$1.exe" >said 2>&1
}

compile_pascal() { compile_library && compile "$Forms/atl_form.lpr" "-Fu$ROOT/samples/free-pascal" -Fi. -opascal_form.exe; }

# shows PICTURE NAME
shows() {
    local window
    window=$(xdotool search --onlyvisible --name '^Listing$' 2>/dev/null | tail -1)
    [[ -n $window ]] && import -window "$window" "$2.png" 2>/dev/null &&
        [[ $(compare -metric AE "$2.png" "$Images/$1.png" "$2-difference.png" 2>&1) == 0 ]]
}

# gives PICTURE NAME PROGRAM ARGUMENT...
gives() {
    local form result
    wine "${@:3}" >said 2>&1 &
    form=$!
    wait_until shows "$1" "$2"
    result=$?
    kill "$form"
    wait "$form" 2>>said
    wait_until no_form
    return "$result"
}

no_form() { [[ -z $(xdotool search --onlyvisible --name '^Listing$' 2>/dev/null) ]]; }

drive_script() { wine script.exe //nologo tabs.vbs 2>&1 | tr -d '\r' >said && grep -qxF 'General 3' said; }

set_up_wine >said 2>&1
lay_out
"$ROOT/tests/docs/write_listings.py" .
open_screen 1024x768
trap 'stop_wine "$Prefix"; kill "$Screen"' EXIT
check "the listing in C++ compiles" compile_cpp atl_form atl-window AtlHost
check "the listing in C++ gives its picture" gives start-light cpp atl_form.exe
check "the listing in C++ compiles with the sample's container" compile_cpp plain_form plain-window TabSite
check "and gives its picture there" gives start-light plain plain_form.exe
if [[ $Target == x86_64 ]]; then
    check "the listing in Pascal compiles" compile_pascal
    check "the listing in Pascal gives its picture" gives start-light pascal pascal_form.exe
fi
check "the program of README gives its picture" gives start-light readme basic_form.exe 600 220 start-light-readme.vbs
check "the program for Office gives its picture" gives start-light office basic_form.exe 600 220 start-light-office.vbs
for picture in start-light start-built-in; do
    check "the program of $picture gives its picture" gives "$picture" "$picture" basic_form.exe 600 220 "$picture.vbs"
done
check "the tabs on the left give their picture" gives start-dark start-dark basic_form.exe 300 580 start-dark.vbs
check "the script says what the page says" drive_script
sum_up
