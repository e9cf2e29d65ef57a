# shellcheck shell=bash
# What tests share that use a program with real input on a screen of their own.

# open_screen WIDTHxHEIGHT
open_screen() {
    Xvfb -displayfd 3 -screen 0 "$1x24" -nolisten tcp 3>display >xvfb.log 2>&1 &
    Screen=$!
    trap 'kill "$Screen"' EXIT
    wait_until test -s display
    DISPLAY=:$(<display)
    export DISPLAY
}

# wait_until COMMAND... — for twenty seconds at most.
wait_until() {
    local end=$((SECONDS + 20))
    until "$@"; do
        ((SECONDS < end)) || return 1
        sleep 0.2
    done
}

press() { xdotool key --delay 60 "$@"; }
picture() { import -window root "$1.png"; }
