# shellcheck shell=bash
# Configures and builds the presets of CMakePresets.json, each in build/<preset>.

# The stamp is written when configuring succeeded. It is out of date when the checkout was moved, or when a list of CMake
# is newer: the build notices changed lists by itself, but neither new folders nor changed presets.
is_configured() {
    local stamp=$BuildFolder/$1/configured
    [[ -f $stamp && $(<"$stamp") == "$Root" ]] && [[ -z $(newer_lists "$stamp") ]]
}

newer_lists() {
    find "$Root" -path "$BuildFolder" -prune -o \( -name CMakeLists.txt -o -name 'CMakePresets.json' -o -name '*.cmake' \) \
        -newer "$1" -print -quit
}

configure() {
    is_configured "$1" && return
    step "Configuring $1" "configure-$1" "see the log; removing build/$1 starts afresh" \
        cmake -S "$Root" --fresh --preset "$1"
    printf '%s\n' "$Root" >"$BuildFolder/$1/configured"
}

# build PRESET [TARGET...]
build() {
    local preset=$1
    shift
    configure "$preset"
    step "Building $preset" "build-$preset" "correct what the compiler names; a clean start: rm -r build/$preset" \
        cmake --build "$BuildFolder/$preset" --parallel "$(nproc)" ${1:+--target "$@"}
}
