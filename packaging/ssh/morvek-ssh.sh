#!/bin/sh
# Starts Morvek for a player who comes by ssh: morvek-ssh.sh [NAME]. Without NAME he plays under the
# name of his account. Copy this script into the game directory.
cd "$(dirname "$0")" || exit 1
# scp, sftp and a command behind ssh's arguments bring no terminal.
if ! [ -t 0 ] || ! [ -t 1 ]; then
    echo "Morvek is played in a terminal: connect with ssh alone." >&2
    exit 1
fi
# Players who have accounts of their own share the game's files by their group.
umask 007
# A copy of the program that lies here goes before an installed one.
PATH="$PWD:/usr/local/bin:/usr/bin:/bin"
exec morvek -LOCAL -USERNAME "${1:-$(id -un)}" -CHARSET utf8 -TIMELEFT 60 -INACTIVITY 300 \
    -ONECALLER morvek.lock -LOG morvek.log
