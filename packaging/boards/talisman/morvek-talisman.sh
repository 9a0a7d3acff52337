#!/bin/sh
# The script to enter for Morvek among Talisman's doors. Talisman gives it the number of the node.
# Copy it into the game directory, and morvek.sh beside it; write your board's directory here:
board="/home/bbs/talisman"
exec "$(dirname "$0")/morvek.sh" -D "$board/temp/$1" -STDIO -ONECALLER morvek.lock -LOG morvek.log
