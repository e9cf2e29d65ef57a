# shellcheck shell=bash disable=SC2016,SC2034,SC2154
# (Stand-ins expand for themselves; the libraries set and read what looks unassigned or unused.)
# The set-up of packages, with stand-ins for the package tools.

# package_tools INSTALLED-FIRST INSTALLED-LATER APT-LINE... — the second list counts once apt-get has succeeded.
package_tools() {
    load_libraries
    Packages=(wine wine32:i386 cmake)
    stand_in bin/dpkg 'case $1 in --print-architecture) echo amd64 ;; --print-foreign*) echo i386 ;; esac'
    stand_in bin/sudo '[[ $1 == -v ]] || "$@"'
    stand_in bin/apt-get "${@:3}"
    stand_in bin/dpkg-query "cd '$PWD'" "if [[ -e got ]]; then printf '$2'; else printf '$1'; fi" 'exit 1'
}

All='installed wine:all\ninstalled wine32:i386\ninstalled cmake:amd64\n'
Some='installed wine:all\nhalf-configured wine32:i386\n'

# Runs need_packages; sets Output and Status.
set_up() {
    Status=0
    Output=$( (need_packages) 2>&1) || Status=$?
}

test_nothing_is_installed_when_nothing_is_missing() {
    package_tools "$All" "$All" 'exit 1'
    set_up
    expect_equal "$Status $Output" '0 '
    expect_equal "$(calls_of bin/apt-get)" ''
}

test_only_what_is_missing_is_installed() {
    package_tools "$Some" "$All" "[[ \$* != *install* ]] || touch '$PWD/got'"
    set_up
    expect_equal "$Status" 0
    expect_contains "$Output" 'Installing 2 packages: wine32:i386 cmake'
    expect_contains "$(calls_of bin/apt-get)" 'install wine32:i386 cmake'
}

test_a_package_of_the_wrong_architecture_is_missing() {
    package_tools 'installed wine:all\ninstalled wine32:amd64\ninstalled cmake:amd64\n' "$All" "touch '$PWD/got'"
    set_up
    expect_contains "$Output" 'Installing 1 packages: wine32:i386'
}

test_the_main_suite_alone_is_tried_when_the_plain_way_fails() {
    # shellcheck disable=SC1091
    source /etc/os-release
    package_tools "$Some" "$All" \
        "case \$* in indextargets*) echo 'Debian $VERSION_CODENAME main http://mirror/debian/' ;;
            *sourcelist=*install*) touch '$PWD/got' ;;
            *sourcelist=*update*) all=\$*; list=\${all##*sourcelist=}; cp \"\${list%% *}\" '$PWD/list' ;;
            *install*) exit 100 ;; esac"
    set_up
    expect_equal "$Status" 0
    expect_equal "$(<list)" \
        "deb [signed-by=/usr/share/keyrings/$ID-archive-keyring.gpg] http://mirror/debian/ $VERSION_CODENAME main"
}

expect_remedy() {
    package_tools "$Some" "$Some" "echo '$1'" 'exit 100'
    set_up
    expect_equal "$Status" 1
    expect_contains "$Output" 'could not get: wine32:i386 cmake'
    expect_contains "$Output" "remedy: $2"
}

test_a_network_that_is_down_is_named() { expect_remedy 'Temporary failure resolving mirror' 'check the network'; }
test_an_interrupted_dpkg_is_named() { expect_remedy 'E: dpkg was interrupted, you must' 'as root: dpkg --configure -a'; }
test_held_packages_are_named() { expect_remedy 'you have held broken packages' 'packages on hold'; }
test_an_unknown_failure_names_the_packages() {
    expect_remedy 'oh dear' 'install these by hand, then run this again: wine32:i386 cmake'
}

test_another_system_than_debian_goes_on_with_what_it_has() {
    load_libraries
    mkdir empty
    local output
    # shellcheck disable=SC2123 # no program is to be found
    output=$(PATH=$PWD/empty && need_packages)
    expect_contains "$output" 'Not Debian or Ubuntu'
}
