#!/usr/bin/env bash
# Registers and unregisters the control of both bitnesses in turn: whatever was done before, the registry holds what it
# would hold had only those that are left been registered. Last line: "N passed, N failed".
set -uo pipefail

# shellcheck source=scripts/lib/setup.sh
source "$ROOT/scripts/lib/setup.sh"

Passed=0 Failed=0

give_up() {
    printf 'FAILED: %s\n%d passed, %d failed\n' "$1" "$Passed" "$((Failed + 1))"
    exit 1
}

# A system of its own: entries that another test left would be taken away with the control's.
rm -f "$WineFolder/registration/ready"
need_prefix registration >/dev/null
wine_environment registration

# The system's programs of both bitnesses, as copies: where they stand, a 32-bit start redirects their paths.
for bits in 32 64; do
    case $bits in
    32) system=syswow64 ;;
    64) system=system32 ;;
    esac
    cp "$WINEPREFIX/drive_c/windows/$system/regsvr32.exe" "register$bits.exe"
    cp "$BuildFolder/win$bits/src/ole/VantikFrameTab.ocx" "VantikFrameTab$bits.ocx"
done

register() { wine "register$1.exe" /s "VantikFrameTab$1.ocx" || give_up "regsvr32 cannot register the $1-bit control"; }

unregister() {
    wine "register$1.exe" /s /u "VantikFrameTab$1.ocx" || give_up "regsvr32 cannot unregister the $1-bit control"
}

# All that is registered in both views, as "key" lines with their values below.
classes() {
    wine regedit /E classes.reg 'HKEY_LOCAL_MACHINE\Software\Classes' || give_up 'regedit cannot export'
    iconv -f UTF-16 -t UTF-8 classes.reg | tr -d '\r'
}

expect_same() {
    if cmp -s "$2" "$3"; then
        ((++Passed))
    else
        ((++Failed))
        printf 'FAILED: %s\n' "$1"
        diff "$2" "$3" | head -n 40
    fi
}

classes >none
for bits in 32 64; do
    register "$bits"
    classes >"only$bits"
    ! cmp -s none "only$bits" || give_up "registering the $bits-bit control enters nothing"
    unregister "$bits"
    classes >now
    expect_same "the $bits-bit control leaves nothing behind" none now
    unregister "$bits" # once more is no error
done

for bits in 32 64; do
    other=$((96 - bits))
    register "$other"
    register "$bits"
    unregister "$bits"
    classes >now
    expect_same "unregistering the $bits-bit control leaves the other's entries as they are" "only$other" now
    unregister "$bits"
    classes >now
    expect_same "and so does unregistering it twice" "only$other" now
    unregister "$other"
    classes >now
    expect_same "after both there is nothing left" none now
done

printf '%d passed, %d failed\n' "$Passed" "$Failed"
((Failed == 0))
