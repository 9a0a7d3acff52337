#!/bin/sh
# Magicka starts this script with the number of the node (see doors.ini). Copy it and morvek.sh into
# the game directory, and set your board's directory here:
board="/home/bbs/magicka"
exec "$(dirname "$0")/morvek.sh" -D "$board/node$1" -STDIO -LOG morvek.log
