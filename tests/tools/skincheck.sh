#!/usr/bin/env bash
# What the command line of skincheck does, one check a line. Prints "N passed, N failed" at the end.
set -uo pipefail

# shellcheck source=tests/scripts/check.sh
source "$ROOT/tests/scripts/check.sh"

Output=
Errors=
Status=0
Skincheck=("$BUILD/tools/skincheck/skincheck")
[[ -x ${Skincheck[0]} ]] || Skincheck=(wine "$BUILD/tools/skincheck/skincheck.exe")

skincheck() {
    Output=$("${Skincheck[@]}" "$@" 2>errors.txt | tr -d '\r')
    Status=${PIPESTATUS[0]}
    Errors=$(tr -d '\r' <errors.txt)
}

explain() { printf '  exit %s\n  output: %s\n  errors: %s\n' "$Status" "$Output" "$Errors"; }

# changed FOLDER SED-OPTION... — a shipped skin in a folder of its own, and what sed makes of its definition.
changed() {
    rm -rf "$1"
    cp -r "$ROOT/skins/light" "$1"
    sed -i "${@:2}" "$1/SKIN.INI"
}

make_skins() {
    changed faulty -e 's/^5: 0,7/5: 0,x/' -e 's/^DeleteButton:/DeletButton:/'
    changed doubtful -e 's/^5: 0,7,0,31 /5: 0,7,0,31,1 /'
    mkdir -p 'two words ü' && cp faulty/* 'two words ü'
}

ended() { [[ $Status == "$1" && -z $Errors ]]; }
has_line() { [[ $'\n'$Output$'\n' == *$'\n'"$1"$'\n'* ]]; }
has_output() { [[ -n $1 && $Output == "$1" ]]; }
counts() { [[ ${Output##*$'\n'} == "$1" ]]; }
refused() { [[ $Status == 2 && -z $Output && $Errors == "usage: skincheck "* ]]; }

# The faults of the JSON text as the plain text shows them: another program reads it.
json_as_text() {
    python3 -c '
import json, sys
for fault in json.load(sys.stdin):
    meant = fault["meant"] and "; did you mean " + fault["meant"] + "?"
    print("{file}:{line}:{column}: {severity}: {what}".format(**fault) + meant)
    print("    " + fault["effect"])'
}

same_in_json() {
    local text
    skincheck "$@"
    text=$(grep -v '^[0-9]* skins\?: ' <<<"$Output")
    skincheck --json "$@"
    [[ -n $text && $(json_as_text <<<"$Output") == "$text" ]]
}

shipped_skins() {
    local -a definitions=("$ROOT"/skins/*/SKIN*.INI "$ROOT/resources/skin/skin.ini")
    skincheck "${definitions[@]}"
    check "nothing in the shipped skins" counts "${#definitions[@]} skins: 0 errors, 0 warnings"
    check "and no fault is no failure" ended 0
    skincheck --json "${definitions[@]}"
    check "no fault in JSON" has_line "[]"
}

faults() {
    skincheck faulty/SKIN.INI
    check "errors fail" ended 1
    check "a fault is in a line" has_line 'faulty/SKIN.INI:10:6: error: "x" is not a number'
    check "what was meant" has_line 'faulty/SKIN.INI:29:1: error: "DeletButton" is the name of a tab icon; did you mean DELETEBUTTON?'
    check "the sum" counts "1 skin: 2 errors, 0 warnings"
    skincheck doubtful/SKIN.INI
    check "warnings do not fail" ended 0
    check "a warning says so" has_line 'doubtful/SKIN.INI:10:13: warning: more than the four numbers left, right, top and bottom'
    skincheck doubtful/SKIN.INI faulty/SKIN.INI
    check "several skins" counts "2 skins: 2 errors, 1 warning"
    skincheck missing/SKIN.INI
    check "a missing definition is an error" ended 1
    check "at its beginning" has_line 'missing/SKIN.INI:1:1: error: there is no such file, or it cannot be read'
    skincheck faulty
    check "a folder is no definition" ended 1
    skincheck 'two words ü/SKIN.INI'
    check "a name with blanks and beyond ASCII" has_line 'two words ü/SKIN.INI:10:6: error: "x" is not a number'
}

json() {
    check "the same faults in JSON" same_in_json doubtful/SKIN.INI faulty/SKIN.INI
    check "and of a name beyond ASCII" same_in_json 'two words ü/SKIN.INI'
    skincheck --json faulty/SKIN.INI
    check "errors fail in JSON, too" ended 1
    printf 'Start\n[Tab]\n5: "\\\t\001,1\n' >odd.ini
    check "quotation marks and control characters in JSON" same_in_json odd.ini
}

# The commands that docs/skins.md shows, and what it says that they print.
documented() {
    sed -n '/^## Checking one/,/^## Ch/s/^    //p' "$ROOT/docs/skins.md" >documented.txt
    ln -sfn "$ROOT/skins" skins
    eval "$(sed -n 's/^\$ //p' documented.txt | grep -v skincheck)"
    skincheck mine/SKIN.INI
    check "the example of the documents" has_output "$(grep -v '^\$' documented.txt)"
}

refusals() {
    skincheck --help
    check "help is no failure" ended 0
    check "and shows the usage" has_line 'usage: skincheck [--json] SKIN.INI...        every fault of the skins'
    skincheck
    check "nothing to check" refused
    skincheck --bogus "$ROOT/skins/light/SKIN.INI"
    check "an unknown option" refused
    skincheck --json
    check "no definition" refused
    skincheck ''
    check "an empty name" refused
}

make_skins
shipped_skins
faults
json
documented
refusals
sum_up
