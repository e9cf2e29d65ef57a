# shellcheck shell=bash
# What tests share that look at a program's windows: their titles, and what they show in plain text. Seen is the end of the title of
# the one that is looked at, BUILD the build tree.

window() { xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -1; }
is_there() { [[ -n $(window "$1") ]]; }
is_gone() { ! is_there "$1"; }
focus() { xdotool windowfocus --sync "$(window "$1")"; }

look() { wine "$BUILD/tests/tools/skinview/window_texts.exe" "$Seen" 2>&1 | tr -d '\r' >texts; }
shows() { look && grep -Eq -- "$1" texts; }
lacks() { look && ! grep -Eq -- "$1" texts; }

# here FILE — of the current folder, as the programs name it.
here() { printf 'Z:%s' "${PWD//\//\\}\\${1//\//\\}"; }
