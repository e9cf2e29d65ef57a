# shellcheck shell=bash
# Free Pascal for 64-bit Windows. The compiler comes with the units of its own system only.

Source=$(echo /usr/share/fpcsrc/*)

# compile UNIT OPTION... — units and programs go to the current folder.
compile() { ppcx64 -Twin64 -n -O1 -Sc -Sg -v0 -Fu. -FU. -FE. "${@:2}" "$1" >said 2>&1; }

# The units that programs here use, from their sources.
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
