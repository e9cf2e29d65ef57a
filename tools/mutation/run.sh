#!/usr/bin/env bash
# What tools/mutate has done with the copy of the checkout that this file is in:
#
#   run.sh prepare PRESET...                        packages, build trees, Wine when a preset is for Windows
#   run.sh build PRESET TARGET...
#   run.sh judge SUITE PRESET SECONDS [OPTION...]   one run of a suite, with more doctest options
#   run.sh stop                                     ends Wine
#
# Exit code 3 says that the suite did not end in time, another one but 0 that something failed.
set -euo pipefail

Here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=scripts/lib/setup.sh
source "$Here/../../scripts/lib/setup.sh"
# shellcheck source=scripts/lib/suites.sh
source "$Root/scripts/lib/suites.sh"

# The most that a mutant may write into one file, in blocks of 1 KB, and allocate, in KB.
MaxFile=$((3 << 20)) MaxMemory=$((4 << 20))

# Every second compilation is that of a file as it was. The user's own cache is spared what is compiled once only.
use_ccache() {
    command -v ccache >/dev/null || return 0
    export CMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER-ccache}
    export CCACHE_DIR=${CCACHE_DIR-$BuildFolder/ccache}
}

prepare() {
    local preset
    need_packages
    stop_all_wine
    for preset; do configure "$preset"; done
    [[ $* != *win* ]] || need_base_prefix
}

# The sanitizers reserve more address space than any limit leaves; Windows programs of 32 bit have one of their own.
limit_resources() {
    ulimit -f "$MaxFile"
    [[ $1 != native ]] || ulimit -v "$MaxMemory"
}

# What a mutant left behind in its Wine prefix is nothing that the next one may find.
leave_prefix() {
    uses_wine "$1" || return 0
    stop_wine "$1-${Suite[locale]}"
    rm -f "$WineFolder/$1-${Suite[locale]}/ready"
}

judge_mutant() {
    local preset=$2 log=$LogFolder/judge.log status=0
    read_suite "$1" || fail "Reading $1.suite" "correct it"
    Suite[seconds]=$3
    Suite[filter]+=" --abort-after=1 ${*:4}"
    suite_command "$preset"
    (suite_environment "$preset" && limit_resources "$preset" && run_command) >"$log" 2>&1 </dev/null || status=$?
    judge "$status" "$log"
    ((Failed)) || return 0
    leave_prefix "$preset"
    tail -n 30 "$log"
    [[ $Note != 'timed out'* ]] || return 3
    return 1
}

use_ccache
trap 'stop_all_wine; exit 143' TERM
case $1 in
prepare | build) "$@" ;;
judge) judge_mutant "${@:2}" ;;
stop) stop_all_wine ;;
esac
