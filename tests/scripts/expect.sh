# shellcheck shell=bash
# What the tests of the scripts share: expectations, stand-ins for programs, and the libraries over a scratch folder.

# expect_equal ACTUAL EXPECTED
expect_equal() {
    [[ $1 == "$2" ]] || {
        printf 'expected: %s\n  actual: %s\n' "$2" "$1"
        exit 1
    }
}

# expect_contains TEXT PART
expect_contains() {
    [[ $1 == *"$2"* ]] || {
        printf 'expected to find: %s\n              in: %s\n' "$2" "$1"
        exit 1
    }
}

# stand_in FILE LINE... — an executable script of these lines; it finds its own calls in FILE.calls.
stand_in() {
    local file=$1
    shift
    mkdir -p "$(dirname "$file")"
    printf '%s\n' '#!/usr/bin/env bash' 'echo "$*" >>"$0.calls"' "$@" >"$file"
    chmod +x "$file"
}

calls_of() { cat "$1.calls" 2>/dev/null || true; }

# Loads the libraries and turns every folder that they write to into one below the current folder.
load_libraries() {
    # shellcheck source=scripts/lib/setup.sh
    source "$Root/scripts/lib/setup.sh"
    # shellcheck source=scripts/lib/suites.sh
    source "$Root/scripts/lib/suites.sh"
    BuildFolder=$PWD/build LogFolder=$PWD/build/logs WineFolder=$PWD/build/wine
    SuiteFolder=$PWD/suites ResultFolder=$PWD/build/results RunFolder=$PWD/build/runs
    mkdir -p "$LogFolder" "$SuiteFolder"
    unset VANTIK_LOCKED
    PATH=$PWD/bin:$PATH
}
