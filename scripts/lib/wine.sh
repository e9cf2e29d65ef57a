# shellcheck shell=bash
# Private Wine prefixes in build/wine; the user's own is never touched.
#
# One prefix is made and set up, the others are clones of it. Each has one driver and one locale for life, because a
# running Wine server keeps both.

WineFolder=$BuildFolder/wine

# Nothing of ours is to ask for a download, write menu entries or reach the screen.
wine_environment() {
    export WINEPREFIX=$WineFolder/$1 WINEDEBUG=-all WINEDLLOVERRIDES='mscoree=;mshtml=;winemenubuilder.exe='
    unset DISPLAY WAYLAND_DISPLAY WINEARCH WINELOADER WINESERVER
}

stop_wine() { (wine_environment "$1" && wineserver -k && wineserver -w) 2>/dev/null || true; }

# The marker is the last file written: a prefix without it is half made and is made again.
prefix_is_ready() { [[ -O $WineFolder/$1 && -f $WineFolder/$1/ready && $(<"$WineFolder/$1/ready") == "$2" ]]; }

prefix_stamp() { printf '%s, layout 1, in %s\n' "$(wine --version)" "$Root"; }

registry() { timeout 60 wine reg "$@" /f; }

# HOME is the prefix, so that its document folders are no links into the user's own.
make_base_prefix() (
    wine_environment base
    HOME=$WINEPREFIX LC_ALL=C.UTF-8 timeout 180 wineboot -i &&
        registry add 'HKCU\Software\Wine\Drivers' /v Graphics /d null &&
        registry add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 &&
        registry add 'HKCU\Software\Microsoft\Windows\CurrentVersion\ThemeManager' /v ThemeActive /d 0
)

need_base_prefix() {
    local stamp
    stamp=$(prefix_stamp)
    prefix_is_ready base "$stamp" && return
    stop_all_wine
    rm -rf "$WineFolder"
    mkdir -p "$WineFolder/base"
    step "Making a Wine prefix in build/wine" wine-prefix \
        "see the log; is Wine whole (apt-get install --reinstall wine wine64 wine32:i386)?" make_base_prefix
    stop_wine base
    printf '%s\n' "$stamp" >"$WineFolder/base/ready"
}

stop_all_wine() {
    local prefix
    for prefix in "$WineFolder"/*/; do
        [[ ! -d $prefix ]] || stop_wine "$(basename "$prefix")"
    done
}

# The system files are shared by hard links; the registry is each clone's own.
clone_base_prefix() {
    local clone=$WineFolder/$1
    stop_wine "$1"
    rm -rf "$clone"
    cp -al "$WineFolder/base" "$clone" 2>/dev/null || cp -a "$WineFolder/base" "$clone"
    rm "$clone/ready"
    cp --remove-destination "$WineFolder/base"/*.reg "$clone"
}

show_on_display() (
    wine_environment "$1"
    registry delete 'HKCU\Software\Wine\Drivers' /v Graphics
)

# Programs see a screen of so many dots per inch.
set_scale() (
    wine_environment "$1"
    registry add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$2" &&
        registry add 'HKCC\Software\Fonts' /v LogPixels /t REG_DWORD /d "$2"
)

# set_up_screen NAME SCREEN
set_up_screen() {
    local remedy="see the log; removing build/wine starts afresh"
    case $2 in
    96) return ;; # as it was made
    display) step "Giving Wine the display" wine-display "$remedy" show_on_display "$1" ;;
    *) step "Scaling a Wine prefix to $2 dots per inch" "wine-scale-$1" "$remedy" set_scale "$1" "$2" ;;
    esac
    stop_wine "$1"
}

# need_prefix NAME [SCREEN] — "display" gives its programs the user's screen; otherwise they have none, and see one of
# so many dots per inch (96).
need_prefix() {
    local screen=${2:-96}
    need_base_prefix
    prefix_is_ready "$1" "$screen" && return
    clone_base_prefix "$1"
    set_up_screen "$1" "$screen"
    printf '%s\n' "$screen" >"$WineFolder/$1/ready"
}
