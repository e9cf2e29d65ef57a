#!/usr/bin/env bash
# Drives the built control by the random host, with eight seeds that are always the same, or with those that the
# environment names in RANDOM_HOST_SEEDS; RANDOM_HOST_ACTIONS is how much is done with each. What fails is done again by
#     random_host.exe --seed N --actions N --log
# Prints "N passed, N failed" at the end.
set -uo pipefail

# shellcheck source=tests/scripts/check.sh
source "$ROOT/tests/scripts/check.sh"

read -ra Seeds <<<"${RANDOM_HOST_SEEDS:-1 2 3 4 5 6 7 8}"
Actions=${RANDOM_HOST_ACTIONS:-2000}
Output=

run() {
    local status=0
    Output=$(timeout -k 10 120 wine "$BUILD/tests/hostile/random/random_host.exe" --seed "$1" --actions "$Actions" 2>&1) ||
        status=$?
    Output=$(tr -d '\r' <<<"$Output")
    [[ $status == 0 && $Output == "seed $1: $Actions actions, digest "* ]]
}

explain() { printf '%s\n' "$Output"; }

does_the_same_again() {
    local first=$Output
    run "$1" && [[ $Output == "$first" ]]
}

for seed in "${Seeds[@]}"; do
    check "nothing happens to the host with seed $seed" run "$seed"
done
check "the same seed leads to the same actions and answers" does_the_same_again "${Seeds[-1]}"
sum_up
