# shellcheck shell=bash
# What the scripts that measure and write docs/performance.md share.

# shellcheck source=scripts/lib/setup.sh
source "$(dirname "${BASH_SOURCE[0]}")/../scripts/lib/setup.sh"

Page=$Root/docs/performance.md

# run_windows_bench PRESET PROGRAM [ARGUMENT...] — what it prints, in a prefix of its own.
run_windows_bench() {
    (
        wine_environment bench
        timeout -k 10 600 wine "$BuildFolder/$1/bench/$2.exe" "${@:3}" | tr -d '\r'
    ) || fail "Measuring $1" "see what the program said above"
}

# write_section NAME FILE — the file takes the place of what stands between the section's two marks.
write_section() {
    grep -q "<!-- $1:begin -->" "$Page" || fail "Finding the section" "docs/performance.md has lost its marks"
    sed -i -e "/<!-- $1:begin -->/,/<!-- $1:end -->/{//!d}" -e "/<!-- $1:begin -->/r $2" "$Page"
    say "docs/performance.md is up to date"
}
