#!/usr/bin/env bash
# Lets the script client drive the built control: registered, and without registration as the hosting guide tells. Last
# line: "N passed, N failed".
set -uo pipefail

# The system's programs of the control's bitness, as copies: where they stand, a 32-bit start redirects their paths.
case $BUILD in
*win32) System=$WINEPREFIX/drive_c/windows/syswow64 ;;
*) System=$WINEPREFIX/drive_c/windows/system32 ;;
esac
cp "$System/regsvr32.exe" register.exe
cp "$System/cscript.exe" script.exe
Script=$(winepath -w "$ROOT/tests/script/client.vbs")

give_up() {
    printf 'FAILED: %s\n0 passed, 1 failed\n' "$1"
    exit 1
}

# drive WHAT — its counts go to counts.txt, the rest of its words out.
drive() {
    local words
    words=$(wine script.exe //nologo "$Script" 2>errors.txt | tr -d '\r')
    grep -q ' passed, ' <<<"$words" || give_up "the script ended early ($1): $(tr -d '\r' <errors.txt)"
    grep -v ' passed, ' <<<"$words"
    tail -n 1 <<<"$words" >>counts.txt
}

dependency() { sed -n '/^    <dependency>/,/^    <\/dependency>/p' "$ROOT/docs/hosting.md"; }

cp "$BUILD/src/ole/VantikFrameTab.ocx" .
wine register.exe /s VantikFrameTab.ocx || give_up 'regsvr32 cannot register the control'
drive registered
wine register.exe /s /u VantikFrameTab.ocx || give_up 'regsvr32 cannot unregister the control'

wine script.exe //nologo "$Script" 2>/dev/null | grep -q ' passed, ' && give_up 'the control is registered still'
cp "$BUILD/src/ole/VantikFrameTab.manifest" .
printf '%s\n' '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>' \
    '<assembly xmlns="urn:schemas-microsoft-com:asm.v1" manifestVersion="1.0">' \
    "$(dependency)" '</assembly>' >script.exe.manifest
drive 'without registration'

awk '{ passed += $1; failed += $3 } END { printf "%d passed, %d failed\n", passed, failed; exit failed > 0 }' counts.txt
