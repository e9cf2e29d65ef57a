# shellcheck shell=bash
# What the scripts that take the pictures of these documents share.

# shellcheck source=scripts/lib/setup.sh
source "$(dirname "${BASH_SOURCE[0]}")/../scripts/lib/setup.sh"

Preset=win32
Images=$Root/docs/img

# In the locale WineLocale, if that is set.
program() { env LC_ALL="${WineLocale:-$LC_ALL}" wine "$BuildFolder/$Preset/$1.exe" "${@:2}"; }

# By way of a file: a command line could hold neither all of it nor every language.
snap() {
    printf '%s\n' "$@" >arguments.txt
    program tools/framesnap/framesnap @arguments.txt >/dev/null
}

# need_smooth_prefix NAME [SCREEN] — one whose letters are smooth, as users see them. In small sizes Liberation's never are.
need_smooth_prefix() {
    need_prefix "$@"
    smooth_text "$1" >/dev/null
    stop_wine "$1"
}

smooth_text() (
    wine_environment "$1"
    registry add 'HKCU\Control Panel\Desktop' /v FontSmoothing /t REG_SZ /d 2 &&
        registry add 'HKCU\Control Panel\Desktop' /v FontSmoothingType /t REG_DWORD /d 1 &&
        registry add 'HKCU\Control Panel\Desktop' /v FontSmoothingOrientation /t REG_DWORD /d 1 &&
        registry add 'HKCU\Software\Wine\Fonts\Replacements' /v 'Segoe UI' /d 'DejaVu Sans Condensed'
)
