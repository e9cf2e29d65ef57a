#!/usr/bin/env bash
# Tests of the scripts themselves: every function test_* of the files beside this one, each in a shell and an empty
# folder of its own.
set -euo pipefail

Here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
Root=$(cd "$Here/../.." && pwd)
# shellcheck source=tests/scripts/expect.sh
source "$Here/expect.sh"

run_test() {
    local folder
    folder=$(mktemp -d "$PWD/${1}.XXXX")
    (cd "$folder" && set -euo pipefail && "$1") >"$folder/output" 2>&1
}

Passed=0 Failed=0
for File in "$Here"/*_test.sh; do
    # shellcheck source=/dev/null
    source "$File"
done
for Test in $(compgen -A function test_); do
    set +e
    run_test "$Test"
    Status=$?
    set -e
    if ((Status == 0)); then
        ((Passed += 1))
    else
        ((Failed += 1))
        printf 'FAILED: %s\n' "$Test"
        cat "$PWD/$Test".*/output
    fi
done
printf '%s passed, %s failed\n' "$Passed" "$Failed"
((Failed == 0))
