# shellcheck shell=bash
# What the suites share that run scripts against the built control: the system's programs of the control's bitness, and
# the use of the control without registration. As copies: where they stand, a 32-bit start redirects their paths.

case $BUILD in
*win32) System=$WINEPREFIX/drive_c/windows/syswow64 ;;
*) System=$WINEPREFIX/drive_c/windows/system32 ;;
esac

give_up() {
    printf 'FAILED: %s\n0 passed, 1 failed\n' "$1"
    exit 1
}

# take_program NAME COPY
take_program() { cp "$System/$1" "$2"; }

# use_unregistered PROGRAM — as the hosting guide tells: the manifest of a program that has none of its own.
use_unregistered() {
    cp "$BUILD/src/ole/VantikFrameTab.manifest" .
    printf '%s\n' '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>' \
        '<assembly xmlns="urn:schemas-microsoft-com:asm.v1" manifestVersion="1.0">' \
        "$(sed -n '/^    <dependency>/,/^    <\/dependency>/p' "$ROOT/docs/hosting.md")" '</assembly>' >"$1.manifest"
}
