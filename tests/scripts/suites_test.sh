# shellcheck shell=bash disable=SC2016,SC2034,SC2154
# (Stand-ins expand for themselves; the libraries set and read what looks unassigned or unused.)
# The runner counts what ran, and whatever did not run or did not end well as failed.

# suite NAME LINE...
suite() { printf '%s\n' "${@:2}" >"$SuiteFolder/$1.suite"; }

# program LINE... — the doctest program of the suite "fake", in the native build.
program() {
    stand_in "$BuildFolder/native/fake" "$@"
    suite fake 'builds = native' 'program = fake' 'seconds = 20'
}

summary_line() { printf 'echo "[doctest] test cases: %3s | %3s passed | %s failed | %s skipped"' "$@"; }

# Runs all suites; sets Output and Summary.
run_suites() {
    local -a runs
    mapfile -t runs < <(plan_runs "$@")
    run_all "${runs[@]}" >output 2>&1
    Output=$(<output)
    Summary=$(add_up "${runs[@]}") || true
}

expect_run() {
    run_suites
    expect_equal "$Summary" "$1"
    expect_contains "$Output" "${2:-}"
}

test_passed_test_cases_are_counted() {
    load_libraries
    program "$(summary_line 12 12 0 0)"
    expect_run '12 passed, 0 failed'
}

test_failed_test_cases_are_counted() {
    load_libraries
    program 'echo "why it failed"' "$(summary_line 12 10 2 0)" 'exit 1'
    expect_run '10 passed, 2 failed' 'why it failed'
}

test_carriage_returns_of_windows_programs_do_not_matter() {
    load_libraries
    Root=$PWD
    stand_in checks/run.sh 'printf "3 passed, 0 failed\r\n"'
    suite fake 'script = checks/run.sh'
    expect_run '3 passed, 0 failed'
}

test_a_crash_counts_as_failed() {
    load_libraries
    program 'kill -SEGV $$'
    expect_run '0 passed, 1 failed' 'ended without a summary, exit code 139'
}

test_a_failing_exit_after_a_clean_summary_counts_as_failed() {
    load_libraries
    program "$(summary_line 12 12 0 0)" 'exit 23'
    expect_run '12 passed, 1 failed' 'exit code 23'
}

test_a_missing_program_counts_as_failed() {
    load_libraries
    suite fake 'builds = native' 'program = fake'
    expect_run '0 passed, 1 failed' 'build/native/fake is missing'
}

test_a_program_that_hangs_is_ended_and_counts_as_failed() {
    load_libraries
    program "$(summary_line 12 12 0 0)" 'sleep 60'
    suite fake 'builds = native' 'program = fake' 'seconds = 1'
    expect_run '12 passed, 1 failed' 'timed out after 1 s'
}

test_a_skipped_test_case_counts_as_failed() {
    load_libraries
    program "$(summary_line 12 11 0 1)"
    expect_run '11 passed, 1 failed'
}

test_test_cases_outside_a_filter_do_not_count() {
    load_libraries
    program "$(summary_line 2 2 0 10)"
    suite fake 'builds = native' 'program = fake' 'filter = -ts=slow -d'
    expect_run '2 passed, 0 failed'
    expect_equal "$(calls_of "$BuildFolder/native/fake")" '--no-colors=true -ts=slow -d'
}

test_a_program_without_tests_counts_as_failed() {
    load_libraries
    program "$(summary_line 0 0 0 0)"
    expect_run '0 passed, 1 failed' 'has no tests'
}

test_a_script_counts_by_its_last_line() {
    load_libraries
    Root=$PWD
    stand_in checks/run.sh 'echo "9 passed, 9 failed"' 'echo "4 passed, 1 failed"' 'exit 1'
    suite fake 'script = checks/run.sh one two'
    expect_run '4 passed, 1 failed'
    expect_equal "$(calls_of checks/run.sh)" 'one two'
}

test_a_script_without_a_last_line_of_counts_counts_as_failed() {
    load_libraries
    Root=$PWD
    stand_in checks/run.sh 'echo "4 passed, 0 failed"' 'echo bye'
    suite fake 'script = checks/run.sh'
    expect_run '0 passed, 1 failed' 'ended without a summary, exit code 0'
}

test_an_unknown_key_counts_as_failed() {
    load_libraries
    program "$(summary_line 12 12 0 0)"
    suite fake 'builds = native' 'program = fake' 'second = 5'
    expect_run '0 passed, 1 failed' 'fake.suite has an unknown or missing key'
}

test_a_suite_of_no_program_and_no_script_counts_as_failed() {
    load_libraries
    suite fake 'builds = native'
    expect_run '0 passed, 1 failed' 'fake.suite has an unknown or missing key'
}

test_the_suites_of_a_failed_build_are_not_run() {
    load_libraries
    suite fake 'builds = native' 'program = fake'
    BrokenBuilds[native]=1
    expect_run '0 passed, 1 failed' 'not run: building native failed'
    [[ $Output != *missing* ]]
}

test_a_suite_that_needs_a_failed_build_is_not_run() {
    load_libraries
    Root=$PWD
    stand_in checks/run.sh 'echo "4 passed, 0 failed"'
    suite fake 'script = checks/run.sh' 'needs = native-asan'
    BrokenBuilds[native-asan]=1
    expect_run '0 passed, 1 failed' 'not run: building native-asan failed'
}

test_a_run_without_a_result_counts_as_failed() {
    load_libraries
    mkdir -p "$ResultFolder"
    echo '3 0' >"$ResultFolder/one.native"
    expect_equal "$(add_up 'one native no' 'two native no' || true)" '3 passed, 1 failed'
}

test_failures_show_in_the_exit_code() {
    load_libraries
    mkdir -p "$ResultFolder"
    echo '3 0' >"$ResultFolder/good.native"
    echo '3 1' >"$ResultFolder/bad.native"
    add_up 'good native no'
    ! add_up 'good native no' 'bad native no' || exit 1
}

test_a_name_chooses_suites() {
    load_libraries
    program "$(summary_line 12 12 0 0)"
    suite other 'builds = native' 'program = missing'
    run_suites ake
    expect_equal "$Summary" '12 passed, 0 failed'
}

test_every_run_has_an_empty_folder_no_display_and_no_input() {
    load_libraries
    program '[[ -z $(ls -A) && -z ${DISPLAY:-} && $LC_ALL == zh_CN.UTF-8 ]] && ! read -r || exit 9' 'touch left' \
        "$(summary_line 1 1 0 0)"
    suite fake 'builds = native' 'program = fake' 'locale = zh_CN.UTF-8'
    suite twin 'builds = native' 'program = fake' 'locale = zh_CN.UTF-8'
    export DISPLAY=:77
    expect_run '2 passed, 0 failed'
    expect_run '2 passed, 0 failed'
}

test_a_scaled_suite_has_a_prefix_of_its_own() {
    load_libraries
    need_prefix() { echo "$*" >>"$BuildFolder/prefixes"; }
    stop_wine() { :; }
    mkdir -p "$BuildFolder/win32" && touch "$BuildFolder/win32/fake.exe"
    stand_in bin/wine "$(summary_line 1 1 0 0)"
    suite large 'builds = win32' 'program = fake' 'scale = 168'
    suite plain 'builds = win32' 'program = fake'
    expect_run '2 passed, 0 failed'
    expect_equal "$(<"$BuildFolder/prefixes")" \
        "$(printf 'win32-C.UTF-8-168 168\nwin32-C.UTF-8 96')"
}

test_a_suite_alone_runs_when_nothing_else_does() {
    load_libraries
    program '[[ ! -e ../../alone ]] || exit 9' 'sleep 1' 'touch ../../done' "$(summary_line 1 1 0 0)"
    stand_in "$BuildFolder/native-asan/fake" 'touch ../../alone' '[[ -e ../../done ]] || exit 9' \
        "$(summary_line 1 1 0 0)"
    suite aaa 'builds = native-asan' 'program = fake' 'alone = yes'
    expect_run '2 passed, 0 failed'
}

test_a_long_suite_runs_only_when_it_is_named_or_all_are_wanted() {
    load_libraries
    program "$(summary_line 1 1 0 0)"
    stand_in "$BuildFolder/native/slow" "$(summary_line 20 20 0 0)"
    suite slow 'builds = native' 'program = slow' 'long = yes'
    expect_run '1 passed, 0 failed'
    run_suites --all
    expect_equal "$Summary" '21 passed, 0 failed'
    run_suites slo
    expect_equal "$Summary" '20 passed, 0 failed'
    expect_equal "$(long_suites)" 'slow'
}

test_what_uses_wine_stays_in_the_lane_of_its_prefix() {
    load_libraries
    suite a 'builds = native native-asan win32 win64' 'program = a'
    suite b 'script = b' 'needs = win32'
    suite c 'script = c'
    suite d 'builds = win64' 'program = d' 'alone = yes'
    expect_equal "$(plan_runs | tr '\n' ';')" "$(printf '%s;' 'a native second' 'a native-asan second' \
        'a win32 first' 'a win64 second' 'b once second' 'c once first' 'd win64 alone')"
}

test_stopping_the_lanes_ends_what_they_run() {
    load_libraries
    program 'echo $$ >../../pid' 'exec sleep 60'
    mkdir -p "$ResultFolder"
    start_lane first 'fake native first'
    timeout 10 bash -c 'until [[ -s build/pid ]]; do sleep 0.05; done'
    stop_lanes
    timeout 10 bash -c 'while kill -0 "$(<build/pid)" 2>/dev/null; do sleep 0.05; done'
}

test_the_presets_that_runs_need_are_named_once() {
    load_libraries
    program "$(summary_line 1 1 0 0)"
    suite other 'script = x' 'needs = win64 native'
    local -a runs
    mapfile -t runs < <(plan_runs)
    expect_equal "$(presets_of_runs "${runs[@]}" | tr '\n' ' ')" 'native win64 '
}
