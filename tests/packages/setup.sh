#!/usr/bin/env bash
# The packages on a fresh system: the setup program installs, scripts of both bitnesses drive the control, an upgrade, and
# what must be refused, and afterwards everything is as before; the samples of the zip run as unpacked. Last line: "N passed,
# N failed".
set -uo pipefail

# shellcheck source=tests/scripts/check.sh
source "$ROOT/tests/scripts/check.sh"
# shellcheck source=scripts/lib/setup.sh
source "$ROOT/scripts/lib/setup.sh"

Builds=$ROOT/build
Version=$(sed -n 's/^project(.* VERSION \([0-9.]*\) .*/\1/p' "$ROOT/CMakeLists.txt")
Entry='HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\VantikFrameTab'
export PYTHONDONTWRITEBYTECODE=1

make_setups() {
    python3 "$ROOT/packaging/make_packages.py" --tested packages
    cp "packages/VantikFrameTab-$Version-setup.exe" setup.exe
    "$ROOT/tests/packages/make_odd_setups.py"
}

# A system of its own, which nothing was ever installed on.
start_system() {
    rm -f "$WineFolder/setup/ready"
    need_prefix setup >/dev/null
    wine_environment setup
    Drive=$WINEPREFIX/drive_c
    cp "$Drive/windows/syswow64/cscript.exe" script32.exe
    cp "$Drive/windows/system32/cscript.exe" script64.exe
}

script() { wine "script$1.exe" //nologo "$(winepath -w "$2")" 2>&1 | tr -d '\r'; }

# At the first use of scripts and fonts Wine enters type libraries of its own.
let_wine_settle() {
    printf '%s\r\n' 'Set f = CreateObject("StdFont")' 'f.Size = 14' >font.vbs
    script 32 font.vbs
    script 64 font.vbs
    wineserver -w
}

# Wine's own: when the screen's driver was entered, which it does again at every start.
registry_now() {
    wine regedit /E all.reg
    iconv -f UTF-16 -t UTF-8 all.reg | tr -d '\r' | grep -v '^"DriverDateData"='
}

# With sizes, times and places on the disk: a file that was written anew counts, too. Folders have the time of their last
# change, and the uninstaller's copy of itself cannot remove itself.
files_now() {
    (cd "$Drive" && find . -type d -printf '%p\n' -o -printf '%p %s %T@ %i %l\n') | sort |
        grep -Ev '^\./users/[^/]*/Temp/~nsu[0-9]*\.tmp(/Un\.exe .*)?$'
}

# What was started may go on when its starter has ended.
state() {
    wineserver -w
    registry_now >"registry-$1"
    files_now >"files-$1"
}

explain() { head -n 40 differences; }
same_state() {
    diff "files-$1" "files-$2" >differences && diff "registry-$1" "registry-$2" >differences
}
same_list() { diff "$1" "$2" >differences; }

# run EXIT-CODE PROGRAM ARGUMENT... — waits for all that it starts.
run() {
    local status=0
    wine "${@:2}" >run.log 2>&1 || status=$?
    wineserver -w
    echo "exit code $status instead of $1" >differences
    ((status == $1))
}

registered() {
    wine reg query "$Entry" /v "$1" /reg:64 2>/dev/null | tr -d '\r' | sed -n "s/^ *$1 *REG_[A-Z]* *//p"
}
is() {
    printf '%s instead of %s\n' "$1" "$2" >differences
    [[ $1 == "$2" ]]
}

drive() { script "$1" "$ROOT/tests/script/client.vbs" >differences && grep -q '^[1-9][0-9]* passed, 0 failed$' differences; }
is_unknown() { ! script "$1" "$ROOT/tests/script/client.vbs" | grep -q passed; }

installed_files() { (cd "$1" && find . -type f ! -name uninstall.exe | sort); }
packed_files() {
    unzip -Z1 "packages/VantikFrameTab-$Version.zip" | sed 's#^[^/]*/#./#' | grep -Ev '^\./samples/[^/]*/x(86|64)/' | sort
}

# hold_control PROCESSOR — a program that keeps others from writing to the control's file, as Windows does for those that
# have loaded it (Wine does not), until the file "go on" comes.
hold_control() {
    makensis -V2 -NOCD -DPROCESSOR="$1" "$ROOT/tests/packages/hold.nsi" >hold.log
    wine "hold-$1.exe" &
    Holder=$!
    wait_until test -e held
}

let_go() {
    touch 'go on'
    wait "$Holder"
    rm -f 'go on' held
}

wait_until() {
    local i
    for ((i = 0; i < 300; ++i)); do
        ! "$@" || return 0
        sleep 0.2
    done
    return 1
}

# The uninstaller runs in its place, so that its exit code can be had. By cmd, as wine would put its folder in quotes.
refused_while_in_use() {
    local status=0 uninstalled=0 folder='C:\Program Files\VantikFrameTab'
    printf '@start "" /wait "%s\\uninstall.exe" /S _?=%s\r\n@exit %%errorlevel%%\r\n' "$folder" "$folder" >uninstall.bat
    hold_control "$1"
    wine setup.exe /S || status=$?
    wine cmd /c uninstall.bat || uninstalled=$?
    let_go
    wineserver -w
    echo "exit codes $status and $uninstalled instead of 4 and 4" >differences
    ((status == 4 && uninstalled == 4))
}

# The tree that a screen reader finds in a sample's form.
sample_runs() {
    local folder=$Drive/unpacked/VantikFrameTab-$Version/samples/plain-window/$1 program
    (cd "$folder" && exec wine plain-window.exe) &
    program=$!
    wine "$Builds/$2/tools/acctree/acctree.exe" --wait 60 'Plain window' >differences 2>&1
    kill "$program"
    wineserver -k
    wait "$program" 2>/dev/null
    grep -q 'page tab "Person" (1 of 40) \[selected' differences && grep -q 'editable text "Mail:"' differences
}

make_setups || { printf '0 passed, 1 failed\n' && exit 1; }
start_system
let_wine_settle
Installed="$Drive/Program Files/VantikFrameTab"

state before
check 'a control that cannot be registered is not installed' run 6 broken-setup.exe /S
state broken
check 'and nothing of it stays, neither of the one that could be' same_state before broken
check 'the older version installs' run 0 old-setup.exe /S
check 'and has a file that the new one lacks' test -f "$Installed/docs/old.html"
check 'its version is entered' is "$(registered DisplayVersion)" 0.9.0

check 'the new version installs over it' run 0 setup.exe /S
check 'its version is entered, too' is "$(registered DisplayVersion)" "$Version"
packed_files >packed
installed_files "$Installed" >installed
check 'what is installed is what is in the zip' same_list packed installed
for bits in 32 64; do check "a $bits-bit script drives the control" drive "$bits"; done

state installed
check 'an older version is refused' run 3 old-setup.exe /S
for processor in x86 x64; do check "both are refused while that of $processor is in use" refused_while_in_use "$processor"; done
state refused
check 'what was refused changed nothing' same_state installed refused

echo "the user's own" >"$Installed/notes.txt"
check 'the uninstaller runs' run 0 "$Installed/uninstall.exe" /S
check 'what is not of the setup program stays' test "$(find "$Installed" -type f)" = "$Installed/notes.txt"
rm -r "$Installed"
state after
check 'everything is as before' same_state before after
for bits in 32 64; do check "no $bits-bit script finds the control" is_unknown "$bits"; done

check 'another folder can be named' run 0 setup.exe /S '/D=C:\Controls\Tabs'
check 'and the files are there' test -f "$Drive/Controls/Tabs/x64/VantikFrameTab.ocx"
check 'and another one when it is there already' run 0 setup.exe /S '/D=C:\Others'
check 'which takes it away where it was' test ! -e "$Drive/Controls/Tabs"
for bits in 32 64; do check "and a $bits-bit script still finds it" drive "$bits"; done
check 'the uninstaller runs once more' run 0 "$Drive/Others/uninstall.exe" /S
check 'and takes the folder with it' test ! -e "$Drive/Others"
rmdir "$Drive/Controls"
state again
check 'and everything is as before once more' same_state before again

unzip -q "packages/VantikFrameTab-$Version.zip" -d "$Drive/unpacked"
check 'the 32-bit sample runs as unpacked' sample_runs x86 win32
check 'the 64-bit sample runs as unpacked' sample_runs x64 win64

stop_wine setup
sum_up
