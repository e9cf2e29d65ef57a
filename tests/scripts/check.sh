# shellcheck shell=bash
# What the tests that are scripts share: checks that are counted, and the last line, which counts them.

Passed=0
Failed=0

# check WHAT COMMAND... — the command decides. Where a test has a function "explain", that says what was found instead.
check() {
    if "${@:2}"; then
        Passed=$((Passed + 1))
    else
        Failed=$((Failed + 1))
        printf 'FAILED: %s\n' "$1"
        ! declare -F explain >/dev/null || explain
    fi
}

# Ends the test.
sum_up() {
    printf '%d passed, %d failed\n' "$Passed" "$Failed"
    exit $((Failed != 0))
}
