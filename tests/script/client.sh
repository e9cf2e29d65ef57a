#!/usr/bin/env bash
# Lets the script client drive the built control: registered, and without registration as the hosting guide tells. Last
# line: "N passed, N failed".
set -uo pipefail

# shellcheck source=tests/script/programs.sh
source "$ROOT/tests/script/programs.sh"

take_program regsvr32.exe register.exe
take_program cscript.exe script.exe
Script=$(winepath -w "$ROOT/tests/script/client.vbs")

# drive WHAT — its counts go to counts.txt, the rest of its words out.
drive() {
    local words
    words=$(wine script.exe //nologo "$Script" 2>errors.txt | tr -d '\r')
    grep -q ' passed, ' <<<"$words" || give_up "the script ended early ($1): $(tr -d '\r' <errors.txt)"
    grep -v ' passed, ' <<<"$words"
    tail -n 1 <<<"$words" >>counts.txt
}

cp "$BUILD/src/ole/VantikFrameTab.ocx" .
wine register.exe /s VantikFrameTab.ocx || give_up 'regsvr32 cannot register the control'
drive registered
wine register.exe /s /u VantikFrameTab.ocx || give_up 'regsvr32 cannot unregister the control'

wine script.exe //nologo "$Script" 2>/dev/null | grep -q ' passed, ' && give_up 'the control is registered still'
use_unregistered script.exe
drive 'without registration'

awk '{ passed += $1; failed += $3 } END { printf "%d passed, %d failed\n", passed, failed; exit failed > 0 }' counts.txt
