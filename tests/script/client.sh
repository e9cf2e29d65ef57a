#!/usr/bin/env bash
# Registers the built control, lets the script client drive it, and unregisters it. Last line: "N passed, N failed".
set -uo pipefail

# The system's programs of the control's bitness, as copies: where they stand, a 32-bit start redirects their paths.
case $BUILD in
*win32) System=$WINEPREFIX/drive_c/windows/syswow64 ;;
*) System=$WINEPREFIX/drive_c/windows/system32 ;;
esac
cp "$System/regsvr32.exe" register.exe
cp "$System/cscript.exe" script.exe

give_up() {
    printf 'FAILED: %s\n0 passed, 1 failed\n' "$1"
    exit 1
}

cp "$BUILD/src/ole/VantikFrameTab.ocx" .
wine register.exe /s VantikFrameTab.ocx || give_up 'regsvr32 cannot register the control'
wine script.exe //nologo "$(winepath -w "$ROOT/tests/script/client.vbs")" 2>errors.txt | tr -d '\r' | tee output.txt
wine register.exe /s /u VantikFrameTab.ocx || give_up 'regsvr32 cannot unregister the control'
grep -q ' passed, ' output.txt || give_up "the script ended early: $(tr -d '\r' <errors.txt)"
