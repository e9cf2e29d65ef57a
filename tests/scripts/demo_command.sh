#!/usr/bin/env bash
# ./demo --shot as a user calls it, after everything is built: both builds, and quickly when there is nothing to do.
set -euo pipefail

Passed=0 Failed=0

check() {
    if "${@:2}" >>output 2>&1; then
        ((Passed += 1))
    else
        ((Failed += 1))
        printf 'FAILED: %s\n' "$1"
        cat output
    fi
}

has_pictures() { compgen -G "$1/*.png" >/dev/null && identify "$1"/*.png; }

check 'the 32-bit demo takes its pictures' "$ROOT/demo" --shot 'two words'
check 'they are PNG files' has_pictures 'two words'
check 'the 64-bit demo takes its pictures' "$ROOT/demo" --64 --shot wide
check 'they are PNG files' has_pictures wide
check 'a second call takes less than 15 seconds' timeout 15 "$ROOT/demo" --shot 'two words'
printf '%s passed, %s failed\n' "$Passed" "$Failed"
((Failed == 0))
