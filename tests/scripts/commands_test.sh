# shellcheck shell=bash disable=SC2154
# The commands as a user types them, as far as they go without a build.

# command_line EXPECTED-STATUS COMMAND... — sets Output.
command_line() {
    local expected=$1 status=0
    shift
    Output=$(env -u DISPLAY "$@" 2>&1 </dev/null) || status=$?
    expect_equal "$status" "$expected"
}

test_help_is_no_failure() {
    command_line 0 "$Root/demo" --help
    expect_contains "$Output" 'usage: ./demo'
    command_line 0 "$Root/test" --help
    expect_contains "$Output" 'usage: ./test'
}

commands() {
    find "$Root" "$Root"/{docs,bench,resources,tools} -maxdepth 1 -type f -executable
}

# Those that refuse by themselves: it takes a build to hear what a program says.
scripts() { grep -LE '^run_(native|windows)_tool ' $(commands); }

test_every_command_helps() {
    local command
    for command in $(commands); do
        command_line 0 timeout 20 "$command" --help
        expect_contains "${Output,,}" usage:
        expect_contains "$Output" "${command##*/}"
    done
}

test_every_script_refuses_what_it_does_not_know() {
    local script
    for script in $(scripts); do
        command_line 2 timeout 20 "$script" --bogus
        expect_contains "${Output,,}" usage:
    done
}

test_an_unknown_argument_shows_the_usage() {
    command_line 2 "$Root/demo" --bogus
    expect_contains "$Output" 'unknown argument: --bogus'
    expect_contains "$Output" 'usage: ./demo'
    command_line 2 "$Root/demo" --shot
    expect_contains "$Output" '--shot needs a folder'
    command_line 2 "$Root/demo" --shot --64
    expect_contains "$Output" '--shot needs a folder'
    command_line 2 "$Root/demo" --design a.form --shot pictures
    expect_contains "$Output" '--shot and --design do not go together'
    command_line 2 "$Root/demo" --design a.form b.form
    expect_contains "$Output" 'unknown argument: b.form'
    command_line 2 "$Root/test" --bogus
    expect_contains "$Output" 'unknown option: --bogus'
    expect_contains "$Output" 'usage: ./test'
}

test_all_suites_and_some_do_not_go_together() {
    command_line 2 "$Root/test" --all engine
    expect_contains "$Output" '--all and names do not go together'
    command_line 2 "$Root/test" nothing-is-called-so --all
    expect_contains "$Output" '--all and names do not go together'
    command_line 2 "$Root/test" nothing-is-called-so --bogus
    expect_contains "$Output" 'unknown option: --bogus'
}

test_a_suite_that_does_not_exist_is_refused() {
    command_line 2 "$Root/test" nothing-is-called-so
    expect_contains "$Output" 'no suite is called so: nothing-is-called-so'
    expect_contains "$Output" ' framesnap '
}

test_the_demo_without_a_display_says_what_works_without_one() {
    command_line 1 "$Root/demo"
    expect_contains "$Output" 'remedy: '
    expect_contains "$Output" './demo --shot DIR'
}

test_the_commands_work_through_a_link() {
    ln -s "$Root/demo" link
    command_line 0 ./link --help
}

test_package_takes_no_option_without_its_value() {
    command_line 2 "$Root/package" --out
    expect_contains "$Output" '--out needs a folder'
}

test_packages_are_compared_only_when_all_is_committed() {
    stand_in bin/git 'echo " M README.md"'
    PATH=$PWD/bin:$PATH command_line 1 "$Root/package" --check
    expect_contains "$Output" 'remedy: commit the changes'
}
