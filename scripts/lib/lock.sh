# shellcheck shell=bash
# One set-up, build or test run at a time in this checkout.

own_build_folder() {
    mkdir -p "$BuildFolder" 2>/dev/null || true
    [[ -O $BuildFolder ]] ||
        fail "Opening $BuildFolder" "it belongs to another user: run this as that user, or remove the folder"
}

# under_lock COMMAND... — a run started from inside a locked one shares its lock.
under_lock() {
    own_build_folder
    if [[ ${VANTIK_LOCKED:-} == "$Root" ]]; then
        "$@"
    else
        VANTIK_LOCKED=$Root one_at_a_time "$BuildFolder/lock" "$@"
    fi
}

# one_at_a_time LOCK COMMAND...
# The command gets the lock's descriptor closed, or a Wine server that outlives it would keep the lock.
one_at_a_time() {
    {
        flock -n 9 || { say "Waiting for another run in this checkout" && flock 9; }
        "${@:2}" 9>&-
    } 9>"$1"
}
