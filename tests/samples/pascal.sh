#!/usr/bin/env bash
# Compiles the Pascal sample for 64-bit Windows, with the run-time library from its sources, and lets its form be used.
# Last line: "N passed, N failed".
set -uo pipefail

# shellcheck source=tests/scripts/check.sh
source "$ROOT/tests/scripts/check.sh"
# shellcheck source=tests/samples/pascal-compiler.sh
source "$ROOT/tests/samples/pascal-compiler.sh"

Target=$BUILD/tests/samples/free-pascal

explain() { tail -n 20 said; }

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
