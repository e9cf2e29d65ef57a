# shellcheck shell=bash
# Configures and builds the presets of CMakePresets.json, each in build/<preset>.

# The stamp is written when configuring succeeded; it is out of date when the presets or the checkout's place changed.
# Changes of the CMake lists are the build's own affair.
is_configured() {
    local stamp=$BuildFolder/$1/configured
    [[ -f $stamp && ! $Root/CMakePresets.json -nt $stamp && $(<"$stamp") == "$Root" ]]
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
