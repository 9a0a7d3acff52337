# shellcheck shell=bash
# Sourced by the scripts that build: finds missing packages, prints them, and installs them with apt
# if possible. It looks for commands and libraries, not for packages, so it works on any system.

# The needs of the scripts: kind (a command, a library of pkg-config, or clang's runtime for
# fuzzing), name, Debian's package, and the scripts that need it.
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

# The package of clang's runtime, for the installed version or for the default one.
runtime_package() {
    local version
    version=$(clang -dumpversion 2>/dev/null) || true
    echo "libclang-rt-${version:+${version%%.*}-}dev"
}

# missing_packages SCRIPT: prints the missing packages.
missing_packages() {
    local kind name package scripts
    while read -r kind name package scripts; do
        if [[ " $scripts " == *" $1 "* ]] && ! is_there "$kind" "$name"; then
            [ "$kind" != runtime ] || package=$(runtime_package)
            echo "$package"
        fi
    done <<<"$needs"
}

# need SCRIPT: installs its missing packages, or prints them and exits with status 1.
need() {
    local missing as_root=()
    mapfile -t missing < <(missing_packages "$1")
    [ ${#missing[@]} -gt 0 ] || return 0
    echo "Missing on this machine: ${missing[*]}"
    if ! command -v apt-get >/dev/null 2>&1; then
        echo "Install them (the names are Debian's), then try again." >&2
        exit 1
    fi
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null 2>&1; then
            echo "Run as root: apt-get install ${missing[*]}" >&2
            exit 1
        fi
        as_root=(sudo)
    fi
    echo "Installing them with apt-get${as_root[0]:+ and sudo}."
    "${as_root[@]}" apt-get -qq update || echo "apt-get update failed; using the old list." >&2
    if ! "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -y \
        --no-install-recommends install "${missing[@]}" </dev/null | progress; then
        echo "apt-get failed. Install by hand: ${missing[*]}" >&2
        exit 1
    fi
    # The test starts its own sshd; do not leave the system's one running.
    if [[ " ${missing[*]} " == *" openssh-server "* ]] && [ -d /run/systemd/system ]; then
        "${as_root[@]}" systemctl disable --now ssh.service ssh.socket >/dev/null 2>&1 || true
    fi
}

# Shows the latest line of standard input: in place on a terminal, else every 15 seconds.
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

# need_writable PATH...: exits with status 1 and one line if the user cannot write something at or
# below a path.
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

# build_preset PRESET TEXT: prints TEXT, configures and builds; shows the whole output only if that
# fails.
build_preset() {
    local log="build/$1.log"
    mkdir -p build/"$1" || exit 1
    need_writable build/"$1" "$log"
    [ -z "$2" ] || echo "$2"
    if ! { cmake --preset "$1" && cmake --build --preset "$1"; } </dev/null 2>&1 |
        tee "$log" | progress; then
        cat "$log" >&2
        echo "The build failed; the output is above and in $log." >&2
        exit 1
    fi
}
