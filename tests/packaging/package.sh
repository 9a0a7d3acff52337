#!/usr/bin/env bash
# Builds the release and its two packages in the directory BUILD, which it keeps for the next time,
# installs it and removes it again, and plays from both packages: the archive where it is unpacked;
# the Debian package too, or by root installed into this system and removed again without a trace.
#   package.sh SOURCE BUILD
set -euo pipefail
source=$1 build=$2
work=$(mktemp -d)
installed=
trap '[ -z "$installed" ] || dpkg --purge morvek; rm -rf "$work"' EXIT

fail() {
    echo "$*" >&2
    exit 1
}

skip() {
    echo "Skipped: $*"
    exit 77
}

# plays MORVEK SYSOP GAME [OPTION...]: makes the game, with these options, and has a caller of that
# board play up to the first save.
plays() {
    "$2" init "$3" --board "The Oak" "${@:4}"
    printf '%s\r\n' 2 -1 0 Board 1 'Real Name' Alice 50 40 1 1 >"$3/DOOR32.SYS"
    (cd "$3" && printf 'SArwen\ry2xqqxq' | timeout 10 "$1" -D DOOR32.SYS >screen) ||
        fail "$1 ended with status $?"
    grep -q "The Oak" "$3/screen" || fail "$1 does not know its board"
    "$2" --game "$3" players | grep -q Alice || fail "$1 has not saved the caller's character"
    "$2" --game "$3" check
}

{
    cmake -S "$source" --preset release -B "$build" -DMORVEK_SYSOP=ON
    cmake --build "$build" --parallel 2
} >"$work/log" 2>&1 || fail "$(cat "$work/log")"

prefix="$work/a prefix"
mkdir -p "$prefix/share/doc/other"
rm -f "$build/install_manifest.txt"
cmake --install "$build" --prefix "$prefix" >"$work/log" || fail "$(cat "$work/log")"
"$prefix/bin/morvek-sysop" --version >"$work/version"
(
    PATH="$prefix/bin:$PATH"
    . "$prefix/share/bash-completion/completions/morvek-sysop"
    COMP_WORDS=(morvek-sysop remove --t) COMP_CWORD=2
    _morvek_sysop
    [ "${COMPREPLY[*]}" = --traces ]
) || fail "the completion does not know an option"
cp "$build/install_manifest.txt" "$work/manifest"
chmod a-w "$build/install_manifest.txt" # as root's would be

cd "$work"
cpack --config "$build/CPackConfig.cmake" -G ZIP -B "$work" >log 2>&1 || fail "$(cat log)"
mkdir unpacked
(cd unpacked && cmake -E tar xf ../morvek.zip)
objdump -p unpacked/morvek unpacked/morvek-sysop | awk '/NEEDED/ { print $2 }' |
    { ! grep -vE '^(lib(c|m|stdc\+\+|gcc_s)|ld-linux-.*)\.so\.[0-9]+$'; } ||
    fail "the archive's programs need these libraries"
awk '!/^[ -~]*\r$/ || length > 46 || NR > 10 { exit 1 }' unpacked/FILE_ID.DIZ ||
    fail "FILE_ID.DIZ is not what boards show"
[ -s unpacked/docs/guide-caller.asc ] && [ -s unpacked/docs/guide-caller.ans ] ||
    fail "the archive has no bulletins for callers"
plays "$work/unpacked/morvek" "$work/unpacked/morvek-sysop" "$work/game"
grep -roE '\]\([^):#]+' unpacked/docs --include='*.md' | while IFS=: read -r guide link; do
    [ -e "$(dirname "$guide")/${link#](}" ] || fail "$guide names ${link#](}, which is not there"
done

command -v dpkg-shlibdeps >/dev/null || skip "no dpkg-dev here; the archive is good"
cpack --config "$build/CPackConfig.cmake" -G DEB -B "$work" >log 2>&1 || fail "$(cat log)"
package=$(echo "$work"/morvek_*.deb)
[ "$(dpkg-deb --field "$package" Version)" = "$(cat version)" ] || fail "the versions differ"
cmp "$build/install_manifest.txt" manifest || fail "the packages overwrite what is known of the installation"
cmake -P "$build/uninstall.cmake" >log 2>&1 || fail "$(cat log)"
[ "$(cd "$prefix" && find . -not -type d -o -path '*morvek*')" = "" ] ||
    fail "left behind: $(find "$prefix")"
[ -d "$prefix/share/doc/other" ] || fail "uninstalling took what is not the game's"
dpkg-deb --fsys-tarfile "$package" | tar -t | sed 's|^\.||' >contents
! grep -vE '^/(usr/((bin|share)/.*)?)?$' contents || fail "these are out of place"
if [ "$(id -u)" -ne 0 ]; then
    dpkg-deb --extract "$package" tree
    plays "$PWD/tree/usr/bin/morvek" "$PWD/tree/usr/bin/morvek-sysop" "$work/tree-game" \
        --menus tree/usr/share/morvek/menus
    exit 0
fi
! dpkg --status morvek >status 2>/dev/null || skip "a package of this name is installed already"

installed=yes
dpkg --install "$package"
plays /usr/bin/morvek /usr/bin/morvek-sysop "$work/installed-game"
dpkg --remove morvek
installed=
! dpkg --status morvek >status 2>&1 || fail "still installed: $(cat status)"
while read -r path; do
    case $path in
    */morvek*) [ ! -e "$path" ] || fail "left behind: $path" ;;
    esac
done <contents
