#!/usr/bin/env bash
# ./demo --shot as a user calls it, after everything is built: both builds, and quickly when there is nothing to do.
set -euo pipefail

# shellcheck source=tests/scripts/check.sh
source "$ROOT/tests/scripts/check.sh"

explain() { cat output; }
quietly() { "$@" >>output 2>&1; }
has_pictures() { compgen -G "$1/*.png" >/dev/null && identify "$1"/*.png; }

check 'the 32-bit demo takes its pictures' quietly "$ROOT/demo" --shot 'two words'
check 'they are PNG files' quietly has_pictures 'two words'
check 'the 64-bit demo takes its pictures' quietly "$ROOT/demo" --64 --shot wide
check 'they are PNG files' quietly has_pictures wide
check 'a second call takes less than 15 seconds' quietly timeout 15 "$ROOT/demo" --shot 'two words'
sum_up
