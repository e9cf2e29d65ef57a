# shellcheck shell=bash
# Installs the packages that are missing, on Debian and Ubuntu.

Packages=(
    wine wine64 wine32:i386 xvfb xauth xdotool x11-apps
    g++-mingw-w64-i686 g++-mingw-w64-x86-64 mingw-w64-tools
    cmake ninja-build g++ clang libclang-rt-14-dev clang-format clang-tidy python3
    doctest-dev libbenchmark-dev libpng-dev libspng-dev liblodepng-dev libstb-dev zlib1g-dev
    mono-mcs libmono-system-windows-forms4.0-cil libmono-microsoft-csharp4.0-cil
    git nsis cmark-gfm unzip mono-xbuild fp-compiler fpc-source
    imagemagick librsvg2-bin fonts-liberation fonts-dejavu fonts-wqy-zenhei
)

# missing_packages NAME... — prints those that are not installed.
missing_packages() {
    local -A installed=()
    local name
    while read -r name; do
        installed[$name]=1
        installed[${name%:*}]=1
    done < <(dpkg-query -W -f '${db:Status-Status} ${Package}:${Architecture}\n' "$@" 2>/dev/null |
        sed -n 's/^installed //p')
    for name; do
        [[ -n ${installed[$name]:-} ]] || printf '%s\n' "$name"
    done
}

as_root() { if ((EUID == 0)); then "$@"; else sudo "$@"; fi; }

become_root() {
    ((EUID == 0)) && return
    local remedy="as root: dpkg --add-architecture i386; apt-get update; apt-get install $*"
    command -v sudo >/dev/null || fail "Installing packages (neither root nor sudo)" "$remedy"
    sudo -v || fail "Installing packages (sudo refused)" "$remedy"
}

apt_get() {
    as_root env DEBIAN_FRONTEND=noninteractive NEEDRESTART_MODE=l apt-get -y -o DPkg::Lock::Timeout=300 "$@"
}

# An update that fails in part leaves indexes that may do; the installation decides.
apt_update_and_install() {
    local -a options=()
    while [[ $1 != -- ]]; do
        options+=("$1")
        shift
    done
    apt_get "${options[@]}" update || true
    apt_get "${options[@]}" --no-install-recommends install "${@:2}"
}

# The machine's own mirror, its main suite alone: wine32 needs the i386 packages of one consistent index, and that of
# the security suite can be out of step with its signed list.
apt_from_main_suite() {
    local folder status=0
    folder=$(mktemp -d)
    mkdir "$folder/none"
    main_suite_sources >"$folder/main.list"
    [[ -s $folder/main.list ]] && apt_update_and_install -o "Dir::Etc::sourcelist=$folder/main.list" \
        -o "Dir::Etc::sourceparts=$folder/none" -o APT::Get::List-Cleanup=0 -- "$@" || status=1
    rm -rf "$folder"
    return "$status"
}

main_suite_sources() {
    local ID VERSION_CODENAME
    # shellcheck source=/dev/null
    source /etc/os-release
    local keyring=/usr/share/keyrings/$ID-archive-keyring.gpg
    # shellcheck disable=SC2016 # the placeholders are apt's
    apt-get indextargets --format '$(ORIGIN) $(RELEASE) $(COMPONENT) $(REPO_URI)' 'Created-By: Packages' |
        awk -v suite="$VERSION_CODENAME" -v keyring="$keyring" \
            '($1 == "Debian" || $1 == "Ubuntu") && $2 == suite && !seen[$3, $4]++ {
                 print "deb [signed-by=" keyring "] " $4 " " suite " " $3 }'
}

install_missing() {
    dpkg --print-foreign-architectures | grep -qx i386 || as_root dpkg --add-architecture i386
    apt_update_and_install -- "$@" || apt_from_main_suite "$@"
}

# packages_remedy LOG — what the log of a failed installation says to do.
packages_remedy() {
    local pattern remedy
    while IFS=';' read -r pattern remedy; do
        if grep -qE "$pattern" "$1"; then
            printf '%s\n' "$remedy"
            return
        fi
    done <<'TABLE'
Could not get lock;another package manager is running: wait for it, then run this again
dpkg was interrupted;as root: dpkg --configure -a
No space left|enough free space;free some disk space
Temporary failure resolving|Could not (resolve|connect)|Connection (failed|timed out)|unreachable;check the network and the mirrors in /etc/apt, then run this again
Unable to locate package|no installation candidate;enable the distribution's own packages (main; on Ubuntu universe too) in /etc/apt
Mirror sync in progress|Hash Sum mismatch;the mirror is being brought up to date: run this again in an hour
held broken packages;packages on hold or of another source are in the way: see "apt-mark showhold", try "apt-get upgrade"
TABLE
    printf 'install these by hand, then run this again: %s\n' "${Missing[*]}"
}

need_packages() {
    if ! command -v dpkg-query apt-get >/dev/null; then
        say "Not Debian or Ubuntu: taking for granted what these packages hold: ${Packages[*]}"
        return
    fi
    mapfile -t Missing < <(missing_packages "${Packages[@]}")
    ((${#Missing[@]})) || return 0
    [[ $(dpkg --print-architecture) == amd64 ]] ||
        fail "Installing packages" "use a machine with a 64-bit PC processor (amd64): Wine runs only PC programs"
    become_root "${Missing[@]}"
    local log=$LogFolder/packages.log
    mkdir -p "$LogFolder"
    say "Installing ${#Missing[@]} packages: ${Missing[*]}"
    install_missing "${Missing[@]}" >"$log" 2>&1 </dev/null || true
    mapfile -t Missing < <(missing_packages "${Packages[@]}")
    ((${#Missing[@]} == 0)) ||
        fail "Installing packages (could not get: ${Missing[*]})" "$(packages_remedy "$log")" "$log"
}
