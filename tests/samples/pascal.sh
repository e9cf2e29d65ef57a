#!/usr/bin/env bash
# Compiles the Pascal sample for 64-bit Windows, with the run-time library from its sources, and lets its form be used.
# Last line: "N passed, N failed".
set -uo pipefail

# shellcheck source=tests/scripts/check.sh
source "$ROOT/tests/scripts/check.sh"

Source=$(echo /usr/share/fpcsrc/*)
Target=$BUILD/tests/samples/free-pascal

explain() { tail -n 20 said; }

# compile UNIT OPTION... — units and programs go to the current folder.
compile() { ppcx64 -Twin64 -n -O1 -Sc -Sg -v0 -Fu. -FU. -FE. "${@:2}" "$1" >said 2>&1; }

# The units that the sample uses; the compiler comes with those of its own system only.
compile_library() {
    local rtl=$Source/rtl packages=$Source/packages
    local -a own=("-Fi$rtl/win64" "-Fi$rtl/win" "-Fi$rtl/inc" "-Fi$rtl/win/wininc" "-Fi$rtl/x86_64" "-Fi$rtl/objpas"
        "-Fi$rtl/objpas/sysutils" "-Fi$rtl/objpas/classes" "-Fu$rtl/win64" "-Fu$rtl/win" "-Fu$rtl/inc" "-Fu$rtl/objpas"
        "-Fu$rtl/x86_64")
    local -a more=("-Fu$packages/winunits-base/src" "-Fu$packages/fcl-registry/src" "-Fi$packages/fcl-registry/src"
        "-Fu$packages/rtl-objpas/src/inc" "-Fu$packages/rtl-objpas/src/win" "-Fi$packages/rtl-objpas/src/inc"
        "-Fi$packages/rtl-objpas/src/common" "-Fi$packages/fcl-base/src" "-Fu$packages/fcl-base/src")
    compile "$rtl/win64/system.pp" -Us "${own[@]}" && compile "$rtl/win64/buildrtl.pp" "${own[@]}" &&
        compile "$packages/winunits-base/src/comobj.pp" "${own[@]}" "${more[@]}"
}

lay_out() {
    mkdir -p "$Target/Skins"
    cp Tabs.exe "$Target/free-pascal.exe"
    cp "$ROOT/samples/plain-window/plain-window.manifest" "$Target/free-pascal.exe.manifest"
    cp "$BUILD/src/ole/VantikFrameTab.ocx" "$BUILD/src/ole/VantikFrameTab.manifest" "$Target"
    cp -r "$ROOT/skins/light" "$Target/Skins"
}

use_form() { wine "$BUILD/tests/samples/samples_tests.exe" '-tc=*FreePascal*' >said 2>&1; }

check "the run-time library compiles" compile_library
check "the sample compiles" compile "$ROOT/samples/free-pascal/Tabs.lpr" "-Fu$ROOT/samples/free-pascal"
check "the sample lies beside the control" lay_out
check "its form does a user's whole job" use_form
sum_up
