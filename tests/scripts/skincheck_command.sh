#!/usr/bin/env bash
# ./skincheck as a user calls it, after everything is built.
set -euo pipefail

# shellcheck source=tests/scripts/check.sh
source "$ROOT/tests/scripts/check.sh"

Skin=$ROOT/skins/light/SKIN.INI

explain() { cat output errors; }
# ends STATUS ARGUMENT...
ends() {
    local status=0
    "$ROOT/skincheck" "${@:2}" >output 2>errors || status=$?
    [[ $status == "$1" ]]
}
prints() { [[ $(<output) == "$1" ]]; }
has_line() { grep -q "$1" output; }

check 'faults' ends 0 "$Skin"
check 'and nothing but them goes to the output' prints '1 skin: 0 errors, 0 warnings'
sed '/^Start/d' "$Skin" >faulty.ini
check 'errors fail' ends 1 faulty.ini
check 'JSON' ends 0 --json "$Skin"
check 'and nothing else' prints '[]'
check 'wrong usage' ends 2 --bogus
check 'the contrast' ends 0 --contrast "$Skin"
check 'is what the script measures' has_line 'caption on a normal bar: at least 4.50'
check 'the preview' ends 0 --preview 'two words.png' "$Skin"
check 'is a PNG file' identify 'two words.png' >identified
check 'a preview of nothing' ends 2 --preview sheet.png
sum_up
