#!/bin/sh
# The script that Magicka starts for Morvek, with the number of the node (see doors.ini). Copy it
# into the game directory, and morvek.sh beside it; write your board's directory here:
board="/home/bbs/magicka"
exec "$(dirname "$0")/morvek.sh" -D "$board/node$1" -STDIO -ONECALLER morvek.lock -LOG morvek.log
