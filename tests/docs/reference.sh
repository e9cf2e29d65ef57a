#!/usr/bin/env bash
# Runs the examples of the reference, the statements that it says raise errors, and the first programs. Last line: "N
# passed, N failed".
set -uo pipefail

# shellcheck source=tests/script/programs.sh
source "$ROOT/tests/script/programs.sh"

take_program cscript.exe script.exe
cp "$BUILD/src/ole/VantikFrameTab.ocx" .
use_unregistered script.exe
mkdir Skins && cp -r "$ROOT/skins/light" "$ROOT/skins/dark" Skins
"$ROOT/tests/docs/reference_script.py" >examples.vbs || give_up 'the examples cannot be read'
wine script.exe //nologo examples.vbs 2>errors.txt | tr -d '\r' | tee words.txt
grep -q ' passed, ' words.txt || give_up "the script ended early: $(tr -d '\r' <errors.txt)"
! grep -q '^FAILED' words.txt
