#!/bin/sh
# Starts Morvek for a player who connects by ssh: morvek-ssh.sh [NAME]. NAME is the player's name in
# the game; the default is the name of the account. Copy this script into the game directory.
cd "$(dirname "$0")" || exit 1
# There is no terminal with scp, sftp, or ssh with a command.
if ! [ -t 0 ] || ! [ -t 1 ]; then
    echo "Morvek is played in a terminal: connect with ssh alone." >&2
    exit 1
fi
# Players with accounts of their own share the game's files by their group.
umask 007
# Prefer a copy of the program in this directory.
PATH="$PWD:/usr/local/bin:/usr/bin:/bin"
exec morvek -LOCAL -USERNAME "${1:-$(id -un)}" -CHARSET utf8 -TIMELEFT 60 -INACTIVITY 300 \
    -LOG morvek.log
