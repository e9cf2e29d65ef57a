# shellcheck shell=bash
# What the user sees: one line for each step, and for a step that fails its name, the end of its log and the remedy.


say() { printf '%s: %s\n' "${0##*/}" "$*"; }

# fail STEP REMEDY [LOG]
fail() {
    {
        [[ -z ${3:-} ]] || tail -n 30 "$3"
        say "FAILED: $1"
        say "remedy: $2"
        [[ -z ${3:-} ]] || say "the whole log: $3"
    } >&2
    exit 1
}

# step TITLE LOG-NAME REMEDY COMMAND...
step() {
    local title=$1 log=$LogFolder/$2.log remedy=$3
    shift 3
    say "$title"
    mkdir -p "$LogFolder"
    "$@" >"$log" 2>&1 </dev/null || fail "$title" "$remedy" "$log"
}
