# Sourced by ./play and ./check: finds out what is missing on this machine, says so, and installs
# it where there is apt. What is there already is found by what it does, not by a package's name,
# so that any system will do.

missing=()

# need_command COMMAND PACKAGE
need_command() {
    command -v "$1" >/dev/null 2>&1 || missing+=("$2")
}

# need_library PKG-CONFIG-NAME PACKAGE
need_library() {
    if ! command -v pkg-config >/dev/null 2>&1 || ! pkg-config --exists "$1"; then
        missing+=("$2")
    fi
}

# Installs what was found missing, or says which packages to install and ends with status 1.
install_missing() {
    [ ${#missing[@]} -gt 0 ] || return 0
    echo "Missing on this machine: ${missing[*]}"
    if ! command -v apt-get >/dev/null 2>&1; then
        echo "Please install them (these are Debian's names for the packages), then try again." >&2
        exit 1
    fi
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null 2>&1; then
            echo "Please run as root: apt-get install ${missing[*]}" >&2
            exit 1
        fi
        as_root=(sudo)
    fi
    echo "Installing them with apt-get${as_root[0]:+ and sudo}..."
    "${as_root[@]}" apt-get -qq update || echo "apt-get update failed; trying with the old list." >&2
    if ! "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get -qq -y --no-install-recommends install "${missing[@]}" >/dev/null; then
        echo "That failed. Please install by hand: ${missing[*]}" >&2
        exit 1
    fi
}

# build_preset PRESET: configures and builds, and shows the output only when something is wrong.
build_preset() {
    local log="build/$1.log"
    mkdir -p build
    if ! { cmake --preset "$1" && cmake --build --preset "$1"; } >"$log" 2>&1; then
        cat "$log" >&2
        echo "The build failed; its output stands above and in $log." >&2
        exit 1
    fi
}
