#!/bin/sh
# Starts Morvek for boards that cannot start a door in a directory of its own. Copy this script into
# the game directory, beside morvek.cfg, and let the board run it with the program's options:
#
#   /home/bbs/morvek/morvek.sh -DROPFILE /home/bbs/node1 -LOG morvek.log
cd "$(dirname "$0")" || exit 1
# Prefer a copy of the program in this directory.
if [ -f morvek ] && [ -x morvek ]; then
    exec ./morvek "$@"
fi
PATH="$PATH:/usr/local/bin:/usr/bin"
exec morvek "$@"
