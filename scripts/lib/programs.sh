# shellcheck shell=bash
# Runs the tools as they are built here. What they print is theirs alone: the steps before go to the error output.

# print_usage_of TOOL — the text that is compiled into it.
print_usage_of() { sed -e '1s/^R"(//' -e '$d' "$Root/tools/$1/Usage.txt"; }

asks_for_help() { [[ $# == 1 && ($1 == -h || $1 == --help) ]]; }

# run_native_tool TOOL ARGUMENT...
run_native_tool() {
    under_lock build_tool native "$1" >&2
    "$BuildFolder/native/tools/$1/$1" "${@:2}"
}

# run_windows_tool PRESET TOOL ARGUMENT... — in a prefix of its own.
run_windows_tool() {
    under_lock build_tool "$1" "$2" "$2" >&2
    trap 'stop_wine "$2"' EXIT
    (
        wine_environment "$2"
        wine "$BuildFolder/$1/tools/$2/$2.exe" "${@:3}"
    )
}

# build_tool PRESET TOOL [PREFIX]
build_tool() {
    need_packages
    build "$1" "$2"
    [[ -z ${3:-} ]] || need_prefix "$3"
}
