#!/usr/bin/env bash
# The packed tests as somebody runs them who has nothing but the zip: unpacked anywhere, from cmd. Last line: "N passed, N failed".
set -uo pipefail

# shellcheck source=tests/scripts/check.sh
source "$ROOT/tests/scripts/check.sh"

unpack_tests() {
    PYTHONDONTWRITEBYTECODE=1 python3 "$ROOT/packaging/make_tests.py" . && mkdir 'a folder' && unzip -q ./*-tests.zip -d 'a folder' &&
        cd 'a folder'/*/
}

# run_tests EXIT-CODE ARGUMENT...
run_tests() {
    local status=0
    wine cmd /c run-tests.cmd "${@:2}" 2>errors | tr -d '\r' >output || status=${PIPESTATUS[0]}
    ((status == $1))
}

explain() { tail -n 30 output 2>/dev/null; }
says() { grep -qx -- "$1" output; }
is_not_entered() { ! wine reg query "$1" >errors 2>&1; }
ends_with() { [[ $(tail -n 1 output) =~ ^$1$ ]]; }

unpack_tests || { printf '0 passed, 1 failed\n' && exit 1; }

# Every suite that is a program of both bitnesses has its line, and its programs are there.
programs() { grep -lE '^builds = .*win32 win64' "$ROOT"/tests/suites/*.suite | xargs grep -l '^program = ' | xargs basename -a -s .suite; }
check 'all suites are named' test "$(cut -d '|' -f 1 suites.txt)" = "$(programs)"
while IFS='|' read -r Name Program _; do
    for Build in win32 win64; do check "$Name has its program for $Build" test -f "$Build/${Program//\\//}"; done
done <suites.txt

check 'the samples have their skin' test -f win32/samples/plain-window/Skins/light/SKIN.INI

check 'a suite runs in both bitnesses' run_tests 0 ordinary-host
check 'and says so for 32 bit' says 'win32 ordinary-host: [1-9][0-9]* passed, 0 failed'
check 'and for 64 bit' says 'win64 ordinary-host: [1-9][0-9]* passed, 0 failed'
check 'the last line counts' ends_with '[1-9][0-9]* passed, 0 failed'
check 'the report has what was said' grep -q 'Status: SUCCESS' report/win64-ordinary-host.txt
check 'and the system' grep -q 'codepage1252 dpi0x60 win32 win64' report/system.txt
check 'and pictures' test "$(find report/pictures -name '*.png' | wc -l)" -ge 20

check 'what the system lacks is no failure' run_tests 0 shell-chinese
check 'but said' says 'win32 shell-chinese: not run, the system would have to have codepage936'
check 'and not counted' ends_with '0 passed, 0 failed'

check 'an administrator has registration tested' run_tests 0 shell-registering
check 'in both bitnesses' says 'win64 shell-registering: [1-9][0-9]* passed, 0 failed'
wine reg add 'HKCR\VantikFrameTabProject.VantikFrameTab' /f >errors 2>&1
check 'but not where the control is registered' run_tests 0 shell-registering
check 'which is said' says 'win64 shell-registering: not run, the system would have to have an administrator and no registered control'
wine reg delete 'HKCR\VantikFrameTabProject.VantikFrameTab' /f >errors 2>&1
check 'and nothing is left of having asked' is_not_entered 'HKLM\Software\Classes\VantikFrameTab.Tests'

check 'a suite that does not exist is refused' run_tests 2 nonsense
check 'with those that do' says '  ordinary-host'
check 'help is no failure' run_tests 0 --help

# A program that ends without a summary.
cp win32/tools/acctree/acctree.exe win32/tests/hostile/ordinary/ordinary_host_tests.exe
check 'a program that breaks down is a failure' run_tests 1 ordinary-host
check 'that is said' says 'win32 ordinary-host: FAILED, ended without a summary, exit code [0-9]*'
check 'and counted' ends_with '[1-9][0-9]* passed, 1 failed'

# A program that waits for somebody's answer.
printf 'ordinary-host|tests\\tools\\timelimit\\limited_program.exe|ask Really|-|3\r\n' >suites.txt
check 'a program that waits for ever is a failure' run_tests 1 ordinary-host
check 'that is said for 32 bit' says 'win32 ordinary-host: FAILED, did not end within 3 s'
check 'and for 64 bit' says 'win64 ordinary-host: FAILED, did not end within 3 s'
check 'and counted' ends_with '0 passed, 2 failed'
check 'and its question is in the report' grep -q '^    Really' report/win64-ordinary-host.txt

sum_up
