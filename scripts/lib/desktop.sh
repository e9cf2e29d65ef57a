# shellcheck shell=bash
# Shows a program on the user's own screen.

# need_display HINT — the hint is what to do without one.
need_display() {
    [[ -n ${DISPLAY:-} ]] || fail "Finding a display (DISPLAY is not set)" "run it in a desktop session$1"
}

need_working_display() {
    xdotool getdisplaygeometry >/dev/null 2>&1 ||
        fail "Opening the display $DISPLAY" "allow this user on it (xhost, XAUTHORITY)$1"
}

windows_path() { printf 'Z:%s\n' "${1//\//\\}"; }

# show_on_desktop NAME HINT PROGRAM ARGUMENT... — until its window is closed, in the user's own locale.
show_on_desktop() {
    local name=$1 hint=$2 display=$DISPLAY
    (
        wine_environment desktop
        export DISPLAY=$display
        if [[ $UserLocale == unset ]]; then unset LC_ALL; else export LC_ALL=$UserLocale; fi
        wine "${@:3}" >"$LogFolder/$name.log" 2>&1
    ) || fail "Showing $name" "see the log$hint" "$LogFolder/$name.log"
}
