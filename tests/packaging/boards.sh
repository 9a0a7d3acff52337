#!/usr/bin/env bash
# Starts the program as each board does with its configuration in packaging/boards, with the board's
# kind of drop file, and plays up to the first save: the new character must belong to the caller whom
# that drop file names. Where the configuration relies on the lock, a second caller must be sent away.
#   boards.sh PROGRAM SYSOP BOARDS MENUS
set -euo pipefail
sysop=$2 boards=$3 menus=$4
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
# The configurations' command lines part at blanks, and the program's path may have some.
program=$home/morvek-program
ln -s "$1" "$program"
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

# The lines of each kind of drop file.
door32() {
    printf '%s\r\n' 2 -1 0 Board 1 'Real Name' "$board" 50 40 1 1
}

chain_txt() {
    printf '%s\n' 1 "$board" 'Real Name' '' 21 M 0 06/01/26 80 25 50 0 0 1 1 2400.00
    printf '0\n%.0s' {17..32}
}

door_sys() {
    printf '%s\r\n' COM1: 38400 8 1 38400 N N N N "$board" Towne 1 1 secret 50 1 01/01/26 2400 40 GR
    printf '0\r\n%.0s' {21..31}
}

# start DIRECTORY COMMAND LINE: as the board does it, in that directory; the status is the program's.
start() {
    local words
    read -ra words <<<"$2"
    (cd "$1" && printf '%b' "$keys" | timeout 10 "${words[@]}" >"$home/screen" 2>&1)
}

# plays KIND DROP-FILE DIRECTORY COMMAND: a first caller of this board, who has that drop file.
plays() {
    mkdir -p "$(dirname "$home/$2")"
    "$1" >"$home/$2"
    "$sysop" --game "$game" reset --force >/dev/null
    start "$3" "$4" || fail "status $? of $4: $(tail -n 3 "$home/screen")"
    "$sysop" --game "$game" players --json | grep -q "\"$board\"" || fail "another caller played: $4"
}

# And while he plays, a second one is turned away.
plays_alone() {
    local status=0
    plays "$@"
    exec 9<"$game/morvek.lock"
    flock 9
    start "$3" "$4" 9<&- || status=$?
    exec 9<&-
    [ "$status" -eq 5 ] || fail "a second caller ended with status $status: $4"
}

"$sysop" init "$game" --board "The Oak" --menus "$menus" >/dev/null
ln -s "$program" "$game/morvek"
for script in "$boards"/*.sh "$boards"/*/*.sh; do
    adapted "$script" >"$game/$(basename "$script")"
    chmod +x "$game/$(basename "$script")"
done

board=enigma
command="$(entry morvek.hjson 'cmd: ') $(entry morvek.hjson 'args: ' | tr -d '[],"')"
plays door32 drop/DOOR32.SYS "$(entry morvek.hjson 'cwd: ')" \
    "${command//\{dropFilePath\}/$home/drop/DOOR32.SYS}"

board=synchronet
command=$(sed -n 's/^cmd *= *//p' "$boards/$board/install-xtrn.ini")
[ ${#command} -lt 100 ] || fail "the command is too long for the board"
command=$(entry install-xtrn.ini 'cmd *= *')
plays door32 node1/door32.sys "$(entry install-xtrn.ini 'startup_dir *= *')" \
    "${command//%f/$home/node1/door32.sys}"

board=wwiv
command=$(entry morvek.txt 'Filename: *')
plays chain_txt wwiv/CHAIN.TXT / "${command//%C/$home/wwiv/CHAIN.TXT}"

board=mystic
command=$(entry morvek.txt 'Data: *')
plays_alone door32 mystic/temp1/door32.sys / "${command//%P/$home/mystic/temp1/}"

board=talisman
plays_alone door32 talisman/temp/1/door32.sys / "$game/morvek-talisman.sh 1"

board=magicka
plays_alone door32 magicka/node1/door32.sys / "$(entry doors.ini 'command = ') 1"

board=mbse
HOME=$home/users/alice plays_alone door_sys users/alice/door.sys / "$(entry morvek.txt 'Opt. data: *')"

board=maximus
command=$(adapted "$boards/$board/morvek.txt" | grep '^/.*morvek\.sh')
plays_alone door32 maximus/node1/door32.sys / "${command//%k/1}"
