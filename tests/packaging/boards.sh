#!/usr/bin/env bash
# Starts the program as each board does with its configuration in packaging/boards, with the board's
# kind of drop file, and plays up to the first save: the new character must belong to the caller whom
# that drop file names. Where the configuration relies on the lock, a second caller must be sent away.
#   boards.sh PROGRAM SYSOP BOARDS MENUS
set -euo pipefail
program=$1 sysop=$2 boards=$3 menus=$4
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
game=$home/morvek
keys='SArwen\ry2xqqxq'

fail() {
    echo "$board: $*" >&2
    exit 1
}

# As an operator does who keeps the game and his boards elsewhere than the configurations say.
adapted() {
    sed "s|/home/bbs/|$home/|g; s|/usr/bin/morvek|$program|g" "$1"
}

# The text that follows what the pattern matches, in the board's configuration.
entry() {
    adapted "$boards/$board/$1" | sed -n "s|^ *$2||p"
}

door32() {
    mkdir -p "$(dirname "$1")"
    printf '%s\r\n' 2 -1 0 Board 1 'Real Name' "$board" 50 40 1 1 >"$1"
}

chain_txt() {
    mkdir -p "$(dirname "$1")"
    { printf '%s\n' 1 "$board" 'Real Name' '' 21 M 0 06/01/26 80 25 50 0 0 1 1 2400.00
      printf '0\n%.0s' {17..32}; } >"$1"
}

door_sys() {
    mkdir -p "$(dirname "$1")"
    { printf '%s\r\n' COM1: 38400 8 1 38400 N N N N "$board" Towne 1 1 secret 50 1 01/01/26 2400 40 GR
      printf '0\r\n%.0s' {21..31}; } >"$1"
}

# start DIRECTORY COMMAND LINE: as the board does it, in that directory; the status is the program's.
start() {
    local words
    read -ra words <<<"$2"
    (cd "$1" && printf '%b' "$keys" | timeout 10 "${words[@]}" >"$home/screen" 2>&1)
}

plays() {
    "$sysop" --game "$game" reset --force >/dev/null # each caller is the game's first
    start "$@" || fail "status $? of $2: $(tail -n 3 "$home/screen")"
    "$sysop" --game "$game" players --json | grep -q "\"$board\"" || fail "another caller played: $2"
}

turns_second_caller_away() {
    local status=0
    flock "$game/morvek.lock" true
    exec 9<"$game/morvek.lock"
    flock 9
    start "$@" 9<&- || status=$?
    exec 9<&-
    [ "$status" -eq 5 ] || fail "a second caller ended with status $status: $2"
}

"$sysop" init "$game" --board "The Oak" --menus "$menus" >/dev/null
ln -s "$program" "$game/morvek"
for script in "$boards"/*.sh "$boards"/*/*.sh; do
    adapted "$script" >"$game/$(basename "$script")"
    chmod +x "$game/$(basename "$script")"
done

board=enigma
door32 "$home/drop/DOOR32.SYS"
command="$(entry morvek.hjson 'cmd: ') $(entry morvek.hjson 'args: ' | tr -d '[],"')"
plays "$(entry morvek.hjson 'cwd: ')" "${command//\{dropFilePath\}/$home/drop/DOOR32.SYS}"

board=synchronet
door32 "$home/node1/door32.sys"
command=$(sed -n 's/^cmd *= *//p' "$boards/$board/install-xtrn.ini")
[ ${#command} -lt 100 ] || fail "the command is too long for the board"
command=$(entry install-xtrn.ini 'cmd *= *')
plays "$(entry install-xtrn.ini 'startup_dir *= *')" "${command//%f/$home/node1/door32.sys}"

board=wwiv
chain_txt "$home/wwiv/CHAIN.TXT"
command=$(entry morvek.txt 'Filename: *')
plays / "${command//%C/$home/wwiv/CHAIN.TXT}"

board=mystic
door32 "$home/mystic/temp1/door32.sys"
command=$(entry morvek.txt 'Data: *')
plays / "${command//%P/$home/mystic/temp1/}"
turns_second_caller_away / "${command//%P/$home/mystic/temp1/}"

board=talisman
door32 "$home/talisman/temp/1/door32.sys"
plays / "$game/morvek-talisman.sh 1"
turns_second_caller_away / "$game/morvek-talisman.sh 1"

board=magicka
door32 "$home/magicka/node1/door32.sys"
plays / "$(entry doors.ini 'command = ') 1"
turns_second_caller_away / "$(entry doors.ini 'command = ') 1"

board=mbse
door_sys "$home/users/alice/door.sys"
HOME=$home/users/alice plays / "$(entry morvek.txt 'Opt. data: *')"
HOME=$home/users/alice turns_second_caller_away / "$(entry morvek.txt 'Opt. data: *')"

board=maximus
door32 "$home/maximus/node1/door32.sys"
command=$(adapted "$boards/$board/morvek.txt" | grep '^/.*morvek\.sh')
plays / "${command//%k/1}"
turns_second_caller_away / "${command//%k/1}"
