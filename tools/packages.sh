# shellcheck shell=bash
# Sourced by the scripts that build: finds out what is missing on this machine, says so, and
# installs it where there is apt. What is there already is found by what it does, not by a package's
# name, so that any system will do.

# What the scripts need: how it is looked for (a command, or a library that pkg-config knows), what
# is looked for, Debian's package, and the scripts that need it. The compiler's runtime for fuzzing
# is that of the clang that is there.
needs='
command  c++             build-essential      play check fuzz
command  cmake           cmake                play check fuzz
command  ninja           ninja-build          play check fuzz
command  pkg-config      pkg-config           play check fuzz
library  libtelnet       libtelnet-dev        play check fuzz
library  zlib            zlib1g-dev           play check fuzz
library  CLI11           libcli11-dev         check fuzz
library  nlohmann_json   nlohmann-json3-dev   check fuzz
library  gtest           libgtest-dev         check
library  gmock           libgmock-dev         check
command  python3         python3              check
command  telnet          inetutils-telnet     check
command  file            file                 check
command  dpkg-shlibdeps  dpkg-dev             check
command  unzip           unzip                check
command  dot             graphviz             check pictures
command  hjson-cli       hjson-go             check
command  ssh             openssh-client       check
command  sshd            openssh-server       check
command  clang++         clang                fuzz
runtime  fuzzer          libclang-rt-dev      fuzz
command  ansilove        ansilove             pictures
command  debootstrap     debootstrap          empty-debian
command  git             git                  empty-debian
'

is_there() {
    case $1 in
    command) PATH=$PATH:/usr/sbin:/sbin command -v "$2" >/dev/null 2>&1 ;;
    library) command -v pkg-config >/dev/null 2>&1 && pkg-config --exists "$2" ;;
    runtime) compgen -G "$(clang --print-resource-dir 2>/dev/null)/lib/linux/libclang_rt.$2-*.a" >/dev/null ;;
    esac
}

# The package of clang's runtime: that of its version, or of the clang that is to be installed.
runtime_package() {
    local version
    version=$(clang -dumpversion 2>/dev/null) || true
    echo "libclang-rt-${version:+${version%%.*}-}dev"
}

# Prints the packages that a script needs and that are missing.
missing_packages() {
    local kind name package scripts
    while read -r kind name package scripts; do
        if [[ " $scripts " == *" $1 "* ]] && ! is_there "$kind" "$name"; then
            [ "$kind" != runtime ] || package=$(runtime_package)
            echo "$package"
        fi
    done <<<"$needs"
}

# need SCRIPT: installs what it misses, or says which packages to install and ends with status 1.
need() {
    local missing as_root=()
    mapfile -t missing < <(missing_packages "$1")
    [ ${#missing[@]} -gt 0 ] || return 0
    echo "Missing on this machine: ${missing[*]}"
    if ! command -v apt-get >/dev/null 2>&1; then
        echo "Please install them (these are Debian's names for the packages), then try again." >&2
        exit 1
    fi
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null 2>&1; then
            echo "Please run as root: apt-get install ${missing[*]}" >&2
            exit 1
        fi
        as_root=(sudo)
    fi
    echo "Installing them with apt-get${as_root[0]:+ and sudo}."
    "${as_root[@]}" apt-get -qq update || echo "apt-get update failed; trying with the old list." >&2
    if ! "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -y \
        --no-install-recommends install "${missing[@]}" </dev/null | progress; then
        echo "That failed. Please install by hand: ${missing[*]}" >&2
        exit 1
    fi
    # A test starts a server of its own; the system's is not wanted because of it.
    if [[ " ${missing[*]} " == *" openssh-server "* ]] && [ -d /run/systemd/system ]; then
        "${as_root[@]}" systemctl disable --now ssh.service ssh.socket >/dev/null 2>&1 || true
    fi
}

# Shows of the lines at standard input the newest: on a terminal in place, elsewhere now and then.
progress() {
    local line shown=$SECONDS
    while IFS= read -r line; do
        if [ -t 1 ]; then
            printf '\r\033[K%.78s' "$line"
        elif ((SECONDS >= shown + 15)); then
            printf '  %.78s\n' "$line"
            shown=$SECONDS
        fi
    done
    [ ! -t 1 ] || printf '\r\033[K'
}

# need_writable PATH...: ends with status 1 and one line when something at or below these cannot be
# written by the one who runs this.
need_writable() {
    local path found
    for path; do
        [ -e "$path" ] || continue
        found=$(find "$path" ! -type l ! -writable -print -quit)
        if [ -n "$found" ]; then
            echo "Not writable: $PWD/$found. Did root build here? Then run: sudo chown -R $(id -un) ${path%%/*}" >&2
            exit 1
        fi
    done
}

# build_preset PRESET TEXT: says the text, configures and builds; the whole output is shown only when
# something is wrong.
build_preset() {
    local log="build/$1.log"
    mkdir -p build/"$1" || exit 1
    need_writable build/"$1" "$log"
    [ -z "$2" ] || echo "$2"
    if ! { cmake --preset "$1" && cmake --build --preset "$1"; } </dev/null 2>&1 |
        tee "$log" | progress; then
        cat "$log" >&2
        echo "The build failed; its output stands above and in $log." >&2
        exit 1
    fi
}
