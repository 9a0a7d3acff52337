#!/bin/sh
# Starts Morvek for boards that cannot start a door in a directory of its own. Copy this script into
# the game directory, beside morvek.cfg, and have the board run it there with the program's options:
#
#   /home/bbs/morvek/morvek.sh -DROPFILE /home/bbs/node1 -ONECALLER morvek.lock -LOG morvek.log
cd "$(dirname "$0")" || exit 1
# A copy of the program that lies here goes before an installed one.
if [ -f morvek ] && [ -x morvek ]; then
    exec ./morvek "$@"
fi
PATH="$PATH:/usr/local/bin:/usr/bin"
exec morvek "$@"
