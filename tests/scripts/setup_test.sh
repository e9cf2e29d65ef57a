# shellcheck shell=bash disable=SC2016,SC2034,SC2154
# (Stand-ins expand for themselves; the libraries set and read what looks unassigned or unused.)
# The lock, the build stamps and the Wine prefixes, with stand-ins for the tools.

test_a_second_run_waits_and_says_so() {
    load_libraries
    under_lock eval 'touch held; until [[ -e waited ]]; do sleep 0.05; done' &
    until [[ -e held ]]; do sleep 0.05; done
    (under_lock true) >second &
    until [[ -s second ]]; do sleep 0.05; done
    touch waited
    wait
    expect_contains "$(<second)" 'Waiting for another run'
}

test_a_run_from_inside_a_run_shares_its_lock() {
    load_libraries
    inner() { under_lock echo inner; }
    expect_equal "$(under_lock inner)" 'inner'
}

test_what_outlives_a_run_does_not_keep_its_lock() {
    load_libraries
    leave_server() { sleep 60 & echo $! >server; }
    under_lock leave_server
    flock -w 10 "$BuildFolder/lock" true
    kill "$(<server)"
}

build_tools() {
    load_libraries
    Root=$PWD
    touch CMakePresets.json
    stand_in bin/cmake 'case $* in *--preset*) mkdir -p "'"$PWD"'/build/native" ;; esac' "$@"
}

test_configuring_is_done_once() {
    build_tools
    build native
    build native
    expect_equal "$(calls_of bin/cmake | grep -c -e --preset)" 1
}

test_new_presets_are_configured_again() {
    build_tools
    build native
    touch -d '+1 minute' CMakePresets.json
    build native
    expect_equal "$(calls_of bin/cmake | grep -c -e --preset)" 2
}

test_a_new_folder_is_configured_again() {
    build_tools
    build native
    mkdir tool
    touch -d '+1 minute' tool/CMakeLists.txt
    build native
    expect_equal "$(calls_of bin/cmake | grep -c -e --preset)" 2
}

test_a_failed_configuration_is_not_taken_for_done() {
    build_tools 'exit 1'
    expect_contains "$( (build native) 2>&1 || true)" 'FAILED: Configuring native'
    expect_contains "$( (build native) 2>&1 || true)" 'FAILED: Configuring native'
}

test_a_failing_step_shows_its_log_and_the_remedy() {
    load_libraries
    local output
    output=$( (step 'Doing it' it 'try again' bash -c 'echo the cause; exit 3') 2>&1) && exit 1
    expect_contains "$output" 'the cause'
    expect_contains "$output" 'FAILED: Doing it'
    expect_contains "$output" 'remedy: try again'
    expect_contains "$output" "$LogFolder/it.log"
}

wine_tools() {
    load_libraries
    stand_in bin/wineboot 'echo old >"$WINEPREFIX/user.reg"; mkdir -p "$WINEPREFIX/drive_c"' "$@"
    stand_in bin/wine '[[ $1 != --version ]] || echo wine-8.0'
    stand_in bin/wineserver
}

test_a_prefix_is_made_once() {
    wine_tools
    need_prefix one
    need_prefix two
    need_prefix one
    expect_equal "$(calls_of bin/wineboot | wc -l)" 1
    [[ -d build/wine/one/drive_c && -d build/wine/two/drive_c ]]
}

test_a_half_made_prefix_is_made_again() {
    wine_tools 'exit 1'
    (need_prefix one) || true
    [[ ! -e build/wine/base/ready ]]
    wine_tools
    need_prefix one
    [[ -d build/wine/one/drive_c ]]
    rm build/wine/one/ready
    touch build/wine/one/half
    need_prefix one
    [[ ! -e build/wine/one/half ]]
}

test_a_new_version_of_wine_gets_a_new_prefix() {
    wine_tools
    need_prefix one
    stand_in bin/wine '[[ $1 != --version ]] || echo wine-9.0'
    need_prefix one
    expect_equal "$(calls_of bin/wineboot | wc -l)" 2
}

test_a_prefix_is_scaled_when_it_is_made() {
    wine_tools
    need_prefix plain
    need_prefix plain 96
    expect_equal "$(calls_of bin/wine | grep -c LogPixels)" 0
    need_prefix large 168
    need_prefix large 168
    expect_equal "$(calls_of bin/wine | grep -o 'LogPixels.*')" \
        "$(printf 'LogPixels /t REG_DWORD /d 168 /f\nLogPixels /t REG_DWORD /d 168 /f')"
}

test_a_prefix_of_another_scale_is_made_again() {
    wine_tools
    need_prefix one 168
    touch build/wine/one/old
    need_prefix one 192
    [[ ! -e build/wine/one/old ]]
    expect_contains "$(calls_of bin/wine)" 'LogPixels /t REG_DWORD /d 192'
}

test_clones_have_a_registry_of_their_own() {
    wine_tools
    need_prefix one
    echo new >build/wine/one/user.reg
    expect_equal "$(<build/wine/base/user.reg)" old
}

test_the_user_s_own_prefix_is_never_named() {
    wine_tools 'echo "$WINEPREFIX $HOME" >>prefixes'
    export WINEPREFIX=$PWD/mine HOME=$PWD/home
    (cd "$PWD" && need_prefix one)
    [[ ! -e mine && ! -e home ]]
    expect_equal "$(<prefixes)" "$PWD/build/wine/base $PWD/build/wine/base"
}
