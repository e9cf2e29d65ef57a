# shellcheck shell=bash
# The test suites. Each is declared in a file tests/suites/<name>.suite of lines "key = value"; # starts a comment line.
#
#   builds  = native win32       the presets in whose build tree it runs; without it, it runs once and belongs to none
#   needs   = win32 win64        more presets that must be built for it
#   program = tests/core_tests   a doctest program in the build tree (.exe is added; Wine runs what is for Windows)
#   filter  = -ts=slow           doctest options that choose test cases; without them a skipped test case is a failure
#   script  = tests/x/run.sh     instead of program: a script of the checkout whose last line is "N passed, N failed"
#   seconds = 120                time limit of one run (60)
#   alone   = yes                nothing else runs meanwhile: for what measures time
#   long    = yes                it takes a minute and more: left out unless it is named, or everything is wanted
#   locale  = zh_CN.UTF-8        the locale, and by it the ANSI code page (C.UTF-8, code page 1252)
#   scale   = 168                the dots per inch of the screen that programs see (96); display: the script opens one
#   registers = yes              it registers the control, which not every user of Windows may do: the packed tests ask first
#
# Each run has an empty folder of its own as its current one, no input, no display, and a private WINEPREFIX. A script
# finds the checkout in ROOT and the build tree in BUILD, and calls "wine" plainly.

SuiteFolder=$Root/tests/suites
ResultFolder=$BuildFolder/test-results
RunFolder=$BuildFolder/test-runs
declare -gA Suite=() BrokenBuilds=()
Lanes=()

# read_suite NAME — fills Suite; fails on what it does not know.
read_suite() {
    local file=$SuiteFolder/$1.suite key value
    Suite=([name]=$1 [builds]='' [needs]='' [program]='' [filter]='' [script]='' [seconds]=60 [alone]=no [locale]=C.UTF-8
        [scale]=96 [registers]=no [long]=no)
    while read -r key value || [[ -n $key ]]; do
        [[ -n $key && $key != \#* ]] || continue
        [[ -v Suite[$key] && $key != name && $value == '= '* ]] || return 1
        Suite[$key]=${value#= }
    done <"$file"
    [[ (-n ${Suite[program]} && -n ${Suite[builds]}) || -n ${Suite[script]} ]]
}

# plan_runs [--all | NAME-PART...] — prints "suite preset lane" for each run of the suites whose name has one of the parts in it;
# without any, of those that are not long.
plan_runs() {
    local file name preset
    for file in "$SuiteFolder"/*.suite; do
        [[ -f $file ]] || continue
        name=$(basename "$file" .suite)
        [[ ${1:-} == --all ]] || name_matches "$name" "$@" || continue
        if ! read_suite "$name"; then
            printf '%s unreadable first\n' "$name"
            continue
        fi
        (($#)) || [[ ${Suite[long]} != yes ]] || continue
        for preset in ${Suite[builds]:-once}; do
            printf '%s %s %s\n' "$name" "$preset" "$(lane_of "$preset")"
        done
    done
}

# Lanes run side by side, but for the last. Programs of one Wine prefix never meet: what is for Windows stays in its build's lane.
# lane_of PRESET — of the suite that was read.
lane_of() {
    case ${Suite[alone]},$1 in
    yes,*) echo alone ;;
    *,win32) echo first ;;
    *,once) if uses_wine once; then echo second; else echo first; fi ;;
    *) echo second ;;
    esac
}

# Those that plan_runs leaves out where nothing is named, in one line.
long_suites() {
    local name
    for name in $(suite_names); do
        if read_suite "$name" && [[ ${Suite[long]} == yes ]]; then printf '%s\n' "$name"; fi
    done | xargs
}

# All suites, in one line.
suite_names() { basename -a -s .suite "$SuiteFolder"/*.suite | xargs; }

name_matches() {
    local name=$1 part
    shift
    (($#)) || return 0
    for part; do
        [[ $name != *"$part"* ]] || return 0
    done
    return 1
}

# presets_of_runs RUN... — prints the presets that the runs need, each once.
presets_of_runs() {
    local name preset
    while read -r name preset _; do
        read_suite "$name" || continue
        printf '%s\n' "$preset" ${Suite[needs]}
    done < <(printf '%s\n' "$@") | grep -vx once | sort -u
}

is_windows() { [[ $1 == win* ]]; }
uses_wine() { [[ "$* ${Suite[needs]}" == *win* ]]; }

# --- one run

# suite_command PRESET — sets Command.
suite_command() {
    local program=$BuildFolder/$1/${Suite[program]}
    Command=(bash -c "\"\$ROOT\"/${Suite[script]}")
    [[ -n ${Suite[program]} ]] || return 0
    # shellcheck disable=SC2206 # several options
    Command=("$program" --no-colors=true ${Suite[filter]})
    ! is_windows "$1" || Command=(wine "$program.exe" "${Command[@]:1}")
}

# obstacle PRESET — why the run cannot start, or nothing.
obstacle() {
    local preset program=$BuildFolder/$1/${Suite[program]}
    ! is_windows "$1" || program+=.exe
    for preset in "$1" ${Suite[needs]}; do
        if [[ -n ${BrokenBuilds[$preset]:-} ]]; then
            printf 'not run: building %s failed\n' "$preset"
            return
        fi
    done
    [[ -z ${Suite[program]} || -f $program ]] || printf 'not run: %s is missing\n' "${program#"$Root"/}"
}

# prefix_of_suite PRESET — the name of the Wine prefix that the suite runs in.
prefix_of_suite() {
    local name=$1-${Suite[locale]}
    [[ ${Suite[scale]} == 96 ]] || name+=-${Suite[scale]}
    printf '%s\n' "$name"
}

suite_environment() {
    local preset=$1 prefix folder=$RunFolder/${Suite[name]}.$1
    prefix=$(prefix_of_suite "$preset")
    if uses_wine "$preset"; then need_prefix "$prefix" "${Suite[scale]}"; fi
    wine_environment "$prefix"
    export ROOT=$Root BUILD=$BuildFolder/$preset LC_ALL=${Suite[locale]}
    rm -rf "$folder" && mkdir -p "$folder" && cd "$folder"
}

# The child is waited for in the background, so that a signal to the runner ends it at once.
run_command() {
    local status=0
    timeout -k 10 "${Suite[seconds]}" "${Command[@]}" &
    # shellcheck disable=SC2064 # this child
    trap "kill $! 2>/dev/null; exit 143" TERM
    wait $! || status=$?
    trap - TERM
    return "$status"
}

# summary_of LOG — prints "passed failed" from what the run itself counted, or nothing.
summary_of() {
    if [[ -n ${Suite[program]} ]]; then
        tr -d '\r' <"$1" | grep -a '^\[doctest\] test cases:' | tail -n 1 | tr -cd '0-9|' | doctest_counts
    else
        tr -d '\r' <"$1" | tail -n 1 | sed -nE 's/^([0-9]+) passed, ([0-9]+) failed$/\1 \2/p'
    fi
}

doctest_counts() {
    local passed failed skipped
    IFS='|' read -r _ passed failed skipped || [[ -n ${failed:-} ]] || return 0
    [[ -z ${Suite[filter]} ]] || skipped=0
    printf '%s %s\n' "$passed" "$((failed + skipped))"
}

# judge STATUS LOG — sets Passed, Failed and Note. Whatever is wrong counts as at least one failure.
judge() {
    local status=$1 summary
    summary=$(summary_of "$2") || true
    read -r Passed Failed <<<"${summary:-0 0}"
    Note=
    case $status in
    124 | 137) Note="timed out after ${Suite[seconds]} s" ;;
    *)
        if [[ -z $summary ]]; then
            Note="ended without a summary, exit code $status"
        elif ((Passed + Failed == 0)); then
            Note="has no tests"
        elif ((status != 0 && Failed == 0)); then
            Note="exit code $status"
        fi
        ;;
    esac
    [[ -z $Note ]] || Failed=$((Failed + 1))
}

# report NAME PRESET LOG — one line; the end of the log too when something failed.
report() {
    local title="$1 [$2]"
    printf '%s %s\n' "$Passed" "$Failed" >"$ResultFolder/$1.$2"
    if ((Failed)); then
        tail -n 30 "$3" | sed "s/^/    /"
        title+=" FAILED"
    fi
    say "$title: $Passed passed, $Failed failed${Note:+ ($Note)}, ${Seconds} s"
}

# run_suite NAME PRESET
run_suite() {
    local log=$LogFolder/test-$1-$2.log start=$EPOCHREALTIME status=0
    Passed=0 Failed=1 Seconds=0
    if ! read_suite "$1"; then
        Note="not run: $1.suite has an unknown or missing key"
    else
        Note=$(obstacle "$2")
    fi
    : >"$log"
    if [[ -z $Note ]]; then
        suite_command "$2"
        (suite_environment "$2" && run_command) >"$log" 2>&1 </dev/null || status=$?
        judge "$status" "$log"
        Seconds=$(awk "BEGIN { printf \"%.1f\", $EPOCHREALTIME - $start }")
        if ((Failed)) && uses_wine "$2"; then stop_wine "$(prefix_of_suite "$2")"; fi
    fi
    report "$1" "$2" "$log"
}

# --- all runs

# run_lane LANE RUN...
run_lane() {
    local lane=$1 name preset planned
    shift
    while read -r name preset planned; do
        [[ $planned != "$lane" ]] || run_suite "$name" "$preset"
    done < <(printf '%s\n' "$@")
}

# A lane is a process group, so that stopping it stops what it runs.
start_lane() {
    set -m
    run_lane "$@" &
    set +m
    Lanes+=("$!")
}

stop_lanes() {
    local lane
    for lane in "${Lanes[@]}"; do
        kill -TERM -- "-$lane" 2>/dev/null || true
    done
    Lanes=()
}

# A lane that dies leaves runs without a result, which add_up counts.
run_all() {
    rm -rf "$ResultFolder"
    mkdir -p "$ResultFolder" "$LogFolder"
    start_lane first "$@"
    start_lane second "$@"
    wait "${Lanes[@]}" || true
    Lanes=()
    start_lane alone "$@"
    wait "${Lanes[@]}" || true
    Lanes=()
}

# add_up RUN... — prints "N passed, N failed"; a run that left no result counts as failed.
add_up() {
    local name preset passed failed total_passed=0 total_failed=0
    while read -r name preset _; do
        read -r passed failed 2>/dev/null <"$ResultFolder/$name.$preset" || { passed=0 failed=1; }
        ((total_passed += passed, total_failed += failed)) || true
    done < <(printf '%s\n' "$@")
    printf '%s passed, %s failed\n' "$total_passed" "$total_failed"
    ((total_failed == 0))
}
